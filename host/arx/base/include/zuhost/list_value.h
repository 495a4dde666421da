#pragma once

#include "adsdef.h"

#include <zuhost/platform/export.h>

#include <concepts>
#include <span>
#include <type_traits>
#include <variant>

struct resbuf;

namespace zuhost {

/// One argument of acutBuildList or acedCommandS with its type, so that a value of the wrong kind can't read
/// foreign memory.
using ListValue = std::variant<std::int64_t, double, const ACHAR*, const ads_real*, const std::int64_t*>;

template <typename T>
ListValue listValue(const T& value) {
    if constexpr (std::is_integral_v<T> || std::is_enum_v<T>)
        return static_cast<std::int64_t>(value);
    else if constexpr (std::is_null_pointer_v<T>)
        return static_cast<const ACHAR*>(nullptr);
    else if constexpr (std::is_floating_point_v<T>)
        return static_cast<double>(value);
    else if constexpr (std::is_convertible_v<const T&, const ads_real*>)
        return static_cast<const ads_real*>(value);
    else if constexpr (std::is_convertible_v<const T&, const std::int64_t*>)
        return static_cast<const std::int64_t*>(value);
    else
        return static_cast<const ACHAR*>(value);
}

/// Returns the chain of the types and values in turn, up to RTNONE or 0 as a type; null for a value of the
/// wrong kind and for one that is missing.
ZUHOST_API resbuf* buildList(std::span<const ListValue> arguments);

} // namespace zuhost
