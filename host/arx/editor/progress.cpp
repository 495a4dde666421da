#include "aced.h"

#include <zuhost/progress.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

struct Range {
    int first;
    int last;
};

/// The range of the meter; empty while there is none.
std::optional<Range>& shownRange() {
    static std::optional<Range> range;
    return range;
}

} // namespace

int acedSetStatusBarProgressMeter(const ACHAR* label, int min, int max) {
    if (max < min)
        return -1;
    acedRestoreStatusBar();
    shownRange() = Range{min, max};
    if (zuhost::ProgressPresenter* const meter = zuhost::progressPresenter())
        meter->start(label != nullptr ? label : L"", min, max);
    return 0;
}

int acedSetStatusBarProgressMeterPos(int position) {
    const std::optional<Range> range = shownRange();
    if (!range)
        return -1;
    if (zuhost::ProgressPresenter* const meter = zuhost::progressPresenter())
        meter->moveTo(std::clamp(position, range->first, range->last));
    return 0;
}

void acedRestoreStatusBar() {
    if (!std::exchange(shownRange(), std::nullopt))
        return;
    if (zuhost::ProgressPresenter* const meter = zuhost::progressPresenter())
        meter->restore();
}
