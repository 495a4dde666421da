#pragma once

#include <cstddef>

namespace zuhost::platform {

/// Large pages remove most of the cost of new memory where the system has them.
inline constexpr std::size_t kLargePage = std::size_t{2} << 20U;

/// Returns zeroed memory of its own pages, in large ones where the system has them; null when there is none.
/// `bytes` is a multiple of kLargePage.
void* allocatePages(std::size_t bytes);
void freePages(void* start, std::size_t bytes);

} // namespace zuhost::platform
