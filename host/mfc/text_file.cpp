#include "zuhost/text_file.h"

#include <algorithm>

namespace zuhost {

namespace {

constexpr char kEndOfText = 0x1A;

const TextCodec& japanese() {
    static const TextCodec codec = TextCodec::forCodePage(932).value();
    return codec;
}

std::wstring decodeUtf16(std::string_view bytes) {
    std::u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                       (static_cast<unsigned char>(bytes[i + 1]) << 8U));
    std::wstring text;
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t c = units[i];
        const bool pair =
            c >= 0xD800 && c <= 0xDBFF && i + 1 < units.size() && (units[i + 1] & 0xFC00) == 0xDC00;
        if (pair)
            c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(units[++i]) - 0xDC00);
        appendCodePoint(text, c);
    }
    return text;
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
    switch (kind) {
    case Kind::utf8WithMark:
        return fromUtf8(bytes);
    case Kind::utf16LittleEndian:
        return decodeUtf16(bytes);
    case Kind::codePage932:
        break;
    }
    return japanese().decode(bytes);
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

TextLines::TextLines(std::string bytes) : bytes_(std::move(bytes)), encoding_(TextEncoding::of(bytes_)) {
    at_ = encoding_.mark().size();
    if (encoding_.kind != TextEncoding::Kind::utf16LittleEndian)
        bytes_.resize(std::min(bytes_.find(kEndOfText, at_), bytes_.size()));
}

std::size_t TextLines::lineEnd() const {
    if (encoding_.kind != TextEncoding::Kind::utf16LittleEndian)
        return std::min(bytes_.find('\n', at_), bytes_.size());
    std::size_t end = at_;
    while (end + 1 < bytes_.size() && !(bytes_[end] == '\n' && bytes_[end + 1] == '\0'))
        end += 2;
    return end + 1 < bytes_.size() ? end : bytes_.size();
}

bool TextLines::next(std::wstring& line) {
    if (at_ >= bytes_.size())
        return false;
    const std::size_t end = lineEnd();
    line = encoding_.decode(std::string_view(bytes_).substr(at_, end - at_));
    if (end < bytes_.size() && !line.empty() && line.back() == L'\r')
        line.pop_back();
    const std::size_t unit = encoding_.kind == TextEncoding::Kind::utf16LittleEndian ? 2 : 1;
    at_ = std::min(end + unit, bytes_.size());
    return true;
}

} // namespace zuhost
