#include "dxf_records/text_escapes.h"

#include <charconv>

namespace zuhost::dxf {
namespace {

struct NamedPage {
    std::string_view name;
    int number;
};

constexpr NamedPage kNamedPages[] = {
    {"GB2312", 936},      {"BIG5", 950},        {"KSC5601", 949},     {"JOHAB", 1361},
    {"ASCII", 1252},      {"MACINTOSH", 10000}, {"MAC-ROMAN", 10000}, {"ISO8859-1", 28591},
    {"ISO8859-2", 28592}, {"ISO8859-3", 28593}, {"ISO8859-4", 28594}, {"ISO8859-5", 28595},
    {"ISO8859-6", 28596}, {"ISO8859-7", 28597}, {"ISO8859-8", 28598}, {"ISO8859-9", 28599},
    {"UTF8", 65001},      {"UTF-8", 65001},
};

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper;
}

} // namespace

std::optional<int> codePageNumber(std::string_view name) {
    const std::string upper = upperCase(name);
    for (const NamedPage& page : kNamedPages)
        if (upper == page.name)
            return page.number;
    std::string_view digits = upper;
    for (const std::string_view prefix : {"ANSI", "DOS", "_"})
        if (digits.starts_with(prefix))
            digits.remove_prefix(prefix.size());
    int number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    const bool bare = digits.size() == upper.size();
    return error == std::errc{} && stop == end && !bare ? std::optional(number) : std::nullopt;
}

std::optional<unsigned> fourHexDigits(std::wstring_view text, std::size_t at) {
    if (at + 4 > text.size())
        return std::nullopt;
    unsigned value = 0;
    for (const wchar_t c : text.substr(at, 4)) {
        const bool decimal = c >= L'0' && c <= L'9';
        const bool upper = c >= L'A' && c <= L'F';
        const bool lower = c >= L'a' && c <= L'f';
        if (!decimal && !upper && !lower)
            return std::nullopt;
        value = value * 16 + static_cast<unsigned>(decimal ? c - L'0' : (upper ? c - L'A' : c - L'a') + 10);
    }
    return value;
}

namespace {

/// Appends a character, as UTF-16 where wchar_t has 16 bits.
void appendCodePoint(std::wstring& text, char32_t codePoint) {
    if (sizeof(wchar_t) > 2 || codePoint < 0x10000) {
        text += static_cast<wchar_t>(codePoint);
        return;
    }
    text += static_cast<wchar_t>(0xD800 + ((codePoint - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
}

/// Replaces the escapes of text that is already decoded: in code page 932 the second byte of a character may
/// be that of "\\" or "^".
class EscapeReader {
public:
    EscapeReader(std::wstring_view text, PairDecoder decodePair) : text_(text), decodePair_(decodePair) {}

    std::wstring run() {
        while (at_ < text_.size())
            if (!unicodeEscape() && !multiByteEscape() && !caret())
                result_ += text_[at_++];
        return std::move(result_);
    }

private:
    bool startsWith(std::wstring_view escape) const { return text_.substr(at_).starts_with(escape); }

    std::optional<unsigned> unicodeUnit() const {
        return startsWith(L"\\U+") || startsWith(L"\\u+") ? fourHexDigits(text_, at_ + 3) : std::nullopt;
    }

    bool unicodeEscape() {
        const auto unit = unicodeUnit();
        if (!unit)
            return false;
        at_ += 7;
        char32_t codePoint = *unit;
        if (codePoint >= 0xD800 && codePoint < 0xDC00) {
            const auto second = unicodeUnit();
            if (second && *second >= 0xDC00 && *second < 0xE000) {
                at_ += 7;
                codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (*second - 0xDC00);
            }
        }
        if (codePoint >= 0xD800 && codePoint < 0xE000)
            result_ += static_cast<wchar_t>(codePoint); // A lone surrogate is preserved for writing.
        else
            appendCodePoint(result_, codePoint);
        return true;
    }

    bool multiByteEscape() {
        if (!startsWith(L"\\M+") || at_ + 8 > text_.size())
            return false;
        const auto page = static_cast<std::size_t>(text_[at_ + 3] - L'1');
        const auto bytes = fourHexDigits(text_, at_ + 4);
        if (page >= kMultiBytePages.size() || !bytes)
            return false;
        const std::array<char, 2> pair = {static_cast<char>(*bytes >> 8), static_cast<char>(*bytes & 0xFF)};
        const auto text = decodePair_(page, pair[0] == 0 ? std::string_view(&pair[1], 1)
                                                         : std::string_view(pair.data(), pair.size()));
        if (!text)
            return false;
        result_ += *text;
        at_ += 8;
        return true;
    }

    bool caret() {
        if (text_[at_] != L'^' || at_ + 1 >= text_.size())
            return false;
        const wchar_t next = text_[at_ + 1];
        if (next != L' ' && (next < L'@' || next > L'_'))
            return false;
        result_ += next == L' ' ? L'^' : static_cast<wchar_t>(next - L'@');
        at_ += 2;
        return true;
    }

    std::wstring_view text_;
    PairDecoder decodePair_;
    std::size_t at_ = 0;
    std::wstring result_;
};

} // namespace

std::wstring withoutEscapes(std::wstring_view text, PairDecoder decodePair) {
    return EscapeReader(text, decodePair).run();
}

} // namespace zuhost::dxf
