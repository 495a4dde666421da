#include "command_line.h"
#include "commands/attribute_window.h"
#include "commands/commands.h"
#include "failure.h"
#include "model/attribute_rows.h"
#include "model/drawing_file.h"
#include "model/settings_file.h"
#include "text.h"

#include <accmd.h>
#include <zuhost/desktop.h>

#include <memory>

namespace zu::app {

namespace {

struct Options {
    DrawingSource drawing;
    std::vector<std::string> handles;
    std::string settings;
    SaveOptions saving;
    std::string screenshot;
};

AcArray<AcDbObjectId> entitiesOf(const DrawingFile& drawing, const std::vector<std::string>& handles) {
    AcArray<AcDbObjectId> entities;
    for (const std::string& handle : handles)
        entities.append(drawing.find(handle));
    if (!handles.empty())
        return entities;
    for (const AcDbObjectId id : drawing.references())
        if (!readAttributeRows(id).empty())
            entities.append(id);
    return entities;
}

/// Records whether the drawing changes.
class ChangeWatch : public AcDbDatabaseReactor {
public:
    explicit ChangeWatch(AcDbDatabase& database) : database_(database) { database_.addReactor(this); }
    ~ChangeWatch() override { database_.removeReactor(this); }
    ChangeWatch(const ChangeWatch&) = delete;
    ChangeWatch& operator=(const ChangeWatch&) = delete;

    void objectModified(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) override {
        changed_ = true;
    }
    [[nodiscard]] bool changed() const { return changed_; }

private:
    AcDbDatabase& database_;
    bool changed_ = false;
};

bool isAnsweredYes(const std::string& question) {
    return AfxMessageBox(wide(question), MB_YESNO | MB_ICONQUESTION) == IDYES;
}

bool wantsToSave(const std::string& drawing) {
    return isAnsweredYes("Save the changes to " + drawing + "?");
}

bool wantsToReplaceChanged(const std::string& drawing) {
    return isAnsweredYes(drawing +
                         ": The file was changed or removed by another program since it was opened. "
                         "Replace it by this drawing?");
}

/// Without --force the user decides: refusing to save would lose the edits.
void save(DrawingFile& drawing, SaveOptions options) {
    try {
        drawing.save(options);
    } catch (const FileChanged&) {
        if (!wantsToReplaceChanged(options.output))
            throw;
        options.force = true;
        drawing.save(options);
    }
}

void letEdit(DrawingFile& drawing, const Options& options) {
    const ChangeWatch watch(drawing.database());
    zuhost::runDesktop();
    if (!options.saving.output.empty())
        save(drawing, options.saving);
    else if (watch.changed() && wantsToSave(options.drawing.path))
        save(drawing, {options.drawing.path, options.saving.force});
}

/// The window asks modules to update section drawings after an edit; the program has none.
class SectionUpdates {
public:
    SectionUpdates() {
        acedRegCmds->addCommand(kGroup, L"ZU_ATTREDIT_SEC3D", L"ZU_ATTREDIT_SEC3D", ACRX_CMD_MODAL, [] {});
    }
    ~SectionUpdates() { acedRegCmds->removeGroup(kGroup); }
    SectionUpdates(const SectionUpdates&) = delete;
    SectionUpdates& operator=(const SectionUpdates&) = delete;

private:
    static constexpr const wchar_t* kGroup = L"ZU_WINDOW";
};

void run(const Options& options) {
    const SectionUpdates updates;
    const SettingsFile settings(options.settings);
    DrawingFile drawing(options.drawing);
    preparePictures(options.screenshot);
    CAttFrameWnd& window = openAttributeWindow(entitiesOf(drawing, options.handles), options.drawing.path);
    if (!options.handles.empty())
        selectAll(window);
    if (!options.screenshot.empty()) {
        closeWithPicture(window, options.screenshot);
        return;
    }
    showToUser(window);
    letEdit(drawing, options);
}

} // namespace

void addWindowCommand(Command& program) {
    auto options = std::make_shared<Options>();
    Command* command = program.add_subcommand("window", "Open the attribute window on elements");
    addDrawing(*command, options->drawing);
    command->add_option("HANDLE", options->handles, "Elements to show (default: every one with attributes)");
    command->add_option("--settings", options->settings, "Master settings file");
    addSaveOptions(*command, options->saving,
                   "Save the drawing here when the window is closed (default: ask)");
    command->add_option("--screenshot", options->screenshot, "Draw the window into a .png file instead");
    command->callback([options] { run(*options); });
}

} // namespace zu::app
