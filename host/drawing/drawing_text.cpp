#include "drawing_text.h"

#include "dxf_records/text_escapes.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <optional>

namespace zuhost {
namespace {

/// Cached: creating a codec is costly and each escape needs one.
const std::optional<TextCodec>& multiByteCodec(std::size_t page) {
    static std::array<std::once_flag, dxf::kMultiBytePages.size()> made;
    static std::array<std::optional<TextCodec>, dxf::kMultiBytePages.size()> codecs;
    std::call_once(made[page], [page] { codecs[page] = TextCodec::forCodePage(dxf::kMultiBytePages[page]); });
    return codecs[page];
}

std::optional<std::wstring> decodePair(std::size_t page, std::string_view bytes) {
    const std::optional<TextCodec>& codec = multiByteCodec(page);
    return codec ? std::optional(codec->decode(bytes)) : std::nullopt;
}

/// Returns true for characters that every encoding writes as their ASCII byte and that begin no escape.
bool isPlain(wchar_t c) {
    return static_cast<char32_t>(c) >= 0x20 && static_cast<char32_t>(c) < 0x7F && c != L'\\' && c != L'^';
}

bool isControl(wchar_t c) {
    return static_cast<char32_t>(c) < 0x20;
}

/// Returns whether decoding would read the text at this backslash as an escape.
bool looksLikeEscape(std::wstring_view text, std::size_t at) {
    const std::wstring_view start = text.substr(at, 3);
    if (start == L"\\U+" || start == L"\\u+")
        return dxf::fourHexDigits(text, at + 3).has_value();
    return start == L"\\M+" && dxf::fourHexDigits(text, at + 4).has_value();
}

bool mayNeedEscapes(std::wstring_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](wchar_t c) { return isControl(c) || c == L'^' || c == L'\\'; });
}

/// Escapes control characters, carets, and backslashes that decoding would read as escapes.
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
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    bytes += "\\U+";
    for (const unsigned shift : {12U, 8U, 4U, 0U})
        bytes += kDigits[unit >> shift & 0xFU];
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

} // namespace

DrawingText DrawingText::of(int version, std::string_view codePageName, bool& known) {
    DrawingText encoding;
    known = true;
    if (version >= dxf::kFirstUtf8Version)
        return encoding;
    const auto number = codePageName.empty() ? dxf::kDefaultCodePage : dxf::codePageNumber(codePageName);
    auto codec = number ? TextCodec::forCodePage(*number) : std::nullopt;
    known = codec && dxf::extendsAscii([&](std::string_view bytes) { return codec->decode(bytes); });
    if (!known)
        codec = TextCodec::forCodePage(dxf::kDefaultCodePage);
    if (codec)
        encoding.codec_ = *codec;
    return encoding;
}

std::wstring DrawingText::decode(std::string_view value) const {
    if (std::all_of(value.begin(), value.end(), isPlain))
        return {value.begin(), value.end()};
    std::wstring text;
    decode(value, text);
    return text;
}

void DrawingText::decode(std::string_view value, std::wstring& text) const {
    text.resize(value.size());
    if (std::all_of(value.begin(), value.end(), isPlain)) {
        std::copy(value.begin(), value.end(), text.begin());
        return;
    }
    text.resize(codec_.decode(value, text.data()));
    // Every encoding extends ASCII: without these bytes there is no such character.
    if (value.find('\\') != std::string_view::npos || value.find('^') != std::string_view::npos)
        text = dxf::withoutEscapes(text, decodePair);
}

std::string DrawingText::withLineEnds(std::string_view value) const {
    std::string result;
    std::size_t done = 0;
    for (std::size_t caret = value.find('^'); caret != std::string_view::npos && caret + 1 < value.size();
         caret = value.find('^', done)) {
        result += value.substr(done, caret - done);
        // The byte can be the second one of a character.
        const bool isCaret = codec_.decode(value.substr(done, caret + 1 - done)).ends_with(L'^');
        const char next = value[caret + 1];
        const bool isLineEnd = isCaret && (next == 'J' || next == 'M');
        const std::size_t length = isCaret && (next == '^' || isLineEnd) ? 2 : 1;
        if (isLineEnd)
            result += next == 'J' ? '\n' : '\r';
        else
            result += value.substr(caret, length);
        done = caret + length;
    }
    return result += value.substr(done);
}

std::string DrawingText::encode(std::wstring_view text) const {
    if (std::all_of(text.begin(), text.end(), isPlain))
        return {text.begin(), text.end()};
    std::wstring escaped;
    if (mayNeedEscapes(text))
        text = escaped = withEscapes(text);
    if (auto bytes = codec_.encode(text)) // No encoding has lone surrogates.
        return *std::move(bytes);
    return encodeEach(codec_, text);
}

} // namespace zuhost
