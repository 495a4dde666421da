#include "point_text.h"

#include "acdbads.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace zuhost {

namespace {

std::optional<double> length(std::wstring_view text) {
    double value = 0.0;
    const bool isLength = acdbDisToF(std::wstring(text).c_str(), -1, &value) == RTNORM;
    return isLength ? std::optional(value) : std::nullopt;
}

std::optional<AcGeVector3d> polar(std::wstring_view text, std::size_t mark) {
    const auto size = length(text.substr(0, mark));
    double angle = 0.0;
    if (!size || acdbAngToF(std::wstring(text.substr(mark + 1)).c_str(), -1, &angle) != RTNORM)
        return std::nullopt;
    return AcGeVector3d(*size * std::cos(angle), *size * std::sin(angle), 0.0);
}

std::optional<AcGeVector3d> cartesian(std::wstring_view text) {
    std::array<double, 3> coordinates{};
    std::size_t count = 0;
    while (count < coordinates.size()) {
        const std::size_t comma = text.find(L',');
        const auto value = length(text.substr(0, comma));
        if (!value)
            return std::nullopt;
        coordinates[count++] = *value;
        if (comma == std::wstring_view::npos)
            return count > 1 ? std::optional(AcGeVector3d(coordinates[0], coordinates[1], coordinates[2]))
                             : std::nullopt;
        text.remove_prefix(comma + 1);
    }
    return std::nullopt; // a fourth coordinate
}

} // namespace

std::optional<AcGePoint3d> parsePoint(std::wstring_view text, const AcGePoint3d& origin) {
    const bool relative = text.starts_with(L'@');
    text.remove_prefix(relative ? 1 : 0);
    text.remove_prefix(text.starts_with(L'*') ? 1 : 0);
    if (relative && text.empty())
        return origin;
    const std::size_t mark = text.find(L'<');
    const auto offset = mark != std::wstring_view::npos ? polar(text, mark) : cartesian(text);
    if (!offset)
        return std::nullopt;
    return (relative ? origin : AcGePoint3d::kOrigin) + *offset;
}

std::wstring realText(double value) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), end.ptr};
}

std::wstring pointText(const AcGePoint3d& point) {
    return realText(point.x) + L"," + realText(point.y) + L"," + realText(point.z);
}

} // namespace zuhost
