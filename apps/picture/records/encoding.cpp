#include "records/encoding.h"

#include "dxf_records/text_escapes.h"

#include <algorithm>

namespace zu::picture {

namespace {

using zuhost::TextCodec;

constexpr int kDefaultPage = 932;
constexpr int kFirstUtf8Version = 1021;

std::optional<std::wstring> decodePair(std::size_t page, std::string_view bytes) {
    const auto codec = TextCodec::forCodePage(zuhost::dxf::kMultiBytePages[page]);
    return codec ? std::optional(codec->decode(bytes)) : std::nullopt;
}

/// Records are ASCII text: EBCDIC pages cannot be the encoding of a drawing.
bool keepsAscii(const TextCodec& codec) {
    constexpr std::string_view kSample = "09AZaz {}\\^_";
    return codec.decode(kSample) == std::wstring(kSample.begin(), kSample.end());
}

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

} // namespace

void Encoding::set(int version, std::string_view codePage, bool hasMark) {
    codec_ = {};
    if (hasMark || version >= kFirstUtf8Version)
        return;
    const auto number = zuhost::dxf::codePageNumber(codePage);
    auto codec = number ? TextCodec::forCodePage(*number) : std::nullopt;
    if (!codec || !keepsAscii(*codec))
        codec = TextCodec::forCodePage(kDefaultPage);
    codec_ = codec.value_or(TextCodec());
}

QString Encoding::decode(std::string_view value) const {
    const bool hasEscapes = value.find_first_of("\\^") != std::string_view::npos;
    if (!hasEscapes && std::all_of(value.begin(), value.end(), isAscii))
        return QString::fromLatin1(value.data(), static_cast<qsizetype>(value.size()));
    const std::wstring text = codec_.decode(value);
    return QString::fromStdWString(hasEscapes ? zuhost::dxf::withoutEscapes(text, decodePair) : text);
}

} // namespace zu::picture
