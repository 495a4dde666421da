#pragma once

#include "dxf_records/number_text.h"
#include "dxf_records/value_type.h"
#include "ownership.h"
#include "record_source.h"

#include <algorithm>
#include <limits>

namespace zuhost {

/// The handles that objects refer to.
class References {
public:
    /// Returns the handle in a value; 0 when it is unreadable. Cached: neighbours usually have the same
    /// owner.
    std::uint64_t parse(std::string_view value) {
        if (value != lastValue_) {
            lastValue_ = value;
            last_ = parseHandle(value).value_or(0);
        }
        return last_;
    }

    void add(const dxf::Record& record) {
        // Damaged: counting new handles from such a value could overflow.
        constexpr std::uint64_t kImplausible = std::uint64_t{1} << 60U;
        if (record.code < 320 || dxf::valueType(record.code) != dxf::ValueType::handle)
            return;
        if (const std::uint64_t handle = parse(record.value); handle < kImplausible)
            greatest_ = std::max(greatest_, handle);
    }

    [[nodiscard]] std::uint64_t greatest() const { return greatest_; }

private:
    std::uint64_t greatest_ = 0;
    std::string_view lastValue_;
    std::uint64_t last_ = 0;
};

/// What the parser needs of an object's records. Handle and owner precede the first subclass marker and are
/// outside of application groups. A later record with the code of the handle has another meaning.
class ObjectFacts {
public:
    static constexpr std::uint64_t kNone = std::numeric_limits<std::uint64_t>::max();

    explicit ObjectFacts(int handleCode) : handleCode_(handleCode) {}

    /// Adds a record after the type. Returns false for an unreadable handle of the object.
    bool add(const dxf::Record& record, const RecordSource& source, References& references) {
        switch (record.code) {
        case 5:
        case 105:
            return !inHead_ || inGroup_ || record.code != handleCode_ || handle != 0 || addHandle(record);
        case 2:
            if (name.empty())
                name = record.value;
            return true;
        case 67: {
            std::string scratch;
            owner.inPaperSpace = source.value(record, scratch).find('1') != std::string_view::npos;
            return true;
        }
        case 100:
            if (inHead_)
                marker = record.offset;
            else if (secondMarker == kNone)
                secondMarker = record.offset;
            inHead_ = false;
            return true;
        case 102:
            inGroup_ = record.value.starts_with('{');
            return true;
        case 330:
            if (inHead_ && !inGroup_ && owner.handle == 0)
                owner.handle = references.parse(record.value);
            return true;
        default:
            if (record.code >= 1000)
                extended = std::min<std::uint64_t>(extended, record.offset);
            return true;
        }
    }

    std::uint64_t handle = 0;
    bool unreadableHandle = false;
    OwnerHint owner;
    std::string_view name;        ///< Group code 2.
    std::uint64_t marker = kNone; ///< Offset of the first subclass marker.
    std::uint64_t secondMarker = kNone;
    std::uint64_t extended = kNone; ///< Offset of the extended data.

private:
    bool addHandle(const dxf::Record& record) {
        const auto value = parseHandle(record.value);
        handle = value.value_or(0);
        unreadableHandle = !value || (unreadableHandle && handle == 0);
        return value.has_value();
    }

    int handleCode_;
    bool inHead_ = true;   ///< Before the first subclass marker.
    bool inGroup_ = false; ///< Within an application group.
};

} // namespace zuhost
