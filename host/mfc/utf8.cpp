#include "zuhost/text_codec.h"

#include "wide_text.h"

namespace zuhost {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

constexpr bool isHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}
constexpr bool isCharacter(char32_t c) {
    return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

void appendUtf8(std::string& bytes, char32_t c) {
    const auto add = [&bytes](char32_t byte) { bytes += static_cast<char>(byte); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xC0 | (c >> 6));
        add(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        add(0xE0 | (c >> 12));
        add(0x80 | ((c >> 6) & 0x3F));
        add(0x80 | (c & 0x3F));
    } else {
        add(0xF0 | (c >> 18));
        add(0x80 | ((c >> 12) & 0x3F));
        add(0x80 | ((c >> 6) & 0x3F));
        add(0x80 | (c & 0x3F));
    }
}

/// Decodes the character at the start; returns its length in bytes, 0 when it is malformed.
std::size_t decodeUtf8(std::string_view bytes, char32_t& c) {
    const auto byte = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length == 0 || bytes.size() < length)
        return 0;
    c = lead & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80)
            return 0;
        c = (c << 6) | (byte(i) & 0x3FU);
    }
    const char32_t least = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
    return c >= least && isCharacter(c) ? length : 0;
}

} // namespace

void appendCodePoint(std::wstring& text, char32_t codePoint) {
    wchar_t units[2];
    text.append(units, putCodePoint(units, codePoint));
}

char32_t nextCodePoint(std::wstring_view text, std::size_t& at) {
    const auto unit = [&text](std::size_t i) { return static_cast<char32_t>(text[i]); };
    const char32_t first = unit(at++);
    if (!isHighSurrogate(first) || at >= text.size() || !isLowSurrogate(unit(at)))
        return first;
    return 0x10000 + ((first - 0xD800) << 10) + (unit(at++) - 0xDC00);
}

std::string toUtf8(std::wstring_view text) {
    std::string bytes(text.size(), '\0');
    std::size_t at = 0;
    for (; at < text.size() && static_cast<char32_t>(text[at]) < 0x80; ++at)
        bytes[at] = static_cast<char>(text[at]);
    bytes.resize(at);
    while (at < text.size()) {
        const char32_t c = nextCodePoint(text, at);
        appendUtf8(bytes, isCharacter(c) ? c : kReplacement);
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    text.resize(fromUtf8(bytes, text.data()));
    return text;
}

std::size_t fromUtf8(std::string_view bytes, wchar_t* text) {
    wchar_t* out = text;
    while (!bytes.empty()) {
        const std::size_t plain = widenAscii(bytes, out);
        out += plain;
        bytes.remove_prefix(plain);
        while (!bytes.empty() && static_cast<unsigned char>(bytes.front()) >= 0x80) {
            char32_t c = kReplacement;
            const std::size_t length = decodeUtf8(bytes, c);
            out = putCodePoint(out, length != 0 ? c : kReplacement);
            bytes.remove_prefix(length != 0 ? length : 1);
        }
    }
    return static_cast<std::size_t>(out - text);
}

} // namespace zuhost
