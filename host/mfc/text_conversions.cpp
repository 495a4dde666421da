#include "atlconv.h"

#include "zuhost/text_codec.h"

std::string zuhost::narrowText(const wchar_t* text, UINT codePage) {
    const auto codec = TextCodec::forCodePage(codePage == CP_ACP ? 932 : static_cast<int>(codePage));
    if (!codec || text == nullptr)
        return {};
    const std::wstring_view whole(text);
    if (auto bytes = codec->encode(whole))
        return *std::move(bytes);
    std::string bytes;
    for (std::size_t at = 0; at < whole.size();) {
        const std::size_t start = at;
        static_cast<void>(nextCodePoint(whole, at));
        bytes += codec->encode(whole.substr(start, at - start)).value_or("?");
    }
    return bytes;
}

std::wstring zuhost::wideText(const char* bytes, UINT codePage) {
    const auto codec = TextCodec::forCodePage(codePage == CP_ACP ? 932 : static_cast<int>(codePage));
    return codec && bytes != nullptr ? codec->decode(bytes) : std::wstring();
}
