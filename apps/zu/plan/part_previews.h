#pragma once

#include <string>

namespace zu::app {

struct PreviewOptions {
    int size = 0; ///< Width in pixels, at most; 0 for what suits.
    bool dark = false;
    bool strictTable = false; ///< See picture::PartOptions.
};

/// Draws a part drawing into a PNG, SVG or PDF file whose proportions follow the drawing, and warns of what
/// is not drawn. Throws WrongUsage for other extensions, Failure, with no file written, when the drawing
/// can't be read or holds too much.
void savePreview(const std::string& part, const std::string& file, const PreviewOptions& options);

/// Draws thumbnails of all part drawings of a folder and its folders, with a progress bar on a terminal. A
/// picture lies where the drawing lies in its folder. Drawings that show nothing or too much, and what they
/// hold that is not drawn, are listed on the standard error.
void savePreviews(const std::string& folder, const std::string& pictureFolder, const PreviewOptions& options);

} // namespace zu::app
