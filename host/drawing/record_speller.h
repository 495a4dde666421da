#pragma once

#include "record_style.h"

#include <optional>
#include <string>
#include <string_view>

namespace zuhost {

/// Spells records in a file's style.
class RecordSpeller {
public:
    explicit RecordSpeller(RecordStyle style) : style_(std::move(style)) {}

    /// Appends one record to the bytes. False when the style cannot hold the value; nothing is appended then.
    [[nodiscard]] bool append(std::string& bytes, int code, std::string_view value) const;

private:
    void appendAscii(std::string& bytes, int code, std::string_view value) const;
    [[nodiscard]] bool appendBinary(std::string& bytes, int code, std::string_view value) const;
    [[nodiscard]] bool appendBinaryCode(std::string& bytes, int code) const;

    RecordStyle style_;
};

} // namespace zuhost
