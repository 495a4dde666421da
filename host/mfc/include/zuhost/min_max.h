#pragma once

#include <algorithm>
#include <type_traits>

// Macros on the platform; functions here, so that the standard headers keep their own.
using std::max;
using std::min;

template <typename Left, typename Right>
requires(!std::is_same_v<Left, Right>) constexpr auto min(const Left& left, const Right& right) {
    using Common = std::common_type_t<Left, Right>;
    return static_cast<Common>(right) < static_cast<Common>(left) ? static_cast<Common>(right)
                                                                  : static_cast<Common>(left);
}
template <typename Left, typename Right>
requires(!std::is_same_v<Left, Right>) constexpr auto max(const Left& left, const Right& right) {
    using Common = std::common_type_t<Left, Right>;
    return static_cast<Common>(left) < static_cast<Common>(right) ? static_cast<Common>(right)
                                                                  : static_cast<Common>(left);
}
