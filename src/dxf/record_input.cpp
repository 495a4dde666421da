#include "record_input.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace zu::dxf {

namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;
/// Limits the buffer: endless devices may never deliver a line end.
constexpr std::size_t kLongestRecord = std::size_t{64} * 1024 * 1024;
/// Limits the findings of a file that is not a drawing, where every record is faulty.
constexpr std::size_t kMaxFindings = 50;

} // namespace

std::unique_ptr<RecordInput> RecordInput::open(const wchar_t* path, CodeTable table) {
    auto file = InputFile::open(path);
    if (file == nullptr)
        return nullptr;
    std::unique_ptr<RecordInput> input(new RecordInput);
    input->length_ = file->length();
    const bool isSmall = input->length_ > 0 && input->length_ < kBlock;
    input->capacity_ = isSmall ? static_cast<std::size_t>(input->length_) + 1 : kBlock;
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

std::unique_ptr<RecordInput> RecordInput::from(std::uint64_t offset,
                                               bool (*accepts)(std::string_view value)) const {
    if (file_ == nullptr || !hasFastPath_)
        return nullptr;
    std::unique_ptr<RecordInput> input(new RecordInput);
    input->file_ = file_;
    input->table_ = table_;
    input->length_ = length_;
    input->capacity_ = kBlock;
    input->buffer_ = std::make_unique_for_overwrite<char[]>(kBlock);
    input->dropped_ = offset;
    input->binary_ = binary_;
    input->marked_ = marked_;
    input->hasFastPath_ = true;
    input->form_ = form_;
    input->lineEnd_ = lineEnd_;
    input->refill();
    return input->goToStart(accepts) ? std::move(input) : nullptr;
}

bool RecordInput::goToStart(bool (*accepts)(std::string_view value)) {
    const auto [first, end] = ahead();
    const auto next = [this, end = end](const char* at) {
        return binary_ ? at + 1 : std::min(end, zuhost::dxf::findByte(at, end, lineEnd_) + 1);
    };
    for (const char* at = next(first); at < end; at = next(at)) {
        const ScannedRecord record = scan(at, end);
        if (record.end == nullptr || record.code != 0 || !accepts(record.value))
            continue;
        setCurrent(record, 0);
        return true;
    }
    return false;
}

void RecordInput::continueAs(RecordInput&& later) {
    const std::uint64_t lines = line_ - 1;
    Findings findings = std::exchange(later.findings_, std::move(findings_));
    later.line_ += lines;
    for (Finding& finding : findings.kept) {
        finding.line += binary_ ? 0 : lines;
        later.add(finding);
    }
    later.findings_.count += findings.count - findings.kept.size();
    *this = std::move(later);
}

void RecordInput::start() {
    using namespace zuhost::dxf;
    const std::string_view bytes(buffer_.get(), size_);
    if (binary_) {
        form_ = BinaryReader(bytes, table_).codeForm();
        used_ = std::min(kBinarySentinel.size(), size_);
        hasFastPath_ = form_ == CodeForm::words && table_ == CodeTable::complete;
        return;
    }
    marked_ = bytes.starts_with(kByteOrderMark);
    used_ = marked_ ? kByteOrderMark.size() : 0;
    lineEnd_ = lineEndOf(bytes);
    hasFastPath_ = lineEnd_ == '\n';
}

void RecordInput::refill() {
    const std::size_t kept = size_ - used_;
    if (kept >= kLongestRecord) {
        file_.reset();
        return;
    }
    if (kept == capacity_) {
        auto larger = std::make_unique_for_overwrite<char[]>(capacity_ * 2);
        std::copy_n(buffer_.get() + used_, kept, larger.get());
        buffer_ = std::move(larger);
        capacity_ *= 2;
    } else if (kept > 0) {
        std::memmove(buffer_.get(), buffer_.get() + used_, kept);
    }
    const std::size_t got = file_->readAt(dropped_ + size_, buffer_.get() + kept, capacity_ - kept);
    size_ = kept + got;
    dropped_ += used_;
    used_ = 0;
    if (got < capacity_ - kept)
        file_.reset();
}

RecordInput::Ahead RecordInput::ahead() const {
    const char* const at = buffer_.get() + used_;
    // A record that ends with the buffer may continue in the file.
    const char* const end = buffer_.get() + size_ - (file_ != nullptr ? 1 : 0);
    return {at, hasFastPath_ ? std::max(at, end) : at};
}

void RecordInput::add(const Finding& finding) {
    if (findings_.kept.size() < kMaxFindings)
        findings_.kept.push_back(finding);
    ++findings_.count;
}

void RecordInput::add(std::uint64_t line, std::uint64_t offset, int code, std::string_view problem) {
    add({line, offset, code, problem});
}

void RecordInput::report(const char* place, int code, std::string_view problem) {
    if (findings_.kept.size() == kMaxFindings) {
        ++findings_.count;
        return;
    }
    const char* const here = buffer_.get() + used_;
    const char* const at = place != nullptr ? place : here;
    const std::uint64_t offset = offsetOf(at);
    if (binary_) {
        add(0, offset, code, problem);
        return;
    }
    // The group code's line precedes that of the value.
    const auto lines = [this](const char* from, const char* to) {
        return static_cast<std::uint64_t>(std::count(from, to, lineEnd_));
    };
    add((at >= here ? line_ + lines(here, at) : line_ - lines(at, here)) - 1, offset, code, problem);
}

void RecordInput::reportEnd(std::string_view problem) {
    if (hasEnded_)
        return;
    hasEnded_ = true;
    const bool hasCode = binary_ && form_ == zuhost::dxf::CodeForm::words && size_ - used_ >= 2;
    const auto byteAt = [this](std::size_t at) { return static_cast<unsigned char>(buffer_[at]); };
    const int code = hasCode ? byteAt(used_) | byteAt(used_ + 1) << 8 : Findings::kNoCode;
    add(binary_ ? 0 : line_, dropped_ + used_, code, problem);
}

void RecordInput::setCurrent(const ScannedRecord& scanned, std::uint64_t count) {
    line_ += 2 * count;
    record_.code = scanned.code;
    record_.value = scanned.value;
    used_ = static_cast<std::size_t>(scanned.end - buffer_.get());
}

ScannedRecord RecordInput::scan(const char* at, const char* end) const {
    return binary_ ? zuhost::dxf::scanBinaryRecord(at, end) : zuhost::dxf::scanAsciiRecord(at, end);
}

bool RecordInput::nextFast() {
    const auto [at, end] = ahead();
    const ScannedRecord scanned = scan(at, end);
    if (scanned.end == nullptr)
        return false;
    setCurrent(scanned);
    return true;
}

zuhost::dxf::ReadResult RecordInput::read(Record& record, zuhost::dxf::RecordError& error) const {
    const std::string_view bytes(buffer_.get() + used_, size_ - used_);
    const auto next = [&](auto reader) {
        const zuhost::dxf::ReadResult result = reader.next(record);
        error = reader.error();
        return result;
    };
    return binary_ ? next(zuhost::dxf::BinaryReader(bytes, form_, table_))
                   : next(zuhost::dxf::AsciiReader(bytes, lineEnd_));
}

bool RecordInput::skipBlankLine() {
    const std::string_view bytes(buffer_.get() + used_, size_ - used_);
    const std::size_t end = binary_ ? std::string_view::npos : bytes.find(lineEnd_);
    if (end == std::string_view::npos || bytes.substr(0, end).find_first_not_of(" \t\r") < end)
        return false;
    used_ += end + 1;
    ++line_;
    return true;
}

bool RecordInput::nextSlow() {
    using zuhost::dxf::ReadResult;
    bool isAfterBlank = false;
    for (;;) {
        while (skipBlankLine())
            isAfterBlank = true;
        Record read;
        zuhost::dxf::RecordError error;
        const ReadResult result = this->read(read, error);
        if (result == ReadResult::record && (file_ == nullptr || used_ + read.end < size_)) {
            if (isAfterBlank)
                add(line_ - 1, dropped_ + used_, Findings::kNoCode,
                    "a blank line before a group code is skipped");
            record_ = read;
            used_ += read.end;
            line_ += 2;
            return true;
        }
        record_.value = {};
        if (file_ == nullptr || (result == ReadResult::error && !error.incomplete)) {
            if (result == ReadResult::error)
                reportEnd(error.problem);
            return false;
        }
        refill();
    }
}

bool RecordInput::next() {
    do {
        if (!nextFast() && !nextSlow())
            return false;
    } while (record_.code == zuhost::dxf::kComment);
    return true;
}

std::size_t RecordInput::readBytes(char* target, std::size_t count) {
    std::size_t delivered = 0;
    while (delivered < count) {
        const std::size_t piece = std::min(count - delivered, size_ - used_);
        const char* const start = buffer_.get() + used_;
        std::copy_n(start, piece, target + delivered);
        line_ += static_cast<std::uint64_t>(std::count(start, start + piece, lineEnd_));
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
