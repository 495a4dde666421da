#include "AcString.h"

#include <zuhost/character.h>
#include <zuhost/text_codec.h>

#include <algorithm>
#include <string_view>

namespace {

bool isBlank(ACHAR c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

} // namespace

AcString AcString::mid(int start, int count) const {
    const std::size_t first = std::min(static_cast<std::size_t>(std::max(start, 0)), text_.size());
    AcString part;
    part.text_ = text_.substr(first, count < 0 ? std::wstring::npos : static_cast<std::size_t>(count));
    return part;
}

AcString AcString::right(int count) const {
    return mid(static_cast<int>(length()) - std::clamp(count, 0, static_cast<int>(length())));
}

AcString& AcString::makeUpper() {
    std::transform(text_.begin(), text_.end(), text_.begin(), zuhost::toUpper);
    return *this;
}

AcString& AcString::makeLower() {
    std::transform(text_.begin(), text_.end(), text_.begin(), zuhost::toLower);
    return *this;
}

AcString& AcString::trimLeft() {
    text_.erase(text_.begin(), std::find_if_not(text_.begin(), text_.end(), isBlank));
    return *this;
}

AcString& AcString::trimRight() {
    text_.erase(std::find_if_not(text_.rbegin(), text_.rend(), isBlank).base(), text_.end());
    return *this;
}

int AcString::replace(const ACHAR* what, const ACHAR* by) {
    const std::wstring_view from(what != nullptr ? what : L"");
    const std::wstring_view to(by != nullptr ? by : L"");
    int count = 0;
    for (std::size_t at = from.empty() ? std::wstring::npos : text_.find(from); at != std::wstring::npos;
         at = text_.find(from, at + to.size())) {
        text_.replace(at, from.size(), to);
        ++count;
    }
    return count;
}

int AcString::compareNoCase(const ACHAR* other) const {
    return AcString(*this).makeUpper().compare(AcString(other).makeUpper());
}

AcString& AcString::insert(int at, const ACHAR* text) {
    if (text != nullptr)
        text_.insert(std::min(static_cast<std::size_t>(std::max(at, 0)), text_.size()), std::wstring(text));
    return *this;
}

AcString& AcString::deleteAtIndex(int at, int count) {
    if (at >= 0 && count > 0 && static_cast<std::size_t>(at) < text_.size())
        text_.erase(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
    return *this;
}

AcString AcString::spanIncluding(const ACHAR* characters) const {
    const std::size_t end = text_.find_first_not_of(characters != nullptr ? characters : L"");
    return end == std::wstring::npos ? *this : left(static_cast<int>(end));
}

AcString AcString::spanExcluding(const ACHAR* characters) const {
    const int end = findOneOf(characters);
    return end < 0 ? *this : left(end);
}

AcString AcString::tokenize(const ACHAR* separators, int& start) const {
    const std::wstring_view all(separators != nullptr ? separators : L"");
    const std::size_t first =
        start < 0 ? std::wstring::npos : text_.find_first_not_of(all, static_cast<std::size_t>(start));
    if (first == std::wstring::npos) {
        start = -1;
        return {};
    }
    const std::size_t last = std::min(text_.find_first_of(all, first), text_.size());
    start = static_cast<int>(std::min(last + 1, text_.size()));
    return mid(static_cast<int>(first), static_cast<int>(last - first));
}

ACHAR AcString::getAt(int at) const {
    return at >= 0 && static_cast<std::size_t>(at) < text_.size() ? text_[static_cast<std::size_t>(at)]
                                                                  : L'\0';
}

AcString& AcString::setAt(int at, ACHAR character) {
    if (character != L'\0' && at >= 0 && static_cast<std::size_t>(at) < text_.size())
        text_[static_cast<std::size_t>(at)] = character;
    return *this;
}

int AcString::match(const ACHAR* other) const {
    const std::wstring_view text(other != nullptr ? other : L"");
    return static_cast<int>(std::ranges::mismatch(text_, text).in1 - text_.begin());
}

int AcString::matchNoCase(const ACHAR* other) const {
    return AcString(*this).makeUpper().match(AcString(other).makeUpper());
}

bool AcString::isAscii() const {
    return std::ranges::all_of(text_, [](ACHAR c) { return c < ACHAR{128}; });
}

const char* AcString::utf8Ptr() const {
    utf8_ = zuhost::toUtf8(text_);
    return utf8_.c_str();
}
