#include "connection_cache.h"
#include "frame/text_view.h"

#include <zucomn/frame.h>
#include <zucomn/route.h>

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

namespace zu {

namespace {

/// For longer logs a rebuild is cheaper than applying the changes.
constexpr std::size_t kLongestLog = 1U << 20U;

bool isSharedRecord(const AcDbObject& object) {
    if (object.isKindOf(AcDbLayerTableRecord::desc()))
        return true;
    // Model space changes with every entity added to it, and no element refers to it.
    const auto* const block = AcDbBlockTableRecord::cast(&object);
    return block != nullptr && !block->isLayout();
}

} // namespace

ConnectionCache::ConnectionCache(AcDbDatabase& database) : database_(&database) {
    database.addReactor(this);
}

ConnectionCache::~ConnectionCache() {
    if (database_ != nullptr)
        database_->removeReactor(this);
}

void ConnectionCache::goodbye(const AcDbDatabase* /*database*/) {
    clear();
    database_ = nullptr;
}

void ConnectionCache::clear() {
    elements_.clear();
    points_.clear();
    definitions_.clear();
    blocks_.clear();
    groupVersions_.clear();
    changedElements_.clear();
    ++generation_;
}

void ConnectionCache::checkLayer() {
    if (zu::view(ZUCONECT_LAYER) == layer_)
        return;
    layer_ = connectionLayer();
    clear();
}

std::uint64_t ConnectionCache::groupVersion(AcDbObjectId group) const {
    const auto found = groupVersions_.find(group);
    return found == groupVersions_.end() ? 0 : found->second;
}

void ConnectionCache::changed(const AcDbObject& object) {
    const AcDbObjectId id = object.objectId();
    if (const auto group = groupVersions_.find(id); group != groupVersions_.end())
        ++group->second;
    if (CachedElement* const element = elements_.find(id); element != nullptr && element->isValid) {
        element->isValid = false;
        changedElements_.push_back(id);
    }
    const bool isInDefinition = definitions_.contains(object.ownerId());
    if (isInDefinition || isSharedRecord(object) || changedElements_.size() > kLongestLog)
        clear();
}

const Read<DefinitionPoints>& ConnectionCache::definition(AcDbObjectId block) {
    const auto [entry, isNew] = definitions_.try_emplace(block);
    if (isNew || isTemporary(entry->second.status))
        entry->second = definitionPoints(block, layer_);
    return entry->second;
}

void ConnectionCache::read(AcDbObjectId id, CachedElement& element) {
    element.block = {};
    element.linkKind.reset();
    element.pointCount = 0;
    const AcDbObjectPointer<AcDbBlockReference> reference(id);
    element.status = reference.openStatus();
    if (element.status != Acad::eOk)
        return;
    readFacts(*reference.object(), facts_);
    const auto [block, isNew] = blocks_.try_emplace(facts_.block);
    if (isNew)
        block->second = reference->blockTableRecord();
    element.block = block->second;
    const Read<DefinitionPoints>& local = definition(element.block);
    element.status = local.status;
    placePoints(local.value, element);
}

/// Places the points as the facts of the reference say.
void ConnectionCache::placePoints(const DefinitionPoints& local, CachedElement& element) {
    if (local.empty())
        return;
    element.pointCount = local.size();
    if (element.pointRoom < local.size()) {
        element.firstPoint = points_.size();
        element.pointRoom = local.size();
        points_.resize(points_.size() + local.size());
    }
    auto place = points_.begin() + static_cast<std::ptrdiff_t>(element.firstPoint);
    for (const DefinitionPoint& point : local)
        *place++ = planPoint(point.position, facts_.transform);
}

const CachedElement& ConnectionCache::element(AcDbObjectId id) {
    return cached(id);
}

int ConnectionCache::linkKind(AcDbObjectId id) {
    CachedElement& element = cached(id);
    if (!element.linkKind)
        RootComn_GetBlockRootKind(id, &element.linkKind.emplace(-1));
    return *element.linkKind;
}

CachedElement& ConnectionCache::cached(AcDbObjectId id) {
    CachedElement& element = elements_.tryEmplace(id).first;
    if (!element.isValid) {
        read(id, element);
        element.isValid = !isTemporary(element.status);
    }
    return element;
}

} // namespace zu
