#include "text_encoding.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace zu {

namespace {

constexpr UINT kJapanese = 932;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16LineFeed("\n\0", 2);

bool fits(std::size_t size) {
    return size <= static_cast<std::size_t>(std::numeric_limits<int>::max());
}

std::optional<std::wstring> fromCodePage(UINT codePage, std::string_view bytes) {
    if (bytes.empty())
        return std::wstring();
    if (!fits(bytes.size()))
        return std::nullopt;
    const auto count = static_cast<int>(bytes.size());
    // No code page decodes a byte to more than one wide character.
    std::wstring text(bytes.size(), L'\0');
    const int size = MultiByteToWideChar(codePage, 0, bytes.data(), count, text.data(), count);
    text.resize(static_cast<std::size_t>(std::max(size, 0)));
    return size > 0 ? std::optional(std::move(text)) : std::nullopt;
}

std::optional<std::string> toCodePage(UINT codePage, std::wstring_view text) {
    if (text.empty())
        return std::string();
    if (!fits(text.size()))
        return std::nullopt;
    const auto count = static_cast<int>(text.size());
    BOOL replaced = FALSE;
    // The platform rejects this pointer for UTF-8, which represents every character.
    BOOL* const replacedFlag = codePage == CP_UTF8 ? nullptr : &replaced;
    const int size = WideCharToMultiByte(codePage, 0, text.data(), count, nullptr, 0, nullptr, replacedFlag);
    if (size <= 0 || replaced)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), count, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

char32_t unitAt(std::string_view bytes, std::size_t at) {
    const auto byte = [bytes](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[i]));
    };
    return byte(at) | byte(at + 1) << 8U;
}

std::wstring fromUtf16(std::string_view bytes) {
    std::wstring text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        char32_t c = unitAt(bytes, at);
        const bool pair = sizeof(wchar_t) > 2 && (c & 0xFC00U) == 0xD800 && at + 3 < bytes.size() &&
                          (unitAt(bytes, at + 2) & 0xFC00U) == 0xDC00;
        if (pair) {
            at += 2;
            c = 0x10000 + ((c & 0x3FFU) << 10U) + (unitAt(bytes, at) & 0x3FFU);
        }
        text += static_cast<wchar_t>(c);
    }
    return text;
}

std::string toUtf16(std::wstring_view text) {
    std::string bytes;
    const auto add = [&bytes](char32_t unit) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8U & 0xFFU);
    };
    for (const wchar_t character : text) {
        const auto c = static_cast<char32_t>(character);
        if (c > 0xFFFF) {
            add(0xD800 + ((c - 0x10000) >> 10U));
            add(0xDC00 + ((c - 0x10000) & 0x3FFU));
        } else {
            add(c);
        }
    }
    return bytes;
}

/// Returns whether bytes are well-formed code page 932: single bytes, and pairs that begin with a lead byte.
bool isCodePage932(std::string_view bytes) {
    const auto within = [](unsigned char c, int first, int last) { return c >= first && c <= last; };
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto c = static_cast<unsigned char>(bytes[at]);
        if (c < 0x80 || within(c, 0xA1, 0xDF))
            continue;
        const auto next = static_cast<unsigned char>(++at < bytes.size() ? bytes[at] : '\0');
        if (!(within(c, 0x81, 0x9F) || within(c, 0xE0, 0xFC)) || !within(next, 0x40, 0xFC) || next == 0x7F)
            return false;
    }
    return true;
}

} // namespace

bool isUnmarkedUtf8(std::string_view bytes) {
    if (!TextEncoding::of(bytes).mark().empty())
        return false;
    const auto text = fromCodePage(CP_UTF8, bytes);
    if (!text || toCodePage(CP_UTF8, *text) != bytes)
        return false;
    // Two-byte sequences of UTF-8 may be half-width katakana in code page 932. Three-byte sequences, which
    // all Japanese text has, would be rare kanji next to half-width katakana.
    const bool hasThreeBytes =
        std::any_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) >= 0xE0; });
    return hasThreeBytes || !isCodePage932(bytes);
}

TextEncoding TextEncoding::of(std::string_view bytes) {
    if (bytes.starts_with(kUtf8Mark))
        return TextEncoding(Kind::utf8);
    return TextEncoding(bytes.starts_with(kUtf16Mark) ? Kind::utf16LittleEndian : Kind::codePage932);
}

std::string_view TextEncoding::mark() const {
    if (kind_ == Kind::codePage932)
        return {};
    return kind_ == Kind::utf8 ? kUtf8Mark : kUtf16Mark;
}

std::string_view TextEncoding::lineFeed() const {
    return kind_ == Kind::utf16LittleEndian ? kUtf16LineFeed : "\n";
}

std::optional<std::wstring> TextEncoding::decode(std::string_view bytes) const {
    if (kind_ == Kind::utf16LittleEndian)
        return fromUtf16(bytes);
    return fromCodePage(kind_ == Kind::utf8 ? CP_UTF8 : kJapanese, bytes);
}

std::optional<std::string> TextEncoding::encode(std::wstring_view text) const {
    if (kind_ == Kind::utf16LittleEndian)
        return toUtf16(text);
    return toCodePage(kind_ == Kind::utf8 ? CP_UTF8 : kJapanese, text);
}

std::size_t TextEncoding::endOfLine(std::string_view bytes, std::size_t from) const {
    const std::string_view feed = lineFeed();
    std::size_t at = bytes.find(feed, from);
    // In UTF-16 the second byte of a unit and the first byte of the next may look like a line feed.
    while (at != std::string_view::npos && (at - from) % feed.size() != 0)
        at = bytes.find(feed, at + 1);
    return at == std::string_view::npos ? bytes.size() : at + feed.size();
}

} // namespace zu
