#pragma once

#include "windows.h"
#include "zuhost/shared_text.h"

#include <algorithm>
#include <compare>
#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace zuhost {

/// One argument of CString::Format with its type, so that a wrong conversion cannot read foreign memory.
using FormatArgument =
    std::variant<std::int64_t, std::uint64_t, double, const wchar_t*, const char*, const void*>;

/// Formats as the platform's wprintf family does, independent of the process's locale.
/// A conversion without an argument, or with one of the wrong kind, prints nothing.
std::wstring formatText(std::wstring_view format, std::span<const FormatArgument> arguments);

} // namespace zuhost

class CString;

/// The host framework's wide text, a value type: copies are cheap and share their characters until one is
/// changed. Indices and lengths count wide characters. Mid, Left, Right, Insert and Delete clamp positions
/// that are out of range; GetAt and SetAt throw the invalid-argument exception.
class CString {
public:
    using XCHAR = wchar_t;

    CString() = default;
    CString(const CString&) = default;
    CString(CString&&) noexcept = default;
    CString(const wchar_t* text) : text_(text != nullptr ? std::wstring_view(text) : std::wstring_view()) {}
    CString(const wchar_t* text, int length);
    explicit CString(wchar_t character, int count = 1);
    explicit CString(const std::wstring& text) : text_(text) {}
    explicit CString(std::wstring_view text) : text_(text) {}
    explicit CString(zuhost::SharedText text) : text_(std::move(text)) {}
    CString& operator=(const CString&) = default;
    CString& operator=(CString&&) noexcept = default;
    CString& operator=(const wchar_t* text);
    CString& operator=(wchar_t character);
    ~CString() = default;

    operator const wchar_t*() const { return text_.c_str(); }
    [[nodiscard]] const wchar_t* GetString() const { return text_.c_str(); }
    /// Returns a view of the text, valid until its next change.
    [[nodiscard]] std::wstring_view view() const { return text_.view(); }

    [[nodiscard]] int GetLength() const { return static_cast<int>(text_.size()); }
    [[nodiscard]] bool IsEmpty() const { return text_.size() == 0; }
    void Empty() { text_ = {}; }
    [[nodiscard]] wchar_t GetAt(int index) const;
    wchar_t operator[](int index) const { return GetAt(index); }
    void SetAt(int index, wchar_t character);

    CString& operator+=(const CString& text);
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t character);
    void Append(const wchar_t* text) { *this += text; }
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

    /// Returns the next piece at or after `start` without separators; advances `start` past it, or sets it to
    /// -1 when no piece is left.
    CString Tokenize(const wchar_t* separators, int& start) const;

    /// Formats with type-checked arguments: numbers, wide and narrow C strings, and CString itself.
    template <typename... Arguments>
    void Format(const wchar_t* format, const Arguments&... arguments) {
        if constexpr (sizeof...(arguments) == 0) {
            text_ = zuhost::SharedText(zuhost::formatText(format, {}));
        } else {
            const zuhost::FormatArgument list[] = {argument(arguments)...};
            text_ = zuhost::SharedText(zuhost::formatText(format, list));
        }
    }
    template <typename... Arguments>
    void AppendFormat(const wchar_t* format, const Arguments&... arguments) {
        CString piece;
        piece.Format(format, arguments...);
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
    void ReleaseBuffer(int length = -1) {
        const std::wstring_view buffer(GetString(), text_.room());
        const std::size_t size = length < 0 ? buffer.find(L'\0') : static_cast<std::size_t>(length);
        text_.setSize(std::min(size, buffer.size()));
    }

private:
    template <typename T>
    static zuhost::FormatArgument argument(const T& value) {
        if constexpr (std::is_same_v<T, CString>)
            return value.GetString();
        else if constexpr (std::is_enum_v<T>)
            return argument(static_cast<std::underlying_type_t<T>>(value));
        else if constexpr (std::floating_point<T>)
            return static_cast<double>(value);
        else if constexpr (std::signed_integral<T>)
            return static_cast<std::int64_t>(value);
        else if constexpr (std::unsigned_integral<T>)
            return static_cast<std::uint64_t>(value);
        else if constexpr (std::is_convertible_v<T, const wchar_t*>)
            return static_cast<const wchar_t*>(value);
        else if constexpr (std::is_convertible_v<T, const char*>)
            return static_cast<const char*>(value);
        else
            return static_cast<const void*>(value);
    }

    int exchangePart(int index, int count, std::wstring_view with);
    std::span<wchar_t> ownCharacters();

    zuhost::SharedText text_;
};

CString operator+(const CString& left, const CString& right);
CString operator+(const CString& left, const wchar_t* right);
CString operator+(const wchar_t* left, const CString& right);
CString operator+(const CString& left, wchar_t right);
CString operator+(wchar_t left, const CString& right);

inline bool operator==(const CString& left, const CString& right) {
    return left.view() == right.view();
}
inline bool operator==(const CString& left, const wchar_t* right) {
    return left.Compare(right) == 0;
}
// Every combination is needed: a missing one would compare addresses.
inline auto operator<=>(const CString& left, const CString& right) {
    return left.view() <=> right.view();
}
inline auto operator<=>(const CString& left, const wchar_t* right) {
    return left.Compare(right) <=> 0;
}
