#pragma once

#include "value_type.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zuhost::dxf {

/// One record of a drawing where it lies in memory.
struct Record {
    int code = 0;
    std::string_view value; ///< ASCII: the line without its end. Binary: the value's own bytes (text without
                            ///< its zero, a chunk without its length).
    std::size_t offset = 0; ///< First byte of the record.
    std::size_t end = 0;    ///< First byte after it.
    std::uint64_t line = 0; ///< Of the group code, from 1; 0 in binary drawings.
};

/// Where and why reading stopped.
struct RecordError {
    std::size_t offset = 0;
    std::uint64_t line = 0;   ///< From 1; 0 in binary drawings.
    std::string_view problem; ///< A constant text.
    bool incomplete = false;  ///< More bytes might have made a record of it.
};

enum class ReadResult { record, end, error };

/// With which the text of an ASCII drawing in UTF-8 may begin.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The character at which the lines of an ASCII drawing end: CR when it has no LF.
[[nodiscard]] char lineEndOf(std::string_view bytes);

/// The records of an ASCII drawing in memory, one after the other. Lines end at LF or CR LF, in files without
/// any LF at CR. A byte-order mark is passed over. Nothing is copied.
class AsciiReader {
public:
    explicit AsciiReader(std::string_view bytes);
    /// Bytes that start at any record, whose lines are known to end at LF or at CR.
    AsciiReader(std::string_view bytes, char lineEnd) : bytes_(bytes), lineEnd_(lineEnd) {}

    /// `record` is set only when the result says so.
    ReadResult next(Record& record);
    [[nodiscard]] const RecordError& error() const { return error_; }

private:
    bool takeLine(std::string_view& line);
    bool takeUsual(Record& record);
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
    bytes  ///< One byte, 255 announcing two more (before R13).
};

/// Which group codes a binary reader knows.
enum class CodeTable {
    complete, ///< Those of the format.
    strict ///< Those of early part drawings only; any other code is an error. 280-289 are two bytes in both.
};

/// The records of a binary drawing in memory.
class BinaryReader {
public:
    /// Bytes with or without the sentinel. With the complete table the form of group codes is found out from
    /// the first records; with the strict one they have two bytes.
    explicit BinaryReader(std::string_view bytes, CodeTable table = CodeTable::complete);
    /// Bytes that start at any record, with group codes of a known form.
    BinaryReader(std::string_view bytes, CodeForm form, CodeTable table = CodeTable::complete)
        : bytes_(bytes), form_(form), table_(table) {}

    ReadResult next(Record& record);
    [[nodiscard]] const RecordError& error() const { return error_; }
    [[nodiscard]] CodeForm codeForm() const { return form_; }

private:
    bool takeUsual(Record& record);
    bool takeCode(int& code);
    [[nodiscard]] ValueType typeOf(int code) const;
    ReadResult takeValue(ValueType type, Record& record);
    ReadResult fail(std::size_t offset, std::string_view problem, bool incomplete);

    std::string_view bytes_;
    std::size_t at_ = 0;
    CodeForm form_ = CodeForm::words;
    CodeTable table_ = CodeTable::complete;
    RecordError error_;
};

/// The 22 bytes with which a binary drawing begins.
inline constexpr std::string_view kBinarySentinel("AutoCAD Binary DXF\r\n\x1a\0", 22);

/// Decides by the first 18 bytes alone.
[[nodiscard]] inline bool isBinaryDrawing(std::string_view bytes) {
    return bytes.starts_with(kBinarySentinel.substr(0, 18));
}

// ---- values of binary records

/// Of eight bytes.
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
/// The two's complement number of 1, 2, 4 or 8 bytes (one byte: without sign).
[[nodiscard]] std::int64_t binaryInteger(std::string_view value);

} // namespace zuhost::dxf
