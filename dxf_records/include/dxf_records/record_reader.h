#pragma once

#include "value_type.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zuhost::dxf {

/// One record of a drawing, a view into the drawing's bytes.
struct Record {
    int code = 0;
    std::string_view value; ///< ASCII: the line without its end. Binary: the value's own bytes (text without
                            ///< its zero, a chunk without its length).
    std::size_t offset = 0; ///< First byte of the record.
    std::size_t end = 0;    ///< First byte after it.
    std::uint64_t line = 0; ///< The group code's line, from 1; 0 in binary drawings.
};

/// Where and why reading stopped.
struct RecordError {
    std::size_t offset = 0;
    std::uint64_t line = 0;   ///< From 1; 0 in binary drawings.
    std::string_view problem; ///< A constant text.
    bool incomplete = false;  ///< More bytes might complete the record.
};

enum class ReadResult { record, end, error };

/// An ASCII drawing in UTF-8 may begin with it.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Returns the character that ends the lines of an ASCII drawing: LF, or CR when there is no LF.
[[nodiscard]] char lineEndOf(std::string_view bytes);

/// Reads the records of an ASCII drawing in memory in order, without copying. Lines end in LF or CR LF, in
/// files without any LF in CR. A byte-order mark is skipped.
class AsciiReader {
public:
    explicit AsciiReader(std::string_view bytes);
    /// For bytes that start at any record, with a known line end: LF or CR.
    AsciiReader(std::string_view bytes, char lineEnd) : bytes_(bytes), lineEnd_(lineEnd) {}

    /// Sets `record` only when it returns ReadResult::record.
    ReadResult next(Record& record);
    [[nodiscard]] const RecordError& error() const { return error_; }

private:
    bool readLine(std::string_view& line);
    bool nextFast(Record& record);
    ReadResult failAtCode(std::size_t offset, std::string_view line);
    ReadResult fail(std::size_t offset, std::uint64_t line, std::string_view problem, bool incomplete);

    std::string_view bytes_;
    std::size_t at_ = 0;
    std::uint64_t line_ = 0;
    char lineEnd_ = '\n';
    RecordError error_;
};

/// How the group codes of a binary drawing are stored.
enum class CodeForm {
    words, ///< Two bytes.
    bytes  ///< One byte, or 255 followed by two bytes (before R13).
};

/// The group codes that a binary reader accepts.
enum class CodeTable {
    complete, ///< Those of the format.
    strict    ///< Those of early part drawings; any other code is an error. 280-289 have two bytes in both
              ///< tables.
};

/// Reads the records of a binary drawing in memory in order.
class BinaryReader {
public:
    /// For bytes with or without the sentinel. With the complete table the form of group codes is detected
    /// from the first records; with the strict table they have two bytes.
    explicit BinaryReader(std::string_view bytes, CodeTable table = CodeTable::complete);
    /// For bytes that start at any record, with group codes of a known form.
    BinaryReader(std::string_view bytes, CodeForm form, CodeTable table = CodeTable::complete)
        : bytes_(bytes), form_(form), table_(table) {}

    ReadResult next(Record& record);
    [[nodiscard]] const RecordError& error() const { return error_; }
    [[nodiscard]] CodeForm codeForm() const { return form_; }

private:
    bool nextFast(Record& record);
    bool readCode(int& code);
    [[nodiscard]] ValueType typeOf(int code) const;
    ReadResult readValue(ValueType type, Record& record);
    ReadResult fail(std::size_t offset, std::string_view problem, bool incomplete);

    std::string_view bytes_;
    std::size_t at_ = 0;
    CodeForm form_ = CodeForm::words;
    CodeTable table_ = CodeTable::complete;
    RecordError error_;
};

/// The 22 bytes at the start of a binary drawing.
inline constexpr std::string_view kBinarySentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);

/// Returns whether the first 18 bytes are those of a binary drawing.
[[nodiscard]] inline bool isBinaryDrawing(std::string_view bytes) {
    return bytes.starts_with(kBinarySentinel.substr(0, 18));
}

// ---- values of binary records

/// Returns the little-endian real number at eight bytes.
[[nodiscard]] inline double realAt(const char* bytes) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, bytes, sizeof bits);
    if constexpr (std::endian::native != std::endian::little) {
        bits = 0;
        for (std::size_t i = sizeof bits; i-- > 0;)
            bits = (bits << 8U) | static_cast<unsigned char>(bytes[i]);
    }
    return std::bit_cast<double>(bits);
}
[[nodiscard]] inline double binaryReal(std::string_view value) {
    return realAt(value.data());
}
/// Returns the two's complement number of 2, 4 or 8 bytes, or the unsigned number of one byte.
[[nodiscard]] std::int64_t binaryInteger(std::string_view value);

} // namespace zuhost::dxf
