#pragma once

#include <zuhost/platform/export.h>

#include <cstddef>

namespace zuhost::platform {

inline constexpr std::size_t kSmallPage = std::size_t{4} << 10U;
/// Large pages remove most of the cost of new memory where the system has them.
inline constexpr std::size_t kLargePage = std::size_t{2} << 20U;

/// Returns zeroed memory of its own pages, in large ones where the system has them; null when there is none.
/// `bytes` is a multiple of kLargePage.
ZUHOST_API void* allocatePages(std::size_t bytes);
ZUHOST_API void freePages(void* start, std::size_t bytes);

/// Makes the system supply pages of that memory at once instead of one by one when they are first used.
/// `start` and `bytes` are multiples of kSmallPage.
ZUHOST_API void supplyPages(void* start, std::size_t bytes);

} // namespace zuhost::platform
