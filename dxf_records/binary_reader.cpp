#include "dxf_records/record_reader.h"

#include "dxf_records/scan_record.h"

#include <algorithm>
#include <optional>

namespace zuhost::dxf {

namespace {

constexpr int kEscape = 255;

unsigned byteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

/// Types of objects are printable; a reading in the wrong form finds empty ones.
bool isPlausibleType(std::string_view type) {
    return !type.empty() && type.front() > ' ';
}

/// Types of frames are recognised in lower case too.
bool isFrame(std::string_view type, std::string_view frame) {
    const auto same = [](char a, char b) { return a == b || (a >= 'a' && a - 'a' + 'A' == b); };
    return std::equal(type.begin(), type.end(), frame.begin(), frame.end(), same);
}

/// How well bytes read with group codes of a form.
struct Fit {
    bool isComplete = false;   ///< Records lead to a section or to the end mark.
    std::size_t plausible = 0; ///< Bytes before the first implausible type or error.

    [[nodiscard]] bool isAtLeast(const Fit& other) const {
        return isComplete == other.isComplete ? plausible >= other.plausible : isComplete;
    }
};

/// Stops at the first section unless an implausible type precedes it: records before it can be damaged.
Fit fitOf(CodeForm form, std::string_view records) {
    BinaryReader reader(records, form);
    std::optional<std::size_t> implausible;
    Record record;
    ReadResult result = reader.next(record);
    for (; result == ReadResult::record; result = reader.next(record)) {
        if (record.code != 0)
            continue;
        if (isFrame(record.value, "EOF") || (isFrame(record.value, "SECTION") && !implausible))
            return {true, implausible.value_or(records.size())};
        if (!implausible && !isPlausibleType(record.value))
            implausible = record.offset;
    }
    const bool isError = result == ReadResult::error && !reader.error().incomplete;
    return {false, implausible.value_or(isError ? reader.error().offset : records.size())};
}

CodeForm findForm(std::string_view records) {
    return fitOf(CodeForm::words, records).isAtLeast(fitOf(CodeForm::bytes, records)) ? CodeForm::words
                                                                                      : CodeForm::bytes;
}

/// The types of CodeTable::strict; 240-299 include 280-289 of two bytes.
ValueType strictType(int code) {
    const auto in = [code](int first, int last) { return code >= first && code <= last; };
    if (code == 1004)
        return ValueType::chunk;
    if (in(0, 9) || code == 100 || code == 102 || code == 105 || in(300, 369) || in(1000, 1009))
        return ValueType::text;
    if (in(10, 59) || in(140, 147) || in(210, 239) || in(1010, 1059))
        return ValueType::real;
    if (in(60, 79) || in(170, 209) || in(240, 299) || in(1060, 1070))
        return ValueType::int16;
    if (in(90, 99) || code == 1071)
        return ValueType::int32;
    return ValueType::none;
}

} // namespace

BinaryReader::BinaryReader(std::string_view bytes, CodeTable table) : bytes_(bytes), table_(table) {
    if (isBinaryDrawing(bytes_))
        at_ = std::min(kBinarySentinel.size(), bytes_.size());
    if (table_ == CodeTable::complete)
        form_ = findForm(bytes_.substr(at_));
}

ReadResult BinaryReader::fail(std::size_t offset, std::string_view problem, bool incomplete) {
    error_ = {offset, 0, problem, incomplete};
    at_ = bytes_.size();
    return ReadResult::error;
}

bool BinaryReader::readCode(int& code) {
    const std::size_t left = bytes_.size() - at_;
    if (form_ == CodeForm::bytes && left >= 1 && byteAt(bytes_, at_) != kEscape) {
        code = static_cast<int>(byteAt(bytes_, at_++));
        return true;
    }
    if (form_ == CodeForm::bytes)
        ++at_;
    if (bytes_.size() < at_ + 2)
        return false;
    code = static_cast<int>(byteAt(bytes_, at_) | (byteAt(bytes_, at_ + 1) << 8U));
    at_ += 2;
    return true;
}

ValueType BinaryReader::typeOf(int code) const {
    return table_ == CodeTable::strict ? strictType(code) : valueType(code);
}

ReadResult BinaryReader::readValue(ValueType type, Record& record) {
    std::size_t size = fixedSize(type);
    std::size_t terminator = 0;
    if (type == ValueType::none)
        return fail(record.offset, "the group code is unknown", false);
    if (type == ValueType::chunk) {
        if (at_ >= bytes_.size())
            return fail(record.offset, "the file ends within a value", true);
        size = byteAt(bytes_, at_++);
    } else if (size == 0) {
        const std::size_t zero = bytes_.find('\0', at_);
        if (zero == std::string_view::npos)
            return fail(record.offset, "the file ends within a text", true);
        size = zero - at_;
        terminator = 1;
    }
    if (bytes_.size() - at_ < size)
        return fail(record.offset, "the file ends within a value", true);
    record.value = bytes_.substr(at_, size);
    at_ += size + terminator;
    record.end = at_;
    return ReadResult::record;
}

bool BinaryReader::nextFast(Record& record) {
    if (form_ != CodeForm::words || table_ != CodeTable::complete)
        return false;
    const char* const start = bytes_.data();
    const ScannedRecord scanned = scanBinaryRecord(start + at_, start + bytes_.size());
    if (scanned.end == nullptr)
        return false;
    const std::size_t offset = at_;
    at_ = static_cast<std::size_t>(scanned.end - start);
    record = {scanned.code, scanned.value, offset, at_, 0};
    return true;
}

ReadResult BinaryReader::next(Record& record) {
    if (at_ >= bytes_.size())
        return ReadResult::end;
    if (nextFast(record))
        return ReadResult::record;
    Record read;
    read.offset = at_;
    if (!readCode(read.code))
        return fail(read.offset, "the file ends within a group code", true);
    const ReadResult result = readValue(typeOf(read.code), read);
    if (result == ReadResult::record)
        record = read;
    return result;
}

std::int64_t binaryInteger(std::string_view value) {
    std::uint64_t bits = 0;
    for (std::size_t i = value.size(); i-- > 0;)
        bits = (bits << 8U) | byteAt(value, i);
    switch (value.size()) {
    case 2:
        return static_cast<std::int16_t>(bits);
    case 4:
        return static_cast<std::int32_t>(bits);
    default:
        return static_cast<std::int64_t>(bits);
    }
}

} // namespace zuhost::dxf
