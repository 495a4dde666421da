#include "zuhost/text_file.h"

#include "wide_text.h"

namespace zuhost {

namespace {

const TextCodec& japanese() {
    static const TextCodec codec = TextCodec::forCodePage(932).value();
    return codec;
}

std::size_t decodeUtf16(std::string_view bytes, wchar_t* text) {
    const auto unit = [bytes](std::size_t at) {
        return at + 1 < bytes.size() ? static_cast<char32_t>(static_cast<unsigned char>(bytes[at]) |
                                                             static_cast<unsigned char>(bytes[at + 1]) << 8U)
                                     : 0;
    };
    wchar_t* out = text;
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        char32_t c = unit(at);
        if ((c & 0xFC00U) == 0xD800 && (unit(at + 2) & 0xFC00U) == 0xDC00) {
            at += 2;
            c = 0x10000 + ((c - 0xD800) << 10U) + (unit(at) - 0xDC00);
        }
        out = putCodePoint(out, c);
    }
    return static_cast<std::size_t>(out - text);
}

std::optional<std::string> encodeUtf16(std::wstring_view text) {
    std::string bytes;
    const auto add = [&bytes](char32_t unit) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    };
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextCodePoint(text, at);
        if (c > 0x10FFFF)
            return std::nullopt;
        if (c > 0xFFFF) {
            add(0xD800 + ((c - 0x10000) >> 10));
            add(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            add(c);
        }
    }
    return bytes;
}

} // namespace

TextEncoding TextEncoding::of(std::string_view bytes) {
    for (const Kind kind : {Kind::utf8WithMark, Kind::utf16LittleEndian})
        if (const TextEncoding encoding{kind}; bytes.starts_with(encoding.mark()))
            return encoding;
    return {};
}

std::string_view TextEncoding::mark() const {
    switch (kind) {
    case Kind::utf8WithMark:
        return "\xEF\xBB\xBF";
    case Kind::utf16LittleEndian:
        return "\xFF\xFE";
    case Kind::codePage932:
        break;
    }
    return "";
}

std::wstring TextEncoding::decode(std::string_view bytes) const {
    std::wstring text(bytes.size(), L'\0');
    text.resize(decode(bytes, text.data()));
    return text;
}

std::size_t TextEncoding::decode(std::string_view bytes, wchar_t* text) const {
    switch (kind) {
    case Kind::utf8WithMark:
        return fromUtf8(bytes, text);
    case Kind::utf16LittleEndian:
        return decodeUtf16(bytes, text);
    case Kind::codePage932:
        break;
    }
    return japanese().decode(bytes, text);
}

std::optional<std::string> TextEncoding::encode(std::wstring_view text) const {
    switch (kind) {
    case Kind::utf8WithMark:
        return TextCodec().encode(text);
    case Kind::utf16LittleEndian:
        return encodeUtf16(text);
    case Kind::codePage932:
        break;
    }
    return japanese().encode(text);
}

} // namespace zuhost
