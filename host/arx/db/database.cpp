#include "database_core.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbmain.h"
#include "dbsymtb.h"
#include "dbtrans.h"
#include "object_access.h"
#include "transactions.h"
#include "zuhost/drawing_files.h"

#include <zuhost/paths.h>
#include <zuhost/platform/error_numbers.h>
#include <zuhost/platform/paths.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

using zuhost::Document;
using zuhost::DocumentError;
using zuhost::DrawingForm;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool /*noDocument*/)
    : core_(std::make_unique<zuhost::DatabaseCore>(*this)) {
    if (buildDefaultDrawing)
        core_->reset(Document::createEmpty(this));
}

AcDbDatabase::~AcDbDatabase() {
    zuhost::leaveTransactions(*this);
    core_->goodbye();
    AcDbHostApplicationServices* const services = acdbHostApplicationServices();
    if (services->workingDatabase() == this)
        services->setWorkingDatabase(nullptr);
}

Acad::ErrorStatus AcDbDatabase::dxfIn(const ACHAR* path, const ACHAR* /*logFile*/) {
    return path != nullptr ? read(path, false) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbDatabase::read(const ACHAR* path, bool strict) {
    const Acad::ErrorStatus status = install(Document::openFile(path, this), strict);
    if (status == Acad::eOk)
        fileName_ = path;
    std::error_code unknown;
    const bool isMissing =
        status == Acad::eFileAccessErr &&
        !std::filesystem::exists(zuhost::platform::pathOf(zuhost::systemPath(path)), unknown);
    return isMissing ? Acad::eFileNotFound : status;
}

Acad::ErrorStatus AcDbDatabase::read(std::string bytes, const ACHAR* name) {
    const Acad::ErrorStatus status = install(Document::open(std::move(bytes), name, this), false);
    if (status == Acad::eOk)
        fileName_.clear();
    return status;
}

Acad::ErrorStatus AcDbDatabase::install(std::variant<std::unique_ptr<Document>, DocumentError> opened,
                                        bool strict) {
    const auto* error = std::get_if<DocumentError>(&opened);
    if (strict && !error)
        if (const auto& warnings = std::get<std::unique_ptr<Document>>(opened)->warnings(); !warnings.empty())
            error = &warnings.front();
    if (error) {
        lastError_ = error->message();
        return error->line == 0 && error->offset == 0 ? Acad::eFileAccessErr : Acad::eBadDxfFile;
    }
    core_->reset(std::move(std::get<std::unique_ptr<Document>>(opened)));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::dxfOut(const ACHAR* path, int /*precision*/, AcDb::AcDbDwgVersion version,
                                       bool /*saveThumbnail*/) {
    if (path == nullptr)
        return Acad::eInvalidInput;
    if (version != AcDb::kDHL_CURRENT && version != originalFileVersion())
        return Acad::eNotApplicable;
    return write(path, zuhost::isBinary(*this));
}

Acad::ErrorStatus AcDbDatabase::write(const ACHAR* path, bool binary) {
    if (!core_->document)
        return Acad::eNoDatabase;
    const DrawingForm form = binary ? DrawingForm::binary : DrawingForm::ascii;
    const auto error = core_->document->save(path, form, core_->savedTags());
    if (!error) {
        fileName_ = path;
        return Acad::eOk;
    }
    lastError_ = error->message();
    return error->systemError == ESTALE ? Acad::eFileAccessErr : Acad::eFilerError;
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& path) const {
    path = fileName_.empty() ? nullptr : fileName_.c_str();
    return path != nullptr ? Acad::eOk : Acad::eNoFileName;
}

AcDb::AcDbDwgVersion AcDbDatabase::originalFileVersion() const {
    constexpr std::array kVersions{std::pair{1006, AcDb::kDHL_1006}, std::pair{1009, AcDb::kDHL_1009},
                                   std::pair{1012, AcDb::kDHL_1012}, std::pair{1014, AcDb::kDHL_1014},
                                   std::pair{1015, AcDb::kDHL_1015}, std::pair{1018, AcDb::kDHL_1800},
                                   std::pair{1021, AcDb::kDHL_2100}, std::pair{1024, AcDb::kDHL_2400},
                                   std::pair{1027, AcDb::kDHL_2700}, std::pair{1032, AcDb::kDHL_3200}};
    const int number = zuhost::drawingVersion(*this);
    for (const auto& [known, version] : kVersions)
        if (known == number)
            return version;
    return AcDb::kDHL_Unknown;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool /*createIfNotFound*/,
                                                const AcDbHandle& handle) const {
    AcDbStub* const stub = core_->document ? core_->document->find(handle.value()) : nullptr;
    if (stub == nullptr)
        return Acad::eUnknownHandle;
    id = stub;
    return Acad::eOk;
}

std::size_t AcDbDatabase::approxNumObjects() const {
    return core_->document ? core_->document->objectCount() : 0;
}

AcDbObjectId AcDbDatabase::blockTableId() const {
    return {core_->tableHead("BLOCK_RECORD")};
}
AcDbObjectId AcDbDatabase::layerTableId() const {
    return {core_->tableHead("LAYER")};
}
AcDbObjectId AcDbDatabase::linetypeTableId() const {
    return {core_->tableHead("LTYPE")};
}
AcDbObjectId AcDbDatabase::textStyleTableId() const {
    return {core_->tableHead("STYLE")};
}
AcDbObjectId AcDbDatabase::regAppTableId() const {
    return {core_->tableHead("APPID")};
}
AcDbObjectId AcDbDatabase::dimStyleTableId() const {
    return {core_->tableHead("DIMSTYLE")};
}
AcDbObjectId AcDbDatabase::currentSpaceId() const {
    return {core_->modelSpace()};
}
AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const {
    return {core_->rootDictionary()};
}
AcDbObjectId AcDbDatabase::groupDictionaryId() const {
    return {core_->groupDictionary()};
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, blockTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, layerTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, linetypeTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, textStyleTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, regAppTableId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, dimStyleTableId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode) {
    return acdbOpenObject(dictionary, namedObjectsDictionaryId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getGroupDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode) {
    if (mode == AcDb::kForWrite && groupDictionaryId().isNull())
        core_->makeGroupDictionary();
    return acdbOpenObject(dictionary, groupDictionaryId(), mode);
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object) {
    if (object == nullptr)
        return Acad::eNullObjectPointer;
    if (object->database() != nullptr || zuhost::ObjectAccess::isPending(*object))
        return Acad::eAlreadyInDb;
    if (!core_->document)
        return Acad::eNoDatabase;
    id = core_->adopt(object, core_->document->container(zuhost::Container::Kind::objects), nullptr);
    return Acad::eOk;
}

void AcDbDatabase::addReactor(AcDbDatabaseReactor* reactor) {
    std::vector<AcDbDatabaseReactor*>& reactors = core_->reactors;
    if (reactor != nullptr && std::find(reactors.begin(), reactors.end(), reactor) == reactors.end())
        reactors.push_back(reactor);
}

void AcDbDatabase::removeReactor(AcDbDatabaseReactor* reactor) {
    std::erase(core_->reactors, reactor);
}

AcDbTransactionManager* AcDbDatabase::transactionManager() const {
    return acdbTransactionManager;
}

void AcDbDatabase::startUndoRecord() {
    core_->undo.startStep();
}
void AcDbDatabase::disableUndoRecording(bool disable) {
    core_->undo.disable(disable);
}
bool AcDbDatabase::undoRecording() const {
    return core_->undo.enabled();
}

Acad::ErrorStatus AcDbDatabase::undo() {
    return core_->undo.undo(*core_) ? Acad::eOk : Acad::eUndoOperationNotAvailable;
}

zuhost::DatabaseCore& zuhost::coreOf(const AcDbDatabase& database) {
    return ObjectAccess::core(database);
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    return &services;
}
