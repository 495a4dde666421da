#include <zucomn/model/filter.h>

#include "attributes/attribute_record.h"
#include "condition.h"
#include "entity_names.h"
#include "name_patterns.h"
#include "route/group_access.h"

#include <zucomn/route.h>

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace zu {

namespace {

/// Caches which names match: drawings have few layers and blocks.
class KnownNames {
public:
    explicit KnownNames(std::wstring_view list) : patterns_(list), isAny_(list.empty()) {}

    bool match(const std::wstring& name) {
        if (isAny_)
            return true;
        const auto [entry, isNew] = known_.try_emplace(name);
        if (isNew)
            entry->second = patterns_.match(name);
        return entry->second;
    }

private:
    NamePatterns patterns_;
    bool isAny_;
    std::unordered_map<std::wstring, bool> known_;
};

/// The demands of a filter, made ready for many elements.
class Demands {
public:
    explicit Demands(const zucomn::ElementFilter& filter)
        : filter_(filter), layers_(filter.layers), blocks_(filter.blocks) {
        for (const AcDbObjectId member : groupMembers(filter.group).value_or(AcDbObjectIdArray()))
            members_.insert(member);
    }

    bool isMet(AcDbObjectId id) {
        return (filter_.group.isNull() || members_.contains(id)) && hasNames(id) && hasLinkKind(id) &&
               hasAttributes(id);
    }

private:
    bool hasNames(AcDbObjectId id) {
        const AcDbObjectPointer<AcDbEntity> entity(id);
        if (entity.openStatus() != Acad::eOk || !layers_.match(zu::layerName(*entity)))
            return false;
        const auto* const reference = AcDbBlockReference::cast(entity.object());
        return blocks_.match(reference != nullptr ? zu::blockName(*reference) : std::wstring());
    }

    [[nodiscard]] bool hasLinkKind(AcDbObjectId id) const {
        const std::vector<int>& kinds = filter_.linkKinds;
        if (kinds.empty())
            return true;
        int kind = -1;
        RootComn_GetBlockRootKind(id, &kind);
        return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
    }

    [[nodiscard]] bool hasAttributes(AcDbObjectId id) const {
        if (!filter_.where)
            return true;
        CStringArray record;
        ApiComn_extractAttributesArrayID(id, kAttributeApplication, record);
        return holds(*filter_.where, record);
    }

    const zucomn::ElementFilter& filter_;
    KnownNames layers_;
    KnownNames blocks_;
    std::unordered_set<AcDbObjectId> members_;
};

bool isEmpty(const zucomn::ElementFilter& filter) {
    return filter.layers.empty() && filter.blocks.empty() && filter.linkKinds.empty() &&
           filter.group.isNull() && !filter.where;
}

} // namespace

} // namespace zu

std::vector<AcDbObjectId> zucomn::filterElements(std::span<const AcDbObjectId> elements,
                                                 const ElementFilter& filter) {
    std::vector<AcDbObjectId> passed(elements.begin(), elements.end());
    if (zu::isEmpty(filter))
        return passed;
    zu::Demands demands(filter);
    std::erase_if(passed, [&](AcDbObjectId id) { return !demands.isMet(id); });
    return passed;
}
