#pragma once

#include "model/save_options.h"

#include <acarray.h>
#include <dbid.h>
#include <dbmain.h>

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace zu::app {

class Command;

/// Where a command reads its drawing, and how.
struct DrawingSource {
    std::string path;    ///< "-" is the standard input.
    bool strict = false; ///< Reject drawings that would open with a warning.
};

/// Adds the argument DRAWING and the option --strict.
void addDrawing(Command& command, DrawingSource& source);

/// One drawing for the run of the program: opened, made the working database, closed at the end.
class DrawingFile {
public:
    /// Prints the drawing's faults as warnings. Throws Failure with file, line and problem when the drawing
    /// can't be opened.
    explicit DrawingFile(const DrawingSource& source);
    ~DrawingFile();
    DrawingFile(const DrawingFile&) = delete;
    DrawingFile& operator=(const DrawingFile&) = delete;

    [[nodiscard]] AcDbDatabase& database() { return *database_; }

    /// The object with the hexadecimal handle; throws Failure when there is none.
    [[nodiscard]] AcDbObjectId find(const std::string& handle) const;

    /// The entities of model space, in drawing order.
    [[nodiscard]] std::vector<AcDbObjectId> entities() const;

    /// The block references of model space in drawing order.
    [[nodiscard]] std::vector<AcDbObjectId> references() const;

    /// The groups of the group dictionary in its order.
    [[nodiscard]] std::vector<AcDbObjectId> groups() const;

    /// The group with the name or the hexadecimal handle; throws Failure when there is none.
    [[nodiscard]] AcDbObjectId findGroup(const std::string& nameOrHandle) const;

    /// Saves in the drawing's own form: to the standard output when that is named, in a folder under the name
    /// of the drawing's file; a folder named with "/" at its end is made. Throws Failure, and FileChanged
    /// when the file has changed since the drawing was opened and `force` is not set; the old file is then
    /// untouched.
    void save(const SaveOptions& options);
    /// Saves as binary or ASCII drawing.
    void save(const SaveOptions& options, bool binary);

private:
    void open(const DrawingSource& source);
    [[nodiscard]] std::string outputFile(const std::string& output) const;

    std::string path_;
    std::unique_ptr<AcDbDatabase> database_;
};

/// The handle of an object as the program shows it: upper-case hexadecimal.
[[nodiscard]] std::string handleText(AcDbObjectId id);
[[nodiscard]] std::string handleText(AcDbHandle handle);

/// Handles of several objects.
[[nodiscard]] std::vector<std::string> handleTexts(std::span<const AcDbObjectId> ids);

} // namespace zu::app
