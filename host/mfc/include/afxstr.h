#pragma once

#include <windows.h>
#include <zuhost/platform/export.h>
#include "zuhost/format.h"
#include "zuhost/shared_text.h"

#include <algorithm>
#include <compare>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

class CString;

namespace zuhost {
class StringPool;
}

/// The host framework's wide text, a value type: copies are cheap and share their characters until one is
/// changed. Indices and lengths count wide characters. Mid, Left, Right, Insert and Delete clamp positions
/// that are out of range; GetAt and SetAt throw the invalid-argument exception.
class ZUHOST_API CString {
public:
    using XCHAR = wchar_t;
    using PXSTR = wchar_t*;
    using PCXSTR = const wchar_t*;

    CString() = default;
    CString(const CString&) = default;
    CString(CString&&) noexcept = default;
    CString(const wchar_t* text) : text_(text != nullptr ? std::wstring_view(text) : std::wstring_view()) {}
    CString(const wchar_t* text, int length);
    /// Decodes bytes of the platform's code page (932).
    explicit CString(const char* bytes);
    CString(const char* bytes, int length);
    explicit CString(wchar_t character, int count = 1);
    CString& operator=(const CString&) = default;
    CString& operator=(CString&&) noexcept = default;
    CString& operator=(const wchar_t* text);
    CString& operator=(wchar_t character);
    CString& operator=(const char* bytes) { return *this = CString(bytes); }
    ~CString() = default;

    operator const wchar_t*() const { return text_.c_str(); }
    [[nodiscard]] const wchar_t* GetString() const { return text_.c_str(); }

    [[nodiscard]] int GetLength() const { return static_cast<int>(text_.size()); }
    [[nodiscard]] bool IsEmpty() const { return text_.size() == 0; }
    void Empty() { text_ = {}; }
    void Truncate(int length) { text_.setSize(static_cast<std::size_t>(std::clamp(length, 0, GetLength()))); }
    /// Sets a text that may contain null characters.
    void SetString(const wchar_t* text, int length) { *this = CString(text, length); }
    void SetString(const wchar_t* text) { *this = text; }
    [[nodiscard]] wchar_t GetAt(int index) const;
    wchar_t operator[](int index) const { return GetAt(index); }
    void SetAt(int index, wchar_t character);

    CString& operator+=(const CString& text);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t character);
    CString& operator+=(const char* bytes) { return *this += CString(bytes); }
    void Append(const wchar_t* text) { *this += text; }
    void Append(const wchar_t* text, int length) { *this += CString(text, length); }
    void AppendChar(wchar_t character) { *this += character; }

    [[nodiscard]] CString Mid(int first) const;
    [[nodiscard]] CString Mid(int first, int count) const;
    [[nodiscard]] CString Left(int count) const;
    [[nodiscard]] CString Right(int count) const;
    [[nodiscard]] CString SpanIncluding(const wchar_t* characters) const;
    [[nodiscard]] CString SpanExcluding(const wchar_t* characters) const;

    /// Returns the index of the first occurrence at or after `start`; -1 when there is none.
    [[nodiscard]] int Find(const wchar_t* text, int start = 0) const;
    [[nodiscard]] int Find(wchar_t character, int start = 0) const;
    [[nodiscard]] int ReverseFind(wchar_t character) const;
    [[nodiscard]] int FindOneOf(const wchar_t* characters) const;

    int Insert(int index, const wchar_t* text);
    int Insert(int index, wchar_t character);
    int Delete(int index, int count = 1);
    /// Each returns the number of replacements or removals.
    int Replace(const wchar_t* from, const wchar_t* to);
    int Replace(wchar_t from, wchar_t to);
    /// Removes each of the characters; upper and lower case differ.
    int Remove(wchar_t character);

    CString& Trim();
    CString& Trim(wchar_t character);
    CString& Trim(const wchar_t* characters);
    CString& TrimLeft();
    CString& TrimLeft(wchar_t character);
    CString& TrimLeft(const wchar_t* characters);
    CString& TrimRight();
    CString& TrimRight(wchar_t character);
    CString& TrimRight(const wchar_t* characters);

    CString& MakeUpper();
    CString& MakeLower();
    CString& MakeReverse();

    /// Returns less than, equal to or greater than zero, by character codes; CompareNoCase ignores the case
    /// of ASCII letters, as the platform does in its C locale.
    [[nodiscard]] int Compare(const wchar_t* text) const;
    [[nodiscard]] int CompareNoCase(const wchar_t* text) const;
    /// The same order: the platform's C locale sorts by character codes.
    [[nodiscard]] int Collate(const wchar_t* text) const { return Compare(text); }
    [[nodiscard]] int CollateNoCase(const wchar_t* text) const { return CompareNoCase(text); }

    /// Returns the next piece at or after `start` without separators; advances `start` past it, or sets it to
    /// -1 when no piece is left.
    CString Tokenize(const wchar_t* separators, int& start) const;

    /// Formats with type-checked arguments: numbers, wide and narrow C strings, and CString itself.
    template <typename... Arguments>
    void Format(const wchar_t* format, const Arguments&... arguments) {
        text_ = zuhost::SharedText(zuhost::formatAll(format, arguments...));
    }
    /// Formats with a resource string; empty when the module lacks it.
    template <typename... Arguments>
    void Format(UINT id, const Arguments&... arguments) {
        CString format;
        static_cast<void>(format.LoadString(id));
        Format(format.GetString(), arguments...);
    }
    /// Formats the arguments of a variadic function.
    void FormatV(const wchar_t* format, std::va_list arguments);
    void AppendFormatV(const wchar_t* format, std::va_list arguments);
    template <typename... Arguments>
    void AppendFormat(const wchar_t* format, const Arguments&... arguments) {
        CString piece;
        piece.Format(format, arguments...);
        *this += piece;
    }
    template <typename... Arguments>
    void AppendFormat(UINT id, const Arguments&... arguments) {
        CString piece;
        piece.Format(id, arguments...);
        *this += piece;
    }

    /// Loads a resource string; returns FALSE and leaves the text untouched when the module lacks the id.
    BOOL LoadString(UINT id);
    BOOL LoadString(HINSTANCE instance, UINT id);

    /// Returns a buffer of at least `length` characters to fill, valid until ReleaseBuffer, which makes that
    /// many characters the text (negative: those before the first zero).
    wchar_t* GetBuffer(int length = 0) {
        return text_.own(static_cast<std::size_t>(std::max(length, GetLength())));
    }
    /// The same with the text's length set at once to `length`.
    wchar_t* GetBufferSetLength(int length) {
        wchar_t* const buffer = GetBuffer(length);
        text_.setSize(static_cast<std::size_t>(std::max(length, 0)));
        return buffer;
    }
    void ReleaseBufferSetLength(int length) { ReleaseBuffer(std::max(length, 0)); }
    /// Makes room for that many characters.
    void Preallocate(int length) { GetBuffer(length); }
    /// Frees the memory that the text does not use.
    void FreeExtra() { text_ = zuhost::SharedText(text_.view()); }
    void ReleaseBuffer(int length = -1) {
        const std::wstring_view buffer(GetString(), text_.room());
        const std::size_t size = length < 0 ? buffer.find(L'\0') : static_cast<std::size_t>(length);
        text_.setSize(std::min(size, buffer.size()));
    }

private:
    friend class zuhost::StringPool;
    friend ZUHOST_API bool operator==(const CString& left, const CString& right);
    friend ZUHOST_API std::strong_ordering operator<=>(const CString& left, const CString& right);

    explicit CString(zuhost::SharedText text) : text_(std::move(text)) {}
    [[nodiscard]] std::wstring_view view() const { return text_.view(); }
    int exchangePart(int index, int count, std::wstring_view with);
    std::span<wchar_t> ownCharacters();

    zuhost::SharedText text_;
};

ZUHOST_API CString operator+(const CString& left, const CString& right);
ZUHOST_API CString operator+(const CString& left, const wchar_t* right);
ZUHOST_API CString operator+(const wchar_t* left, const CString& right);
ZUHOST_API CString operator+(const CString& left, wchar_t right);
ZUHOST_API CString operator+(wchar_t left, const CString& right);

inline bool operator==(const CString& left, const CString& right) {
    return left.view() == right.view();
}
inline bool operator==(const CString& left, const wchar_t* right) {
    return left.Compare(right) == 0;
}
inline bool operator==(const CString& left, wchar_t right) {
    return left.GetLength() == 1 && *left.GetString() == right;
}
inline bool operator==(const CString& left, const char* right) {
    return left == CString(right);
}
// Every combination is needed: a missing one would compare addresses.
inline std::strong_ordering operator<=>(const CString& left, const CString& right) {
    return left.view() <=> right.view();
}
inline auto operator<=>(const CString& left, const wchar_t* right) {
    return left.Compare(right) <=> 0;
}
inline auto operator<=>(const CString& left, const char* right) {
    return left <=> CString(right);
}

using CStringW = CString;
using CAtlString = CString;
