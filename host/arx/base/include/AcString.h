#pragma once

#include "adesk.h"

#include <afxstr.h>
#include <zuhost/platform/export.h>

#include <string>

/// A text of the host. A null text counts as empty; positions count from 0, and -1 stands for "not found" and
/// for "up to the end".
class ZUHOST_API AcString {
public:
    AcString() = default;
    AcString(const ACHAR* text) : text_(text != nullptr ? text : L"") {}
    explicit AcString(ACHAR character) : text_(1, character) {}
    AcString(ACHAR character, unsigned int count) : text_(count, character) {}
    AcString& operator=(const ACHAR* text) { return assign(text); }

    [[nodiscard]] const ACHAR* constPtr() const { return text_.c_str(); }
    [[nodiscard]] const ACHAR* kwszPtr() const { return text_.c_str(); }
    [[nodiscard]] const ACHAR* kTCharPtr() const { return text_.c_str(); }
    [[nodiscard]] const ACHAR* kACharPtr() const { return text_.c_str(); }
    operator const ACHAR*() const { return text_.c_str(); }

    [[nodiscard]] unsigned int length() const { return static_cast<unsigned int>(text_.size()); }
    [[nodiscard]] unsigned int tcharLength() const { return length(); }
    [[nodiscard]] bool isEmpty() const { return text_.empty(); }
    AcString& setEmpty() {
        text_.clear();
        return *this;
    }

    AcString& assign(const ACHAR* text) { return *this = AcString(text); }
    AcString& assign(const AcString& text) { return *this = text; }
    AcString& append(const ACHAR* text) { return *this += text; }
    /// Puts the text before this one.
    AcString& precat(const ACHAR* text) { return *this = AcString(text) += *this; }
    /// Inserts before the position, at the end for one beyond it.
    AcString& insert(int at, const ACHAR* text);
    /// Removes characters from the position on.
    AcString& deleteAtIndex(int at, int count);
    AcString& operator+=(const ACHAR* text) {
        text_ += text != nullptr ? text : L"";
        return *this;
    }
    AcString& operator+=(const AcString& text) {
        text_ += text.text_;
        return *this;
    }
    AcString& operator+=(ACHAR character) {
        text_ += character;
        return *this;
    }
    /// Replaces the text by the formatted one. The arguments are checked against the format as in
    /// CString::Format.
    template <typename... Arguments>
    AcString& format(const ACHAR* format, const Arguments&... arguments) {
        CString formatted;
        formatted.Format(format, arguments...);
        return assign(formatted.GetString());
    }

    [[nodiscard]] AcString mid(int start, int count = -1) const;
    [[nodiscard]] AcString substr(int start, int count) const { return mid(start, count); }
    /// The first characters.
    [[nodiscard]] AcString substr(int count) const { return left(count); }
    [[nodiscard]] AcString left(int count) const { return mid(0, count < 0 ? 0 : count); }
    [[nodiscard]] AcString right(int count) const;
    [[nodiscard]] AcString first(int count) const { return left(count); }
    [[nodiscard]] AcString last(int count) const { return right(count); }
    /// The characters at the start up to the first one that is not, or is, one of the given.
    [[nodiscard]] AcString spanIncluding(const ACHAR* characters) const;
    [[nodiscard]] AcString spanExcluding(const ACHAR* characters) const;
    /// Returns the next part that the given characters separate, and sets `start` to the place after it; -1,
    /// with an empty text, at the end.
    [[nodiscard]] AcString tokenize(const ACHAR* separators, int& start) const;
    /// 0 for a position outside of the text.
    [[nodiscard]] ACHAR getAt(int at) const;
    /// Does nothing for a position outside of the text, and for a character 0.
    AcString& setAt(int at, ACHAR character);
    AcString& makeUpper();
    AcString& makeLower();
    AcString& trimLeft();
    AcString& trimRight();
    AcString& trim() {
        trimLeft();
        return trimRight();
    }
    /// Returns the number of replaced places.
    int replace(const ACHAR* what, const ACHAR* by);

    [[nodiscard]] int find(ACHAR character) const { return position(text_.find(character)); }
    [[nodiscard]] int find(const ACHAR* text) const {
        return text != nullptr ? position(text_.find(text)) : -1;
    }
    [[nodiscard]] int findRev(ACHAR character) const { return position(text_.rfind(character)); }
    [[nodiscard]] int findRev(const ACHAR* text) const {
        return text != nullptr ? position(text_.rfind(text)) : -1;
    }
    [[nodiscard]] int findOneOf(const ACHAR* characters) const {
        return characters != nullptr ? position(text_.find_first_of(characters)) : -1;
    }

    /// Negative, 0 or positive, as wcscmp; the second form ignores case.
    [[nodiscard]] int compare(const ACHAR* other) const {
        return text_.compare(other != nullptr ? other : L"");
    }
    [[nodiscard]] int compareNoCase(const ACHAR* other) const;
    /// As the comparisons above: texts are not sorted by a language.
    [[nodiscard]] int collate(const ACHAR* other) const { return compare(other); }
    [[nodiscard]] int collateNoCase(const ACHAR* other) const { return compareNoCase(other); }
    /// Returns how many characters at the start are the same in both texts.
    [[nodiscard]] int match(const ACHAR* other) const;
    [[nodiscard]] int matchNoCase(const ACHAR* other) const;

    [[nodiscard]] bool isAscii() const;
    /// Returns the text in UTF-8, valid until the text changes or is asked for again.
    [[nodiscard]] const char* utf8Ptr() const;

    bool operator==(const AcString& other) const { return text_ == other.text_; }
    bool operator==(const ACHAR* other) const { return compare(other) == 0; }
    auto operator<=>(const AcString& other) const { return text_ <=> other.text_; }

    friend AcString operator+(AcString left, const AcString& right) { return left += right; }
    friend AcString operator+(AcString left, const ACHAR* right) { return left += right; }
    friend AcString operator+(const ACHAR* left, const AcString& right) { return AcString(left) += right; }

private:
    static int position(std::size_t found) {
        return found == std::wstring::npos ? -1 : static_cast<int>(found);
    }

    std::wstring text_;
    mutable std::string utf8_; ///< Returned by utf8Ptr.
};
