// Opens any bytes as a drawing, then lists, searches, audits, draws, edits, repairs, saves and reopens it.
// Showing a drawing changes nothing, a saved drawing opens, and a second repair changes nothing.
#include "../support/memory_file.h"
#include "../support/program.h"
#include "../support/require.h"

#include "failure.h"
#include "model/audit.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "plan/plan_picture.h"
#include "text.h"

#include <dbents.h>
#include <dbobjptr.h>
#include <zucomn/dbservices.h>
#include <zucomn/model/attributes.h>
#include <zucomn/model/groups.h>
#include <zucomn/model/joints.h>
#include <zucomn/route.h>
#include <zuhost/drawing_files.h>
#include <zuhost/texts.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace zu::fuzz {

namespace {

/// Larger pictures would take most of the time.
constexpr int kPictureWidth = 64;
/// A search visits all members of its group: without a limit the cost grows with the square of the group.
constexpr std::size_t kSearches = 64;

using Ids = std::vector<AcDbObjectId>;

/// Returns no value for a drawing that can't be opened.
std::unique_ptr<app::DrawingFile> open(const CString& file) {
    try {
        return std::make_unique<app::DrawingFile>(app::DrawingSource{app::narrow(zuhost::viewOf(file))});
    } catch (const app::Failure&) {
        return nullptr;
    }
}

void search(AcDbObjectId element) {
    AcArray<AcDbObjectId> groups;
    AcArray<AcDbObjectId> found;
    ZuComn_GetGroupID(element, groups);
    for (const AcDbObjectId group : groups)
        RootComn_GetConnectBlock(group, element, found, nullptr, 0);
}

void list(const app::DrawingFile& drawing) {
    const Ids references = drawing.references();
    for (const AcDbObjectId id : references)
        (void)app::readElement(id);
    for (const AcDbObjectId id : drawing.groups())
        (void)zucomn::readGroup(id);
    (void)zucomn::joinedElements(zucomn::connectionPoints(references));
    for (std::size_t i = 0; i < std::min(references.size(), kSearches); ++i)
        search(references[i]);
}

void draw(app::DrawingFile& drawing) {
    try {
        app::PlanOptions options;
        options.size = {kPictureWidth, 0};
        const app::PlanPicture plan(drawing.database(), options);
        (void)plan.image();
        (void)plan.svg();
    } catch (const app::Failure&) {
        // The plan has too much to draw.
    }
}

void requireOpens(app::DrawingFile& drawing) {
    const bool binary = zuhost::isBinary(drawing.database());
    AcDbDatabase again(false);
    const bool opens =
        zuhost::dxfInBytes(again, zuhost::dxfOutBytes(drawing.database(), binary), L"saved") == Acad::eOk;
    if (!opens)
        std::fprintf(stderr, "%ls\n", zuhost::lastErrorText(again).c_str());
    require(opens, "what was saved does not open");
}

void show(const CString& file, std::string_view bytes) {
    const auto drawing = open(file);
    if (!drawing)
        return;
    list(*drawing);
    (void)app::audit(*drawing, false);
    draw(*drawing);
    const std::string saved = zuhost::dxfOutBytes(drawing->database(), zuhost::isBinary(drawing->database()));
    // Faults repaired while reading are repaired in the saved file, too.
    if (zuhost::warnings(drawing->database()).empty())
        require(saved == bytes, "an unedited drawing was changed");
}

void editGroups(const Ids& references, const Ids& groups) {
    AcArray<AcDbObjectId> elements;
    for (const AcDbObjectId id : references)
        elements.append(id);
    if (!groups.empty() && !references.empty()) {
        RootComn_AddGroupMember(groups.front(), references.back());
        RootComn_DelGroupMember(groups.back(), references.front());
        RootComn_GroupMemberCopy(groups.front(), groups.back());
    }
    AcDbObjectId made;
    RootComn_CreateNewGroup(L"*", elements, made, true);
    for (std::size_t i = 0; i < groups.size(); i += 2)
        RootComn_DelGroup(groups[i]);
}

void editElements(const Ids& references) {
    const std::array<zucomn::AttributeValue, 2> values = {{{L"S401", L"2500"}, {L"S501", L"給気"}}};
    (void)zucomn::editAttributes(references, values);
    for (std::size_t i = 0; i < references.size(); i += 3) {
        RootComn_SetOriginPoint(references[i], AcGePoint3d(1.0, 2.0, 3.0));
        const AcDbObjectPointer<AcDbEntity> entity(references[i], AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk && i % 2 != 0)
            entity->erase();
    }
}

void edit(const CString& file) {
    const auto drawing = open(file);
    if (!drawing)
        return;
    drawing->database().startUndoRecord();
    const Ids references = drawing->references();
    editElements(references);
    editGroups(references, drawing->groups());
    requireOpens(*drawing);
    list(*drawing);
    while (drawing->database().undo() == Acad::eOk) {
    }
    requireOpens(*drawing);
}

std::ptrdiff_t repairsOf(app::DrawingFile& drawing) {
    const std::vector<app::Finding> findings = app::audit(drawing, true);
    return std::count_if(findings.begin(), findings.end(), [](const app::Finding& finding) {
        if (finding.repaired)
            std::fprintf(stderr, "%s: %s\n", finding.handle.c_str(), finding.problem.c_str());
        return finding.repaired;
    });
}

void repair(const MemoryFile& memory, const CString& file) {
    const auto drawing = open(file);
    if (!drawing)
        return;
    (void)app::audit(*drawing, true);
    const std::string saved = zuhost::dxfOutBytes(drawing->database(), zuhost::isBinary(drawing->database()));
    const auto again = open(memory.fill(saved));
    require(again != nullptr, "a repaired drawing does not open");
    require(repairsOf(*again) == 0, "a second repair repaired something");
}

} // namespace

} // namespace zu::fuzz

/// The font library keeps its tables until the end.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    zu::fuzz::startProgram();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const zu::fuzz::MemoryFile memory;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const CString file = memory.fill(bytes);
    zu::fuzz::show(file, bytes);
    zu::fuzz::edit(file);
    zu::fuzz::repair(memory, file);
    return 0;
}
