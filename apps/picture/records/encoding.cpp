#include "records/encoding.h"

#include "dxf_records/text_escapes.h"

#include <algorithm>

namespace zu::picture {

namespace {

using zuhost::TextCodec;

std::optional<std::wstring> decodePair(std::size_t page, std::string_view bytes) {
    const auto codec = TextCodec::forCodePage(zuhost::dxf::kMultiBytePages[page]);
    return codec ? std::optional(codec->decode(bytes)) : std::nullopt;
}

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

} // namespace

void Encoding::set(int version, std::string_view codePage, bool hasMark) {
    codec_ = {};
    if (hasMark || version >= zuhost::dxf::kFirstUtf8Version)
        return;
    const auto number = zuhost::dxf::codePageNumber(codePage);
    auto codec = number ? TextCodec::forCodePage(*number) : std::nullopt;
    const auto decode = [&](std::string_view bytes) { return codec->decode(bytes); };
    if (!codec || !zuhost::dxf::extendsAscii(decode))
        codec = TextCodec::forCodePage(zuhost::dxf::kDefaultCodePage);
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
