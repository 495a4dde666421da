#pragma once

#include "equal_bytes.h"

#include <afx.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zu::dxf {

/// Decodes the text of a part drawing.
class PartText {
public:
    /// The version is the number of $ACADVER. From R2007 on, and with a byte-order mark, text is UTF-8
    /// whatever the code page.
    void setVersion(int version) { version_ = version; }
    void setMark(bool mark) { mark_ = mark; }
    void setCodePage(std::string_view name);
    /// Text is UTF-8 whatever the header says.
    void setUtf8() { mark_ = true; }

    /// Sets the number of characters that are kept of a text.
    void setLimit(std::size_t limit) { limit_ = limit; }

    /// Decodes a text, replaces its escapes and cuts it at the limit.
    [[nodiscard]] CString decode(std::string_view bytes) const;
    /// Returns the leading part of the text that decoding uses.
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

/// Stores each name of a drawing once. References stay valid as long as the pool.
class NamePool {
public:
    const CString& get(std::string_view bytes, const PartText& text) {
        const Known& recent = recent_[slotOf(bytes)];
        return recent.name != nullptr && equalBytes(recent.bytes, bytes) ? *recent.name : find(bytes, text);
    }

private:
    struct Known {
        std::string_view bytes;
        const CString* name = nullptr;
    };
    static constexpr std::size_t kRecent = 64;

    static std::size_t slotOf(std::string_view bytes) {
        if (bytes.empty())
            return 0;
        const auto at = [&](std::size_t i) { return std::size_t{static_cast<unsigned char>(bytes[i])}; };
        return (bytes.size() * 7 + at(0) * 5 + at(bytes.size() / 2) * 3 + at(bytes.size() - 1)) % kRecent;
    }
    const CString& find(std::string_view bytes, const PartText& text);

    std::unordered_map<std::string, CString> names_;
    std::array<Known, kRecent> recent_{}; ///< A few names make up most look-ups.
};

} // namespace zu::dxf
