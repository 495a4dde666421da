#include "dbmain.h"

#include "database_core.h"
#include "dxf_records/number_text.h"

#include <algorithm>
#include <cstdint>
#include <unordered_set>

using zuhost::TagList;
using zuhost::TagRange;

namespace {

constexpr std::string_view kGroup = "ACAD_REACTORS";

/// Entries that name objects point to the second byte of the stub: no object of its own has an odd address.
void* persistentEntry(AcDbStub* stub) {
    return reinterpret_cast<char*>(stub) + 1;
}

std::size_t findEntry(const TagList& tags, std::uint64_t handle) {
    const TagRange range = tags.applicationGroup(kGroup);
    for (std::size_t i = range.first; i < range.last; ++i)
        if (tags[i].code == 330 && zuhost::parseHandle(tags[i].value) == handle)
            return i;
    return tags.size();
}

/// The group stands behind the handle, before everything else.
std::size_t groupPlace(const TagList& tags) {
    for (std::size_t i = 1; i < tags.size(); ++i)
        if (tags[i].code != 5 && tags[i].code != 105)
            return i;
    return tags.size();
}

void addEntries(TagList& tags, const std::vector<zuhost::Tag>& entries) {
    if (tags.applicationGroup(kGroup).empty()) {
        const std::vector<zuhost::Tag> brackets{{102, "{ACAD_REACTORS"}, {102, "}"}};
        tags.insert(groupPlace(tags), brackets);
    }
    tags.insert(tags.applicationGroup(kGroup).last - 1, entries);
}

void eraseEmptyGroup(TagList& tags) {
    const TagRange group = tags.applicationGroup(kGroup);
    if (group.last - group.first == 2)
        tags.erase(group);
}

/// The records without those of the places, which ascend.
TagList without(const TagList& tags, const std::vector<std::size_t>& places) {
    TagList kept;
    kept.reserve(tags.size());
    for (std::size_t i = 0, next = 0; i < tags.size(); ++i) {
        if (next < places.size() && places[next] == i)
            ++next;
        else
            kept.add(tags[i].code, tags[i].value);
    }
    eraseEmptyGroup(kept);
    return kept;
}

struct Entry {
    std::size_t place;
    std::uint64_t handle;
};

std::vector<Entry> entriesOf(const TagList& tags) {
    std::vector<Entry> entries;
    const TagRange range = tags.applicationGroup(kGroup);
    for (std::size_t i = range.first; i < range.last; ++i)
        if (const auto handle = tags[i].code == 330 ? zuhost::parseHandle(tags[i].value) : std::nullopt)
            entries.push_back({i, *handle});
    return entries;
}

/// Places of entries that name no object of the drawing, or one for a second time.
std::vector<std::size_t> surplusEntries(const TagList& tags, const zuhost::Document& document) {
    std::vector<std::size_t> places;
    std::unordered_set<const AcDbStub*> seen;
    for (const Entry& entry : entriesOf(tags)) {
        const AcDbStub* const named = document.find(entry.handle);
        if (named == nullptr || !seen.insert(named).second)
            places.push_back(entry.place);
    }
    return places;
}

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

void AcDbObject::addReactor(AcDbObjectReactor* reactor) const {
    if (reactor != nullptr &&
        std::find(transientReactors_.begin(), transientReactors_.end(), reactor) == transientReactors_.end())
        transientReactors_.push_back(reactor);
}

void AcDbObject::removeReactor(AcDbObjectReactor* reactor) const {
    std::erase(transientReactors_, reactor);
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId reactor) const {
    return !reactor.isNull() && findEntry(tags(), reactor.handle().value()) < tags().size();
}

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId reactor) {
    if (reactor.isNull())
        return Acad::eNullObjectId;
    if (hasPersistentReactor(reactor))
        return Acad::eOk;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    addEntries(changingTags(), {{330, zuhost::formatHandle(reactor.handle().value())}});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::addPersistentReactors(const std::vector<AcDbObjectId>& reactors) {
    const Acad::ErrorStatus status = stub_ != nullptr ? assertWriteEnabled() : Acad::eNotInDatabase;
    if (status != Acad::eOk)
        return status;
    std::unordered_set<std::uint64_t> known;
    for (const Entry& entry : entriesOf(tags()))
        known.insert(entry.handle);
    std::vector<zuhost::Tag> added;
    for (const AcDbObjectId reactor : reactors)
        if (!reactor.isNull() && known.insert(reactor.handle().value()).second)
            added.push_back({330, zuhost::formatHandle(reactor.handle().value())});
    if (!added.empty())
        addEntries(changingTags(), added);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId reactor) {
    if (!hasPersistentReactor(reactor))
        return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    const std::size_t entry = findEntry(records, reactor.handle().value());
    records.erase({entry, entry + 1});
    eraseEmptyGroup(records);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::removePersistentReactors(const std::unordered_set<AcDbObjectId>& reactors) {
    const Acad::ErrorStatus status = stub_ != nullptr ? assertWriteEnabled() : Acad::eNotInDatabase;
    if (status != Acad::eOk)
        return status;
    std::unordered_set<std::uint64_t> handles;
    for (const AcDbObjectId reactor : reactors)
        handles.insert(reactor.handle().value());
    std::vector<std::size_t> places;
    for (const Entry& entry : entriesOf(tags()))
        if (handles.contains(entry.handle))
            places.push_back(entry.place);
    TagList kept = without(tags(), places);
    changingTags() = std::move(kept);
    return Acad::eOk;
}

std::vector<AcDbHandle> AcDbObject::surplusReactors() const {
    std::vector<AcDbHandle> surplus;
    if (stub_ != nullptr)
        for (const std::size_t entry : surplusEntries(tags(), *core()->document))
            surplus.emplace_back(zuhost::parseHandle(tags()[entry].value).value_or(0));
    return surplus;
}

Acad::ErrorStatus AcDbObject::removeSurplusReactors() {
    const Acad::ErrorStatus status = stub_ != nullptr ? assertWriteEnabled() : Acad::eNotInDatabase;
    if (status != Acad::eOk)
        return status;
    TagList kept = without(tags(), surplusEntries(tags(), *core()->document));
    changingTags() = std::move(kept);
    return Acad::eOk;
}

const AcDbVoidPtrArray* AcDbObject::reactors() const {
    if (stub_ == nullptr)
        return nullptr;
    reactorList_.removeAll();
    const TagRange range = tags().applicationGroup(kGroup);
    for (std::size_t i = range.first; i < range.last; ++i) {
        const auto handle = tags()[i].code == 330 ? zuhost::parseHandle(tags()[i].value) : std::nullopt;
        if (AcDbStub* const stub = handle ? core()->document->find(*handle) : nullptr)
            reactorList_.append(persistentEntry(stub));
    }
    for (AcDbObjectReactor* reactor : transientReactors_)
        reactorList_.append(reactor);
    return &reactorList_;
}
