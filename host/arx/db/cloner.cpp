#include "cloner.h"

#include "dbdict.h"
#include "dbents.h"
#include "dbgroup.h"
#include "dbsymtb.h"
#include "dxf_records/number_text.h"
#include "dxf_records/value_type.h"
#include "name_codes.h"
#include "object_access.h"

#include <algorithm>

namespace zuhost {

namespace {

constexpr int kBracket = 102;
constexpr int kOwned = 360;
constexpr std::string_view kExtension = "ACAD_XDICTIONARY";

/// Returns the handles of a dictionary's entries, which follow their names (3).
std::vector<std::uint64_t> entryHandles(const TagView& tags) {
    std::vector<std::uint64_t> handles;
    int codeBefore = 0;
    for (const TagRef& tag : tags) {
        if (codeBefore == 3 && (tag.code == 350 || tag.code == kOwned))
            handles.push_back(tag.handle().value_or(0));
        codeBefore = tag.code;
    }
    return handles;
}

} // namespace

Cloner::Cloner(DatabaseCore& from, DatabaseCore& to, AcDbIdMapping& mapping,
               AcDb::DuplicateRecordCloning mode)
    : from_(from), to_(to), mapping_(mapping), mode_(mode) {
    mapping_.setOrigDb(&from.self);
    mapping_.setDestDb(&to.self);
    mapping_.setDuplicateRecordCloning(mode);
}

Acad::ErrorStatus Cloner::cloneAll(const AcDbObjectIdArray& ids, AcDbObjectId owner) {
    Acad::ErrorStatus status = Acad::eOk;
    for (int i = 0; i < ids.length() && status == Acad::eOk; ++i)
        status = clone(ids[i], owner, true);
    translate();
    return status;
}

Acad::ErrorStatus Cloner::clone(AcDbObjectId id, AcDbObjectId owner, bool isPrimary) {
    Acad::ErrorStatus status = cloneAlone(id, owner, isPrimary);
    while (status == Acad::eOk && !pending_.empty()) {
        const auto [source, copy] = pending_.back();
        pending_.pop_back();
        status = cloneContents(*source, *copy);
    }
    pending_.clear();
    return status;
}

Acad::ErrorStatus Cloner::cloneAlone(AcDbObjectId id, AcDbObjectId owner, bool isPrimary) {
    if (id.isNull())
        return Acad::eNullObjectId;
    if (id.database() != &from_.self)
        return Acad::eWrongDatabase;
    if (id.isErased())
        return Acad::eWasErased;
    AcDbStub& stub = *static_cast<AcDbStub*>(id);
    if (copyOfStub(&stub) != nullptr)
        return Acad::eOk;
    AcDbStub* const target = owner.isNull() ? stub.owner : static_cast<AcDbStub*>(owner);
    if (target == nullptr || target->database != &to_.self)
        return Acad::eInvalidOwnerObject;
    AcDbObject& source = from_.object(stub);
    AcRxClass* const ownerClass = to_.classOf(*target);
    if (AcDbEntity::cast(&source) != nullptr && ownerClass->isDerivedFrom(AcDbBlockTableRecord::desc()))
        return cloneEntity(source, *target, isPrimary);
    if (AcDbSymbolTableRecord::cast(&source) != nullptr && stub.owner != nullptr &&
        ownerClass == from_.classOf(*stub.owner))
        return cloneRecord(source, *target, isPrimary);
    if (source.isA()->isDerivedFrom(AcDbEntity::desc()) ||
        source.isA()->isDerivedFrom(AcDbSymbolTableRecord::desc()) ||
        source.isA()->isDerivedFrom(AcDbSymbolTable::desc()) ||
        !ownerClass->isDerivedFrom(AcDbDictionary::desc()))
        return Acad::eInvalidOwnerObject;
    return cloneEntry(source, *target, isPrimary);
}

Acad::ErrorStatus Cloner::cloneContents(AcDbStub& source, AcDbStub& copy) {
    AcDbObject& object = from_.object(source);
    if (AcDbBlockTableRecord::cast(&object) != nullptr)
        return cloneBlockContents(source, copy);
    for (const std::uint64_t handle : entryHandles(ObjectAccess::tags(object))) {
        AcDbStub* const entry = from_.document->find(handle);
        if (entry != nullptr && !entry->erased && entry->owner == &source && copyOfStub(entry) == nullptr)
            cloneOwned(from_.object(*entry), &copy, false);
    }
    cloneExtension(object, to_.object(copy));
    return Acad::eOk;
}

void Cloner::note(AcDbStub& source, AcDbStub& copy, bool isCloned, bool isPrimary) {
    mapping_.assign(AcDbIdPair(AcDbObjectId(&source), AcDbObjectId(&copy), isCloned, isPrimary));
    if (isCloned)
        copies_.push_back(&copy);
}

AcDbStub* Cloner::copyOfStub(const AcDbStub* source) const {
    AcDbIdPair pair(AcDbObjectId(const_cast<AcDbStub*>(source)), {}, false);
    return source != nullptr && mapping_.compute(pair) ? static_cast<AcDbStub*>(pair.value()) : nullptr;
}

// ---- entities

Acad::ErrorStatus Cloner::cloneEntity(AcDbObject& source, AcDbStub& block, bool isPrimary) {
    if (const Acad::ErrorStatus status = cloneNamedRecords(source); status != Acad::eOk)
        return status;
    std::unique_ptr<AcDbObject> copy = copyOf(source);
    if (!copy || !ObjectAccess::canBeIn(static_cast<AcDbEntity&>(*copy), *to_.document))
        return Acad::eNotApplicable;
    auto& entity = static_cast<AcDbEntity&>(*copy.release());
    AcDbStub& added = *static_cast<AcDbStub*>(to_.appendEntity(block, entity));
    AcDbStub& stub = *static_cast<AcDbStub*>(source.objectId());
    note(stub, added, true, isPrimary);
    Acad::ErrorStatus status = cloneExtension(source, entity);
    entity.close();
    return status == Acad::eOk ? cloneParts(stub, added) : status;
}

/// Copies vertices, attributes and the sequence end, in their order after the entity.
Acad::ErrorStatus Cloner::cloneParts(AcDbStub& source, AcDbStub& copy) {
    const std::string& type = from_.document->typeName(source);
    if (type != "INSERT" && type != "POLYLINE")
        return Acad::eOk;
    const std::vector<AcDbStub*> parts = from_.parts.of(*from_.document, source);
    for (AcDbStub* const part : parts) {
        if (part->erased)
            continue;
        // Polylines end their vertices themselves.
        AcDbStub* const end =
            from_.document->typeName(*part) == kSequenceEnd ? to_.sequenceEnd(copy) : nullptr;
        if (end != nullptr) {
            note(*part, *end, true, false);
            continue;
        }
        AcDbObject& object = from_.object(*part);
        if (const Acad::ErrorStatus status = cloneNamedRecords(object); status != Acad::eOk)
            return status;
        std::unique_ptr<AcDbObject> copied = copyOf(object);
        if (AcDbEntity::cast(copied.get()) == nullptr)
            return Acad::eNotApplicable;
        auto& added = static_cast<AcDbEntity&>(*copied.release());
        to_.adoptPart(added, copy);
        note(*part, *static_cast<AcDbStub*>(added.objectId()), true, false);
        added.close();
    }
    return Acad::eOk;
}

Acad::ErrorStatus Cloner::cloneExtension(AcDbObject& source, AcDbObject& copy) {
    const AcDbObjectId extension = source.extensionDictionary();
    if (extension.isNull())
        return Acad::eOk;
    AcDbStub* const added = cloneOwned(from_.object(*static_cast<AcDbStub*>(extension)),
                                       static_cast<AcDbStub*>(copy.objectId()), false);
    if (added == nullptr)
        return Acad::eNotApplicable;
    TagList& records = ObjectAccess::changingTags(copy);
    records.insert(TagView(records).applicationGroup(kExtension).range().first,
                   std::vector<Tag>{{kBracket, '{' + std::string(kExtension)},
                                    {kOwned, formatHandle(added->handle)},
                                    {kBracket, "}"}});
    return Acad::eOk;
}

AcDbStub* Cloner::cloneOwned(AcDbObject& source, AcDbStub* owner, bool isPrimary) {
    std::unique_ptr<AcDbObject> copy = copyOf(source);
    if (!copy)
        return nullptr;
    AcDbObject* const object = copy.release();
    to_.adopt(object, to_.document->container(Container::Kind::objects), owner);
    AcDbStub& added = *static_cast<AcDbStub*>(object->objectId());
    AcDbStub& stub = *static_cast<AcDbStub*>(source.objectId());
    note(stub, added, true, isPrimary);
    if (owner != nullptr)
        object->addPersistentReactor(AcDbObjectId(owner));
    object->close();
    pending_.emplace_back(&stub, &added);
    return &added;
}

// ---- records of tables

Acad::ErrorStatus Cloner::cloneRecord(AcDbObject& source, AcDbStub& table, bool isPrimary) {
    AcDbStub& stub = *static_cast<AcDbStub*>(source.objectId());
    const std::wstring name = ObjectAccess::name(static_cast<const AcDbSymbolTableRecord&>(source));
    if (AcDbStub* const known = to_.findRecord(table, name, false)) {
        if (isWithin())
            return Acad::eDuplicateRecordName;
        note(stub, *known, false, isPrimary);
        if (mode_ == AcDb::kDrcReplace)
            overwrite(*known, source);
        return Acad::eOk;
    }
    std::unique_ptr<AcDbObject> copy = copyOf(source);
    if (!copy)
        return Acad::eNotApplicable;
    auto* const record = static_cast<AcDbSymbolTableRecord*>(copy.release());
    to_.addRecord(table, *record);
    AcDbStub& added = *static_cast<AcDbStub*>(record->objectId());
    note(stub, added, true, isPrimary);
    Acad::ErrorStatus status = cloneExtension(source, *record);
    record->close();
    if (AcDbBlockTableRecord::cast(&source) != nullptr)
        pending_.emplace_back(&stub, &added);
    return status == Acad::eOk ? cloneNamedRecords(source) : status;
}

Acad::ErrorStatus Cloner::cloneBlockContents(AcDbStub& source, AcDbStub& copy) {
    const auto& block = static_cast<const AcDbBlockTableRecord&>(from_.object(source));
    for (const AcDbObjectId entity : ObjectAccess::entities(block, true)) {
        const Acad::ErrorStatus status = cloneAlone(entity, AcDbObjectId(&copy), false);
        if (status != Acad::eOk)
            return status;
    }
    return Acad::eOk;
}

/// Gives the record the content of the other database's: its records and, for a block, its entities.
void Cloner::overwrite(AcDbStub& record, const AcDbObject& source) {
    AcDbObject* opened = nullptr;
    if (to_.open(record, AcDb::kForWrite, opened) != Acad::eOk)
        return;
    if (auto* const block = AcDbBlockTableRecord::cast(opened)) {
        for (const AcDbObjectId old : ObjectAccess::entities(*block, true)) {
            AcDbObject* entity = nullptr;
            if (acdbForceOpenObjectOnLockedLayer(entity, old, AcDb::kForWrite) == Acad::eOk) {
                entity->erase();
                entity->close();
            }
        }
        block->setOrigin(static_cast<const AcDbBlockTableRecord&>(source).origin());
        pending_.emplace_back(static_cast<AcDbStub*>(source.objectId()), &record);
    } else if (ObjectAccess::assertWriteEnabled(*opened) == Acad::eOk) {
        TagList& records = ObjectAccess::changingTags(*opened);
        records.erase({TagView(records).firstMarker(), records.size()});
        const TagView other = ObjectAccess::tags(source);
        for (auto at = other.at(other.firstMarker()); at != TagView::end(); ++at) {
            const Tag tag = at->tag();
            records.add(tag.code, to_.document->encode(from_.document->decode(tag.value)));
        }
        cloneNamedRecords(source);
        copies_.push_back(&record);
    }
    opened->close();
}

/// Copies the records that an object names to the other database.
Acad::ErrorStatus Cloner::cloneNamedRecords(const AcDbObject& object) {
    if (isWithin())
        return Acad::eOk;
    const std::string type(ObjectAccess::tags(object).text(0).value_or(""));
    const TagView own = ObjectAccess::tags(object).withoutExtendedData();
    for (const NameCode& name : kNameCodes) {
        if (!name.type.empty() && name.type != type)
            continue;
        const auto value = own.text(name.code);
        if (!value)
            continue;
        const Acad::ErrorStatus status = cloneNamed(name.table, from_.document->decode(*value));
        if (status != Acad::eOk)
            return status;
    }
    return Acad::eOk;
}

Acad::ErrorStatus Cloner::cloneNamed(std::string_view table, const std::wstring& name) {
    AcDbStub* const head = from_.tableHead(table);
    AcDbStub* const target = to_.tableHead(table);
    AcDbStub* const record = head != nullptr ? from_.findRecord(*head, name, false) : nullptr;
    if (record == nullptr || target == nullptr || copyOfStub(record) != nullptr)
        return Acad::eOk; // "ByLayer" and names that the source lacks stay as they are
    return cloneRecord(from_.object(*record), *target, false);
}

// ---- entries of dictionaries

Acad::ErrorStatus Cloner::cloneEntry(AcDbObject& source, AcDbStub& dictionary, bool isPrimary) {
    AcDbObject* opened = nullptr;
    AcDbObject& target = to_.object(dictionary);
    const bool isOpen = target.isWriteEnabled();
    if (const Acad::ErrorStatus status = isOpen ? Acad::eOk : to_.open(dictionary, AcDb::kForWrite, opened);
        status != Acad::eOk)
        return status;
    auto& entries = static_cast<AcDbDictionary&>(target);
    AcString name;
    AcDbStub* const owner = static_cast<AcDbStub*>(source.ownerId());
    if (owner != nullptr)
        if (const auto* const from = AcDbDictionary::cast(&from_.object(*owner)))
            from->nameAt(source.objectId(), name);
    if (name.isEmpty() || entries.has(name))
        name = ObjectAccess::anonymousName(entries).c_str();
    Acad::ErrorStatus status = Acad::eNotApplicable;
    if (AcDbStub* const added = cloneOwned(source, &dictionary, isPrimary)) {
        AcDbObjectId id;
        status = entries.setAt(name, &to_.object(*added), id);
    }
    if (!isOpen)
        opened->close();
    return status;
}

// ---- references

void Cloner::translate() {
    for (AcDbStub* const copy : copies_)
        translate(*copy);
    copies_.clear();
}

std::uint64_t Cloner::translated(std::uint64_t handle) const {
    const AcDbStub* const target = from_.document->find(handle);
    if (const AcDbStub* const copy = copyOfStub(target))
        return copy->handle;
    if (isWithin())
        return handle;
    // A record of a table that the other database has as well.
    if (target == nullptr || target->owner == nullptr)
        return 0;
    const auto* const record = AcDbSymbolTableRecord::cast(&from_.object(const_cast<AcDbStub&>(*target)));
    if (record == nullptr)
        return 0;
    AcDbStub* const table = to_.tableHead(std::string(from_.tags(*target->owner).text(2).value_or("")));
    const AcDbStub* const same =
        table != nullptr ? to_.findRecord(*table, ObjectAccess::name(*record), false) : nullptr;
    return same != nullptr ? same->handle : 0;
}

/// Handles before the first marker are the copy's own: its handle, its owner, its reactors.
void Cloner::translate(AcDbStub& copy) {
    AcDbObject& object = to_.object(copy);
    TagList& tags = ObjectAccess::changingTags(object);
    for (std::size_t i = TagView(tags).firstMarker(); i < tags.size(); ++i) {
        const bool isHandle = tags[i].code >= 320 && dxf::valueType(tags[i].code) == dxf::ValueType::handle;
        const auto handle = isHandle ? parseHandle(tags[i].value) : std::nullopt;
        if (handle && *handle != 0)
            if (const std::uint64_t now = translated(*handle); now != *handle)
                tags[i].value = formatHandle(now);
    }
    if (AcDbGroup::cast(&object) != nullptr)
        attachMembers(copy);
}

/// The members of a copied group name it as their reactor.
void Cloner::attachMembers(AcDbStub& group) {
    AcDbObjectIdArray members;
    static_cast<const AcDbGroup&>(to_.object(group)).allEntityIds(members);
    for (const AcDbObjectId id : members) {
        AcDbObject* member = nullptr;
        if (acdbForceOpenObjectOnLockedLayer(member, id, AcDb::kForWrite) != Acad::eOk)
            continue;
        member->addPersistentReactor(AcDbObjectId(&group));
        member->close();
    }
}

} // namespace zuhost
