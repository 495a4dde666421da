#include "batch/drawing_list.h"

#include "failure.h"

#include <zuhost/platform/paths.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace zu::app {

namespace {

namespace fs = std::filesystem;
using zuhost::platform::pathOf;
using zuhost::platform::textOf;

bool isDrawing(const fs::directory_entry& entry) {
    std::string ending = textOf(entry.path().extension());
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    std::error_code unknown;
    return ending == ".dxf" && !entry.is_directory(unknown);
}

template <typename Iterator>
std::vector<fs::path> drawingsIn(const fs::path& folder) {
    std::vector<fs::path> found;
    std::error_code error;
    Iterator entry(folder, error);
    for (; !error && entry != Iterator(); entry.increment(error))
        if (isDrawing(*entry))
            found.push_back(entry->path());
    if (error)
        throw Failure(textOf(folder) + ": " + error.message());
    std::sort(found.begin(), found.end());
    return found;
}

void appendFolder(const fs::path& folder, bool descends, std::vector<ListedDrawing>& drawings) {
    const std::vector<fs::path> found = descends ? drawingsIn<fs::recursive_directory_iterator>(folder)
                                                 : drawingsIn<fs::directory_iterator>(folder);
    if (found.empty())
        throw Failure(textOf(folder) + ": holds no .dxf file" +
                      (descends ? "" : "; -r looks into its folders too"));
    for (const fs::path& path : found)
        drawings.push_back({textOf(path), textOf(path.lexically_relative(folder).replace_extension())});
}

} // namespace

std::vector<ListedDrawing> listDrawings(const std::vector<std::string>& operands, bool descends) {
    std::vector<ListedDrawing> drawings;
    for (const std::string& operand : operands) {
        std::error_code unknown;
        if (fs::is_directory(pathOf(operand), unknown))
            appendFolder(pathOf(operand), descends, drawings);
        else
            drawings.push_back({operand, textOf(pathOf(operand).stem())});
    }
    return drawings;
}

} // namespace zu::app
