#pragma once

#include "drawing/records/record_reader.h"

#include <afx.h>

#include <memory>
#include <string>

namespace zu::dxf {

using zuhost::dxf::CodeTable;
using zuhost::dxf::Record;

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
    /// A byte-order mark says UTF-8.
    [[nodiscard]] bool hasMark() const { return marked_; }

    /// Copies the bytes after the current record, as many as there are; they are then used up.
    std::size_t readBytes(char* target, std::size_t count);

private:
    RecordInput() = default;

    void start();
    /// Moves what is not used up to the front and reads on behind it.
    void refill();
    void makeReader();
    zuhost::dxf::ReadResult read();

    std::unique_ptr<CFile> file_; ///< Null when all is in the buffer.
    CodeTable table_ = CodeTable::complete;
    std::unique_ptr<char[]> buffer_;
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
    std::size_t used_ = 0;  ///< End of the current record.
    std::size_t start_ = 0; ///< Where the reader's bytes begin.
    bool binary_ = false;
    bool marked_ = false;
    zuhost::dxf::CodeForm form_ = zuhost::dxf::CodeForm::words;
    zuhost::dxf::AsciiReader ascii_{std::string_view()};
    zuhost::dxf::BinaryReader binaryReader_{std::string_view()};
    Record record_;
};

} // namespace zu::dxf
