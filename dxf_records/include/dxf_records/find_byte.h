#pragma once

#include <bit>
#include <cstddef>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace zuhost::dxf {

/// Returns the first such byte in [at, end), or `end`. Lines and texts of records are mostly short: searching
/// their first bytes inline avoids the call of the library's search.
inline const char* findByte(const char* at, const char* end, char wanted) {
#ifdef __SSE2__
    constexpr std::ptrdiff_t kStep = sizeof(__m128i);
    constexpr int kSteps = 2;
    const __m128i pattern = _mm_set1_epi8(wanted);
    for (int i = 0; i < kSteps && end - at >= kStep; ++i, at += kStep) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
        const int equal = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, pattern));
        if (equal != 0)
            return at + std::countr_zero(static_cast<unsigned>(equal));
    }
#endif
    const void* const found =
        at < end ? std::memchr(at, wanted, static_cast<std::size_t>(end - at)) : nullptr;
    return found != nullptr ? static_cast<const char*>(found) : end;
}

} // namespace zuhost::dxf
