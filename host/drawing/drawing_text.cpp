#include "drawing_text.h"

#include <array>
#include <charconv>
#include <mutex>
#include <optional>

namespace zuhost {
namespace {

constexpr int firstUtf8Version = 1021;
constexpr int defaultCodePage = 932;

struct NamedPage {
    std::string_view name;
    int number;
};

constexpr NamedPage namedPages[] = {
    {"GB2312", 936},      {"BIG5", 950},        {"KSC5601", 949},     {"JOHAB", 1361},
    {"ASCII", 1252},      {"MACINTOSH", 10000}, {"MAC-ROMAN", 10000}, {"ISO8859-1", 28591},
    {"ISO8859-2", 28592}, {"ISO8859-3", 28593}, {"ISO8859-4", 28594}, {"ISO8859-5", 28595},
    {"ISO8859-6", 28596}, {"ISO8859-7", 28597}, {"ISO8859-8", 28598}, {"ISO8859-9", 28599},
    {"UTF8", 65001},      {"UTF-8", 65001},
};

/// The code pages of "\M+1" ... "\M+5".
constexpr std::array<int, 5> multiBytePages = {932, 950, 949, 1361, 936};

/// Code pages are costly to make and each escape needs one.
const std::optional<TextCodec>& multiByteCodec(std::size_t page) {
    static std::array<std::once_flag, multiBytePages.size()> made;
    static std::array<std::optional<TextCodec>, multiBytePages.size()> codecs;
    std::call_once(made[page], [page] { codecs[page] = TextCodec::forCodePage(multiBytePages[page]); });
    return codecs[page];
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper;
}

/// "ANSI_932", "ansi_1252", "DOS850", "dos_437" or one of the names above.
std::optional<int> codePageNumber(std::string_view name) {
    const std::string upper = upperCase(name);
    for (const NamedPage& page : namedPages)
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

/// Four hexadecimal digits from `at` on.
std::optional<unsigned> fourDigits(std::wstring_view text, std::size_t at) {
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

/// Reads the escapes of decoded text. Decoding comes first: in code page 932 the second byte of a character
/// may be that of "\\" or "^".
class EscapeReader {
public:
    explicit EscapeReader(std::wstring_view text) : text_(text) {}

    std::wstring run() {
        while (at_ < text_.size())
            if (!unicodeEscape() && !multiByteEscape() && !caret())
                result_ += text_[at_++];
        return std::move(result_);
    }

private:
    bool startsWith(std::wstring_view escape) const { return text_.substr(at_).starts_with(escape); }

    std::optional<unsigned> unicodeUnit() const {
        return startsWith(L"\\U+") || startsWith(L"\\u+") ? fourDigits(text_, at_ + 3) : std::nullopt;
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
            result_ += static_cast<wchar_t>(codePoint); // Half a pair: kept, so that encoding gives it back.
        else
            appendCodePoint(result_, codePoint);
        return true;
    }

    bool multiByteEscape() {
        if (!startsWith(L"\\M+") || at_ + 8 > text_.size())
            return false;
        const auto page = static_cast<std::size_t>(text_[at_ + 3] - L'1');
        const auto bytes = fourDigits(text_, at_ + 4);
        if (page >= multiBytePages.size() || !bytes)
            return false;
        const std::optional<TextCodec>& codec = multiByteCodec(page);
        if (!codec)
            return false;
        const std::array<char, 2> pair = {static_cast<char>(*bytes >> 8), static_cast<char>(*bytes & 0xFF)};
        result_ += codec->decode(pair[0] == 0 ? std::string_view(&pair[1], 1)
                                              : std::string_view(pair.data(), pair.size()));
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
    std::size_t at_ = 0;
    std::wstring result_;
};

/// Records are spelled in ASCII, so the pages of mainframes, which iconv knows as well, cannot be a
/// drawing's.
bool keepsAscii(const TextCodec& codec) {
    for (char c = ' '; c < '\x7F'; ++c)
        if (codec.decode({&c, 1}) != std::wstring(1, static_cast<wchar_t>(c)))
            return false;
    return true;
}

bool isControl(wchar_t c) {
    return static_cast<char32_t>(c) < 0x20;
}

/// Whether decoding would take what starts with this backslash for an escape.
bool looksLikeEscape(std::wstring_view text, std::size_t at) {
    const std::wstring_view start = text.substr(at, 3);
    if (start == L"\\U+" || start == L"\\u+")
        return fourDigits(text, at + 3).has_value();
    return start == L"\\M+" && fourDigits(text, at + 4).has_value();
}

/// Control characters, carets and what only looks like an escape, so that decoding gives the same text.
std::wstring withEscapes(std::wstring_view text) {
    std::wstring result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t c = text[at];
        if (isControl(c))
            (result += L'^') += static_cast<wchar_t>(c + L'@');
        else if (c == L'^')
            result += L"^ ";
        else if (c == L'\\' && looksLikeEscape(text, at))
            result += L"\\U+005C";
        else
            result += c;
    }
    return result;
}

void appendUnicodeEscape(std::string& bytes, unsigned unit) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    bytes += "\\U+";
    for (const unsigned shift : {12U, 8U, 4U, 0U})
        bytes += digits[unit >> shift & 0xFU];
}

void appendEscaped(std::string& bytes, char32_t codePoint) {
    if (codePoint < 0x10000) {
        appendUnicodeEscape(bytes, codePoint);
        return;
    }
    const char32_t offset = codePoint - 0x10000;
    appendUnicodeEscape(bytes, 0xD800 + (offset >> 10 & 0x3FF));
    appendUnicodeEscape(bytes, 0xDC00 + (offset & 0x3FF));
}

bool isSurrogate(char32_t codePoint) {
    return codePoint >= 0xD800 && codePoint < 0xE000;
}

std::string encodeEach(const TextCodec& codec, std::wstring_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t codePoint = nextCodePoint(text, at);
        const auto encoded =
            isSurrogate(codePoint) ? std::nullopt : codec.encode(text.substr(start, at - start));
        if (encoded)
            bytes += *encoded;
        else
            appendEscaped(bytes, codePoint);
    }
    return bytes;
}

bool hasSurrogateOfItsOwn(std::wstring_view text) {
    for (std::size_t at = 0; at < text.size();)
        if (isSurrogate(nextCodePoint(text, at)))
            return true;
    return false;
}

} // namespace

DrawingText DrawingText::of(int version, std::string_view codePageName, bool& known) {
    DrawingText encoding;
    known = true;
    if (version >= firstUtf8Version)
        return encoding;
    const auto number = codePageName.empty() ? defaultCodePage : codePageNumber(codePageName);
    auto codec = number ? TextCodec::forCodePage(*number) : std::nullopt;
    known = codec && keepsAscii(*codec);
    if (!known)
        codec = TextCodec::forCodePage(defaultCodePage);
    if (codec)
        encoding.codec_ = *codec;
    return encoding;
}

std::wstring DrawingText::decode(std::string_view value) const {
    std::wstring text = codec_.decode(value);
    if (text.find_first_of(L"\\^") == std::wstring::npos)
        return text;
    return EscapeReader(text).run();
}

std::string DrawingText::encode(std::wstring_view text) const {
    const std::wstring escaped = withEscapes(text);
    if (!hasSurrogateOfItsOwn(escaped))
        if (auto bytes = codec_.encode(escaped))
            return *bytes;
    return encodeEach(codec_, escaped);
}

} // namespace zuhost
