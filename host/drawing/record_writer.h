#pragma once

#include "drawing/document.h"

#include <string>
#include <string_view>

namespace zuhost {

/// How a file formats its records.
struct RecordStyle {
    DrawingForm form = DrawingForm::ascii;
    std::string lineEnd = "\r\n"; ///< ASCII only.
    std::size_t codeWidth = 3;    ///< ASCII only: group codes are padded with blanks to this width.
    bool byteCodes = false;       ///< Binary only: group codes of one byte, as before R13.
};

/// Serialises records in a file's style.
class RecordWriter {
public:
    explicit RecordWriter(RecordStyle style) : style_(std::move(style)) {}

    /// Appends one record to the bytes. Returns false when the style cannot hold the value; nothing is
    /// appended then.
    [[nodiscard]] bool append(std::string& bytes, int code, std::string_view value) const;

private:
    void appendAscii(std::string& bytes, int code, std::string_view value) const;
    [[nodiscard]] bool appendBinary(std::string& bytes, int code, std::string_view value) const;
    [[nodiscard]] bool appendBinaryCode(std::string& bytes, int code) const;

    RecordStyle style_;
};

} // namespace zuhost
