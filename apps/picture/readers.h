#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class AcDbDatabase;

namespace zu::picture {

class Drawing;

/// A drawing database as a file would hold it.
struct DatabaseCopy {
    std::shared_ptr<const std::string> bytes; ///< Null when memory does not suffice.
    std::vector<std::uint64_t> handles;       ///< Of the entities of model space.
};

/// Copies a drawing database as it is now.
[[nodiscard]] DatabaseCopy copyDatabase(AcDbDatabase& database);

/// Reads the records of a copy. Does not use the database, which another thread may read meanwhile. Null when
/// memory does not suffice.
[[nodiscard]] std::shared_ptr<const Drawing> readDatabase(DatabaseCopy copy);

struct PartOptions {
    bool strictTable = false;   ///< Group codes beyond those of early part drawings end the reading.
    int missingLayerColour = 7; ///< Colour of entities on layers that the drawing does not define.
};

/// Reads the records of a part drawing: those up to the first that is unreadable. Null when the file cannot
/// be opened. The light model of a part (CAcadDxf) keeps neither linetypes, text styles, heights above the
/// plan nor most types; its picture is therefore made of the records of the same file.
[[nodiscard]] std::shared_ptr<const Drawing> readPart(const std::wstring& path,
                                                      const PartOptions& options = {});

} // namespace zu::picture
