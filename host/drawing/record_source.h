#pragma once

#include "drawing_state.h"

#include <string_view>

namespace zuhost {

/// One record of the buffer.
struct Record {
    int code = 0;
    std::string_view text; ///< Of texts: their characters. Of other values: as the form holds them.
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

/// Reads the records of a buffer one after the other and checks that each can be read: the group code, and
/// the value by the kind that the code says.
class RecordSource {
public:
    enum class Result { record, end, fault };

    RecordSource() = default;
    virtual ~RecordSource() = default;
    RecordSource(const RecordSource&) = delete;
    RecordSource& operator=(const RecordSource&) = delete;

    virtual Result next(Record& record) = 0;

    /// After a fault: where and what.
    [[nodiscard]] virtual std::uint64_t faultOffset() const = 0;
    [[nodiscard]] virtual std::wstring fault() const = 0;

    /// The value of a record as a TagList holds it; `scratch` keeps what is not in the buffer as text.
    virtual std::string_view value(const Record& record, std::string& scratch) const = 0;
};

/// A source of the records of a span, as the state's style spells them.
[[nodiscard]] std::unique_ptr<RecordSource> openSource(const DrawingState& state, Span span);

} // namespace zuhost
