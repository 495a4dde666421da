#include "zuhost/progress.h"

#include <utility>

namespace zuhost {

namespace {

ProgressPresenter*& chosenPresenter() {
    static ProgressPresenter* presenter = nullptr;
    return presenter;
}

DesktopProgress& desktopProgress() {
    static DesktopProgress progress = nullptr;
    return progress;
}

} // namespace

ProgressPresenter* setProgressPresenter(ProgressPresenter* presenter) {
    return std::exchange(chosenPresenter(), presenter);
}

void setDesktopProgress(DesktopProgress progress) {
    desktopProgress() = progress;
}

ProgressPresenter* progressPresenter() {
    if (chosenPresenter() != nullptr)
        return chosenPresenter();
    return desktopProgress() != nullptr ? desktopProgress()() : nullptr;
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
