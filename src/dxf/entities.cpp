#include <zucomn/dxf.h>

#include "entity_fields.h"
#include "part_memory.h"

#include "dxf_records/number_text.h"
#include "frame/text_view.h"

#include <algorithm>
#include <array>

// Where libraries are imported, programs may refer to these constants by their addresses.
constexpr short CEnt::kByBlock;
constexpr short CEnt::kByLayer;
constexpr short CEnt::kWeightByLayer;
constexpr short CEnt::kWeightByBlock;
constexpr short CEnt::kWeightDefault;

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

CString decoded(const zu::dxf::KeptText* text) {
    return text != nullptr ? text->form->decode(text->bytes()) : CString();
}

} // namespace

const wchar_t* CEnt::GetTypeName() const {
    return kTypeNames[static_cast<std::size_t>(m_type)];
}

CString CEnt::GetHandle() const {
    if (!Has(5))
        return {};
    const std::string digits = zuhost::formatHandle(handle_);
    return zu::textOf(std::wstring(digits.begin(), digits.end()));
}

bool CEnt::Has(int code) const {
    return (present_ & zu::dxf::presenceBit(code)) != 0;
}

const CString& CEnt::nameOf(const CString* name) {
    static const CString none;
    return name != nullptr ? *name : none;
}

CString CText::GetText() const {
    return decoded(text_);
}

std::vector<CString> CMtext::GetParts() const {
    std::vector<CString> parts(parts_.count);
    std::transform(parts_.items, parts_.items + parts_.count, parts.begin(),
                   [](const zu::dxf::KeptPart& part) { return decoded(part.text); });
    return parts;
}

CString CMtext::GetText() const {
    return decoded(text_);
}

CString CMtext::GetFullText() const {
    CString text;
    for (const CString& part : GetParts())
        text += part;
    return text + GetText();
}

CString CDim::GetText() const {
    return decoded(text_);
}

void CEntList::Free() {
    while (IsEmpty() == FALSE)
        delete RemoveHead();
    memory_.clear();
}

void CEntList::Share(std::shared_ptr<zu::dxf::PartMemory> memory) {
    if (memory_.empty() || memory_.back() != memory)
        memory_.push_back(std::move(memory));
}
