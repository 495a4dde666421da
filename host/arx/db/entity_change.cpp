#include "entity_change.h"

#include "acdbads.h"
#include "chain_records.h"
#include "database_core.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "dxf_records/number_text.h"
#include "entity_list.h"
#include "entity_types.h"
#include "object_access.h"
#include "zuhost/result_kind.h"

#include <algorithm>
#include <array>
#include <limits>
#include <map>
#include <memory>

namespace zuhost {

namespace {

constexpr int kEntityName = -1;
constexpr int kType = 0;
constexpr int kLinetype = 6;
constexpr int kLayer = 8;
constexpr int kSubclass = 100;
constexpr int kControl = 102;

/// Returns whether lists leave the item as it is: the type, the markers of classes, application groups and
/// what they hold between their brackets.
class FixedItems {
public:
    bool isFixed(const ListItem& item) {
        const bool wasInside = isInside_;
        if (item.code == kControl)
            isInside_ = item.records.front().value.starts_with('{');
        return wasInside || item.code == kControl || item.code == kType || item.code == kSubclass ||
               item.code == 5 || item.code == 105 || item.code == 330;
    }

private:
    bool isInside_ = false;
};

/// Equal numbers and texts keep their stored form.
bool isEqual(const Tag& stored, const Tag& given, const Document& document) {
    if (stored.value == given.value)
        return true;
    switch (resultKind(stored.code)) {
    case ResultKind::text:
        return document.decode(stored.value) == document.decode(given.value);
    case ResultKind::name:
        return parseHandle(stored.value) == parseHandle(given.value);
    case ResultKind::chunk:
        return false;
    default:
        return parseReal(stored.value) == parseReal(given.value);
    }
}

void setRecords(ListItem& item, const ListItem& given, const Document& document) {
    for (std::size_t i = 0; i < item.records.size() && i < given.records.size(); ++i)
        if (!isEqual(item.records[i], given.records[i], document))
            item.records[i].value = given.records[i].value;
}

/// The items that a list sets, by code, in their order.
class GivenItems {
public:
    explicit GivenItems(std::vector<ListItem> items) : items_(std::move(items)) {
        FixedItems fixed;
        for (std::size_t i = 0; i < items_.size(); ++i)
            if (!fixed.isFixed(items_[i]))
                byCode_[items_[i].code].places.push_back(i);
    }

    [[nodiscard]] bool hasCode(int code) const { return byCode_.contains(code); }
    /// Returns the next unused item with the code; null when there is none.
    const ListItem* next(int code, std::size_t& place) {
        Code& items = byCode_.find(code)->second;
        if (items.used == items.places.size())
            return nullptr;
        place = items.places[items.used++];
        return &items_[place];
    }
    /// Returns the places of the items that are unused, in the list's order.
    [[nodiscard]] std::vector<std::size_t> unused() const {
        std::vector<std::size_t> places;
        for (const auto& [code, items] : byCode_)
            places.insert(places.end(), items.places.begin() + static_cast<std::ptrdiff_t>(items.used),
                          items.places.end());
        std::sort(places.begin(), places.end());
        return places;
    }
    [[nodiscard]] const ListItem& operator[](std::size_t place) const { return items_[place]; }

private:
    struct Code {
        std::vector<std::size_t> places;
        std::size_t used = 0;
    };
    std::vector<ListItem> items_;
    std::map<int, Code> byCode_;
};

/// An item of the changed entity, and where the list has it.
struct Placed {
    ListItem item;
    std::size_t place = 0; ///< In the list, from 1; 0 for items that the list lacks.
};

/// The sections of an entity's records: its common class, its class and a second one.
constexpr std::size_t kSections = 3;

/// Inserts the unused items into the section of their class, each before the first kept one that follows it
/// in the list.
class UnusedItems {
public:
    UnusedItems(const GivenItems& given, const EntityType* type, bool hasMarkers)
        : given_(given), type_(type) {
        for (const std::size_t place : given.unused())
            places_[hasMarkers ? sectionOf(given[place].code) : 0].push_back(place);
    }

    [[nodiscard]] std::vector<ListItem> insertedInto(const std::vector<Placed>& kept) {
        std::size_t markers = 0;
        for (const Placed& placed : kept) {
            if (placed.item.code == kSubclass)
                beginSection(++markers);
            else if (placed.place != 0)
                insertBefore(placed.place);
            items_.push_back(placed.item);
        }
        for (section_ = 0; section_ < kSections; ++section_)
            insertBefore(kEnd);
        return std::move(items_);
    }

private:
    static constexpr std::size_t kEnd = std::numeric_limits<std::size_t>::max();

    [[nodiscard]] std::size_t sectionOf(int code) const {
        if (isCommonCode(code))
            return 0;
        return type_ != nullptr && isOfSecondClass(*type_, code) ? 2 : 1;
    }
    /// The first marker is that of the common class.
    void beginSection(std::size_t marker) {
        const std::size_t last = type_ != nullptr && !type_->secondMarker.empty() ? 2 : 1;
        const std::size_t section = std::min(marker - 1, last);
        if (section != section_)
            insertBefore(kEnd);
        section_ = section;
    }
    void insertBefore(std::size_t place) {
        std::vector<std::size_t>& places = places_[section_];
        std::size_t& next = next_[section_];
        while (next < places.size() && places[next] + 1 < place)
            items_.push_back(given_[places[next++]]);
    }

    const GivenItems& given_;
    const EntityType* type_;
    std::array<std::vector<std::size_t>, kSections> places_;
    std::array<std::size_t, kSections> next_{};
    std::size_t section_ = 0;
    std::vector<ListItem> items_;
};

TagList changedTags(const TagView& tags, GivenItems given, const Document& document) {
    std::vector<Placed> kept;
    bool hasMarkers = false;
    FixedItems fixed;
    for (ListItem& item : listItems(tags.withoutExtendedData())) {
        hasMarkers = hasMarkers || item.code == kSubclass;
        if (fixed.isFixed(item) || !given.hasCode(item.code)) {
            kept.push_back({std::move(item), 0});
            continue;
        }
        std::size_t place = 0;
        if (const ListItem* const value = given.next(item.code, place)) {
            setRecords(item, *value, document);
            kept.push_back({std::move(item), place + 1});
        }
    }
    TagList changed;
    UnusedItems unused(given, entityType(tags.text(0).value_or("")), hasMarkers);
    for (const ListItem& item : unused.insertedInto(kept))
        for (const Tag& record : item.records)
            changed.add(record.code, record.value);
    for (const TagRef& tag : tags.extendedData())
        changed.add(tag.tag());
    return changed;
}

template <typename Record>
bool hasRecord(AcDbObjectId table, const ACHAR* name) {
    const AcDbObjectPointer<AcDbSymbolTable> records(table);
    return records.openStatus() == Acad::eOk && records->has(name);
}

} // namespace

bool addLayer(AcDbDatabase& database, const ACHAR* name) {
    const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk)
        return false;
    auto record = std::make_unique<AcDbLayerTableRecord>();
    if (ObjectAccess::setName(*record, name) != Acad::eOk || table->add(record.get()) != Acad::eOk)
        return false;
    record.release()->close();
    return true;
}

bool isBuiltInLinetype(const ACHAR* name) {
    const std::wstring folded = foldedName(name);
    return folded == L"BYLAYER" || folded == L"BYBLOCK";
}

bool prepareReferences(const resbuf* list, AcDbDatabase& database) {
    for (const resbuf* item = list; item != nullptr; item = item->rbnext)
        if (!isStorable(*item))
            return false;
    for (const resbuf* item = list; item != nullptr && item->restype != -3; item = item->rbnext) {
        const ACHAR* const name =
            resultKind(item->restype) == ResultKind::text ? item->resval.rstring : nullptr;
        if (item->restype == kLinetype &&
            (name == nullptr ||
             (!isBuiltInLinetype(name) && !hasRecord<AcDbLinetypeTable>(database.linetypeTableId(), name))))
            return false;
        if (item->restype != kLayer)
            continue;
        if (name == nullptr || *name == L'\0')
            return false;
        if (!hasRecord<AcDbLayerTable>(database.layerTableId(), name) && !addLayer(database, name))
            return false;
    }
    return true;
}

} // namespace zuhost

int acdbEntMod(const resbuf* list) {
    using namespace zuhost;
    const resbuf* first = list;
    while (first != nullptr && first->restype != kEntityName)
        first = first->rbnext;
    AcDbObjectId id;
    if (first == nullptr || acdbGetObjectId(id, first->resval.rlname) != Acad::eOk)
        return RTERROR;
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() != Acad::eOk || !prepareReferences(list, *id.database()))
        return RTERROR;
    DatabaseCore& core = coreOf(*id.database());
    const std::string type(ObjectAccess::tags(*entity).text(0).value_or(""));
    const resbuf* const data = extendedDataOf(list);
    if (data != nullptr && entity->setXData(data) != Acad::eOk)
        return RTERROR;
    GivenItems given(listItems(list, core, hasPlanePoints(type)));
    TagList changed = changedTags(ObjectAccess::tags(*entity), std::move(given), *core.document);
    if (std::ranges::equal(changed, ObjectAccess::tags(*entity), {}, {}, &TagRef::tag))
        return RTNORM;
    return DatabaseCore::replaceTags(*entity.object(), std::move(changed)) == Acad::eOk ? RTNORM : RTERROR;
}
