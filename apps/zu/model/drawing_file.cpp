#include "model/drawing_file.h"

#include "command_line.h"
#include "failure.h"
#include "manners/suggestion.h"
#include "model/standard_streams.h"
#include "text.h"

#include <dbapserv.h>

#include <zucomn/model/elements.h>
#include <zucomn/model/groups.h>
#include <zucomn/route.h>
#include <zuhost/drawing_files.h>
#include <zuhost/platform/paths.h>
#include <zuhost/texts.h>

#include <charconv>
#include <filesystem>
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

/// What messages name it.
constexpr const wchar_t* kStandardInputName = L"standard input";

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

DrawingFile::DrawingFile(const DrawingSource& source)
    : path_(source.path), database_(std::make_unique<AcDbDatabase>(false)) {
    open(source);
    for (const std::wstring& warning : zuhost::warnings(*database_))
        std::cerr << narrow(warning) << '\n';
    acdbHostApplicationServices()->setWorkingDatabase(database_.get());
}

void DrawingFile::open(const DrawingSource& source) {
    const bool isInput = source.path == kStandardStream;
    const Acad::ErrorStatus status =
        isInput         ? zuhost::dxfInBytes(*database_, readStandardInput(), kStandardInputName)
        : source.strict ? zuhost::dxfInStrict(*database_, filePath(source.path))
                        : database_->dxfIn(filePath(source.path));
    if (status != Acad::eOk)
        throw Failure(narrow(zuhost::lastErrorText(*database_)));
    if (isInput && source.strict && !zuhost::warnings(*database_).empty())
        throw Failure(narrow(zuhost::warnings(*database_).front()));
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
    return zucomn::modelSpaceEntities(*database_);
}

std::vector<AcDbObjectId> DrawingFile::references() const {
    return zucomn::modelSpaceReferences(*database_);
}

std::vector<AcDbObjectId> DrawingFile::groups() const {
    return zucomn::groupsOf(*database_);
}

AcDbObjectId DrawingFile::findGroup(const std::string& nameOrHandle) const {
    const AcDbObjectId byHandle = findByHandle(*database_, nameOrHandle);
    const CString name = wide(nameOrHandle);
    std::vector<std::string> names;
    for (const AcDbObjectId group : groups()) {
        CString groupName;
        RootComn_GetGroupNameFromGroupOid(group, groupName);
        if (group == byHandle || groupName.CompareNoCase(name) == 0)
            return group;
        names.push_back(narrow(zuhost::viewOf(groupName)));
    }
    throw Failure("the drawing has no group " + nameOrHandle + suggestion(nameOrHandle, names));
}

void DrawingFile::save(const SaveOptions& options) {
    save(options, zuhost::isBinary(*database_));
}

void DrawingFile::save(const SaveOptions& options, bool binary) {
    if (options.output == kStandardStream) {
        std::cout << zuhost::dxfOutBytes(*database_, binary);
        return;
    }
    if (options.force)
        zuhost::allowReplacingChangedFile(*database_);
    const Acad::ErrorStatus status = zuhost::dxfOut(*database_, filePath(outputFile(options.output)), binary);
    if (status == Acad::eFileAccessErr)
        throw FileChanged(narrow(zuhost::lastErrorText(*database_)) +
                          "; open it again, or save with --force");
    if (status != Acad::eOk)
        throw Failure(narrow(zuhost::lastErrorText(*database_)));
}

std::string DrawingFile::outputFile(const std::string& output) const {
    if (!namesFolder(output))
        return output;
    if (path_ == kStandardStream)
        throw Failure(output + ": name a file in the folder; the drawing comes from standard input");
    std::error_code failed; // Saving reports what is wrong with the folder.
    std::filesystem::create_directories(zuhost::platform::pathOf(output), failed);
    return zuhost::platform::textOf(zuhost::platform::pathOf(output) /
                                    zuhost::platform::pathOf(path_).filename());
}

std::string handleText(AcDbObjectId id) {
    return handleText(id.handle());
}

std::string handleText(AcDbHandle handle) {
    ACHAR buffer[17];
    handle.getIntoAsciiBuffer(buffer);
    std::string digits;
    for (const ACHAR* digit = buffer; *digit != L'\0'; ++digit)
        digits += static_cast<char>(*digit);
    return digits;
}

std::vector<std::string> handleTexts(std::span<const AcDbObjectId> ids) {
    std::vector<std::string> texts;
    texts.reserve(ids.size());
    for (const AcDbObjectId id : ids)
        texts.push_back(handleText(id));
    return texts;
}

} // namespace zu::app
