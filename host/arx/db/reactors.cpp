#include "dbmain.h"

#include "database_core.h"
#include "dxf_records/number_text.h"
#include "object_access.h"
#include "reactor_records.h"
#include "zuhost/members.h"
#include "zuhost/reactor_ids.h"

#include <algorithm>
#include <cstdint>
#include <unordered_set>

using zuhost::TagList;
using zuhost::TagView;

namespace {

/// Objects with more entries keep an index of them.
constexpr std::size_t kFewEntries = 32;

/// Entries for objects of the drawing point to the second byte of the stub: transient reactors have even
/// addresses.
void* persistentEntry(AcDbStub* stub) {
    return reinterpret_cast<char*>(stub) + 1;
}

template <typename Records, typename Predicate>
std::vector<zuhost::ReactorEntry> entriesWith(const Records& tags, Predicate isWanted) {
    std::vector<zuhost::ReactorEntry> entries;
    zuhost::visitReactorEntries(tags, [&](const zuhost::ReactorEntry& entry) {
        if (isWanted(entry.handle))
            entries.push_back(entry);
    });
    return entries;
}

/// Returns the entries that refer to no object of the drawing, or repeat an earlier entry.
std::vector<zuhost::ReactorEntry> surplusOf(const TagView& tags, const zuhost::Document& document) {
    std::unordered_set<const AcDbStub*> seen;
    return entriesWith(tags, [&](std::uint64_t handle) {
        const AcDbStub* const named = document.find(handle);
        return named == nullptr || !seen.insert(named).second;
    });
}

// Changes of the persistent reactors: of their index, or of the records of an object that has few.

struct AddReactor {
    std::uint64_t handle;

    void operator()(zuhost::ReactorIndex& index) const { index.add(handle); }
    void operator()(TagList& tags) const { zuhost::addReactorEntries(tags, {handle}); }
};

struct RemoveReactor {
    std::uint64_t handle;

    void operator()(zuhost::ReactorIndex& index) const { index.remove(handle); }
    void operator()(TagList& tags) const {
        zuhost::eraseReactorEntries(tags, entriesWith(tags, [this](std::uint64_t h) { return h == handle; }));
    }
};

template <typename Change>
struct ChangeReactors {
    Change change;

    void operator()(zuhost::ReactorIndex& index) const { change(index); }
    void operator()(TagList& tags) const {
        constexpr std::uint32_t kAnyVersion = 0;
        zuhost::ReactorIndex index(zuhost::reactorEntries(tags), kAnyVersion);
        change(index);
        index.apply(tags);
    }
};
template <typename Change>
ChangeReactors(Change) -> ChangeReactors<Change>;

} // namespace

bool acdbIsPersistentReactor(const void* reactor) {
    return (reinterpret_cast<std::uintptr_t>(reactor) & 1U) != 0;
}

AcDbObjectId acdbPersistentReactorObjectId(const void* reactor) {
    if (!acdbIsPersistentReactor(reactor))
        return {};
    char* const entry = static_cast<char*>(const_cast<void*>(reactor));
    return {reinterpret_cast<AcDbStub*>(entry - 1)};
}

AcDbObject::Reactors& AcDbObject::ownReactors() const {
    if (!reactors_)
        reactors_ = std::make_unique<Reactors>();
    return *reactors_;
}

bool AcDbObject::isTransientReactor(const AcDbObjectReactor* reactor) const {
    return reactors_ && std::ranges::find(reactors_->transient, reactor) != reactors_->transient.end();
}

void AcDbObject::addReactor(AcDbObjectReactor* reactor) const {
    if (reactor != nullptr && !isTransientReactor(reactor))
        ownReactors().transient.push_back(reactor);
}

void AcDbObject::removeReactor(AcDbObjectReactor* reactor) const {
    if (reactors_)
        std::erase(reactors_->transient, reactor);
}

zuhost::ReactorIndex* AcDbObject::currentReactorIndex() const {
    const bool isCurrent = reactors_ && reactors_->index && reactors_->index->version == tagVersion_;
    return isCurrent ? reactors_->index.get() : nullptr;
}

void AcDbObject::indexReactors() const {
    if (currentReactorIndex() != nullptr)
        return;
    const std::vector<zuhost::ReactorEntry> entries = zuhost::reactorEntries(tags());
    if (entries.size() > kFewEntries)
        ownReactors().index = std::make_unique<zuhost::ReactorIndex>(entries, tagVersion_);
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId reactor) const {
    if (reactor.isNull())
        return false;
    const std::uint64_t handle = reactor.handle().value();
    if (const zuhost::ReactorIndex* const index = currentReactorIndex())
        return index->has(handle);
    std::size_t count = 0;
    bool isFound = false;
    const auto search = [&](const zuhost::ReactorEntry& entry) {
        ++count;
        isFound |= entry.handle == handle;
    };
    if (const TagList* const own = ownTags())
        zuhost::visitReactorEntries(*own, search);
    else
        zuhost::visitReactorEntries(tags(), search);
    if (count > kFewEntries)
        indexReactors(); // for the next search
    return isFound;
}

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId reactor) {
    if (reactor.isNull())
        return Acad::eNullObjectId;
    if (hasPersistentReactor(reactor))
        return Acad::eOk;
    return changeReactors(AddReactor{reactor.handle().value()});
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId reactor) {
    if (!hasPersistentReactor(reactor))
        return Acad::eKeyNotFound;
    return changeReactors(RemoveReactor{reactor.handle().value()});
}

template <typename Change>
Acad::ErrorStatus AcDbObject::changeReactors(Change change) {
    const Acad::ErrorStatus status = stub_ != nullptr ? assertWriteEnabled() : Acad::eNotInDatabase;
    if (status != Acad::eOk)
        return status;
    if (zuhost::ReactorIndex* const index = currentReactorIndex()) {
        change(*index);
        deferChange();
        index->version = tagVersion_;
        return Acad::eOk;
    }
    change(changingTags());
    return Acad::eOk;
}

const AcDbVoidPtrArray* AcDbObject::reactors() const {
    if (stub_ == nullptr)
        return nullptr;
    AcDbVoidPtrArray& list = ownReactors().list;
    list.removeAll();
    for (const zuhost::ReactorEntry& entry : zuhost::reactorEntries(tags()))
        if (AcDbStub* const stub = core()->document->find(entry.handle))
            list.append(persistentEntry(stub));
    for (AcDbObjectReactor* reactor : reactors_->transient)
        list.append(reactor);
    return &list;
}

Acad::ErrorStatus zuhost::addPersistentReactors(AcDbObject& object,
                                                const std::vector<AcDbObjectId>& reactors) {
    ObjectAccess::indexReactors(object);
    return ObjectAccess::changeReactors(object, ChangeReactors{[&](ReactorIndex& index) {
                                            for (const AcDbObjectId reactor : reactors)
                                                if (!reactor.isNull())
                                                    index.add(reactor.handle().value());
                                        }});
}

Acad::ErrorStatus zuhost::removePersistentReactors(AcDbObject& object,
                                                   const std::unordered_set<AcDbObjectId>& reactors) {
    ObjectAccess::indexReactors(object);
    return ObjectAccess::changeReactors(object, ChangeReactors{[&](ReactorIndex& index) {
                                            for (const AcDbObjectId reactor : reactors)
                                                if (!reactor.isNull())
                                                    index.remove(reactor.handle().value());
                                        }});
}

bool zuhost::readPersistentReactors(const AcDbObject& object, std::vector<AcDbObjectId>& ids) {
    ids.clear();
    const AcDbDatabase* const database = object.database();
    if (database == nullptr)
        return true;
    const Document& document = *coreOf(*database).document;
    std::unordered_set<AcDbObjectId> seen; // Once there are more than a few.
    const auto isSeen = [&](AcDbObjectId id) {
        if (ids.size() < kFewEntries)
            return std::ranges::find(ids, id) != ids.end();
        if (seen.empty())
            seen.insert(ids.begin(), ids.end());
        return !seen.insert(id).second;
    };
    bool hasSurplus = false;
    visitReactorEntries(ObjectAccess::tags(object), [&](const ReactorEntry& entry) {
        const AcDbObjectId id(document.find(entry.handle));
        if (id.isNull() || isSeen(id))
            hasSurplus = true;
        else
            ids.push_back(id);
    });
    return !hasSurplus;
}

std::vector<AcDbHandle> zuhost::surplusReactors(const AcDbObject& object) {
    std::vector<AcDbHandle> surplus;
    if (const AcDbDatabase* const database = object.database())
        for (const ReactorEntry& entry : surplusOf(ObjectAccess::tags(object), *coreOf(*database).document))
            surplus.emplace_back(entry.handle);
    return surplus;
}

Acad::ErrorStatus zuhost::removeSurplusReactors(AcDbObject& object) {
    const Acad::ErrorStatus status =
        object.database() != nullptr ? ObjectAccess::assertWriteEnabled(object) : Acad::eNotInDatabase;
    if (status != Acad::eOk)
        return status;
    const std::vector<ReactorEntry> surplus =
        surplusOf(ObjectAccess::tags(object), *coreOf(*object.database()).document);
    eraseReactorEntries(ObjectAccess::changingTags(object), surplus);
    return Acad::eOk;
}
