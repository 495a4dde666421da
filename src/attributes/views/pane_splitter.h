#pragma once

#include <afxext.h>

namespace zu {

/// A splitter of two columns that saves the width of its first one in the user's profile when the user has
/// changed it.
class PaneSplitter : public CSplitterWnd {
public:
    /// `entry` names the window in the profile.
    explicit PaneSplitter(const wchar_t* entry) : entry_(entry) {}

    /// Sets the saved width of the first column, or the given one when none is saved.
    void restoreWidth(int width);
    void saveWidth() const;

protected:
    void StopTracking(BOOL accept) override;

private:
    const wchar_t* entry_;
    bool isMoved_ = false;
};

} // namespace zu
