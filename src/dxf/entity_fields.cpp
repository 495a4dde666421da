#include "entity_fields.h"

#include <initializer_list>

namespace zu::dxf {

namespace {

/// A rule with its group code.
struct Entry {
    int code;
    FieldRule rule;
};

constexpr Entry entry(int code, FieldKind kind) {
    FieldRule rule;
    rule.kind = kind;
    rule.bit = kind != FieldKind::embedded ? presenceBit(code) : 0;
    return {code, rule};
}

template <typename Entity>
constexpr Entry field(int code, double Entity::*member) {
    Entry made = entry(code, FieldKind::real);
    made.rule.real = static_cast<double CEnt::*>(member);
    return made;
}

template <typename Entity>
constexpr Entry field(int code, int Entity::*member) {
    Entry made = entry(code, FieldKind::integer);
    made.rule.integer = static_cast<int CEnt::*>(member);
    return made;
}

template <typename Entity>
constexpr Entry field(int code, short Entity::*member) {
    Entry made = entry(code, FieldKind::shortInteger);
    made.rule.shortInteger = static_cast<short CEnt::*>(member);
    return made;
}

template <typename Entity>
constexpr Entry field(int code, const KeptText* Entity::*member) {
    Entry made = entry(code, FieldKind::text);
    made.rule.text = static_cast<const KeptText * CEnt::*>(member);
    return made;
}

template <typename Entity>
constexpr Entry field(int code, const CString* Entity::*member) {
    Entry made = entry(code, FieldKind::name);
    made.rule.name = static_cast<const CString * CEnt::*>(member);
    return made;
}

template <typename Entity>
CEnt* make(Arena& arena) {
    return new (arena) Entity;
}

constexpr FieldRules with(FieldRules rules, std::initializer_list<Entry> entries) {
    for (const Entry& e : entries)
        rules[ruleIndex(e.code)] = e.rule;
    return rules;
}

} // namespace

struct EntityFields::Types {
    static constexpr FieldRules common =
        with({}, {entry(5, FieldKind::handle), field(8, &CEnt::layer_), entry(62, FieldKind::color),
                  entry(67, FieldKind::paper), entry(230, FieldKind::mirrored),
                  field(370, &CEnt::m_lineWeight), entry(101, FieldKind::embedded)});

    static constexpr KeptType line{EntType::line, make<CLine>,
                                   with(common, {field(10, &CLine::m_x1), field(20, &CLine::m_y1),
                                                 field(11, &CLine::m_x2), field(21, &CLine::m_y2)})};
    static constexpr KeptType lwPolyline{
        EntType::lwPolyline, make<CLwPline>,
        with(common, {entry(10, FieldKind::pointX), entry(20, FieldKind::pointY),
                      entry(40, FieldKind::pointStartWidth), entry(41, FieldKind::pointEndWidth),
                      entry(42, FieldKind::pointBulge), field(43, &CLwPline::m_width),
                      field(70, &CLwPline::m_flags)})};
    static constexpr KeptType circle{
        EntType::circle, make<CCircle>,
        with(common, {field(10, &CCircle::m_x), field(20, &CCircle::m_y), field(40, &CCircle::m_radius)})};
    static constexpr KeptType arc{
        EntType::arc, make<CArc>,
        with(common, {field(10, &CArc::m_x), field(20, &CArc::m_y), field(40, &CArc::m_radius),
                      field(50, &CArc::m_start), field(51, &CArc::m_end)})};
    static constexpr KeptType ellipse{
        EntType::ellipse, make<CEllipse>,
        with(common, {field(10, &CEllipse::m_x), field(20, &CEllipse::m_y), field(11, &CEllipse::m_majorX),
                      field(21, &CEllipse::m_majorY), field(40, &CEllipse::m_ratio),
                      field(41, &CEllipse::m_start), field(42, &CEllipse::m_end)})};
    static constexpr KeptType polyline{
        EntType::polyline, make<CPline>,
        with(common,
             {field(40, &CPline::m_startWidth), field(41, &CPline::m_endWidth), field(70, &CPline::m_flags),
              field(71, &CPline::m_rows), field(72, &CPline::m_columns), field(73, &CPline::m_density)})};
    static constexpr KeptType vertex{
        EntType::vertex, make<CVertex>,
        with(common,
             {field(10, &CVertex::m_x), field(20, &CVertex::m_y), field(40, &CVertex::m_startWidth),
              field(41, &CVertex::m_endWidth), field(42, &CVertex::m_bulge), field(50, &CVertex::m_tangent),
              field(70, &CVertex::m_flags), field(71, &CVertex::m_corner1), field(72, &CVertex::m_corner2),
              field(73, &CVertex::m_corner3)})};
    static constexpr KeptType insert{
        EntType::insert, make<CInsert>,
        with(common,
             {field(2, &CInsert::block_), field(10, &CInsert::m_x), field(20, &CInsert::m_y),
              field(41, &CInsert::m_xScale), field(42, &CInsert::m_yScale),
              field(44, &CInsert::m_columnSpacing), field(45, &CInsert::m_rowSpacing),
              field(50, &CInsert::m_rotation), field(70, &CInsert::m_columns), field(71, &CInsert::m_rows)})};

    /// The fields that TEXT and MTEXT share.
    template <typename Text>
    static constexpr FieldRules writing = with(common, {field(1, &Text::text_), field(7, &Text::style_),
                                                        field(10, &Text::m_x), field(20, &Text::m_y),
                                                        field(11, &Text::m_x2), field(21, &Text::m_y2),
                                                        field(40, &Text::m_height), field(41, &Text::m_width),
                                                        field(50, &Text::m_rotation)});
    static constexpr KeptType text{
        EntType::text, make<CText>,
        with(writing<CText>, {field(51, &CText::m_oblique), field(71, &CText::m_generation),
                              field(72, &CText::m_halign), field(73, &CText::m_valign)})};
    static constexpr KeptType mtext{
        EntType::mtext, make<CMtext>,
        with(writing<CMtext>,
             {entry(3, FieldKind::part), field(42, &CMtext::m_writtenWidth), field(71, &CMtext::m_attach),
              field(72, &CMtext::m_direction), field(73, &CMtext::m_lineSpacing)})};
    static constexpr KeptType dimension{
        EntType::dimension, make<CDim>,
        with(common,
             {field(1, &CDim::text_), field(2, &CDim::block_), field(3, &CDim::style_), field(10, &CDim::m_x),
              field(20, &CDim::m_y), field(11, &CDim::m_x2), field(21, &CDim::m_y2),
              field(40, &CDim::m_leader), field(41, &CDim::m_lineSpacing), field(42, &CDim::m_measurement),
              field(50, &CDim::m_angle), field(51, &CDim::m_horizontal), field(70, &CDim::m_flags),
              field(71, &CDim::m_attach), field(72, &CDim::m_lineSpacingStyle)})};
    static constexpr KeptType point{
        EntType::point, make<CAcPoint>,
        with(common, {field(10, &CAcPoint::m_x), field(20, &CAcPoint::m_y), field(50, &CAcPoint::m_angle)})};

    struct Named {
        std::string_view name;
        const KeptType* type = nullptr;
    };
    static constexpr std::array named{
        Named{"LINE", &line},          Named{"LWPOLYLINE", &lwPolyline}, Named{"VERTEX", &vertex},
        Named{"INSERT", &insert},      Named{"CIRCLE", &circle},         Named{"ARC", &arc},
        Named{"TEXT", &text},          Named{"MTEXT", &mtext},           Named{"POLYLINE", &polyline},
        Named{"PLINE", &polyline},     Named{"POINT", &point},           Named{"ELLIPSE", &ellipse},
        Named{"DIMENSION", &dimension}};

    static constexpr std::size_t kSlots = 32;

    static constexpr std::size_t slotOf(std::string_view name) {
        const auto byte = [](char c) { return static_cast<unsigned char>(c); };
        return (name.size() * 9 + byte(name.front()) + byte(name.back())) % kSlots;
    }
};

namespace {

/// A perfect hash table: every name has a slot of its own.
constexpr auto kTypesBySlot = [] {
    std::array<EntityFields::Types::Named, EntityFields::Types::kSlots> types{};
    for (const auto& type : EntityFields::Types::named)
        types[EntityFields::Types::slotOf(type.name)] = type;
    return types;
}();

static_assert(
    [] {
        for (const auto& type : EntityFields::Types::named)
            if (kTypesBySlot[EntityFields::Types::slotOf(type.name)].name != type.name)
                return false;
        return true;
    }(),
    "two names share a slot");

} // namespace

const KeptType* EntityFields::typeNamed(std::string_view name) {
    if (name.empty())
        return nullptr;
    const Types::Named& found = kTypesBySlot[Types::slotOf(name)];
    return equalBytes(found.name, name) ? found.type : nullptr;
}

} // namespace zu::dxf
