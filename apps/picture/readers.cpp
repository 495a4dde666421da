#include "readers.h"

#include "records/drawing.h"

#include <dbmain.h>
#include <zucomn/model/elements.h>
#include <zuhost/atomic_file.h>
#include <zuhost/drawing_files.h>
#include <zuhost/paths.h>

#include <variant>

namespace zu::picture {

namespace {

std::vector<std::uint64_t> handlesInModelSpace(AcDbDatabase& database) {
    std::vector<std::uint64_t> handles;
    for (const AcDbObjectId id : zucomn::modelSpaceEntities(database))
        handles.push_back(id.handle().value());
    return handles;
}

} // namespace

DatabaseCopy copyDatabase(AcDbDatabase& database) {
    return {zuhost::dxfOutShared(database), handlesInModelSpace(database)};
}

std::shared_ptr<const Drawing> readDatabase(DatabaseCopy copy) {
    if (copy.bytes == nullptr)
        return nullptr;
    auto drawing = std::make_shared<Drawing>(std::move(copy.bytes));
    drawing->setHandles(copy.handles);
    return drawing;
}

std::shared_ptr<const Drawing> readPart(const std::wstring& path, const PartOptions& options) {
    auto contents = zuhost::readWholeFile(zuhost::systemPath(path), nullptr);
    auto* const bytes = std::get_if<std::string>(&contents);
    if (bytes == nullptr)
        return nullptr;
    return std::make_shared<Drawing>(std::move(*bytes), options);
}

} // namespace zu::picture
