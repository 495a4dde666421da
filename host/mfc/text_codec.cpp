#include "zuhost/text_codec.h"

#include "wide_text.h"

#include <zuhost/platform/code_pages.h>

#include <algorithm>
#include <array>
#include <map>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace zuhost {

namespace {

constexpr int kUtf8 = 65001;
constexpr int kJapanese = 932;
constexpr char32_t kNone = 0xFFFFFFFF;
constexpr char32_t kFirstSurrogate = 0xD800;

struct Alternative {
    char32_t character;
    char32_t sameAs;
};

/// Characters that other converters map to the same bytes of code page 932.
constexpr std::array<Alternative, 8> kJapaneseAlternatives{{{0x301C, 0xFF5E},
                                                            {0x2212, 0xFF0D},
                                                            {0x2016, 0x2225},
                                                            {0x2014, 0x2015},
                                                            {0x00A2, 0xFFE0},
                                                            {0x00A3, 0xFFE1},
                                                            {0x00AC, 0xFFE2},
                                                            {0x00A6, 0xFFE4}}};

/// Single bytes that the platform maps although the code page does not define them.
constexpr std::array<Alternative, 5> kJapaneseSingles{
    {{0x80, 0x80}, {0xA0, 0xF8F0}, {0xFD, 0xF8F1}, {0xFE, 0xF8F2}, {0xFF, 0xF8F3}}};

} // namespace

/// The tables of a code page, filled once.
class TextCodec::Tables {
public:
    static std::shared_ptr<const Tables> make(int codePage);

    [[nodiscard]] int codePage() const { return codePage_; }
    std::size_t decode(std::string_view bytes, wchar_t* text) const;
    [[nodiscard]] std::optional<std::string> encode(std::wstring_view text) const;

private:
    explicit Tables(int codePage) : codePage_(codePage) {}

    bool fill();
    void add(const platform::CodePageEntry& entry);
    void addJapanese();
    [[nodiscard]] char32_t replacement() const { return codePage_ == kJapanese ? 0x30FB : 0xFFFD; }

    int codePage_;
    std::array<char32_t, 256> singles_{};
    std::array<std::vector<char32_t>, 256> pairs_; ///< By lead byte; empty for bytes that lead no pair.
    std::unordered_map<char32_t, std::string> encoding_;
};

std::shared_ptr<const TextCodec::Tables> TextCodec::Tables::make(int codePage) {
    static std::mutex mutex;
    static std::map<int, std::shared_ptr<const Tables>> known;
    const std::scoped_lock lock(mutex);
    auto& entry = known[codePage];
    if (!entry) {
        const std::shared_ptr<Tables> tables(new Tables(codePage));
        if (tables->fill())
            entry = tables;
    }
    return entry;
}

bool TextCodec::Tables::fill() {
    const std::vector<platform::CodePageEntry> entries = platform::readCodePage(codePage_);
    singles_.fill(kNone);
    for (const platform::CodePageEntry& entry : entries)
        add(entry);
    if (codePage_ == kJapanese)
        addJapanese();
    return !entries.empty();
}

void TextCodec::Tables::add(const platform::CodePageEntry& entry) {
    const unsigned lead = entry.bytes >> 8U;
    const unsigned last = entry.bytes & 0xFFU;
    std::string bytes(1, static_cast<char>(last));
    if (lead == 0) {
        singles_[last] = entry.character;
    } else {
        bytes.insert(bytes.begin(), static_cast<char>(lead));
        pairs_[lead].resize(256, kNone);
        pairs_[lead][last] = entry.character;
    }
    if (entry.encodes)
        encoding_.try_emplace(entry.character, std::move(bytes));
}

void TextCodec::Tables::addJapanese() {
    // These bytes lead a pair even when no pair with them is defined.
    for (std::size_t lead = 0x81; lead <= 0xFC; ++lead)
        if ((lead <= 0x9F || lead >= 0xE0) && pairs_[lead].empty())
            pairs_[lead].assign(256, kNone);
    for (const auto& [byte, c] : kJapaneseSingles) {
        singles_[byte] = c;
        encoding_[c] = std::string(1, static_cast<char>(byte));
    }
    for (const auto& [character, sameAs] : kJapaneseAlternatives)
        if (const auto found = encoding_.find(sameAs); found != encoding_.end())
            encoding_.try_emplace(character, found->second);
}

std::size_t TextCodec::Tables::decode(std::string_view bytes, wchar_t* text) const {
    const auto byteAt = [bytes](std::size_t at) {
        return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0U;
    };
    wchar_t* out = text;
    for (std::size_t at = 0; at < bytes.size();) {
        // Fast path for ASCII: most of the text, and the same in every code page.
        const std::size_t plain = widenAscii(bytes.substr(at), out);
        out += plain;
        at += plain;
        for (unsigned byte = byteAt(at); byte >= 0x80; byte = byteAt(at)) {
            const auto& row = pairs_[byte];
            const unsigned trail = row.empty() ? 0 : byteAt(at + 1);
            const char32_t c = row.empty() ? singles_[byte] : row[trail];
            out = putCodePoint(out, c != kNone ? c : replacement());
            at += trail != 0 ? 2 : 1;
        }
    }
    return static_cast<std::size_t>(out - text);
}

std::optional<std::string> TextCodec::Tables::encode(std::wstring_view text) const {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextCodePoint(text, at);
        const auto found = encoding_.find(c);
        if (found == encoding_.end())
            return std::nullopt;
        bytes += found->second;
    }
    return bytes;
}

std::optional<TextCodec> TextCodec::forCodePage(int number) {
    TextCodec codec;
    if (number == kUtf8)
        return codec;
    codec.tables_ = Tables::make(number);
    if (!codec.tables_)
        return std::nullopt;
    return codec;
}

int TextCodec::codePage() const {
    return tables_ ? tables_->codePage() : kUtf8;
}

std::wstring TextCodec::decode(std::string_view bytes) const {
    std::wstring text(bytes.size(), L'\0');
    text.resize(decode(bytes, text.data()));
    return text;
}

std::size_t TextCodec::decode(std::string_view bytes, wchar_t* text) const {
    return tables_ ? tables_->decode(bytes, text) : fromUtf8(bytes, text);
}

std::optional<std::string> TextCodec::encode(std::wstring_view text) const {
    if (tables_)
        return tables_->encode(text);
    const auto isAlone = [](wchar_t c) { return static_cast<char32_t>(c) < kFirstSurrogate; };
    const auto known = std::find_if_not(text.begin(), text.end(), isAlone) - text.begin();
    for (auto at = static_cast<std::size_t>(known); at < text.size();)
        if (const char32_t c = nextCodePoint(text, at); c > 0x10FFFF || (c >= kFirstSurrogate && c <= 0xDFFF))
            return std::nullopt;
    return toUtf8(text);
}

} // namespace zuhost
