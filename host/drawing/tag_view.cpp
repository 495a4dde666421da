#include "drawing/tag_view.h"

#include "dxf_records/number_text.h"
#include "dxf_records/record_reader.h"

#include <algorithm>

namespace zuhost {
namespace {

using dxf::ValueType;

constexpr int kSubclassMarker = 100;
constexpr int kGroupBracket = 102;
constexpr int kFirstExtended = 1000;
constexpr int kApplicationName = 1001;

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Names of applications are case-insensitive. Non-ASCII bytes can be parts of characters and must be equal.
bool sameName(std::string_view a, std::string_view b) {
    if (a == b)
        return true;
    if (a.size() != b.size() || !isAscii(a) || !isAscii(b))
        return false;
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        text += kDigits[static_cast<unsigned char>(c) >> 4U];
        text += kDigits[static_cast<unsigned char>(c) & 0xFU];
    }
    return text;
}

/// Reads one record of any notation.
template <typename Reader>
std::size_t readWith(Reader reader, std::size_t place, std::size_t last, bool isBinary, TagRef& tag) {
    dxf::Record record;
    if (reader.next(record) != dxf::ReadResult::record)
        return last; // Cannot happen in bytes that were parsed; ends the view.
    tag = {record.code, record.value, isBinary};
    return place + record.end;
}

} // namespace

std::optional<double> TagRef::real() const {
    if (isBinary_ && dxf::valueType(code) == ValueType::real)
        return dxf::binaryReal(text);
    if (!isBinary_)
        return parseReal(text);
    std::string scratch;
    return parseReal(value(scratch));
}

std::optional<std::int64_t> TagRef::integer() const {
    if (isBinary_ && dxf::isInteger(dxf::valueType(code)))
        return dxf::binaryInteger(text);
    if (!isBinary_)
        return parseInteger(text);
    std::string scratch;
    return parseInteger(value(scratch));
}

std::optional<std::uint64_t> TagRef::handle() const {
    std::string scratch;
    return parseHandle(value(scratch));
}

std::string_view TagRef::value(std::string& scratch) const {
    if (!isBinary_)
        return text;
    switch (dxf::valueType(code)) {
    case ValueType::real:
        return scratch = formatReal(dxf::binaryReal(text));
    case ValueType::int16:
    case ValueType::int32:
    case ValueType::int64:
    case ValueType::boolean:
        return scratch = std::to_string(dxf::binaryInteger(text));
    case ValueType::chunk:
        return scratch = hexadecimal(text);
    case ValueType::text:
    case ValueType::handle:
    case ValueType::none:
        break;
    }
    return text;
}

Tag TagRef::tag() const {
    std::string scratch;
    return {code, std::string(value(scratch))};
}

/// Calls `function` with each record until it returns true. What all records have in common is looked at
/// once.
template <typename Function>
void TagView::visit(Function function) const {
    if (end_ == End::application) {
        for (const TagRef& tag : *this)
            if (function(tag))
                return;
        return;
    }
    if (form_ == TagForm::ascii)
        visitWith([this](std::size_t place, TagRef& tag) { return readAscii(place, tag); }, function);
    else
        visitWith([this](std::size_t place, TagRef& tag) { return read(place, tag); }, function);
}

template <typename Read, typename Function>
void TagView::visitWith(Read readRecord, Function function) const {
    TagRef tag;
    for (std::size_t place = first_; place < last_;) {
        place = readRecord(place, tag);
        if (endsSubclass(tag.code) || function(tag))
            return;
    }
}

std::optional<TagRef> TagView::find(int code) const {
    std::optional<TagRef> found;
    visit([&](const TagRef& tag) {
        if (tag.code == code)
            found = tag;
        return tag.code == code;
    });
    return found;
}

std::size_t TagView::readUnusual(std::size_t place, TagRef& tag) const {
    const std::string_view rest(bytes_ + place, last_ - place);
    if (form_ == TagForm::ascii || form_ == TagForm::asciiReturns)
        return readWith(dxf::AsciiReader(rest, form_ == TagForm::ascii ? '\n' : '\r'), place, last_, false,
                        tag);
    const auto codes = form_ == TagForm::binary ? dxf::CodeForm::words : dxf::CodeForm::bytes;
    return readWith(dxf::BinaryReader(rest, codes), place, last_, true, tag);
}

TagRange TagView::range() const {
    std::size_t last = last_;
    if (end_ != End::none) {
        Iterator it = begin();
        while (it != end())
            ++it;
        last = it.place();
    }
    return {first_, last};
}

TagView TagView::in(TagRange range) const {
    return {*this, range};
}

TagView TagView::subclass(std::string_view marker) const {
    TagView part = in({subclassStart(marker), last_});
    part.end_ = End::subclass;
    return part;
}

TagView TagView::withoutExtendedData() const {
    return in({first_, extendedDataStart()});
}

TagView TagView::extendedData() const {
    return in({extendedDataStart(), last_});
}

TagView TagView::extendedData(std::string_view application) const {
    const TagView all = extendedData();
    Iterator it = all.begin();
    while (it != end() && !(it->code == kApplicationName && sameName(it->text, application)))
        ++it;
    if (it == end())
        return in({last_, last_});
    TagView part = in({it.place(), last_});
    part.end_ = End::application;
    return part;
}

TagView TagView::applicationGroup(std::string_view name) const {
    const TagView all = withoutExtendedData();
    const auto isBracket = [](const TagRef& tag) { return tag.code == kGroupBracket; };
    for (Iterator it = all.begin(); it != end(); ++it) {
        if (!isBracket(*it) || !it->text.starts_with('{') || it->text.substr(1) != name)
            continue;
        const std::size_t first = it.place();
        for (++it; it != end() && !isBracket(*it) && it->code != kSubclassMarker;)
            ++it;
        return in({first, it != end() && isBracket(*it) ? it.next() : it.place()});
    }
    // A new group belongs after the handle, before owner and subclasses.
    for (Iterator it = all.begin(); it != end() && it->code != kSubclassMarker; ++it)
        if (it->code == 5 || it->code == 105)
            return in({it.next(), it.next()});
    const Iterator type = all.begin();
    const std::size_t place = type != end() ? type.next() : type.place();
    return in({place, place});
}

std::size_t TagView::firstMarker() const {
    if (places_.firstMarker != RecordPlaces::kUnknown)
        return places_.firstMarker;
    Iterator it = begin();
    while (it != end() && it->code < kFirstExtended && it->code != kSubclassMarker)
        ++it;
    return it.place();
}

std::size_t TagView::extendedDataStart() const {
    if (places_.extendedData != RecordPlaces::kUnknown)
        return places_.extendedData;
    if (list_ != nullptr && end_ == End::none) {
        std::size_t place = first_;
        while (place < last_ && (*list_)[place].code < kFirstExtended)
            ++place;
        return place;
    }
    Iterator it = begin();
    while (it != end() && it->code < kFirstExtended)
        ++it;
    return it.place();
}

/// Returns the place after the marker's record if it is at the place, else kUnknown. Compares the two lines
/// instead of looking for their ends: each value of an object that is read begins with this.
std::size_t TagView::afterMarker(std::size_t place, std::string_view marker) const {
    if (form_ != TagForm::ascii || place >= last_)
        return afterReadMarker(place, marker);
    const char* const end = bytes_ + last_;
    const char* const value = dxf::afterLine(bytes_ + place, end, "100");
    if (value == nullptr)
        return afterReadMarker(place, marker);
    const char* const next = dxf::afterLine(value, end, marker);
    return next != nullptr ? static_cast<std::size_t>(next - bytes_) : RecordPlaces::kUnknown;
}

/// The same for records of any form.
std::size_t TagView::afterReadMarker(std::size_t place, std::string_view marker) const {
    if (place >= last_)
        return RecordPlaces::kUnknown;
    TagRef tag;
    const std::size_t next = read(place, tag);
    return tag.code == kSubclassMarker && tag.text == marker ? next : RecordPlaces::kUnknown;
}

std::size_t TagView::subclassStart(std::string_view marker) const {
    if (list_ != nullptr && end_ == End::none)
        return subclassStartInList(marker);
    std::size_t place = firstMarker();
    const bool knowsMarkers = places_.secondMarker != RecordPlaces::kUnknown;
    if (knowsMarkers) {
        if (const std::size_t start = afterMarker(place, marker); start != RecordPlaces::kUnknown)
            return start;
        place = places_.secondMarker;
        if (const std::size_t start = afterMarker(place, marker); start != RecordPlaces::kUnknown)
            return start;
    }
    bool anyMarker = knowsMarkers;
    TagRef tag;
    while (place < last_) {
        const std::size_t next = read(place, tag);
        if (tag.code >= kFirstExtended || endsSubclass(tag.code))
            break;
        if (tag.code == kSubclassMarker && tag.text == marker)
            return next;
        anyMarker = anyMarker || tag.code == kSubclassMarker;
        place = next;
    }
    if (anyMarker || place == first_)
        return place;
    return begin().next();
}

std::size_t TagView::subclassStartInList(std::string_view marker) const {
    const TagList& list = *list_;
    bool anyMarker = false;
    std::size_t place = first_;
    for (; place < last_ && list[place].code < kFirstExtended; ++place) {
        if (list[place].code != kSubclassMarker)
            continue;
        anyMarker = true;
        if (list[place].value == marker)
            return place + 1;
    }
    return anyMarker || place == first_ ? place : first_ + 1;
}

std::optional<double> TagView::real(int code) const {
    const auto tag = find(code);
    return tag ? tag->real() : std::nullopt;
}

std::optional<std::int64_t> TagView::integer(int code) const {
    const auto tag = find(code);
    return tag ? tag->integer() : std::nullopt;
}

std::optional<std::uint64_t> TagView::handle(int code) const {
    const auto tag = find(code);
    return tag ? tag->handle() : std::nullopt;
}

std::optional<std::string_view> TagView::text(int code) const {
    std::optional<std::string_view> text;
    visit([&](const TagRef& tag) {
        if (tag.code == code)
            text = tag.text;
        return tag.code == code;
    });
    return text;
}

void TagView::reals(std::span<const int> codes, std::span<double> values) const {
    const bool isBinary = form_ == TagForm::binary || form_ == TagForm::shortBinary;
    std::uint32_t unseen = (1U << codes.size()) - 1;
    std::size_t next = 0;
    visit([&](const TagRef& tag) {
        const int code = tag.code;
        // Records usually are in the order of the codes.
        std::size_t i = next;
        if (code != codes[i]) {
            if (dxf::valueType(code) != ValueType::real)
                return false;
            i = static_cast<std::size_t>(std::ranges::find(codes, code) - codes.begin());
            if (i == codes.size())
                return false;
        }
        if (const std::uint32_t bit = 1U << i; (unseen & bit) != 0) {
            unseen &= ~bit;
            if (isBinary)
                values[i] = dxf::binaryReal(tag.text);
            else
                parseReal(tag.text, values[i]);
        }
        next = i + 1 < codes.size() ? i + 1 : 0;
        return unseen == 0;
    });
}

} // namespace zuhost
