#pragma once

#include "dxf_records/record_reader.h"
#include "dxf_records/take_record.h"

#include <afx.h>

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

    /// False at the end and where the file makes no sense; the record then keeps its code, but not its value.
    bool next();
    /// Its value is good until the next call.
    [[nodiscard]] const Record& record() const { return record_; }
    [[nodiscard]] bool isBinary() const { return binary_; }
    [[nodiscard]] std::uint64_t length() const { return length_; } ///< Of the file; 0 for text in memory.
    /// A byte-order mark says UTF-8.
    [[nodiscard]] bool hasMark() const { return marked_; }

    /// Copies the bytes after the current record, as many as there are; they are then used up.
    std::size_t readBytes(char* target, std::size_t count);

    // For a reader that takes records itself as long as they are of the usual kind.

    /// The bytes after the current record, as far as such records can lie in them.
    struct Ahead {
        const char* at;
        const char* end;
    };
    [[nodiscard]] Ahead ahead() const;
    /// Makes a record that was taken there the current one.
    void setCurrent(const TakenRecord& taken);

private:
    RecordInput() = default;

    void start();
    /// Moves what is not used up to the front and reads on behind it.
    void refill();
    bool takeUsual();
    bool takeOther();
    zuhost::dxf::ReadResult read(Record& record, bool& incomplete) const;

    std::unique_ptr<CFile> file_; ///< Null when all is in the buffer.
    CodeTable table_ = CodeTable::complete;
    std::unique_ptr<char[]> buffer_;
    std::uint64_t length_ = 0;
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
    std::size_t used_ = 0; ///< End of the current record.
    bool binary_ = false;
    bool marked_ = false;
    bool usual_ = false; ///< Records can be of the usual kind.
    zuhost::dxf::CodeForm form_ = zuhost::dxf::CodeForm::words;
    char lineEnd_ = '\n';
    Record record_;
};

} // namespace zu::dxf
