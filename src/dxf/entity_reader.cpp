#include "entity_reader.h"

#include "entity_fields.h"
#include "values.h"

#include "dxf_records/number_text.h"

namespace zu::dxf {

namespace {

/// The records of an input one after the other. It goes on without the input as long as records are of the
/// usual kind, and remembers no more than where the last one began, so that all it holds can be in registers.
template <typename Form>
class RecordRun {
public:
    explicit RecordRun(RecordInput& input) : input_(input) { goTo(placeOf(input, true)); }

    bool next(TakenRecord& record) {
        record = Form::take(at_, end_);
        if (record.end == nullptr) [[unlikely]] {
            makeCurrent();
            const Place place = advance(input_);
            goTo(place);
            record = place.record;
            return place.good;
        }
        last_ = at_;
        at_ = record.end;
        return true;
    }
    void makeCurrent() const {
        if (last_ != nullptr)
            input_.setCurrent(Form::take(last_, end_));
    }

private:
    struct Place {
        bool good;
        RecordInput::Ahead ahead;
        TakenRecord record;
    };
    static Place placeOf(const RecordInput& input, bool good) {
        const RecordInput::Ahead ahead = input.ahead();
        return {good, ahead, {ahead.at, input.record().code, input.record().value}};
    }
    [[gnu::noinline]] static Place advance(RecordInput& input) {
        const bool good = input.next();
        return placeOf(input, good);
    }
    void goTo(const Place& place) {
        last_ = nullptr;
        at_ = place.ahead.at;
        end_ = place.ahead.end;
    }

    RecordInput& input_;
    const char* last_ = nullptr; ///< Null when the input's current record is the last one.
    const char* at_ = nullptr;
    const char* end_ = nullptr;
};

/// Takes records into the entity that is being read.
template <typename Form>
class EntityBuilder {
public:
    EntityBuilder(PartMemory& memory, CEntList& list) : memory_(memory), list_(list) {}

    void start(std::string_view typeName) {
        finish();
        const KeptType* const type = EntityFields::typeNamed(typeName);
        const bool isVertex = type != nullptr && type->type == EntType::vertex;
        if (type == nullptr || (isVertex && polyline_ == nullptr))
            return;
        entity_ = type->make(memory_.arena);
        rules_ = &type->rules;
        if (type->type == EntType::polyline)
            polyline_ = static_cast<CPline*>(entity_);
        (isVertex ? polyline_->m_vertices : list_).AddTail(entity_);
    }

    void take(int code, std::string_view value) {
        const std::size_t place = rulePlace(code);
        if (place == 0 || entity_ == nullptr)
            return;
        const FieldRule& rule = (*rules_)[place];
        present_ |= rule.bit;
        if (rule.kind == FieldKind::real)
            entity_->*rule.real = Form::real(value);
        else
            takeOther(*entity_, rule, value);
    }

    /// What follows is taken by no entity; the last one knows which records were there.
    void finish() {
        if (entity_ != nullptr)
            EntityFields::addPresent(*entity_, present_);
        entity_ = nullptr;
        present_ = 0;
    }

private:
    void takeOther(CEnt& entity, const FieldRule& rule, std::string_view value) {
        switch (rule.kind) {
        case FieldKind::none:
        case FieldKind::real:
            break;
        case FieldKind::integer:
            entity.*rule.integer = Form::integer(value);
            break;
        case FieldKind::shortInteger:
            entity.*rule.shortInteger = static_cast<short>(Form::integer(value));
            break;
        case FieldKind::text:
            entity.*rule.text = memory_.keep(value);
            break;
        case FieldKind::name:
            entity.*rule.name = &memory_.names.get(value, memory_.text);
            break;
        case FieldKind::handle:
            takeHandle(entity, value, rule.bit);
            break;
        case FieldKind::paper:
            entity.m_paper = Form::integer(value) != 0;
            break;
        case FieldKind::mirrored:
            entity.m_mirrored = Form::real(value) < 0;
            break;
        case FieldKind::part:
            memory_.append(EntityFields::partsOf(entity), {memory_.keep(value)});
            break;
        case FieldKind::pointX:
            memory_.append(EntityFields::pointsOf(entity), {Form::real(value), 0, 0});
            break;
        case FieldKind::pointY:
            if (CDblPoint* const point = lastPointOf(entity))
                point->y = Form::real(value);
            break;
        case FieldKind::pointBulge:
            if (CDblPoint* const point = lastPointOf(entity))
                point->bulge = Form::real(value);
            break;
        case FieldKind::pointStartWidth:
            if (CDblWidth* const width = lastWidthOf(entity))
                width->start = Form::real(value);
            break;
        case FieldKind::pointEndWidth:
            if (CDblWidth* const width = lastWidthOf(entity))
                width->end = Form::real(value);
            break;
        case FieldKind::embedded:
            finish();
            break;
        }
    }

    static CDblPoint* lastPointOf(CEnt& polyline) {
        const KeptArray<CDblPoint>& points = EntityFields::pointsOf(polyline);
        return points.count > 0 ? points.items + (points.count - 1) : nullptr;
    }

    /// Most polylines have no widths: they are made up to the last vertex when it gets one.
    CDblWidth* lastWidthOf(CEnt& polyline) {
        const std::size_t points = EntityFields::pointsOf(polyline).count;
        KeptArray<CDblWidth>& widths = EntityFields::widthsOf(polyline);
        while (widths.count < points)
            memory_.append(widths, {});
        return points > 0 ? widths.items + (points - 1) : nullptr;
    }

    void takeHandle(CEnt& entity, std::string_view value, std::uint32_t bit) {
        std::uint64_t handle = 0;
        if (!zuhost::parsePlainHandle(value, handle)) {
            const auto other = zuhost::parseHandle(value);
            if (!other) {
                present_ &= ~bit;
                return;
            }
            handle = *other;
        }
        EntityFields::setHandle(entity, handle);
    }

    PartMemory& memory_;
    CEntList& list_;
    CPline* polyline_ = nullptr;
    CEnt* entity_ = nullptr;
    const FieldRules* rules_ = nullptr;
    std::uint32_t present_ = 0;
};

template <typename Form>
void readAll(RecordInput& input, PartMemory& memory, CEntList& list) {
    RecordRun<Form> records(input);
    EntityBuilder<Form> builder(memory, list);
    builder.start(input.record().value);
    TakenRecord record;
    while (records.next(record)) {
        if (record.code != 0)
            builder.take(record.code, record.value);
        else if (record.value == "ENDSEC" || record.value == "ENDBLK")
            break;
        else
            builder.start(record.value);
    }
    builder.finish();
    records.makeCurrent();
}

} // namespace

void readEntities(RecordInput& input, PartMemory& memory, CEntList& list) {
    if (input.isBinary())
        readAll<BinaryForm>(input, memory, list);
    else
        readAll<AsciiForm>(input, memory, list);
}

} // namespace zu::dxf
