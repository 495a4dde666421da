#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zuhost::dxf {

/// The type of a record's value, determined by its group code alone.
enum class ValueType : std::uint8_t {
    text,
    handle, ///< Text of hexadecimal digits.
    real,
    int16,
    int32,
    int64,
    boolean, ///< One byte in binary drawings.
    chunk,   ///< Bytes; hexadecimal text in ASCII drawings, a length byte and the bytes in binary ones.
    none     ///< A group code that is not in the table.
};

struct CodeRange {
    int first;
    int last;
    ValueType type;
};

/// The complete table of the format. The first range that contains a code applies.
inline constexpr std::array kCodeRanges{
    CodeRange{5, 5, ValueType::handle},      CodeRange{105, 105, ValueType::handle},
    CodeRange{310, 319, ValueType::chunk},   CodeRange{1004, 1004, ValueType::chunk},
    CodeRange{320, 369, ValueType::handle},  CodeRange{390, 399, ValueType::handle},
    CodeRange{480, 481, ValueType::handle},  CodeRange{1005, 1005, ValueType::handle},
    CodeRange{0, 9, ValueType::text},        CodeRange{10, 59, ValueType::real},
    CodeRange{60, 79, ValueType::int16},     CodeRange{90, 99, ValueType::int32},
    CodeRange{100, 102, ValueType::text},    CodeRange{110, 149, ValueType::real},
    CodeRange{160, 169, ValueType::int64},   CodeRange{170, 179, ValueType::int16},
    CodeRange{210, 239, ValueType::real},    CodeRange{270, 289, ValueType::int16},
    CodeRange{290, 299, ValueType::boolean}, CodeRange{300, 309, ValueType::text},
    CodeRange{370, 389, ValueType::int16},   CodeRange{400, 409, ValueType::int16},
    CodeRange{410, 419, ValueType::text},    CodeRange{420, 429, ValueType::int32},
    CodeRange{430, 439, ValueType::text},    CodeRange{440, 459, ValueType::int32},
    CodeRange{460, 469, ValueType::real},    CodeRange{470, 479, ValueType::text},
    CodeRange{999, 999, ValueType::text},    CodeRange{1000, 1003, ValueType::text},
    CodeRange{1006, 1009, ValueType::text},  CodeRange{1010, 1059, ValueType::real},
    CodeRange{1060, 1070, ValueType::int16}, CodeRange{1071, 1071, ValueType::int32},
    CodeRange{180, 209, ValueType::int16},   CodeRange{240, 269, ValueType::int16},
};

inline constexpr int kLargestKnownCode = 1071;

namespace detail {

constexpr auto makeTypes() {
    std::array<ValueType, kLargestKnownCode + 1> types{};
    for (int code = 0; code <= kLargestKnownCode; ++code) {
        types[static_cast<std::size_t>(code)] = ValueType::none;
        for (const CodeRange& range : kCodeRanges) {
            if (code >= range.first && code <= range.last) {
                types[static_cast<std::size_t>(code)] = range.type;
                break;
            }
        }
    }
    return types;
}

inline constexpr auto kTypes = makeTypes();

} // namespace detail

constexpr ValueType valueType(int code) {
    return code >= 0 && code <= kLargestKnownCode ? detail::kTypes[static_cast<std::size_t>(code)]
                                                  : ValueType::none;
}

constexpr bool isInteger(ValueType type) {
    return type == ValueType::int16 || type == ValueType::int32 || type == ValueType::int64 ||
           type == ValueType::boolean;
}

/// Returns the size in bytes of a value in binary drawings; 0 for values of variable length.
constexpr std::size_t fixedSize(ValueType type) {
    switch (type) {
    case ValueType::real:
    case ValueType::int64:
        return 8;
    case ValueType::int32:
        return 4;
    case ValueType::int16:
        return 2;
    case ValueType::boolean:
        return 1;
    default:
        return 0;
    }
}

} // namespace zuhost::dxf
