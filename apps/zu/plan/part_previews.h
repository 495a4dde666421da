#pragma once

#include <zucomn/dxf.h>

#include <string>

namespace zu::app {

struct PreviewOptions {
    int size = 0; ///< Width in pixels; 0 for what suits.
    bool dark = false;
};

/// Draws a part drawing into a PNG file.
void savePreview(const CAcadDxf& part, const std::string& file, PreviewOptions options);

/// Draws thumbnails of all part drawings of a folder and its folders, with a progress bar on a terminal. A
/// picture lies where the drawing lies in its folder. Drawings that show nothing
/// or too much are listed on the standard error.
void savePreviews(const std::string& folder, const std::string& pictureFolder, PreviewOptions options,
                  int tableOption);

} // namespace zu::app
