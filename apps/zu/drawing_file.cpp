#include "drawing_file.h"

#include "failure.h"

#include <dbapserv.h>
#include <dbdict.h>
#include <dbents.h>
#include <dbgroup.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zuhost/text_codec.h>

#include <charconv>

namespace zu::app {

namespace {

std::optional<Adesk::UInt64> parseHandle(const std::string& text) {
    Adesk::UInt64 value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

} // namespace

DrawingFile::DrawingFile(const std::string& path) : database_(std::make_unique<AcDbDatabase>(false)) {
    if (database_->dxfIn(zuhost::fromUtf8(path).c_str()) != Acad::eOk)
        throw Failure(zuhost::toUtf8(database_->lastErrorText()));
    acdbHostApplicationServices()->setWorkingDatabase(database_.get());
}

DrawingFile::~DrawingFile() { acdbHostApplicationServices()->setWorkingDatabase(nullptr); }

AcDbObjectId DrawingFile::find(const std::string& handle) const {
    const auto value = parseHandle(handle);
    AcDbObjectId id;
    if (!value || database_->getAcDbObjectId(id, false, AcDbHandle(*value)) != Acad::eOk)
        throw Failure("no object with handle " + handle);
    return id;
}

std::vector<AcDbObjectId> DrawingFile::references() const {
    std::vector<AcDbObjectId> found;
    AcDbObjectPointer<AcDbBlockTableRecord> space(acdbSymUtil()->blockModelSpaceId(database_.get()), AcDb::kForRead);
    return found;
}

} // namespace zu::app
