#include "afxstr.h"

#include "afx.h"
#include "atlconv.h"
#include "zuhost/character.h"
#include "zuhost/texts.h"

#include <algorithm>

using zuhost::isSpace;
using zuhost::SharedText;

namespace {

constexpr std::size_t kNone = std::wstring::npos;

std::wstring_view orEmpty(const wchar_t* text) {
    return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

int indexOrNone(std::size_t position) {
    return position == kNone ? -1 : static_cast<int>(position);
}

// Return the number of characters to trim at an end.

template <typename Trimmed>
std::size_t countLeft(std::wstring_view text, Trimmed trimmed) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), trimmed) - text.begin());
}

template <typename Trimmed>
std::size_t countRight(std::wstring_view text, Trimmed trimmed) {
    return static_cast<std::size_t>(std::find_if_not(text.rbegin(), text.rend(), trimmed) - text.rbegin());
}

auto oneOf(const wchar_t* characters) {
    return [set = orEmpty(characters)](wchar_t c) { return set.find(c) != kNone; };
}

auto equalTo(wchar_t character) {
    return [character](wchar_t c) { return c == character; };
}

} // namespace

CString::CString(const wchar_t* text, int length) {
    if (text != nullptr && length > 0)
        text_ = SharedText({text, static_cast<std::size_t>(length)});
}

CString::CString(const char* bytes) : text_(zuhost::wideText(bytes, CP_ACP)) {}

CString::CString(const char* bytes, int length)
    : CString(bytes != nullptr ? std::string(bytes, static_cast<std::size_t>(std::max(length, 0))).c_str()
                               : nullptr) {}

CString::CString(wchar_t character, int count)
    : text_(std::wstring(static_cast<std::size_t>(std::max(count, 0)), character)) {}

CString& CString::operator=(const wchar_t* text) {
    text_ = SharedText(orEmpty(text));
    return *this;
}

CString& CString::operator=(wchar_t character) {
    text_ = SharedText({&character, 1});
    return *this;
}

wchar_t CString::GetAt(int index) const {
    if (index == GetLength())
        return L'\0';
    if (index < 0 || index > GetLength())
        AfxThrowInvalidArgException();
    return view()[static_cast<std::size_t>(index)];
}

void CString::SetAt(int index, wchar_t character) {
    if (index < 0 || index >= GetLength())
        AfxThrowInvalidArgException();
    text_.own(text_.size())[index] = character;
}

CString& CString::operator+=(const CString& text) {
    text_.append(text.view());
    return *this;
}

CString& CString::operator+=(const wchar_t* text) {
    text_.append(orEmpty(text));
    return *this;
}

CString& CString::operator+=(wchar_t character) {
    text_.append({&character, 1});
    return *this;
}

CString CString::Mid(int first) const {
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const {
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    if (count == GetLength())
        return *this;
    return CString(GetString() + first, count);
}

CString CString::Left(int count) const {
    return Mid(0, count);
}

CString CString::Right(int count) const {
    count = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(const wchar_t* characters) const {
    return zuhost::textOf(view().substr(0, view().find_first_not_of(orEmpty(characters))));
}

CString CString::SpanExcluding(const wchar_t* characters) const {
    return zuhost::textOf(view().substr(0, view().find_first_of(orEmpty(characters))));
}

int CString::Find(const wchar_t* text, int start) const {
    if (text == nullptr || start < 0 || start > GetLength())
        return -1;
    return indexOrNone(view().find(text, static_cast<std::size_t>(start)));
}

int CString::Find(wchar_t character, int start) const {
    if (start < 0 || start > GetLength())
        return -1;
    return indexOrNone(view().find(character, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(wchar_t character) const {
    return indexOrNone(view().rfind(character));
}

int CString::FindOneOf(const wchar_t* characters) const {
    return indexOrNone(view().find_first_of(orEmpty(characters)));
}

int CString::Insert(int index, const wchar_t* text) {
    return exchangePart(index, 0, orEmpty(text));
}

int CString::Insert(int index, wchar_t character) {
    return exchangePart(index, 0, {&character, 1});
}

int CString::Delete(int index, int count) {
    return exchangePart(index, count, {});
}

int CString::exchangePart(int index, int count, std::wstring_view with) {
    std::wstring changed(view());
    changed.replace(static_cast<std::size_t>(std::clamp(index, 0, GetLength())),
                    static_cast<std::size_t>(std::max(count, 0)), with);
    text_ = SharedText(changed);
    return GetLength();
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
    const std::wstring_view what = orEmpty(from);
    const std::wstring_view with = orEmpty(to);
    if (what.empty())
        return 0;
    int count = 0;
    std::wstring result;
    std::size_t done = 0;
    for (std::size_t at = view().find(what); at != kNone; at = view().find(what, done)) {
        result.append(view(), done, at - done).append(with);
        done = at + what.size();
        ++count;
    }
    if (count > 0)
        text_ = SharedText(result.append(view(), done));
    return count;
}

int CString::Replace(wchar_t from, wchar_t to) {
    const auto count = std::count(view().begin(), view().end(), from);
    if (count > 0) {
        const std::span<wchar_t> own = ownCharacters();
        std::replace(own.begin(), own.end(), from, to);
    }
    return static_cast<int>(count);
}

int CString::Remove(wchar_t character) {
    const std::span<wchar_t> own = ownCharacters();
    const auto removed = own.end() - std::remove(own.begin(), own.end(), character);
    text_.setSize(own.size() - static_cast<std::size_t>(removed));
    return static_cast<int>(removed);
}

CString& CString::Trim() {
    return TrimRight().TrimLeft();
}
CString& CString::Trim(wchar_t character) {
    return TrimRight(character).TrimLeft(character);
}
CString& CString::Trim(const wchar_t* characters) {
    return TrimRight(characters).TrimLeft(characters);
}

CString& CString::TrimLeft() {
    return *this = Mid(static_cast<int>(countLeft(view(), isSpace)));
}

CString& CString::TrimLeft(wchar_t character) {
    return *this = Mid(static_cast<int>(countLeft(view(), equalTo(character))));
}

CString& CString::TrimLeft(const wchar_t* characters) {
    return *this = Mid(static_cast<int>(countLeft(view(), oneOf(characters))));
}

CString& CString::TrimRight() {
    text_.setSize(text_.size() - countRight(view(), isSpace));
    return *this;
}

CString& CString::TrimRight(wchar_t character) {
    text_.setSize(text_.size() - countRight(view(), equalTo(character)));
    return *this;
}

CString& CString::TrimRight(const wchar_t* characters) {
    text_.setSize(text_.size() - countRight(view(), oneOf(characters)));
    return *this;
}

CString& CString::MakeUpper() {
    const std::span<wchar_t> own = ownCharacters();
    std::transform(own.begin(), own.end(), own.begin(), zuhost::toUpper);
    return *this;
}

CString& CString::MakeLower() {
    const std::span<wchar_t> own = ownCharacters();
    std::transform(own.begin(), own.end(), own.begin(), zuhost::toLower);
    return *this;
}

CString& CString::MakeReverse() {
    const std::span<wchar_t> own = ownCharacters();
    std::reverse(own.begin(), own.end());
    return *this;
}

int CString::Compare(const wchar_t* text) const {
    return view().compare(orEmpty(text));
}

int CString::CompareNoCase(const wchar_t* text) const {
    const std::wstring_view other = orEmpty(text);
    const std::wstring_view own = view();
    const auto [mine, theirs] =
        std::mismatch(own.begin(), own.end(), other.begin(), other.end(),
                      [](wchar_t a, wchar_t b) { return zuhost::toLower(a) == zuhost::toLower(b); });
    const wchar_t left = mine == own.end() ? L'\0' : zuhost::toLower(*mine);
    const wchar_t right = theirs == other.end() ? L'\0' : zuhost::toLower(*theirs);
    return left < right ? -1 : (left > right ? 1 : 0);
}

CString CString::Tokenize(const wchar_t* separators, int& start) const {
    if (start < 0)
        return {};
    const std::size_t first = view().find_first_not_of(orEmpty(separators), static_cast<std::size_t>(start));
    if (first == kNone) {
        start = -1;
        return {};
    }
    const std::size_t last = std::min(view().find_first_of(orEmpty(separators), first), text_.size());
    start = static_cast<int>(last) + 1;
    return zuhost::textOf(view().substr(first, last - first));
}

void CString::FormatV(const wchar_t* format, std::va_list arguments) {
    text_ = zuhost::SharedText(format != nullptr ? zuhost::formatText(format, arguments) : std::wstring());
}

void CString::AppendFormatV(const wchar_t* format, std::va_list arguments) {
    CString piece;
    piece.FormatV(format, arguments);
    *this += piece;
}

std::span<wchar_t> CString::ownCharacters() {
    return {text_.own(text_.size()), text_.size()};
}

CString operator+(const CString& left, const CString& right) {
    return CString(left) += right;
}
CString operator+(const CString& left, const wchar_t* right) {
    return CString(left) += right;
}
CString operator+(const wchar_t* left, const CString& right) {
    return CString(left) += right;
}
CString operator+(const CString& left, wchar_t right) {
    return CString(left) += right;
}
CString operator+(wchar_t left, const CString& right) {
    return CString(left) += right;
}
