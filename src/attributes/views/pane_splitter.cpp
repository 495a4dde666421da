#include "pane_splitter.h"

#include <algorithm>

namespace zu {

namespace {

constexpr const wchar_t* kProfileSection = L"PaneWidth";
constexpr int kMinimum = 60;

} // namespace

void PaneSplitter::restoreWidth(int width) {
    const int saved = static_cast<int>(AfxGetApp()->GetProfileInt(kProfileSection, entry_, width));
    SetColumnInfo(0, std::max(saved, kMinimum), kMinimum);
}

void PaneSplitter::saveWidth() const {
    if (!isMoved_)
        return;
    int width = 0;
    int minimum = 0;
    GetColumnInfo(0, width, minimum);
    AfxGetApp()->WriteProfileInt(kProfileSection, entry_, width);
}

void PaneSplitter::StopTracking(BOOL /*accept*/) {
    isMoved_ = true;
}

} // namespace zu
