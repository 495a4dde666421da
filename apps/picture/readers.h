#pragma once

#include <memory>
#include <string>

class AcDbDatabase;

namespace zu::picture {

class Drawing;

/// Reads the records of a drawing database as it is now. The result does not refer to the database. Null when
/// memory does not suffice.
[[nodiscard]] std::shared_ptr<const Drawing> readDatabase(AcDbDatabase& database);

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
