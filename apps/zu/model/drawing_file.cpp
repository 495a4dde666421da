#include "model/drawing_file.h"

#include "command_line.h"
#include "failure.h"
#include "model/group.h"
#include "text.h"

#include <dbapserv.h>
#include <dbdict.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <zucomn/route.h>

#include <charconv>
#include <iostream>
#include <optional>

namespace zu::app {

namespace {

std::optional<Adesk::UInt64> parseHandle(const std::string& text) {
    Adesk::UInt64 value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value, 16);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

AcDbObjectId findByHandle(const AcDbDatabase& database, const std::string& handle) {
    AcDbObjectId id;
    if (const auto value = parseHandle(handle))
        database.getAcDbObjectId(id, false, AcDbHandle(*value));
    return id;
}

} // namespace

void addDrawing(Command& command, DrawingSource& source) {
    command.add_option("DRAWING", source.path, "The drawing")->required();
    command.add_flag("--strict", source.strict, "Refuse a drawing that would open with warnings");
}

DrawingFile::DrawingFile(const DrawingSource& source) : database_(std::make_unique<AcDbDatabase>(false)) {
    if (database_->dxfIn(wide(source.path), source.strict) != Acad::eOk)
        throw Failure(narrow(database_->lastErrorText()));
    for (const std::wstring& warning : database_->warnings())
        std::cerr << narrow(warning) << '\n';
    acdbHostApplicationServices()->setWorkingDatabase(database_.get());
}

DrawingFile::~DrawingFile() {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

AcDbObjectId DrawingFile::find(const std::string& handle) const {
    const AcDbObjectId id = findByHandle(*database_, handle);
    if (id.isNull())
        throw Failure("the drawing has no object with handle " + handle);
    return id;
}

std::vector<AcDbObjectId> DrawingFile::entities() const {
    AcDbBlockTable* blocks = nullptr;
    if (database_->getSymbolTable(blocks) != Acad::eOk)
        return {};
    AcDbObjectId spaceId;
    blocks->getAt(ACDB_MODEL_SPACE, spaceId);
    blocks->close();
    const AcDbObjectPointer<AcDbBlockTableRecord> space(spaceId);
    if (space.openStatus() != Acad::eOk)
        return {};
    return space->entityIds();
}

std::vector<AcDbObjectId> DrawingFile::references() const {
    std::vector<AcDbObjectId> found;
    for (const AcDbObjectId id : entities())
        if (id.objectClass()->isDerivedFrom(AcDbBlockReference::desc()))
            found.push_back(id);
    return found;
}

std::vector<AcDbObjectId> DrawingFile::groups() const {
    AcDbDictionary* dictionary = nullptr;
    if (database_->getGroupDictionary(dictionary) != Acad::eOk)
        return {};
    std::vector<AcDbObjectId> found;
    for (const auto& entry : dictionary->entries())
        if (isGroup(entry.id))
            found.push_back(entry.id);
    dictionary->close();
    return found;
}

AcDbObjectId DrawingFile::findGroup(const std::string& nameOrHandle) const {
    const AcDbObjectId byHandle = findByHandle(*database_, nameOrHandle);
    const CString name = wide(nameOrHandle);
    for (const AcDbObjectId group : groups()) {
        CString groupName;
        RootComn_GetGroupNameFromGroupOid(group, groupName);
        if (group == byHandle || groupName.CompareNoCase(name) == 0)
            return group;
    }
    throw Failure("the drawing has no group " + nameOrHandle);
}

void DrawingFile::save(const std::string& path) {
    save(path, database_->isBinary());
}

void DrawingFile::save(const std::string& path, bool binary) {
    if (database_->dxfOut(wide(path), binary) != Acad::eOk)
        throw Failure(narrow(database_->lastErrorText()));
}

std::string handleText(AcDbObjectId id) {
    return handleText(id.handle());
}

std::string handleText(AcDbHandle handle) {
    ACHAR buffer[17];
    handle.getIntoAsciiBuffer(buffer);
    return narrow(buffer);
}

std::vector<std::string> handleTexts(const AcArray<AcDbObjectId>& ids) {
    std::vector<std::string> texts;
    for (const AcDbObjectId id : ids)
        texts.push_back(handleText(id));
    return texts;
}

} // namespace zu::app
