#include "zuhost/result_kind.h"

#include "adscodes.h"

#include <algorithm>
#include <array>

namespace zuhost {

namespace {

struct TypeRange {
    int first;
    int last;
    ResultKind kind;
};

constexpr std::array kRanges{
    TypeRange{-6, -5, ResultKind::name},
    TypeRange{-4, -4, ResultKind::text},
    TypeRange{-2, -1, ResultKind::name},
    TypeRange{0, 9, ResultKind::text},
    TypeRange{10, 19, ResultKind::point},
    TypeRange{20, 59, ResultKind::real},
    TypeRange{60, 79, ResultKind::int16},
    TypeRange{90, 99, ResultKind::int32},
    TypeRange{100, 105, ResultKind::text},
    TypeRange{110, 119, ResultKind::point},
    TypeRange{120, 149, ResultKind::real},
    TypeRange{160, 169, ResultKind::int64},
    TypeRange{170, 209, ResultKind::int16},
    TypeRange{210, 219, ResultKind::point},
    TypeRange{220, 239, ResultKind::real},
    TypeRange{240, 299, ResultKind::int16},
    TypeRange{300, 309, ResultKind::text},
    TypeRange{310, 319, ResultKind::chunk},
    TypeRange{320, 329, ResultKind::text},
    TypeRange{330, 369, ResultKind::name},
    TypeRange{370, 389, ResultKind::int16},
    TypeRange{390, 399, ResultKind::name},
    TypeRange{400, 409, ResultKind::int16},
    TypeRange{410, 419, ResultKind::text},
    TypeRange{420, 429, ResultKind::int32},
    TypeRange{430, 439, ResultKind::text},
    TypeRange{440, 459, ResultKind::int32},
    TypeRange{460, 469, ResultKind::real},
    TypeRange{470, 479, ResultKind::text},
    TypeRange{480, 481, ResultKind::name},
    TypeRange{999, 1003, ResultKind::text},
    TypeRange{1004, 1004, ResultKind::chunk},
    TypeRange{1005, 1009, ResultKind::text},
    TypeRange{1010, 1019, ResultKind::point},
    TypeRange{1020, 1059, ResultKind::real},
    TypeRange{1060, 1070, ResultKind::int16},
    TypeRange{1071, 1071, ResultKind::int32},
    TypeRange{RTREAL, RTREAL, ResultKind::real},
    TypeRange{RTPOINT, RTPOINT, ResultKind::point},
    TypeRange{RTSHORT, RTSHORT, ResultKind::int16},
    TypeRange{RTANG, RTANG, ResultKind::real},
    TypeRange{RTSTR, RTSTR, ResultKind::text},
    TypeRange{RTENAME, RTPICKS, ResultKind::name},
    TypeRange{RTORINT, RTORINT, ResultKind::real},
    TypeRange{RT3DPOINT, RT3DPOINT, ResultKind::point},
    TypeRange{RTLONG, RTLONG, ResultKind::int32},
    TypeRange{RTDXF0, RTDXF0, ResultKind::text},
    TypeRange{RTINT64, RTINT64, ResultKind::int64},
};
static_assert(std::is_sorted(kRanges.begin(), kRanges.end(),
                             [](const TypeRange& a, const TypeRange& b) { return a.last < b.first; }));

constexpr ResultKind kindByRange(int type) {
    const auto range = std::lower_bound(kRanges.begin(), kRanges.end(), type,
                                        [](const TypeRange& r, int wanted) { return r.last < wanted; });
    return range != kRanges.end() && type >= range->first ? range->kind : ResultKind::none;
}

/// The kinds of group codes, which are looked up for each value of a chain.
constexpr auto kCodeKinds = [] {
    std::array<ResultKind, 1072> kinds{};
    for (std::size_t code = 0; code < kinds.size(); ++code)
        kinds[code] = kindByRange(static_cast<int>(code));
    return kinds;
}();

} // namespace

ResultKind resultKind(int type) {
    const auto code = static_cast<std::size_t>(type);
    return code < kCodeKinds.size() ? kCodeKinds[code] : kindByRange(type);
}

} // namespace zuhost
