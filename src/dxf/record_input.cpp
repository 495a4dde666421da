#include "record_input.h"

#include <algorithm>
#include <cstring>

namespace zu::dxf {

namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;

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
    input->length_ = file->GetLength();
    input->capacity_ = static_cast<std::size_t>(std::min<std::uint64_t>(input->length_ + 1, kBlock));
    input->file_ = std::move(file);
    input->table_ = table;
    input->buffer_ = std::make_unique_for_overwrite<char[]>(input->capacity_);
    input->refill();
    input->binary_ = zuhost::dxf::isBinaryDrawing({input->buffer_.get(), input->size_});
    input->start();
    return input;
}

std::unique_ptr<RecordInput> RecordInput::fromText(std::string text) {
    std::unique_ptr<RecordInput> input(new RecordInput);
    input->capacity_ = input->size_ = text.size();
    input->buffer_ = std::make_unique_for_overwrite<char[]>(text.size());
    std::copy(text.begin(), text.end(), input->buffer_.get());
    input->start();
    return input;
}

void RecordInput::start() {
    using namespace zuhost::dxf;
    const std::string_view bytes(buffer_.get(), size_);
    if (binary_) {
        form_ = BinaryReader(bytes).codeForm();
        used_ = std::min(kBinarySentinel.size(), size_);
        usual_ = form_ == CodeForm::words && table_ == CodeTable::complete;
        return;
    }
    marked_ = bytes.starts_with(kByteOrderMark);
    used_ = marked_ ? kByteOrderMark.size() : 0;
    lineEnd_ = lineEndOf(bytes);
    usual_ = lineEnd_ == '\n';
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

RecordInput::Ahead RecordInput::ahead() const {
    const char* const at = buffer_.get() + used_;
    // What ends with the buffer may go on in the file.
    const char* const end = buffer_.get() + size_ - (file_ != nullptr ? 1 : 0);
    return {at, usual_ ? std::max(at, end) : at};
}

void RecordInput::setCurrent(const TakenRecord& taken) {
    record_.code = taken.code;
    record_.value = taken.value;
    used_ = static_cast<std::size_t>(taken.end - buffer_.get());
}

bool RecordInput::takeUsual() {
    const auto [at, end] = ahead();
    const TakenRecord taken =
        binary_ ? zuhost::dxf::takeBinaryRecord(at, end) : zuhost::dxf::takeAsciiRecord(at, end);
    if (taken.end == nullptr)
        return false;
    setCurrent(taken);
    return true;
}

zuhost::dxf::ReadResult RecordInput::read(Record& record, bool& incomplete) const {
    const std::string_view bytes(buffer_.get() + used_, size_ - used_);
    const auto next = [&](auto reader) {
        const zuhost::dxf::ReadResult result = reader.next(record);
        incomplete = reader.error().incomplete;
        return result;
    };
    return binary_ ? next(zuhost::dxf::BinaryReader(bytes, form_, table_))
                   : next(zuhost::dxf::AsciiReader(bytes, lineEnd_));
}

bool RecordInput::takeOther() {
    using zuhost::dxf::ReadResult;
    for (;;) {
        Record read;
        bool incomplete = false;
        const ReadResult result = this->read(read, incomplete);
        if (result == ReadResult::record && (file_ == nullptr || used_ + read.end < size_)) {
            record_ = read;
            used_ += read.end;
            return true;
        }
        record_.value = {};
        if (file_ == nullptr || (result == ReadResult::error && !incomplete))
            return false;
        refill();
    }
}

bool RecordInput::next() {
    do {
        if (!takeUsual() && !takeOther())
            return false;
    } while (record_.code == zuhost::dxf::kComment);
    return true;
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
    return delivered;
}

} // namespace zu::dxf
