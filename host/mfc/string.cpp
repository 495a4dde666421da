#include "afxstr.h"

#include "afx.h"
#include "character.h"

#include <algorithm>

using zuhost::isSpace;

namespace {

constexpr std::size_t kNone = std::wstring::npos;

std::wstring_view orEmpty(const wchar_t* text) {
    return text != nullptr ? std::wstring_view(text) : std::wstring_view();
}

int indexOrNone(std::size_t position) {
    return position == kNone ? -1 : static_cast<int>(position);
}

template <typename Trimmed>
void trimLeft(std::wstring& text, Trimmed trimmed) {
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), trimmed));
}

template <typename Trimmed>
void trimRight(std::wstring& text, Trimmed trimmed) {
    text.erase(std::find_if_not(text.rbegin(), text.rend(), trimmed).base(), text.end());
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
        text_.assign(text, static_cast<std::size_t>(length));
}

CString::CString(wchar_t character, int count)
    : text_(static_cast<std::size_t>(std::max(count, 0)), character) {}

CString& CString::operator=(const wchar_t* text) {
    text_ = std::wstring(orEmpty(text)); // by way of a copy: the text may be our own
    return *this;
}

CString& CString::operator=(wchar_t character) {
    text_.assign(1, character);
    return *this;
}

wchar_t CString::GetAt(int index) const {
    if (index == GetLength())
        return L'\0';
    if (index < 0 || index > GetLength())
        AfxThrowInvalidArgException();
    return text_[static_cast<std::size_t>(index)];
}

void CString::SetAt(int index, wchar_t character) {
    if (index < 0 || index >= GetLength())
        AfxThrowInvalidArgException();
    text_[static_cast<std::size_t>(index)] = character;
}

CString& CString::operator+=(const CString& text) {
    text_ += text.text_;
    return *this;
}

CString& CString::operator+=(const wchar_t* text) {
    text_ += std::wstring(orEmpty(text));
    return *this;
}

CString& CString::operator+=(wchar_t character) {
    text_ += character;
    return *this;
}

CString CString::Mid(int first) const {
    return Mid(first, GetLength());
}

CString CString::Mid(int first, int count) const {
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    return CString(text_.data() + first, count);
}

CString CString::Left(int count) const {
    return Mid(0, count);
}

CString CString::Right(int count) const {
    count = std::clamp(count, 0, GetLength());
    return Mid(GetLength() - count, count);
}

CString CString::SpanIncluding(const wchar_t* characters) const {
    return CString(view().substr(0, text_.find_first_not_of(orEmpty(characters))));
}

CString CString::SpanExcluding(const wchar_t* characters) const {
    return CString(view().substr(0, text_.find_first_of(orEmpty(characters))));
}

int CString::Find(const wchar_t* text, int start) const {
    if (text == nullptr || start < 0 || start > GetLength())
        return -1;
    return indexOrNone(text_.find(text, static_cast<std::size_t>(start)));
}

int CString::Find(wchar_t character, int start) const {
    if (start < 0 || start > GetLength())
        return -1;
    return indexOrNone(text_.find(character, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(wchar_t character) const {
    return indexOrNone(text_.rfind(character));
}

int CString::FindOneOf(const wchar_t* characters) const {
    return indexOrNone(text_.find_first_of(orEmpty(characters)));
}

int CString::Insert(int index, const wchar_t* text) {
    text_.insert(static_cast<std::size_t>(std::clamp(index, 0, GetLength())), std::wstring(orEmpty(text)));
    return GetLength();
}

int CString::Insert(int index, wchar_t character) {
    text_.insert(static_cast<std::size_t>(std::clamp(index, 0, GetLength())), 1, character);
    return GetLength();
}

int CString::Delete(int index, int count) {
    index = std::clamp(index, 0, GetLength());
    if (count > 0)
        text_.erase(static_cast<std::size_t>(index), static_cast<std::size_t>(count));
    return GetLength();
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
    const std::wstring what(orEmpty(from));
    const std::wstring with(orEmpty(to));
    if (what.empty())
        return 0;
    int count = 0;
    std::wstring result;
    std::size_t done = 0;
    for (std::size_t at = text_.find(what); at != kNone; at = text_.find(what, done)) {
        result.append(text_, done, at - done).append(with);
        done = at + what.size();
        ++count;
    }
    text_ = result.append(text_, done);
    return count;
}

int CString::Replace(wchar_t from, wchar_t to) {
    const auto count = std::count(text_.begin(), text_.end(), from);
    std::replace(text_.begin(), text_.end(), from, to);
    return static_cast<int>(count);
}

int CString::Remove(wchar_t character) {
    return static_cast<int>(std::erase(text_, character));
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
    trimLeft(text_, isSpace);
    return *this;
}

CString& CString::TrimLeft(wchar_t character) {
    trimLeft(text_, equalTo(character));
    return *this;
}

CString& CString::TrimLeft(const wchar_t* characters) {
    trimLeft(text_, oneOf(characters));
    return *this;
}

CString& CString::TrimRight() {
    trimRight(text_, isSpace);
    return *this;
}

CString& CString::TrimRight(wchar_t character) {
    trimRight(text_, equalTo(character));
    return *this;
}

CString& CString::TrimRight(const wchar_t* characters) {
    trimRight(text_, oneOf(characters));
    return *this;
}

CString& CString::MakeUpper() {
    std::transform(text_.begin(), text_.end(), text_.begin(), zuhost::toUpper);
    return *this;
}

CString& CString::MakeLower() {
    std::transform(text_.begin(), text_.end(), text_.begin(), zuhost::toLower);
    return *this;
}

CString& CString::MakeReverse() {
    std::reverse(text_.begin(), text_.end());
    return *this;
}

int CString::Compare(const wchar_t* text) const {
    return view().compare(orEmpty(text));
}

int CString::CompareNoCase(const wchar_t* text) const {
    const std::wstring_view other = orEmpty(text);
    const auto [mine, theirs] =
        std::mismatch(text_.begin(), text_.end(), other.begin(), other.end(),
                      [](wchar_t a, wchar_t b) { return zuhost::toLower(a) == zuhost::toLower(b); });
    const wchar_t left = mine == text_.end() ? L'\0' : zuhost::toLower(*mine);
    const wchar_t right = theirs == other.end() ? L'\0' : zuhost::toLower(*theirs);
    return left < right ? -1 : (left > right ? 1 : 0);
}

CString CString::Tokenize(const wchar_t* separators, int& start) const {
    if (start < 0)
        return {};
    const std::size_t first = text_.find_first_not_of(orEmpty(separators), static_cast<std::size_t>(start));
    if (first == kNone) {
        start = -1;
        return {};
    }
    const std::size_t last = std::min(text_.find_first_of(orEmpty(separators), first), text_.size());
    start = static_cast<int>(last) + 1;
    return CString(view().substr(first, last - first));
}

wchar_t* CString::GetBuffer(int length) {
    if (length > GetLength())
        text_.resize(static_cast<std::size_t>(length));
    return text_.data();
}

void CString::ReleaseBuffer(int length) {
    const std::size_t wanted = length < 0 ? text_.find(L'\0') : static_cast<std::size_t>(length);
    if (wanted < text_.size())
        text_.resize(wanted);
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
