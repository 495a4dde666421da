#include "zuhost/progress.h"

#include "aced.h"
#include "zuhost/progress_window.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

zuhost::ProgressPresenter*& chosenPresenter() {
    static zuhost::ProgressPresenter* presenter = nullptr;
    return presenter;
}

zuhost::ProgressPresenter* presenter() {
    return chosenPresenter() != nullptr ? chosenPresenter() : zuhost::progressWindow();
}

struct Range {
    int first;
    int last;
};

/// Of the job that the meter shows.
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
    if (zuhost::ProgressPresenter* const meter = presenter())
        meter->start(label != nullptr ? label : L"", min, max);
    return 0;
}

int acedSetStatusBarProgressMeterPos(int position) {
    const std::optional<Range> range = shownRange();
    if (!range)
        return -1;
    if (zuhost::ProgressPresenter* const meter = presenter())
        meter->moveTo(std::clamp(position, range->first, range->last));
    return 0;
}

void acedRestoreStatusBar() {
    if (!std::exchange(shownRange(), std::nullopt))
        return;
    if (zuhost::ProgressPresenter* const meter = presenter())
        meter->restore();
}

namespace zuhost {

ProgressPresenter* setProgressPresenter(ProgressPresenter* presenter) {
    return std::exchange(chosenPresenter(), presenter);
}

ProgressObserver::ProgressObserver() : previous_(setProgressPresenter(this)) {}

ProgressObserver::~ProgressObserver() {
    setProgressPresenter(previous_);
}

void ProgressObserver::start(const std::wstring& label, int first, int last) {
    jobs_.push_back({label, first, last, {}, false});
}

void ProgressObserver::moveTo(int position) {
    if (!jobs_.empty())
        jobs_.back().positions.push_back(position);
}

void ProgressObserver::restore() {
    if (!jobs_.empty())
        jobs_.back().isOver = true;
}

} // namespace zuhost
