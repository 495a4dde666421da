#include "ads_names.h"

#include "acdbads.h"
#include "acutads.h"
#include "database_core.h"
#include "dbapserv.h"
#include "dxf_records/number_text.h"

#include <zuhost/text_codec.h>

#include <map>

namespace zuhost {

namespace {

std::map<std::int64_t, AcDbDatabase*>& openDatabases() {
    // Never destroyed: databases of static objects unregister during process exit.
    static auto* const databases = new std::map<std::int64_t, AcDbDatabase*>;
    return *databases;
}

std::int64_t nextNumber() {
    static std::int64_t last = 0;
    return ++last;
}

} // namespace

DatabaseNumber::DatabaseNumber(AcDbDatabase& database) : value_(nextNumber()) {
    openDatabases().emplace(value_, &database);
}

DatabaseNumber::~DatabaseNumber() {
    openDatabases().erase(value_);
}

void setAdsName(ads_name name, const DatabaseNumber& database, std::uint64_t handle) {
    name[0] = static_cast<std::int64_t>(handle);
    name[1] = handle != 0 ? database.value() : 0;
}

AcDbStub* findByAdsName(const ads_name name) {
    if (name == nullptr)
        return nullptr;
    const auto found = openDatabases().find(name[1]);
    if (found == openDatabases().end() || !zuhost::coreOf(*found->second).document)
        return nullptr;
    return zuhost::coreOf(*found->second).document->find(static_cast<std::uint64_t>(name[0]));
}

} // namespace zuhost

Acad::ErrorStatus acdbGetAdsName(ads_name name, AcDbObjectId id) {
    if (name == nullptr)
        return Acad::eInvalidInput;
    ads_name_clear(name);
    if (id.isNull())
        return Acad::eNullObjectId;
    zuhost::setAdsName(name, zuhost::coreOf(*id.database()).number, id.handle());
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
    AcDbStub* const found = zuhost::findByAdsName(name);
    id = AcDbObjectId(found);
    return found != nullptr ? Acad::eOk : Acad::eInvalidAdsName;
}

int acdbHandEnt(const ACHAR* handle, ads_name name) {
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (handle == nullptr || name == nullptr || database == nullptr)
        return RTERROR;
    AcDbObjectId id;
    const auto value = zuhost::parseHandle(zuhost::toUtf8(handle));
    if (!value || database->getAcDbObjectId(id, false, AcDbHandle(*value)) != Acad::eOk)
        return RTERROR;
    return acdbGetAdsName(name, id) == Acad::eOk ? RTNORM : RTERROR;
}

void acdbFail(const ACHAR* message) {
    acutPrintf(L"Application ERROR: %s\n", message != nullptr ? message : L"");
}
