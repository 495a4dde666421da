#include "acdbads.h"

#include "database_core.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "entity_change.h"
#include "entity_list.h"
#include "entity_types.h"
#include "object_access.h"
#include "object_factory.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zuhost {

namespace {

constexpr int kRelease12 = 1009;
constexpr std::string_view kEntityMarker = "AcDbEntity";

// Flags of a POLYLINE and a VERTEX.
constexpr int kThreeDimensional = 8;
constexpr int kOfThreeDimensional = 32;

const ListItem* find(const std::vector<ListItem>& items, int code) {
    const auto found =
        std::find_if(items.begin(), items.end(), [code](const ListItem& i) { return i.code == code; });
    return found == items.end() ? nullptr : &*found;
}

std::string textOf(const std::vector<ListItem>& items, int code) {
    const ListItem* const item = find(items, code);
    return item != nullptr ? item->records.front().value : std::string();
}

void append(TagList& tags, const ListItem& item) {
    for (const Tag& record : item.records)
        tags.add(record.code, record.value);
}

template <typename Wanted>
void appendIf(TagList& tags, const std::vector<ListItem>& items, Wanted wanted) {
    for (const ListItem& item : items)
        if (item.code != 0 && wanted(item.code))
            append(tags, item);
}

bool hasFlag(const std::vector<ListItem>& items, int flag) {
    return (std::atoi(textOf(items, 70).c_str()) & flag) != 0;
}

/// Return the markers of classes that the flags of the list determine, as those of 3D polylines.
std::string_view markerOf(const EntityType& type, const std::vector<ListItem>& items) {
    return type.name == "POLYLINE" && hasFlag(items, kThreeDimensional) ? "AcDb3dPolyline" : type.marker;
}
std::string_view secondMarkerOf(const EntityType& type, const std::vector<ListItem>& items) {
    return type.name == "VERTEX" && hasFlag(items, kOfThreeDimensional) ? "AcDb3dPolylineVertex"
                                                                        : type.secondMarker;
}

/// Sorts the values of a list without markers into the type's classes.
TagList withMarkers(const EntityType& type, const std::vector<ListItem>& items) {
    const auto isSecond = [&type](int code) { return isOfSecondClass(type, code); };
    TagList tags;
    tags.add(100, std::string(kEntityMarker));
    if (find(items, 8) == nullptr)
        tags.add(8, "0");
    appendIf(tags, items, isCommonCode);
    if (type.marker.empty())
        return tags;
    tags.add(100, std::string(markerOf(type, items)));
    if (type.name == "LWPOLYLINE" && find(items, 90) == nullptr)
        tags.add(90, std::to_string(std::count_if(items.begin(), items.end(),
                                                  [](const ListItem& i) { return i.code == 10; })));
    appendIf(tags, items, [&](int code) { return !isCommonCode(code) && !isSecond(code); });
    if (type.secondMarker.empty())
        return tags;
    tags.add(100, std::string(secondMarkerOf(type, items)));
    appendIf(tags, items, isSecond);
    return tags;
}

/// Returns the records of a new entity after its identity; nullopt for a list that is not complete.
std::optional<TagList> recordsOf(const std::string& name, const std::vector<ListItem>& items) {
    const EntityType* const type = entityType(name);
    const bool hasMarkers = find(items, 100) != nullptr;
    if (type == nullptr && !hasMarkers)
        return std::nullopt;
    if (type != nullptr)
        for (const int code : type->required)
            if (code >= 0 && find(items, code) == nullptr)
                return std::nullopt;
    if (!hasMarkers)
        return withMarkers(*type, items);
    if (textOf(items, 100) != kEntityMarker)
        return std::nullopt;
    TagList tags;
    appendIf(tags, items, [](int) { return true; });
    if (find(items, 8) == nullptr)
        tags.insert(1, Tag{8, "0"});
    return tags;
}

/// What the lists before began: a block, or an entity with vertices or attributes.
struct Unfinished {
    AcDbObjectId block;
    AcDbObjectId complex;
};

Unfinished& unfinished() {
    static Unfinished state;
    return state;
}

/// Builds one entity of a list.
class EntityMaker {
public:
    EntityMaker(AcDbDatabase& database, const resbuf* list)
        : database_(database), core_(zuhost::coreOf(database)), list_(list) {
        const std::string type = typeName();
        items_ = listItems(list, core_, hasPlanePoints(type));
        type_ = type;
    }

    bool make() {
        forgetClosed();
        if (type_ == "BLOCK")
            return beginBlock();
        if (type_ == "ENDBLK")
            return endBlock();
        if (!prepareReferences(list_, database_) || !isReferenceValid())
            return false;
        const auto records = recordsOf(type_, items_);
        return records && (isPart() ? addPart(*records) : addEntity(*records));
    }

private:
    [[nodiscard]] std::string typeName() const {
        for (const resbuf* item = list_; item != nullptr; item = item->rbnext)
            if ((item->restype == 0 || item->restype == RTDXF0) && item->resval.rstring != nullptr) {
                const std::wstring name = foldedName(item->resval.rstring);
                const bool isPlain = std::all_of(name.begin(), name.end(), [](wchar_t c) { return c < 128; });
                return isPlain ? std::string(name.begin(), name.end()) : std::string();
            }
        return {};
    }

    /// Drops what was begun in a drawing that is no longer the working one, or was erased since.
    void forgetClosed() const {
        Unfinished& state = unfinished();
        if (!isOpen(state.block))
            state.block.setNull();
        if (!isOpen(state.complex))
            state.complex.setNull();
    }
    [[nodiscard]] bool isOpen(AcDbObjectId id) const {
        // Compared by name first: the object of a closed drawing can't be asked.
        return !id.isNull() && numberOfUnfinished() == core_.number.value() && !id.isErased();
    }
    static std::int64_t& numberOfUnfinished() {
        static std::int64_t number = 0;
        return number;
    }

    [[nodiscard]] bool isPart() const { return isPartType(type_); }

    [[nodiscard]] bool isReferenceValid() const {
        if (type_ != "INSERT")
            return true;
        AcDbStub* const blocks = core_.tableHead("BLOCK_RECORD");
        return blocks != nullptr &&
               core_.findRecord(*blocks, core_.document->decode(textOf(items_, 2)), false) != nullptr;
    }

    [[nodiscard]] AcDbObjectId owner() const {
        return unfinished().block.isNull() ? AcDbObjectId(core_.modelSpace()) : unfinished().block;
    }

    std::unique_ptr<AcDbEntity> create(const TagList& records) {
        TagList start;
        start.add(0, type_);
        TagList all = start;
        all.insert(1, TagList(records));
        std::unique_ptr<AcDbObject> object = ObjectBuilder::build(type_, all);
        if (AcDbEntity::cast(object.get()) == nullptr)
            return nullptr;
        core_.initialise(*object, std::move(start));
        return std::unique_ptr<AcDbEntity>(static_cast<AcDbEntity*>(object.release()));
    }

    /// Gives an entity that was added its records, after those of its identity.
    bool complete(AcDbEntity& entity, TagList records) const {
        TagList tags;
        for (const TagRef& tag : ObjectAccess::tags(entity))
            if (tag.code == 0 || tag.code == 5 || tag.code == 330)
                tags.add(tag.tag());
        if (core_.document->version() <= kRelease12)
            records.eraseMarkers();
        tags.insert(tags.size(), std::move(records));
        const bool done = DatabaseCore::replaceTags(entity, std::move(tags)) == Acad::eOk;
        const resbuf* const data = extendedDataOf(list_);
        const bool hasData = data == nullptr || entity.setXData(data) == Acad::eOk;
        if (!done || !hasData)
            entity.erase();
        entity.close();
        return done && hasData;
    }

    bool addEntity(const TagList& records) {
        Unfinished& state = unfinished();
        state.complex.setNull();
        const AcDbObjectPointer<AcDbBlockTableRecord> space(owner(), AcDb::kForWrite);
        auto entity = create(records);
        if (space.openStatus() != Acad::eOk || entity == nullptr)
            return false;
        AcDbObjectId id;
        if (space->appendAcDbEntity(id, entity.get()) != Acad::eOk)
            return false;
        if (!complete(*entity.release(), records))
            return false;
        const bool hasParts = type_ == "POLYLINE" || (type_ == "INSERT" && textOf(items_, 66) == "1");
        if (hasParts) {
            state.complex = id;
            numberOfUnfinished() = core_.number.value();
        }
        return true;
    }

    bool addPart(const TagList& records) {
        AcDbStub* const complex = unfinished().complex;
        if (complex == nullptr)
            return false;
        if (type_ == kSequenceEnd)
            return endSequence(*complex, records);
        auto entity = create(records);
        if (entity == nullptr)
            return false;
        AcDbEntity& added = *entity.release();
        core_.adoptPart(added, *complex);
        return complete(added, records);
    }

    /// Polylines end their vertices themselves, block references do not.
    bool endSequence(AcDbStub& complex, const TagList& records) {
        unfinished().complex.setNull();
        AcDbObject* opened = nullptr;
        if (AcDbStub* const end = core_.sequenceEnd(complex)) {
            if (core_.open(*end, AcDb::kForWrite, opened, true) != Acad::eOk)
                return false;
        } else {
            opened = create(records).release();
            core_.adoptPart(static_cast<AcDbEntity&>(*opened), complex);
        }
        return complete(static_cast<AcDbEntity&>(*opened), records);
    }

    bool beginBlock() {
        std::wstring name = core_.document->decode(textOf(items_, 2));
        if (name.empty() || find(items_, 10) == nullptr || !unfinished().block.isNull())
            return false;
        const AcDbObjectPointer<AcDbBlockTable> table(database_.blockTableId(), AcDb::kForWrite);
        if (table.openStatus() != Acad::eOk)
            return false;
        if (name.starts_with(L'*'))
            name = anonymousName(*table.object(), name);
        AcDbObjectId id;
        const bool known = table->getAt(name.c_str(), id) == Acad::eOk;
        if (known ? !clear(id) : !addBlock(*table.object(), name, id))
            return false;
        unfinished().block = id;
        numberOfUnfinished() = core_.number.value();
        return setBase(id);
    }

    /// Returns the next free name of the kind: "*U1", "*U2" ...
    static std::wstring anonymousName(const AcDbBlockTable& table, const std::wstring& name) {
        const std::wstring kind = name.substr(0, 2);
        for (int number = 1;; ++number)
            if (std::wstring free = kind + std::to_wstring(number); !table.has(free.c_str()))
                return free;
    }

    static bool addBlock(AcDbBlockTable& table, const std::wstring& name, AcDbObjectId& id) {
        auto record = std::make_unique<AcDbBlockTableRecord>();
        if (record->setName(name.c_str()) != Acad::eOk || table.add(record.get()) != Acad::eOk)
            return false;
        id = record->objectId();
        record.release()->close();
        return true;
    }

    /// Erases the entities of a block that is defined again.
    static bool clear(AcDbObjectId block) {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
        AcDbBlockTableRecordIterator* made = nullptr;
        if (record.openStatus() != Acad::eOk || record->isLayout() || record->newIterator(made) != Acad::eOk)
            return false;
        const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
        for (; !entities->done(); entities->step()) {
            AcDbObjectId id;
            entities->getEntityId(id);
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
            if (entity.openStatus() == Acad::eOk)
                entity->erase();
        }
        return true;
    }

    bool setBase(AcDbObjectId block) const {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
        for (const resbuf* item = list_; item != nullptr; item = item->rbnext)
            if (item->restype == 10)
                return record.openStatus() == Acad::eOk &&
                       record->setOrigin({item->resval.rpoint[X], item->resval.rpoint[Y],
                                          item->resval.rpoint[Z]}) == Acad::eOk;
        return false;
    }

    static bool endBlock() {
        Unfinished& state = unfinished();
        const bool wasOpen = !state.block.isNull();
        state = {};
        return wasOpen;
    }

    AcDbDatabase& database_;
    DatabaseCore& core_;
    const resbuf* list_;
    std::vector<ListItem> items_;
    std::string type_;
};

} // namespace

} // namespace zuhost

int acdbEntMake(const resbuf* list) {
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (list == nullptr || database == nullptr || !zuhost::coreOf(*database).document)
        return RTERROR;
    return zuhost::EntityMaker(*database, list).make() ? RTNORM : RTERROR;
}
