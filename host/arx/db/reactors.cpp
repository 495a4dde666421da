#include "dbmain.h"

#include "database_core.h"
#include "drawing/number_text.h"

#include <algorithm>
#include <cstdint>

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
    if (std::find(transientReactors_.begin(), transientReactors_.end(), reactor) == transientReactors_.end())
        transientReactors_.push_back(reactor);
}

void AcDbObject::removeReactor(AcDbObjectReactor* reactor) const {
    std::erase(transientReactors_, reactor);
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId reactor) const {
    return !reactor.isNull() && findEntry(*tags_, reactor.handle().value()) < tags_->size();
}

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId reactor) {
    if (reactor.isNull())
        return Acad::eNullObjectId;
    if (hasPersistentReactor(reactor))
        return Acad::eOk;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    if (records.applicationGroup(kGroup).empty()) {
        const std::vector<zuhost::Tag> brackets{{102, "{ACAD_REACTORS"}, {102, "}"}};
        records.insert(groupPlace(records), brackets);
    }
    records.insert(records.applicationGroup(kGroup).last - 1,
                   {330, zuhost::formatHandle(reactor.handle().value())});
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
    const TagRange group = records.applicationGroup(kGroup);
    if (group.last - group.first == 2)
        records.erase(group);
    return Acad::eOk;
}

const AcDbVoidPtrArray* AcDbObject::reactors() const {
    if (stub_ == nullptr)
        return nullptr;
    reactorList_.removeAll();
    const TagRange range = tags_->applicationGroup(kGroup);
    for (std::size_t i = range.first; i < range.last; ++i) {
        const auto handle = (*tags_)[i].code == 330 ? zuhost::parseHandle((*tags_)[i].value) : std::nullopt;
        if (AcDbStub* const stub = handle ? core()->document->find(*handle) : nullptr)
            reactorList_.append(persistentEntry(stub));
    }
    for (AcDbObjectReactor* reactor : transientReactors_)
        reactorList_.append(reactor);
    return &reactorList_;
}
