#include "progress_scope.h"

#include "frame/library_text.h"

#include <aced.h>

namespace zu {

namespace {

constexpr int kMaximum = 100;

} // namespace

ProgressScope::ProgressScope(unsigned label, std::size_t steps) : steps_(steps) {
    acedSetStatusBarProgressMeter(libraryText(label), 0, kMaximum);
}

ProgressScope::~ProgressScope() {
    acedRestoreStatusBar();
}

void ProgressScope::advance() {
    ++done_;
    const std::size_t percent = steps_ > 0 ? done_ * kMaximum / steps_ : kMaximum;
    if (percent == percent_)
        return;
    percent_ = percent;
    acedSetStatusBarProgressMeterPos(static_cast<int>(percent));
}

} // namespace zu
