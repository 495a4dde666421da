#include "database_core.h"

#include "drawing/number_text.h"

#include <unordered_set>

namespace zuhost {

namespace {

using Handles = std::unordered_set<std::uint64_t>;

bool names(const Tag& tag, const Handles& erased) {
    const auto handle = parseHandle(tag.value);
    return handle && erased.contains(*handle);
}

void withoutPointers(TagList& tags, TagRange range, int code, const Handles& erased) {
    for (std::size_t i = range.last; i-- > range.first;)
        if (tags[i].code == code && names(tags[i], erased))
            tags.erase({i, i + 1});
}

/// Entries of a dictionary: a name (3) and the handle that follows it.
void withoutEntries(TagList& tags, const Handles& erased) {
    for (std::size_t i = tags.size(); i-- > 1;)
        if ((tags[i].code == 350 || tags[i].code == 360) && tags[i - 1].code == 3 && names(tags[i], erased))
            tags.erase({i - 1, i + 1});
}

} // namespace

void DatabaseCore::addFiltered(AcDbStub* stub) {
    if (stub != nullptr && !stub->erased && !filtered_.contains(stub))
        filtered_.emplace(stub, stub->object != nullptr ? stub->object->tags() : document->tags(*stub));
}

/// Who may refer to an erased object: its owner, its reactors, and what it is a reactor of.
void DatabaseCore::collectReferencesToErased() {
    filtered_.clear();
    Handles erased;
    for (const auto& object : objects_) {
        AcDbStub* const stub = object->objectId();
        if (!stub->erased)
            continue;
        erased.insert(stub->handle);
        addFiltered(stub->owner);
        const TagList& tags = object->tags();
        for (const Tag& tag : tags)
            if (tag.code == 330 || tag.code == 340)
                if (const auto handle = parseHandle(tag.value))
                    addFiltered(document->find(*handle));
    }
    for (auto& [stub, tags] : filtered_) {
        withoutPointers(tags, tags.applicationGroup("ACAD_REACTORS"), 330, erased);
        const std::string& type = document->typeName(*stub);
        if (type == "GROUP")
            withoutPointers(tags, tags.subclass("AcDbGroup"), 340, erased);
        else if (type == "DICTIONARY" || type == "ACDBDICTIONARYWDFLT")
            withoutEntries(tags, erased);
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
