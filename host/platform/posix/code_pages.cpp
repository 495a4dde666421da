#include "zuhost/platform/code_pages.h"

#include <iconv.h>

#include <array>
#include <string>
#include <string_view>

namespace zuhost::platform {

namespace {

constexpr char32_t kNone = 0xFFFFFFFF;
/// No code page has trail bytes below it.
constexpr unsigned kFirstTrail = 0x30;

/// One direction of a converter of the C library; converts one character at a time.
class Converter {
public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    ~Converter() {
        if (valid())
            iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    /// iconv_open returns the address -1 for an unknown converter.
    [[nodiscard]] bool valid() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

    /// Converts the whole input; returns an empty text on failure.
    std::string convert(std::string_view input) const {
        std::array<char, 32> output{};
        char* in = const_cast<char*>(input.data());
        char* out = output.data();
        std::size_t inLeft = input.size();
        std::size_t outLeft = output.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle_, &in, &inLeft, &out, &outLeft) != 0 || inLeft != 0)
            return {};
        // Flush: some converters hold a character back until they see the next.
        if (iconv(handle_, nullptr, nullptr, &out, &outLeft) != 0)
            return {};
        return {output.data(), output.size() - outLeft};
    }

private:
    iconv_t handle_;
};

std::string converterName(int codePage) {
    switch (codePage) {
    case 10000:
        return "MACINTOSH";
    case 1361:
        return "JOHAB";
    default:
        return "CP" + std::to_string(codePage);
    }
}

std::string bytesOf(unsigned value) {
    const char low = static_cast<char>(value & 0xFF);
    return value < 0x100 ? std::string(1, low) : std::string{static_cast<char>(value >> 8), low};
}

char32_t fromUtf32(std::string_view bytes) {
    if (bytes.size() != 4)
        return kNone;
    char32_t c = 0;
    for (std::size_t i = 4; i-- > 0;)
        c = (c << 8) | static_cast<unsigned char>(bytes[i]);
    return c;
}

std::string toUtf32(char32_t c) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>((c >> shift) & 0xFF);
    return bytes;
}

class Reader {
public:
    explicit Reader(const std::string& name)
        : toWide_("UTF-32LE", name.c_str()), fromWide_(name.c_str(), "UTF-32LE") {}

    std::vector<CodePageEntry> read() {
        if (!toWide_.valid() || !fromWide_.valid())
            return {};
        for (unsigned byte = 0; byte < 0x100; ++byte)
            if (!add(byte) && byte >= 0x80)
                for (unsigned trail = kFirstTrail; trail < 0x100; ++trail)
                    add(byte << 8 | trail);
        return std::move(entries_);
    }

private:
    bool add(unsigned bytes) {
        const char32_t character = fromUtf32(toWide_.convert(bytesOf(bytes)));
        if (character == kNone)
            return false;
        const bool encodes = character == 0 || fromWide_.convert(toUtf32(character)) == bytesOf(bytes);
        entries_.push_back({static_cast<std::uint16_t>(bytes), character, encodes});
        return true;
    }

    Converter toWide_;
    Converter fromWide_;
    std::vector<CodePageEntry> entries_;
};

} // namespace

std::vector<CodePageEntry> readCodePage(int number) {
    return Reader(converterName(number)).read();
}

} // namespace zuhost::platform
