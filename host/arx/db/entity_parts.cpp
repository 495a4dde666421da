#include "entity_parts.h"

#include "database_core.h"
#include "dbents.h"
#include "object_access.h"

namespace zuhost {

namespace {

void endSequence(AcDbEntity& owner) {
    DatabaseCore& core = coreOf(*owner.database());
    AcDbStub& stub = *static_cast<AcDbStub*>(owner.objectId());
    if (core.sequenceEnd(stub) != nullptr)
        return;
    auto* const end = new AcDbSequenceEnd;
    core.adoptPart(*end, stub);
    end->close();
}

} // namespace

Acad::ErrorStatus appendPart(AcDbEntity& owner, NewParts& pending, AcDbEntity* part, AcDbObjectId& id) {
    if (part == nullptr)
        return Acad::eNullObjectPointer;
    if (part->database() != nullptr || ObjectAccess::isPending(*part))
        return Acad::eAlreadyInDb;
    if (owner.database() == nullptr) {
        pending.push_back(ObjectAccess::pending(part));
        return Acad::eOk;
    }
    if (!owner.isWriteEnabled())
        return Acad::eNotOpenForWrite;
    id = coreOf(*owner.database()).adoptPart(*part, *static_cast<AcDbStub*>(owner.objectId()));
    endSequence(owner);
    return Acad::eOk;
}

void appendPending(AcDbEntity& owner, NewParts& pending, bool endsAlways) {
    DatabaseCore& core = coreOf(*owner.database());
    const bool ends = endsAlways || !pending.empty();
    for (auto& part : pending) {
        const bool staysOpen = ObjectAccess::isHeld(*part);
        AcDbEntity* const added = ObjectAccess::released(std::move(part));
        core.adoptPart(*added, *static_cast<AcDbStub*>(owner.objectId()));
        if (!staysOpen)
            added->close();
    }
    pending.clear();
    if (ends)
        endSequence(owner);
}

std::vector<AcDbObjectId> partIds(const AcDbEntity& owner) {
    std::vector<AcDbObjectId> ids;
    if (owner.database() == nullptr)
        return ids;
    DatabaseCore& core = coreOf(*owner.database());
    for (AcDbStub* const part : core.parts.of(*core.document, *owner.objectId()))
        if (!part->erased && core.document->typeName(*part) != kSequenceEnd)
            ids.emplace_back(part);
    return ids;
}

AcDbObjectIterator* newPartIterator(const AcDbEntity& owner, const NewParts& pending) {
    std::vector<AcDbEntity*> entities;
    for (const auto& part : pending)
        entities.push_back(part.get());
    return ObjectAccess::newIterator(partIds(owner), std::move(entities));
}

std::vector<const AcDbEntity*> readParts(const AcDbEntity& owner, const NewParts& pending) {
    std::vector<const AcDbEntity*> parts;
    for (const auto& part : pending)
        parts.push_back(part.get());
    for (const AcDbObjectId id : partIds(owner)) {
        AcDbStub* const stub = id;
        if (const auto* part = AcDbEntity::cast(&coreOf(*owner.database()).object(*stub)))
            parts.push_back(part);
    }
    return parts;
}

void copyParts(const AcDbEntity& owner, const NewParts& pending, NewParts& copies) {
    for (const AcDbEntity* const part : readParts(owner, pending))
        if (std::unique_ptr<AcRxObject> copy(part->clone()); AcDbEntity::cast(copy.get()) != nullptr)
            copies.push_back(ObjectAccess::pending(static_cast<AcDbEntity*>(copy.release())));
}

Acad::ErrorStatus canChangeParts(const AcDbEntity& owner) {
    for (const AcDbObjectId id : partIds(owner)) {
        AcDbEntity* part = nullptr;
        const Acad::ErrorStatus status = acdbOpenObject(part, id, AcDb::kForWrite, false, true);
        if (status != Acad::eOk)
            return status;
        part->close();
    }
    return Acad::eOk;
}

void changeParts(const AcDbEntity& owner, const NewParts& pending,
                 const std::function<void(AcDbEntity&)>& change) {
    for (const auto& part : pending)
        change(*part);
    for (const AcDbObjectId id : partIds(owner)) {
        AcDbEntity* part = nullptr;
        if (acdbOpenObject(part, id, AcDb::kForWrite, false, true) != Acad::eOk)
            continue;
        change(*part);
        part->close();
    }
}

} // namespace zuhost
