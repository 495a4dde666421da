#include "database_core.h"

#include "dxf_records/number_text.h"
#include "object_access.h"
#include "reactor_records.h"

#include <unordered_set>

namespace zuhost {

namespace {

using Handles = std::unordered_set<std::uint64_t>;

bool names(const Tag& tag, const Handles& erased) {
    const auto handle = parseHandle(tag.value);
    return handle && erased.contains(*handle);
}

void removeReactors(TagList& tags, const Handles& erased) {
    std::vector<ReactorEntry> entries = reactorEntries(tags);
    std::erase_if(entries, [&](const ReactorEntry& entry) { return !erased.contains(entry.handle); });
    eraseReactorEntries(tags, entries);
}

void removeMembers(TagList& tags, const Handles& erased) {
    tags.eraseIf(tags.subclass("AcDbGroup"),
                 [&](const Tag& tag) { return tag.code == 340 && names(tag, erased); });
}

bool isDictionary(const std::string& type) {
    return type == "DICTIONARY" || type == "ACDBDICTIONARYWDFLT";
}

/// Returns whether the record is the handle of a dictionary's entry, which follows its name (3).
bool isEntry(int code, int codeBefore) {
    return (code == 350 || code == 360) && codeBefore == 3;
}

/// Returns the handles of the extension dictionary and of a dictionary's entries. Objects that merely name
/// this one as their owner, as in damaged drawings, are not among them.
Handles ownedHandles(const TagView& tags) {
    Handles owned;
    for (const TagRef& tag : tags.applicationGroup("ACAD_XDICTIONARY"))
        if (tag.code == 360)
            owned.insert(tag.handle().value_or(0));
    int codeBefore = 0;
    for (const TagRef& tag : tags) {
        if (isEntry(tag.code, codeBefore))
            owned.insert(tag.handle().value_or(0));
        codeBefore = tag.code;
    }
    return owned;
}

/// Removes the extension dictionary's group when the dictionary is erased.
void removeExtension(TagList& tags, const Handles& erased) {
    const TagView extension = TagView(tags).applicationGroup("ACAD_XDICTIONARY");
    const auto owned = extension.handle(360);
    if (owned && erased.contains(*owned))
        tags.erase(extension.range());
}

void removeEntries(TagList& tags, const Handles& erased) {
    for (std::size_t i = tags.size(); i-- > 1;)
        if (isEntry(tags[i].code, tags[i - 1].code) && names(tags[i], erased))
            tags.erase({i - 1, i + 1});
}

} // namespace

void DatabaseCore::addFiltered(AcDbStub* stub) {
    if (stub == nullptr || stub->erased || filtered_.contains(stub))
        return;
    const TagList* const own = stub->object != nullptr ? ObjectAccess::ownTags(*stub->object) : nullptr;
    filtered_.emplace(stub, own != nullptr ? *own : document->tags(*stub));
}

/// Collects the erased objects and those erased with them: vertices and attributes with their entity,
/// entities with their block, and the objects that an object owns.
std::vector<AcDbStub*> DatabaseCore::collectErased() {
    std::vector<AcDbStub*> collected;
    std::unordered_set<const AcDbStub*> known;
    std::vector<AcDbStub*> owners;
    const auto add = [&](AcDbStub* stub) {
        if (!known.insert(stub).second)
            return;
        collected.push_back(stub);
        owners.push_back(stub);
    };
    for (const auto& object : objects_)
        if (object->isErased())
            add(object->objectId());
    if (collected.empty())
        return collected;
    std::unordered_multimap<const AcDbStub*, AcDbStub*> belongings;
    for (const Container& container : document->containers()) {
        const AcDbStub* const block = container.kind == Container::Kind::block ? container.head : nullptr;
        const bool blockIsErased =
            block != nullptr && (known.contains(block) || known.contains(block->owner));
        for (AcDbStub* const member : container.members) {
            if (container.kind == Container::Kind::objects)
                belongings.emplace(member->owner, member);
            else if (blockIsErased ||
                     (known.contains(member->owner) && isPartType(document->typeName(*member))))
                add(member);
        }
    }
    while (!owners.empty()) {
        AcDbStub* const owner = owners.back();
        owners.pop_back();
        const auto [first, last] = belongings.equal_range(owner);
        const Handles owned = first != last ? ownedHandles(tags(*owner)) : Handles();
        for (auto belonging = first; belonging != last; ++belonging)
            if (owned.contains(belonging->second->handle))
                add(belonging->second);
    }
    return collected;
}

/// Objects that may refer to an erased one: its owner, its reactors, and those that it is a reactor of.
void DatabaseCore::collectReferencesToErased() {
    filtered_.clear();
    const std::vector<AcDbStub*> objects = collectErased();
    Handles erased;
    for (const AcDbStub* const stub : objects) {
        erased.insert(stub->handle);
        if (!stub->erased)
            filtered_.emplace(stub, TagList());
    }
    for (AcDbStub* const stub : objects) {
        addFiltered(stub->owner);
        for (const TagRef& tag : tags(*stub))
            if (tag.code == 330 || tag.code == 340)
                if (const auto handle = tag.handle())
                    addFiltered(document->find(*handle));
    }
    for (auto& [stub, tags] : filtered_) {
        removeReactors(tags, erased);
        removeExtension(tags, erased);
        const std::string& type = document->typeName(*stub);
        if (type == "GROUP")
            removeMembers(tags, erased);
        else if (isDictionary(type))
            removeEntries(tags, erased);
    }
}

Document::TagSource DatabaseCore::savedTags() {
    parts.arrange(*document);
    collectReferencesToErased();
    return [this](const AcDbStub& stub) -> const TagList* {
        if (!filtered_.empty())
            if (const auto found = filtered_.find(&stub); found != filtered_.end())
                return &found->second;
        return stub.object != nullptr ? ObjectAccess::ownTags(*stub.object) : nullptr;
    };
}

} // namespace zuhost
