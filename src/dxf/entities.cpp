#include <zucomn/dxf.h>

#include "field.h"

#include "drawing/number_text.h"

#include <array>

IMPLEMENT_DYNAMIC(CEnt, CObject)
IMPLEMENT_DYNAMIC(CLine, CEnt)
IMPLEMENT_DYNAMIC(CLwPline, CEnt)
IMPLEMENT_DYNAMIC(CCircle, CEnt)
IMPLEMENT_DYNAMIC(CArc, CEnt)
IMPLEMENT_DYNAMIC(CEllipse, CEnt)
IMPLEMENT_DYNAMIC(CVertex, CEnt)
IMPLEMENT_DYNAMIC(CPline, CEnt)
IMPLEMENT_DYNAMIC(CInsert, CEnt)
IMPLEMENT_DYNAMIC(CText, CEnt)
IMPLEMENT_DYNAMIC(CMtext, CEnt)
IMPLEMENT_DYNAMIC(CDim, CEnt)
IMPLEMENT_DYNAMIC(CAcPoint, CEnt)

namespace {

constexpr std::array kTypeNames{L"LINE",   L"LWPOLYLINE", L"CIRCLE", L"ARC",   L"ELLIPSE",   L"POLYLINE",
                                L"VERTEX", L"INSERT",     L"TEXT",   L"MTEXT", L"DIMENSION", L"POINT"};

/// The group codes whose presence an entity remembers, one bit each.
constexpr std::array kMarkedCodes{1,  2,  3,  4,  5,  7,  8,  10, 11, 20, 21, 40,  41,
                                  42, 44, 45, 50, 51, 62, 67, 70, 71, 72, 73, 230, 370};
static_assert(kMarkedCodes.size() <= 32);
constexpr int kLargestMarkedCode = kMarkedCodes.back();

constexpr auto kBits = [] {
    std::array<std::uint32_t, kLargestMarkedCode + 1> bits{};
    std::uint32_t bit = 1;
    for (const int code : kMarkedCodes) {
        bits[static_cast<std::size_t>(code)] = bit;
        bit <<= 1U;
    }
    return bits;
}();

constexpr std::uint32_t bitOf(int code) {
    return code >= 0 && code <= kLargestMarkedCode ? kBits[static_cast<std::size_t>(code)] : 0;
}

const CString& noName() {
    static const CString empty;
    return empty;
}

} // namespace

// ---- common to all

CEnt::CEnt(EntType type) : m_type(type), layer_(&noName()) {}

const wchar_t* CEnt::GetTypeName() const {
    return kTypeNames[static_cast<std::size_t>(m_type)];
}

CString CEnt::GetHandle() const {
    if (!Has(5))
        return {};
    const std::string digits = zuhost::formatHandle(handle_);
    return CString(std::wstring(digits.begin(), digits.end()));
}

bool CEnt::Has(int code) const {
    return (present_ & bitOf(code)) != 0;
}

void CEnt::mark(int code) {
    present_ |= bitOf(code);
}

void CEnt::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 5:
        if (const auto handle = zuhost::parseHandle(field.raw()))
            handle_ = *handle;
        else
            return;
        break;
    case 8:
        layer_ = &field.name();
        break;
    case 62:
        m_color = static_cast<short>(field.integer());
        break;
    case 67:
        m_paper = field.integer() != 0;
        break;
    case 230:
        m_mirrored = field.real() < 0;
        break;
    case 370:
        m_lineWeight = static_cast<short>(field.integer());
        break;
    default:
        return;
    }
    mark(field.code());
}

void CEntList::Free() {
    while (IsEmpty() == FALSE)
        delete RemoveHead();
}

// ---- what each type takes beyond that

void CLine::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 10:
        m_x1 = field.real();
        break;
    case 20:
        m_y1 = field.real();
        break;
    case 11:
        m_x2 = field.real();
        break;
    case 21:
        m_y2 = field.real();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

void CLwPline::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 10:
        m_points.push_back({field.real(), 0, 0});
        break;
    case 20:
        if (!m_points.empty())
            m_points.back().y = field.real();
        break;
    case 42:
        if (!m_points.empty())
            m_points.back().bulge = field.real();
        break;
    case 70:
        m_flags = field.integer();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

void CCircle::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    case 40:
        m_radius = field.real();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

void CArc::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    case 40:
        m_radius = field.real();
        break;
    case 50:
        m_start = field.real();
        break;
    case 51:
        m_end = field.real();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

void CEllipse::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    case 11:
        m_majorX = field.real();
        break;
    case 21:
        m_majorY = field.real();
        break;
    case 40:
        m_ratio = field.real();
        break;
    case 41:
        m_start = field.real();
        break;
    case 42:
        m_end = field.real();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

void CVertex::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    case 40:
        m_startWidth = field.real();
        break;
    case 41:
        m_endWidth = field.real();
        break;
    case 42:
        m_bulge = field.real();
        break;
    case 70:
        m_flags = field.integer();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

void CPline::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 70:
        m_flags = field.integer();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

CInsert::CInsert() : CEnt(EntType::insert), block_(&noName()) {}

void CInsert::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 2:
        block_ = &field.name();
        break;
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    case 41:
        m_xScale = field.real();
        break;
    case 42:
        m_yScale = field.real();
        break;
    case 44:
        m_columnSpacing = field.real();
        break;
    case 45:
        m_rowSpacing = field.real();
        break;
    case 50:
        m_rotation = field.real();
        break;
    case 70:
        m_columns = field.integer();
        break;
    case 71:
        m_rows = field.integer();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

CText::CText() : CEnt(EntType::text), style_(&noName()) {}

void CText::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 1:
        m_text = field.text();
        break;
    case 7:
        style_ = &field.name();
        break;
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    case 11:
        m_x2 = field.real();
        break;
    case 21:
        m_y2 = field.real();
        break;
    case 40:
        m_height = field.real();
        break;
    case 41:
        m_width = field.real();
        break;
    case 50:
        m_rotation = field.real();
        break;
    case 51:
        m_oblique = field.real();
        break;
    case 72:
        m_halign = field.integer();
        break;
    case 73:
        m_valign = field.integer();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

CMtext::CMtext() : CEnt(EntType::mtext), style_(&noName()) {}

void CMtext::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 1:
        m_text = field.text();
        break;
    case 3:
        m_parts.push_back(field.text());
        break;
    case 7:
        style_ = &field.name();
        break;
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    case 11:
        m_x2 = field.real();
        break;
    case 21:
        m_y2 = field.real();
        break;
    case 40:
        m_height = field.real();
        break;
    case 41:
        m_width = field.real();
        break;
    case 50:
        m_rotation = field.real();
        break;
    case 71:
        m_attach = field.integer();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

CString CMtext::GetFullText() const {
    CString text;
    for (const CString& part : m_parts)
        text += part;
    return text + m_text;
}

CDim::CDim() : CEnt(EntType::dimension), block_(&noName()), style_(&noName()) {}

void CDim::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 1:
        m_text = field.text();
        break;
    case 2:
        block_ = &field.name();
        break;
    case 3:
        style_ = &field.name();
        break;
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    case 11:
        m_x2 = field.real();
        break;
    case 21:
        m_y2 = field.real();
        break;
    case 50:
        m_angle = field.real();
        break;
    case 70:
        m_flags = field.integer();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}

void CAcPoint::Set(const zu::dxf::Field& field) {
    switch (field.code()) {
    case 10:
        m_x = field.real();
        break;
    case 20:
        m_y = field.real();
        break;
    default:
        CEnt::Set(field);
        return;
    }
    mark(field.code());
}
