#include <zucomn/model/elements.h>

#include "attributes/model/layer_locks.h"
#include "dbservices/block_entities.h"
#include "dbservices/group_lookup.h"
#include "element_blocks.h"
#include "entity_names.h"
#include "link_record.h"
#include "reference_facts.h"

#include <dbents.h>
#include <dbmain.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <unordered_map>

namespace zucomn {

namespace {

/// Reads elements one after another; what they share is read once.
class ElementReader {
public:
    explicit ElementReader(ElementGroups groups) : groups_(groups) {}

    /// Returns false when the object is no block reference or can't be opened.
    bool read(AcDbObjectId id, Element& element) {
        const AcDbObjectPointer<AcDbBlockReference> reference(id);
        if (reference.openStatus() != Acad::eOk)
            return false;
        element.id = id;
        zu::readFacts(*reference.object(), facts_);
        element.block = facts_.block;
        element.layer = zu::layerName(*reference);
        element.isOnLocked = isLocked(element.layer, *reference.object());
        element.isVisible = reference->isVisible();
        element.origin = facts_.position;
        element.linkKind = zu::linkKindOf(*reference.object());
        const zu::ElementBlock& block = blocks_.of(*reference.object(), element.block);
        element.code = block.code;
        (void)zu::placePoints(block, facts_.transform, element.connectionPoints);
        if (groups_ == ElementGroups::read)
            readGroups(*reference.object(), element.groups);
        return true;
    }

private:
    static void readGroups(const AcDbBlockReference& reference, std::vector<AcDbObjectId>& found) {
        found.clear();
        if (const auto groups = zu::reactorGroups(reference))
            found.assign(groups->ids.begin(), groups->ids.end());
    }

    bool isLocked(const std::wstring& layer, const AcDbBlockReference& reference) {
        const auto [entry, isNew] = isLocked_.try_emplace(layer);
        if (isNew)
            entry->second = !locks_.lockedLayer(reference.objectId()).IsEmpty();
        return entry->second;
    }

    ElementGroups groups_;
    zu::ReferenceFacts facts_;
    zu::ElementBlocks blocks_;
    zu::LayerLocks locks_;
    std::unordered_map<std::wstring, bool> isLocked_; ///< By layer.
};

} // namespace

std::optional<Element> readElement(AcDbObjectId id) {
    std::optional<Element> element(std::in_place);
    if (!ElementReader(ElementGroups::read).read(id, *element))
        element.reset();
    return element;
}

void readElements(std::span<const AcDbObjectId> ids, const std::function<void(const Element&)>& take,
                  ElementGroups groups) {
    ElementReader reader(groups);
    Element element;
    for (const AcDbObjectId id : ids)
        if (reader.read(id, element))
            take(element);
}

std::vector<AcDbObjectId> modelSpaceEntities(const AcDbDatabase& drawing) {
    AcDbObjectId spaceId;
    if (const AcDbObjectPointer<AcDbBlockTable> blocks(drawing.blockTableId());
        blocks.openStatus() == Acad::eOk)
        blocks->getAt(ACDB_MODEL_SPACE, spaceId);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(spaceId);
    if (space.openStatus() != Acad::eOk)
        return {};
    return zu::entityIds(*space);
}

std::vector<AcDbObjectId> modelSpaceReferences(const AcDbDatabase& drawing) {
    std::vector<AcDbObjectId> entities = modelSpaceEntities(drawing);
    std::erase_if(entities, [](AcDbObjectId id) {
        return !id.objectClass()->isDerivedFrom(AcDbBlockReference::desc());
    });
    return entities;
}

} // namespace zucomn
