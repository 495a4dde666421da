#pragma once

#include "input_file.h"

#include "dxf_records/record_reader.h"
#include "dxf_records/scan_record.h"

#include <zucomn/dxf.h>

#include <cstdint>
#include <memory>
#include <string>

namespace zu::dxf {

using zuhost::dxf::CodeTable;
using zuhost::dxf::Record;
using zuhost::dxf::ScannedRecord;

/// Reads the records of a drawing from a file in blocks or from text in memory; skips comments.
class RecordInput {
public:
    /// Returns null when the file cannot be opened.
    static std::unique_ptr<RecordInput> open(const wchar_t* path, CodeTable table);
    static std::unique_ptr<RecordInput> fromText(std::string text);

    /// Returns a second reader of the same file, whose current record is the first one from `offset` on that
    /// looks like a record with group code 0 and a value that `accepts` accepts; lines count from there. Null
    /// when there is none near, and for drawings that the fast path does not read.
    [[nodiscard]] std::unique_ptr<RecordInput> from(std::uint64_t offset,
                                                    bool (*accepts)(std::string_view value)) const;
    /// Continues with a reader that began at the current record: takes its place and its findings.
    void continueAs(RecordInput&& later);

    /// Reads the next record. Returns false at the end and at the first unreadable record, which is reported;
    /// the current record then keeps its code but not its value. Blank lines before a group code are skipped
    /// and reported.
    bool next();
    /// Returns the current record; its value is valid until the next call.
    [[nodiscard]] const Record& record() const { return record_; }
    /// Returns the offset in the file of a place in the buffer.
    [[nodiscard]] std::uint64_t offsetOf(const char* place) const {
        return dropped_ + static_cast<std::uint64_t>(place - buffer_.get());
    }
    /// Returns the offset of the first byte after the current record.
    [[nodiscard]] std::uint64_t offset() const { return dropped_ + used_; }
    [[nodiscard]] bool isBinary() const { return binary_; }
    /// Returns the length of the file; 0 for text in memory and pipes.
    [[nodiscard]] std::uint64_t length() const { return length_; }
    /// Returns whether the drawing begins with the byte-order mark of UTF-8.
    [[nodiscard]] bool hasMark() const { return marked_; }

    /// Reads up to `count` bytes after the current record and returns their number.
    std::size_t readBytes(char* target, std::size_t count);

    /// Adds a finding about a record in the buffer; `place` points into its value.
    void report(const char* place, int code, std::string_view problem);
    /// Adds a finding about the current record.
    void report(std::string_view problem) { report(record_.value.data(), record_.code, problem); }
    [[nodiscard]] const Findings& findings() const { return findings_; }

    // For a reader that scans records itself while the fast path applies.

    /// The bytes after the current record that such a reader may scan.
    struct Ahead {
        const char* at;
        const char* end;
    };
    [[nodiscard]] Ahead ahead() const;
    /// Makes a record scanned there the current one; it is the last of `count` scanned records.
    void setCurrent(const ScannedRecord& scanned, std::uint64_t count = 1);

private:
    RecordInput() = default;
    RecordInput& operator=(RecordInput&&) = default;

    void start();
    /// Moves the bytes after the current record to the front and fills the rest of the buffer.
    void refill();
    [[nodiscard]] ScannedRecord scan(const char* at, const char* end) const;
    /// Goes to the first record that may follow a place in the buffer and has group code 0.
    bool goToStart(bool (*accepts)(std::string_view value));
    bool nextFast();
    bool nextSlow();
    /// Returns whether it skipped a blank line.
    bool skipBlankLine();
    void add(const Finding& finding);
    void add(std::uint64_t line, std::uint64_t offset, int code, std::string_view problem);
    void reportEnd(std::string_view problem);
    zuhost::dxf::ReadResult read(Record& record, zuhost::dxf::RecordError& error) const;

    std::shared_ptr<InputFile> file_; ///< Null when all is in the buffer.
    CodeTable table_ = CodeTable::complete;
    std::unique_ptr<char[]> buffer_;
    std::uint64_t length_ = 0;
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
    std::size_t used_ = 0;      ///< End of the current record.
    std::uint64_t line_ = 1;    ///< Line of an ASCII file at that end.
    std::uint64_t dropped_ = 0; ///< Bytes of the file before the buffer.
    bool binary_ = false;
    bool marked_ = false;
    bool hasEnded_ = false;    ///< Reading ended at a fault, which has been reported.
    bool hasFastPath_ = false; ///< The fast path applies to this form of drawing.
    zuhost::dxf::CodeForm form_ = zuhost::dxf::CodeForm::words;
    char lineEnd_ = '\n';
    Record record_;
    Findings findings_;
};

} // namespace zu::dxf
