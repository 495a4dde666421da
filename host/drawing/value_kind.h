#pragma once

#include <array>
#include <cstdint>

namespace zuhost {

/// What the value of a group code is.
enum class ValueKind : std::uint8_t { text, real, int16, int32, int64, boolean, handle, chunk, unknown };

constexpr int lastGroupCode = 1071;

namespace detail {

struct KindRange {
    int first;
    int last;
    ValueKind kind;
};

constexpr KindRange kindRanges[] = {
    {0, 9, ValueKind::text},         {10, 59, ValueKind::real},      {60, 79, ValueKind::int16},
    {90, 99, ValueKind::int32},      {100, 102, ValueKind::text},    {105, 105, ValueKind::handle},
    {110, 149, ValueKind::real},     {160, 169, ValueKind::int64},   {170, 179, ValueKind::int16},
    {210, 239, ValueKind::real},     {270, 289, ValueKind::int16},   {290, 299, ValueKind::boolean},
    {300, 309, ValueKind::text},     {310, 319, ValueKind::chunk},   {320, 369, ValueKind::handle},
    {370, 389, ValueKind::int16},    {390, 399, ValueKind::handle},  {400, 409, ValueKind::int16},
    {410, 419, ValueKind::text},     {420, 429, ValueKind::int32},   {430, 439, ValueKind::text},
    {440, 459, ValueKind::int32},    {460, 469, ValueKind::real},    {470, 479, ValueKind::text},
    {480, 481, ValueKind::handle},   {999, 1003, ValueKind::text},   {1004, 1004, ValueKind::chunk},
    {1005, 1005, ValueKind::handle}, {1006, 1009, ValueKind::text},  {1010, 1059, ValueKind::real},
    {1060, 1070, ValueKind::int16},  {1071, 1071, ValueKind::int32},
};

constexpr auto kinds = [] {
    std::array<ValueKind, lastGroupCode + 1> table{};
    table.fill(ValueKind::unknown);
    for (const KindRange& range : kindRanges)
        for (int code = range.first; code <= range.last; ++code)
            table[static_cast<std::size_t>(code)] = range.kind;
    return table;
}();

} // namespace detail

[[nodiscard]] constexpr ValueKind valueKind(int code) {
    return code < 0 || code > lastGroupCode ? ValueKind::unknown
                                            : detail::kinds[static_cast<std::size_t>(code)];
}

} // namespace zuhost
