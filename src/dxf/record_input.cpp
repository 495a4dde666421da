#include "record_input.h"

#include <algorithm>
#include <cstring>

namespace zu::dxf {

namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;
constexpr int kComment = 999;

/// An unreadable file ends where reading fails.
std::size_t readFrom(CFile& file, char* target, std::size_t count) {
    try {
        return file.Read(target, static_cast<UINT>(count));
    } catch (const CFileException&) {
        return 0;
    }
}

} // namespace

std::unique_ptr<RecordInput> RecordInput::open(const wchar_t* path, CodeTable table) {
    auto file = std::make_unique<CFile>();
    if (path == nullptr ||
        file->Open(path, CFile::modeRead | CFile::shareDenyNone | CFile::typeBinary) == FALSE)
        return nullptr;
    std::unique_ptr<RecordInput> input(new RecordInput);
    input->capacity_ = static_cast<std::size_t>(std::min<ULONGLONG>(file->GetLength() + 1, kBlock));
    input->file_ = std::move(file);
    input->table_ = table;
    input->buffer_ = std::make_unique_for_overwrite<char[]>(input->capacity_);
    input->start();
    return input;
}

std::unique_ptr<RecordInput> RecordInput::fromText(std::string text) {
    std::unique_ptr<RecordInput> input(new RecordInput);
    input->capacity_ = input->size_ = text.size();
    input->buffer_ = std::make_unique_for_overwrite<char[]>(text.size());
    std::copy(text.begin(), text.end(), input->buffer_.get());
    input->makeReader();
    return input;
}

void RecordInput::start() {
    refill();
    const std::string_view bytes(buffer_.get(), size_);
    binary_ = zuhost::dxf::isBinaryDrawing(bytes);
    marked_ = bytes.starts_with("\xEF\xBB\xBF");
    if (binary_) {
        form_ = zuhost::dxf::BinaryReader(bytes).codeForm();
        used_ = std::min(zuhost::dxf::kBinarySentinel.size(), size_);
    }
    makeReader();
}

void RecordInput::makeReader() {
    start_ = used_;
    const std::string_view bytes(buffer_.get() + start_, size_ - start_);
    if (binary_)
        binaryReader_ = zuhost::dxf::BinaryReader(bytes, form_, table_);
    else
        ascii_ = zuhost::dxf::AsciiReader(bytes);
}

void RecordInput::refill() {
    const std::size_t kept = size_ - used_;
    if (kept == capacity_) {
        auto larger = std::make_unique_for_overwrite<char[]>(capacity_ * 2);
        std::copy_n(buffer_.get() + used_, kept, larger.get());
        buffer_ = std::move(larger);
        capacity_ *= 2;
    } else if (kept > 0) {
        std::memmove(buffer_.get(), buffer_.get() + used_, kept);
    }
    const std::size_t got = readFrom(*file_, buffer_.get() + kept, capacity_ - kept);
    size_ = kept + got;
    used_ = 0;
    if (got < capacity_ - kept)
        file_.reset();
}

zuhost::dxf::ReadResult RecordInput::read() {
    return binary_ ? binaryReader_.next(record_) : ascii_.next(record_);
}

bool RecordInput::next() {
    using zuhost::dxf::ReadResult;
    for (;;) {
        const ReadResult result = read();
        // What ends with the buffer may go on in the file.
        const bool whole = result == ReadResult::record && (file_ == nullptr || start_ + record_.end < size_);
        if (whole) {
            used_ = start_ + record_.end;
            if (record_.code != kComment)
                return true;
            continue;
        }
        record_.value = {};
        const bool wrong =
            result == ReadResult::error && !(binary_ ? binaryReader_.error() : ascii_.error()).incomplete;
        if (file_ == nullptr || wrong)
            return false;
        refill();
        makeReader();
    }
}

std::size_t RecordInput::readBytes(char* target, std::size_t count) {
    std::size_t delivered = 0;
    while (delivered < count) {
        const std::size_t piece = std::min(count - delivered, size_ - used_);
        std::copy_n(buffer_.get() + used_, piece, target + delivered);
        used_ += piece;
        delivered += piece;
        if (used_ < size_ || delivered == count)
            break;
        if (file_ == nullptr)
            break;
        refill();
    }
    record_.value = {};
    makeReader();
    return delivered;
}

} // namespace zu::dxf
