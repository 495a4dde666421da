#pragma once

#include <nlohmann/json.hpp>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

/// A file of recorded behaviour of the platform. Halves of surrogate pairs, which JSON readers refuse, are
/// read as U+FFFD.
inline nlohmann::json recordedCases(const std::string& name) {
    std::ifstream stream(std::string(ZU_TEST_DATA) + "/platform/" + name);
    std::string text((std::istreambuf_iterator<char>(stream)), {});
    const auto isHalf = [&text](std::size_t at, const char* second) {
        return text.compare(at, 3, "\\ud") == 0 && std::strchr(second, text[at + 3]) != nullptr;
    };
    for (std::size_t at = text.find("\\ud"); at != std::string::npos; at = text.find("\\ud", at + 1)) {
        const bool pair = isHalf(at, "89ab") && isHalf(at + 6, "cdef");
        if (pair)
            at += 6;
        else if (isHalf(at, "89abcdef"))
            text.replace(at, 6, "\\ufffd");
    }
    return nlohmann::json::parse(text);
}

/// The bytes of a text in base64.
inline std::string fromBase64(const std::string& text) {
    std::string bytes;
    unsigned bits = 0;
    unsigned held = 0;
    for (const char c : text) {
        const unsigned value = c >= 'A' && c <= 'Z'   ? static_cast<unsigned>(c - 'A')
                               : c >= 'a' && c <= 'z' ? static_cast<unsigned>(c - 'a') + 26
                               : c >= '0' && c <= '9' ? static_cast<unsigned>(c - '0') + 52
                               : c == '+'             ? 62U
                                                      : 63U;
        if (c == '=')
            break;
        held = (held << 6U) | value;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>((held >> bits) & 0xFFU);
        }
    }
    return bytes;
}
