#include "database_core.h"

#include "dxf_records/number_text.h"
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
    std::vector<std::size_t> places;
    for (const ReactorEntry& entry : reactorEntries(tags))
        if (erased.contains(entry.handle))
            places.push_back(entry.place);
    eraseReactorEntries(tags, places);
}

void removeMembers(TagList& tags, const Handles& erased) {
    tags.eraseIf(tags.subclass("AcDbGroup"),
                 [&](const Tag& tag) { return tag.code == 340 && names(tag, erased); });
}

bool isDictionary(const std::string& type) {
    return type == "DICTIONARY" || type == "ACDBDICTIONARYWDFLT";
}

/// Returns whether objects of the type belong to the entity before them.
bool isPart(const std::string& type) {
    return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

/// Returns whether the record is the handle of a dictionary's entry, which follows its name (3).
bool isEntry(const TagList& tags, std::size_t place) {
    return (tags[place].code == 350 || tags[place].code == 360) && tags[place - 1].code == 3;
}

/// Returns the handles of the extension dictionary and of a dictionary's entries. Objects that merely name
/// this one as their owner, as in damaged drawings, are not among them.
Handles ownedHandles(const TagList& tags) {
    Handles owned;
    const auto add = [&](const Tag& tag) { owned.insert(parseHandle(tag.value).value_or(0)); };
    const TagRange extension = tags.applicationGroup("ACAD_XDICTIONARY");
    for (std::size_t i = extension.first; i < extension.last; ++i)
        if (tags[i].code == 360)
            add(tags[i]);
    for (std::size_t i = 1; i < tags.size(); ++i)
        if (isEntry(tags, i))
            add(tags[i]);
    return owned;
}

void removeEntries(TagList& tags, const Handles& erased) {
    for (std::size_t i = tags.size(); i-- > 1;)
        if (isEntry(tags, i) && names(tags[i], erased))
            tags.erase({i - 1, i + 1});
}

} // namespace

TagList DatabaseCore::currentTags(const AcDbStub& stub) const {
    return stub.object != nullptr ? stub.object->tags() : document->tags(stub);
}

void DatabaseCore::addFiltered(AcDbStub* stub) {
    if (stub != nullptr && !stub->erased && !filtered_.contains(stub))
        filtered_.emplace(stub, currentTags(*stub));
}

/// Collects the erased objects and those erased with them: vertices and attributes with their entity,
/// entities with their block, and the objects that an object owns.
std::vector<AcDbStub*> DatabaseCore::collectErased() const {
    std::vector<AcDbStub*> collected;
    std::unordered_set<const AcDbStub*> known;
    std::vector<const AcDbStub*> owners;
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
            else if (blockIsErased || (known.contains(member->owner) && isPart(document->typeName(*member))))
                add(member);
        }
    }
    while (!owners.empty()) {
        const AcDbStub* const owner = owners.back();
        owners.pop_back();
        const auto [first, last] = belongings.equal_range(owner);
        const Handles owned = first != last ? ownedHandles(currentTags(*owner)) : Handles();
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
    for (const AcDbStub* const stub : objects) {
        addFiltered(stub->owner);
        const TagList tags = currentTags(*stub);
        for (const Tag& tag : tags)
            if (tag.code == 330 || tag.code == 340)
                if (const auto handle = parseHandle(tag.value))
                    addFiltered(document->find(*handle));
    }
    for (auto& [stub, tags] : filtered_) {
        removeReactors(tags, erased);
        const std::string& type = document->typeName(*stub);
        if (type == "GROUP")
            removeMembers(tags, erased);
        else if (isDictionary(type))
            removeEntries(tags, erased);
    }
}

Document::TagSource DatabaseCore::savedTags() {
    collectReferencesToErased();
    return [this](const AcDbStub& stub) -> const TagList* {
        if (!filtered_.empty())
            if (const auto found = filtered_.find(&stub); found != filtered_.end())
                return &found->second;
        return stub.changed && stub.object != nullptr ? &stub.object->tags() : nullptr;
    };
}

} // namespace zuhost
