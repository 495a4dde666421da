#include "entity_list.h"

#include "acdbads.h"
#include "acutads.h"
#include "ads_names.h"
#include "chain_records.h"
#include "database_core.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "zuhost/result_kind.h"

#include <memory>

namespace zuhost {

namespace {

constexpr int kEntityName = -1;
constexpr int kExtendedData = -3;
constexpr int kApplication = 1001;
constexpr int kAxisStep = 10;

/// Returns the index after the item at `at`.
std::size_t itemEnd(const TagList& tags, std::size_t at, std::size_t last) {
    const int code = tags[at].code;
    std::size_t end = at + 1;
    if (resultKind(code) != ResultKind::point)
        return end;
    for (int axis = 1; axis < 3 && end < last && tags[end].code == code + kAxisStep * axis; ++axis)
        ++end;
    return end;
}

/// Returns whether a list item is not a record that lists can set: the identity of the entity.
bool isIdentity(int code, bool isFirstOwner) {
    return code == 5 || code == 105 || (code == 330 && isFirstOwner);
}

struct ReleaseChain {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};

bool matchesAny(const ACHAR* application, const resbuf* patterns) {
    const std::wstring name = foldedName(application != nullptr ? application : L"");
    for (; patterns != nullptr; patterns = patterns->rbnext)
        if (resultKind(patterns->restype) == ResultKind::text && patterns->resval.rstring != nullptr &&
            acutWcMatch(name.c_str(), foldedName(patterns->resval.rstring).c_str()) == RTNORM)
            return true;
    return false;
}

/// Returns the values of the applications with matching names, cut out of the chain, which is freed.
resbuf* selectApplications(std::unique_ptr<resbuf, ReleaseChain> data, const resbuf* patterns) {
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
    const TagList& tags = object->tags();
    ChainWriter chain(id.database()->core());
    ads_name_set(name, chain.append(kEntityName).resval.rlname);
    const std::size_t end = tags.extendedDataStart();
    for (std::size_t at = 0; at < end;)
        at = chain.add(tags, at);
    resbuf* const data =
        applications != nullptr
            ? selectApplications(std::unique_ptr<resbuf, ReleaseChain>(object->xData()), applications)
            : nullptr;
    if (data != nullptr)
        chain.append(kExtendedData).rbnext = data;
    return chain.release();
}

} // namespace

std::vector<ListItem> listItems(const TagList& tags, TagRange range) {
    std::vector<ListItem> items;
    for (std::size_t at = range.first; at < range.last;) {
        const std::size_t end = itemEnd(tags, at, range.last);
        ListItem& item = items.emplace_back();
        item.code = tags[at].code;
        for (; at < end; ++at)
            item.records.push_back(tags[at]);
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
            addRecords(records, *list, core, isPlane && code < 200 ? 2 : 3); // directions always have z
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
