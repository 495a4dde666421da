#include "AcString.h"

#include <zuhost/character.h>

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
