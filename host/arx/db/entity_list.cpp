#include "entity_list.h"

#include "acdbads.h"
#include "acutads.h"
#include "ads_names.h"
#include "chain_records.h"
#include "database_core.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "object_access.h"
#include "zuhost/result_chain.h"
#include "zuhost/result_kind.h"

namespace zuhost {

namespace {

constexpr int kEntityName = -1;
constexpr int kExtendedData = -3;
constexpr int kApplication = 1001;
constexpr int kAxes = 3;
constexpr int kAxisStep = 10;

/// Returns whether a list item is not a record that lists can set: the identity of the entity.
bool isIdentity(int code, bool isFirstOwner) {
    return code == 5 || code == 105 || (code == 330 && isFirstOwner);
}

bool matchesAny(const ACHAR* application, const resbuf* patterns) {
    const std::wstring name = foldedName(application != nullptr ? application : L"");
    for (; patterns != nullptr; patterns = patterns->rbnext)
        if (resultKind(patterns->restype) == ResultKind::text && patterns->resval.rstring != nullptr &&
            acutWcMatch(name.c_str(), foldedName(patterns->resval.rstring).c_str()) == RTNORM)
            return true;
    return false;
}

/// Returns the values of the applications with matching names, cut out of the chain, which is freed.
resbuf* selectApplications(ResultChain data, const resbuf* patterns) {
    resbuf* first = nullptr;
    resbuf** place = &first;
    bool isWanted = false;
    while (data) {
        resbuf* const rest = data->rbnext;
        data->rbnext = nullptr;
        if (data->restype == kApplication)
            isWanted = matchesAny(data->resval.rstring, patterns);
        if (isWanted) {
            *place = data.release();
            place = &(*place)->rbnext;
        }
        data.reset(rest);
    }
    return first;
}

resbuf* entityList(const ads_name name, const resbuf* applications) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, name) != Acad::eOk)
        return nullptr;
    const AcDbObjectPointer<AcDbObject> object(id);
    if (object.openStatus() != Acad::eOk)
        return nullptr;
    ChainWriter chain(&coreOf(*id.database()));
    ads_name_set(name, chain.append(kEntityName).resval.rlname);
    const TagView records = ObjectAccess::tags(*object).withoutExtendedData();
    for (auto at = records.begin(); at != records.end();)
        chain.add(at);
    resbuf* const data =
        applications != nullptr ? selectApplications(ResultChain(object->xData()), applications) : nullptr;
    if (data != nullptr)
        chain.append(kExtendedData).rbnext = data;
    return chain.release();
}

} // namespace

std::vector<ListItem> listItems(const TagView& tags) {
    std::vector<ListItem> items;
    for (auto at = tags.begin(); at != tags.end();) {
        const int code = at->code;
        ListItem& item = items.emplace_back();
        item.code = code;
        const int axes = resultKind(code) == ResultKind::point ? kAxes : 1;
        for (int axis = 0; axis < axes && at != tags.end() && at->code == code + kAxisStep * axis;
             ++axis, ++at)
            item.records.push_back(at->tag());
    }
    return items;
}

std::vector<ListItem> listItems(const resbuf* list, const DatabaseCore& core, bool isPlane) {
    std::vector<ListItem> items;
    bool isFirstOwner = true;
    for (; list != nullptr && list->restype != kExtendedData; list = list->rbnext) {
        const int code = list->restype == RTDXF0 ? 0 : list->restype;
        const bool isSet = code >= 0 && code < kApplication && !isIdentity(code, isFirstOwner);
        isFirstOwner = isFirstOwner && code != 330;
        TagList records;
        if (isSet)
            addRecords(records, *list, &core, isPlane && code < 200 ? 2 : 3); // directions always have z
        if (!records.empty())
            items.push_back({code, {records.begin(), records.end()}});
    }
    return items;
}

bool hasPlanePoints(std::string_view type) {
    return type == "LWPOLYLINE";
}

const resbuf* extendedDataOf(const resbuf* list) {
    while (list != nullptr && list->restype != kExtendedData)
        list = list->rbnext;
    return list != nullptr ? list->rbnext : nullptr;
}

} // namespace zuhost

resbuf* acdbEntGet(const ads_name entity) {
    return zuhost::entityList(entity, nullptr);
}

resbuf* acdbEntGetX(const ads_name entity, const resbuf* applications) {
    return zuhost::entityList(entity, applications);
}
