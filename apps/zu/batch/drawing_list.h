#pragma once

#include <string>
#include <vector>

namespace zu::app {

/// One of several drawings.
struct ListedDrawing {
    std::string path;
    /// Stands for the drawing in the names of outputs: its file name without the ending, in a folder with the
    /// path below that.
    std::string name;
};

/// The drawings that files and folders stand for, in the order given; of a folder the .dxf files by name,
/// those of its folders too when it `descends`. Throws Failure for a folder that can't be read or has none.
[[nodiscard]] std::vector<ListedDrawing> listDrawings(const std::vector<std::string>& operands,
                                                      bool descends);

} // namespace zu::app
