#pragma once

#include "equal_bytes.h"

#include <afx.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zu::dxf {

/// How a part drawing holds text.
class PartText {
public:
    /// The version is $ACADVER's number. From R2007 on, and with a byte-order mark, text is UTF-8 whatever
    /// the page.
    void setVersion(int version) { version_ = version; }
    void setMark(bool mark) { mark_ = mark; }
    void setCodePage(std::string_view name);
    /// Text that is UTF-8 whatever the header says.
    void setUtf8() { mark_ = true; }

    /// Characters of a text that are kept.
    void setLimit(std::size_t limit) { limit_ = limit; }

    /// Without the characters beyond the limit; escapes are replaced by what they stand for.
    [[nodiscard]] CString decode(std::string_view bytes) const;
    /// No more of the text than decoding looks at.
    [[nodiscard]] std::string_view part(std::string_view bytes) const {
        return bytes.substr(0, limit_ * kBytesPerCharacter);
    }

private:
    /// The longest escape ("\\M+nXXXX") is one character.
    static constexpr std::size_t kBytesPerCharacter = 8;

    [[nodiscard]] UINT codePage() const;

    int version_ = 0;
    bool mark_ = false;
    UINT named_ = 0;
    std::size_t limit_ = 512; ///< In characters.
};

/// Each name of a drawing once. References stay good as long as the pool.
class NamePool {
public:
    const CString& get(std::string_view bytes, const PartText& text) {
        const Known& recent = recent_[placeOf(bytes)];
        return recent.name != nullptr && equalBytes(recent.bytes, bytes) ? *recent.name : find(bytes, text);
    }

private:
    struct Known {
        std::string_view bytes;
        const CString* name = nullptr;
    };
    static constexpr std::size_t kRecent = 64;

    static std::size_t placeOf(std::string_view bytes) {
        if (bytes.empty())
            return 0;
        const auto at = [&](std::size_t i) { return std::size_t{static_cast<unsigned char>(bytes[i])}; };
        return (bytes.size() * 7 + at(0) * 5 + at(bytes.size() / 2) * 3 + at(bytes.size() - 1)) % kRecent;
    }
    const CString& find(std::string_view bytes, const PartText& text);

    std::unordered_map<std::string, CString> names_;
    std::array<Known, kRecent> recent_{}; ///< Few names are met again and again.
};

} // namespace zu::dxf
