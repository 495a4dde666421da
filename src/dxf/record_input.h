#pragma once

#include "dxf_records/record_reader.h"
#include "dxf_records/take_record.h"

#include <zucomn/dxf.h>

#include <memory>
#include <string>

namespace zu::dxf {

using zuhost::dxf::CodeTable;
using zuhost::dxf::Record;
using zuhost::dxf::TakenRecord;

/// The records of a drawing, read from a file in blocks or from text in memory; comments are passed over.
class RecordInput {
public:
    /// Null when the file can't be opened.
    static std::unique_ptr<RecordInput> open(const wchar_t* path, CodeTable table);
    static std::unique_ptr<RecordInput> fromText(std::string text);

    /// False at the end and where the file is unreadable, which is reported; the record then keeps its code,
    /// but not its value. Blank lines in place of a group code are skipped and reported.
    bool next();
    /// Its value is good until the next call.
    [[nodiscard]] const Record& record() const { return record_; }
    [[nodiscard]] bool isBinary() const { return binary_; }
    [[nodiscard]] std::uint64_t length() const { return length_; } ///< Of the file; 0 for text in memory.
    /// A byte-order mark says UTF-8.
    [[nodiscard]] bool hasMark() const { return marked_; }

    /// Copies the bytes after the current record, as many as there are; they are then used up.
    std::size_t readBytes(char* target, std::size_t count);

    /// Adds a finding about a record between the start of the buffer and its end, by a place in its value.
    void report(const char* place, int code, std::string_view problem);
    /// Adds a finding about the current record.
    void report(std::string_view problem) { report(record_.value.data(), record_.code, problem); }
    [[nodiscard]] const Findings& findings() const { return findings_; }

    // For a reader that takes records itself as long as they are of the usual kind.

    /// The bytes after the current record, as far as such records can lie in them.
    struct Ahead {
        const char* at;
        const char* end;
    };
    [[nodiscard]] Ahead ahead() const;
    /// Makes a record that was taken there the current one; it is the last of `count` records.
    void setCurrent(const TakenRecord& taken, std::uint64_t count = 1);

private:
    RecordInput() = default;

    void start();
    /// Moves the bytes after the current record to the front and fills the rest of the buffer.
    void refill();
    bool takeUsual();
    bool takeOther();
    /// Returns whether there was one.
    bool skipBlankLine();
    void add(std::uint64_t line, std::uint64_t offset, int code, std::string_view problem);
    void reportEnd(std::string_view problem);
    zuhost::dxf::ReadResult read(Record& record, zuhost::dxf::RecordError& error) const;

    std::unique_ptr<CFile> file_; ///< Null when all is in the buffer.
    CodeTable table_ = CodeTable::complete;
    std::unique_ptr<char[]> buffer_;
    std::uint64_t length_ = 0;
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
    std::size_t used_ = 0;      ///< End of the current record.
    std::uint64_t line_ = 1;    ///< Of an ASCII file, at that end.
    std::uint64_t dropped_ = 0; ///< Bytes of the file before the buffer.
    bool binary_ = false;
    bool marked_ = false;
    bool hasEnded_ = false; ///< At a fault that has been reported.
    bool usual_ = false;    ///< Records can be of the usual kind.
    zuhost::dxf::CodeForm form_ = zuhost::dxf::CodeForm::words;
    char lineEnd_ = '\n';
    Record record_;
    Findings findings_;
};

} // namespace zu::dxf
