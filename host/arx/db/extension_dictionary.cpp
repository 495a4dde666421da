#include "database_core.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "dxf_records/number_text.h"

namespace {

constexpr std::string_view kGroup = "ACAD_XDICTIONARY";
constexpr int kBracket = 102;
constexpr int kOwned = 360;

} // namespace

AcDbObjectId AcDbObject::extensionDictionary() const {
    const auto handle = tags().applicationGroup(kGroup).handle(kOwned);
    const AcDbObjectId found(handle && core() != nullptr ? core()->document->find(*handle) : nullptr);
    return found.isErased() ? AcDbObjectId() : found;
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (!extensionDictionary().isNull())
        return Acad::eAlreadyInDb;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    auto* const dictionary = new AcDbDictionary;
    const AcDbObjectId id =
        core()->adopt(dictionary, core()->document->container(zuhost::Container::Kind::objects), objectId());
    dictionary->addPersistentReactor(objectId());
    dictionary->close();
    zuhost::TagList& records = changingTags();
    records.erase(tags().applicationGroup(kGroup).range()); // of an erased dictionary
    records.insert(tags().applicationGroup(kGroup).range().first,
                   std::vector<zuhost::Tag>{{kBracket, '{' + std::string(kGroup)},
                                            {kOwned, zuhost::formatHandle(id.handle().value())},
                                            {kBracket, "}"}});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary() {
    const AcDbObjectId id = extensionDictionary();
    if (id.isNull())
        return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const AcDbObjectPointer<AcDbDictionary> dictionary(id, AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk)
        return dictionary.openStatus();
    if (dictionary->numEntries() != 0)
        return Acad::eContainerNotEmpty;
    dictionary->erase();
    zuhost::TagList& records = changingTags();
    records.erase(tags().applicationGroup(kGroup).range());
    return Acad::eOk;
}
