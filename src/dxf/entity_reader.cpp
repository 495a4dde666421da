#include "entity_reader.h"

#include "entity_fields.h"
#include "values.h"

#include "dxf_records/number_text.h"

#include <algorithm>
#include <limits>

namespace zu::dxf {

namespace {

/// Reads the records of an input in order. Bypasses the input while the fast path applies, and keeps only the
/// start of the last record, so that its whole state fits in registers.
template <typename Form>
class RecordRun {
public:
    explicit RecordRun(RecordInput& input) : input_(input) { goTo(placeOf(input, true)); }

    bool next(ScannedRecord& record) {
        record = Form::scan(at_, end_);
        if (record.end == nullptr) [[unlikely]] {
            makeCurrent();
            const Place place = advance(input_);
            goTo(place);
            record = place.record;
            return place.good;
        }
        last_ = at_;
        at_ = record.end;
        count_ += Form::kHasLines ? 1 : 0;
        return true;
    }
    void makeCurrent() const {
        if (last_ != nullptr)
            input_.setCurrent(Form::scan(last_, end_), count_);
    }

private:
    struct Place {
        bool good;
        RecordInput::Ahead ahead;
        ScannedRecord record;
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
        count_ = 0;
        at_ = place.ahead.at;
        end_ = place.ahead.end;
    }

    RecordInput& input_;
    const char* last_ = nullptr; ///< Null when the input's current record is the last one.
    const char* at_ = nullptr;
    const char* end_ = nullptr;
    std::uint64_t count_ = 0; ///< Number of records since the input's current one.
};

/// Builds entities from their records and adds them to a list.
template <typename Form>
class EntityBuilder {
public:
    explicit EntityBuilder(EntityReading& reading)
        : input_(reading.input), memory_(reading.memory), list_(reading.list), run_(reading.run),
          polyline_(reading.polyline) {}

    void start(std::string_view typeName) {
        finish();
        const KeptType* const type = EntityFields::typeNamed(typeName);
        const bool isVertex = type != nullptr && type->type == EntType::vertex;
        if (type == nullptr)
            return;
        if (isVertex && polyline_ == nullptr) {
            hasStrayVertex_ = true;
            input_.report(typeName.data(), 0, "the vertex belongs to no polyline and is skipped");
            return;
        }
        entity_ = type->make(memory_.arena);
        rules_ = &type->rules;
        if (type->type == EntType::polyline)
            polyline_ = static_cast<CPline*>(entity_);
        if (CEntList* const list = isVertex ? &polyline_->m_vertices : list_; list != nullptr)
            list->AddTail(entity_);
        else
            run_.emplace_back(entity_);
    }

    void add(int code, std::string_view value) {
        const std::size_t index = ruleIndex(code);
        if (index == 0 || entity_ == nullptr)
            return;
        const FieldRule& rule = (*rules_)[index];
        present_ |= rule.bit;
        if (rule.kind == FieldKind::real)
            entity_->*rule.real = real(code, value);
        else
            addOther(*entity_, rule, code, value);
    }

    void store(EntityReading& reading) const {
        reading.polyline = polyline_;
        reading.hasStrayVertex = reading.hasStrayVertex || hasStrayVertex_;
    }

    /// Completes the current entity with the set of records it had; ignores records up to the next start().
    void finish() {
        if (entity_ != nullptr)
            EntityFields::addPresent(*entity_, present_);
        entity_ = nullptr;
        present_ = 0;
    }

private:
    template <typename Number>
    [[gnu::noinline]] Number reported(int code, std::string_view value, const ReadNumber<Number>& read) {
        if (!read.problem.empty())
            input_.report(value.data(), code, read.problem);
        return read.number;
    }
    double real(int code, std::string_view value) {
        double number = 0;
        if (Form::plainReal(value, number)) [[likely]]
            return number;
        return reported(code, value, Form::real(value));
    }
    int integer(int code, std::string_view value) {
        const ReadNumber<int> read = Form::integer(value);
        return read.problem.empty() ? read.number : reported(code, value, read);
    }

    static short nearestShort(int number) {
        using Limits = std::numeric_limits<short>;
        return static_cast<short>(std::clamp<int>(number, Limits::min(), Limits::max()));
    }

    short color(int code, std::string_view value) {
        const int number = integer(code, value);
        if (number >= CEnt::kByBlock && number <= CEnt::kByLayer)
            return static_cast<short>(number);
        input_.report(value.data(), code, "the colour number is invalid: the layer's colour is used");
        return CEnt::kByLayer;
    }

    void addOther(CEnt& entity, const FieldRule& rule, int code, std::string_view value) {
        switch (rule.kind) {
        case FieldKind::none:
        case FieldKind::real:
            break;
        case FieldKind::integer:
            entity.*rule.integer = integer(code, value);
            break;
        case FieldKind::shortInteger:
            entity.*rule.shortInteger = nearestShort(integer(code, value));
            break;
        case FieldKind::color:
            entity.m_color = color(code, value);
            break;
        case FieldKind::text:
            entity.*rule.text = memory_.keep(value);
            break;
        case FieldKind::name:
            entity.*rule.name = &memory_.names.get(value, memory_.text);
            break;
        case FieldKind::handle:
            addHandle(entity, code, value, rule.bit);
            break;
        case FieldKind::paper:
            entity.m_paper = integer(code, value) != 0;
            break;
        case FieldKind::mirrored:
            entity.m_mirrored = real(code, value) < 0;
            break;
        case FieldKind::part:
            memory_.append(EntityFields::partsOf(entity), {memory_.keep(value)});
            break;
        case FieldKind::pointX:
            memory_.append(EntityFields::pointsOf(entity), {real(code, value), 0, 0});
            break;
        case FieldKind::pointY:
            setReal(lastPointOf(entity), &CDblPoint::y, code, value);
            break;
        case FieldKind::pointBulge:
            setReal(lastPointOf(entity), &CDblPoint::bulge, code, value);
            break;
        case FieldKind::pointStartWidth:
            setReal(lastWidthOf(entity), &CDblWidth::start, code, value);
            break;
        case FieldKind::pointEndWidth:
            setReal(lastWidthOf(entity), &CDblWidth::end, code, value);
            break;
        case FieldKind::embedded:
            finish();
            break;
        }
    }

    /// Ignores the value when there is no vertex yet.
    template <typename Item>
    void setReal(Item* item, double Item::*member, int code, std::string_view value) {
        if (item != nullptr)
            item->*member = real(code, value);
    }

    static CDblPoint* lastPointOf(CEnt& polyline) {
        const KeptArray<CDblPoint>& points = EntityFields::pointsOf(polyline);
        return points.count > 0 ? points.items + (points.count - 1) : nullptr;
    }

    /// Returns the width of the last vertex. Most polylines have none: the array grows to the number of
    /// vertices when a vertex gets a width.
    CDblWidth* lastWidthOf(CEnt& polyline) {
        const std::size_t points = EntityFields::pointsOf(polyline).count;
        KeptArray<CDblWidth>& widths = EntityFields::widthsOf(polyline);
        while (widths.count < points)
            memory_.append(widths, {});
        return points > 0 ? widths.items + (points - 1) : nullptr;
    }

    void addHandle(CEnt& entity, int code, std::string_view value, std::uint32_t bit) {
        std::uint64_t handle = 0;
        if (!zuhost::parsePlainHandle(value, handle)) {
            const auto other = zuhost::parseHandle(value);
            if (!other) {
                input_.report(value.data(), code, "the handle is not a hexadecimal number and is ignored");
                present_ &= ~bit;
                return;
            }
            handle = *other;
        }
        EntityFields::setHandle(entity, handle);
    }

    RecordInput& input_;
    PartMemory& memory_;
    CEntList* list_;
    EntityRun& run_;
    CPline* polyline_;
    bool hasStrayVertex_ = false;
    CEnt* entity_ = nullptr;
    const FieldRules* rules_ = nullptr;
    std::uint32_t present_ = 0;
};

template <typename Form>
bool readAll(EntityReading& reading, std::uint64_t stop) {
    RecordRun<Form> records(reading.input);
    EntityBuilder<Form> builder(reading);
    builder.start(reading.input.record().value);
    bool isStopped = false;
    ScannedRecord record;
    while (!isStopped && records.next(record)) {
        if (record.code != 0)
            builder.add(record.code, record.value);
        else if (record.value == "ENDSEC" || record.value == "ENDBLK")
            break;
        else if (reading.input.offsetOf(record.value.data()) == stop)
            isStopped = true;
        else
            builder.start(record.value);
    }
    builder.finish();
    builder.store(reading);
    records.makeCurrent();
    return isStopped;
}

} // namespace

bool isKeptEntity(std::string_view typeName) {
    const KeptType* const type = EntityFields::typeNamed(typeName);
    return type != nullptr && type->type != EntType::vertex;
}

bool readEntities(EntityReading& reading, std::uint64_t stop) {
    return reading.input.isBinary() ? readAll<BinaryForm>(reading, stop) : readAll<AsciiForm>(reading, stop);
}

} // namespace zu::dxf
