#include "entity_parts.h"

#include "database_core.h"
#include "dbents.h"

namespace zuhost {

namespace {

void endSequence(AcDbEntity& owner) {
    DatabaseCore& core = owner.database()->core();
    const std::vector<AcDbStub*>& parts = core.parts.of(*core.document, *owner.objectId());
    if (!parts.empty() && core.document->typeName(*parts.back()) == "SEQEND")
        return;
    auto* const end = new AcDbSequenceEnd;
    core.adoptPart(*end, owner);
    end->close();
}

} // namespace

Acad::ErrorStatus appendPart(AcDbEntity& owner, NewParts& pending, AcDbEntity* part, AcDbObjectId& id) {
    if (part == nullptr)
        return Acad::eNullObjectPointer;
    if (part->database() != nullptr)
        return Acad::eAlreadyInDb;
    if (owner.database() == nullptr) {
        pending.emplace_back(part);
        return Acad::eOk;
    }
    if (!owner.isWriteEnabled())
        return Acad::eNotOpenForWrite;
    id = owner.database()->core().adoptPart(*part, owner);
    endSequence(owner);
    return Acad::eOk;
}

void appendPending(AcDbEntity& owner, NewParts& pending, bool endsAlways) {
    DatabaseCore& core = owner.database()->core();
    const bool ends = endsAlways || !pending.empty();
    for (auto& part : pending) {
        core.adoptPart(*part, owner);
        part.release()->close();
    }
    pending.clear();
    if (ends)
        endSequence(owner);
}

std::vector<AcDbObjectId> partIds(const AcDbEntity& owner) {
    std::vector<AcDbObjectId> ids;
    if (owner.database() == nullptr)
        return ids;
    DatabaseCore& core = owner.database()->core();
    for (AcDbStub* const part : core.parts.of(*core.document, *owner.objectId()))
        if (!part->erased && core.document->typeName(*part) != "SEQEND")
            ids.emplace_back(part);
    return ids;
}

AcDbObjectIterator* newPartIterator(const AcDbEntity& owner, const NewParts& pending) {
    std::vector<AcDbEntity*> entities;
    for (const auto& part : pending)
        entities.push_back(part.get());
    return new AcDbObjectIterator(partIds(owner), std::move(entities));
}

std::vector<const AcDbEntity*> readParts(const AcDbEntity& owner, const NewParts& pending) {
    std::vector<const AcDbEntity*> parts;
    for (const auto& part : pending)
        parts.push_back(part.get());
    for (const AcDbObjectId id : partIds(owner)) {
        AcDbStub* const stub = id;
        if (const auto* part = AcDbEntity::cast(&owner.database()->core().object(*stub)))
            parts.push_back(part);
    }
    return parts;
}

void changeParts(const AcDbEntity& owner, const NewParts& pending,
                 const std::function<void(AcDbEntity&)>& change) {
    for (const auto& part : pending)
        change(*part);
    for (const AcDbObjectId id : partIds(owner)) {
        AcDbEntity* part = nullptr;
        if (acdbOpenObject(part, id, AcDb::kForWrite) != Acad::eOk)
            continue;
        change(*part);
        part->close();
    }
}

} // namespace zuhost
