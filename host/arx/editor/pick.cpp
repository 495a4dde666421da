#include "pick.h"

#include "acdbads.h"
#include "acedads.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "geassign.h"
#include "outline.h"
#include "point_text.h"
#include "prompting.h"
#include "system_variables.h"

#include <algorithm>
#include <memory>

namespace zuhost {

namespace {

/// In drawing units: a point entered in text hits exactly, but for rounding.
constexpr double kPickDistance = 1e-3;

void addEntities(AcDbObjectId block, std::vector<AcDbObjectId>& ids) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(block);
    AcDbBlockTableRecordIterator* made = nullptr;
    if (space.openStatus() != Acad::eOk || space->newIterator(made) != Acad::eOk)
        return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> entities(made);
    for (; !entities->done(); entities->step()) {
        AcDbObjectId id;
        if (entities->getEntityId(id) == Acad::eOk)
            ids.push_back(id);
    }
}

bool isLayout(AcDbObjectId block) {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block);
    return record.openStatus() == Acad::eOk && record->isLayout();
}

bool isHit(AcDbObjectId id, const AcGePoint2d& point) {
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (entity.openStatus() != Acad::eOk)
        return false;
    const std::vector<Path> paths = outline(*entity.object());
    if (distanceTo(paths, point) <= kPickDistance)
        return true;
    const bool surrounds =
        AcDbText::cast(entity.object()) != nullptr || AcDbBlockReference::cast(entity.object()) != nullptr;
    if (!surrounds || paths.empty())
        return false;
    AcGePoint2d low = paths.front().front();
    AcGePoint2d high = low;
    for (const Path& path : paths)
        for (const AcGePoint2d& p : path) {
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        }
    return point.x >= low.x && point.x <= high.x && point.y >= low.y && point.y <= high.y;
}

AcGePoint3d firstPoint(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (entity.openStatus() != Acad::eOk)
        return {};
    const std::vector<Path> paths = outline(*entity.object());
    return paths.empty() ? AcGePoint3d() : AcGePoint3d(paths.front().front().x, paths.front().front().y, 0.0);
}

} // namespace

std::vector<AcDbObjectId> spaceEntities(const AcDbDatabase& drawing, bool paperToo) {
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbBlockTable> table(drawing.blockTableId());
    if (table.openStatus() != Acad::eOk)
        return ids;
    AcDbObjectId model;
    if (table->getAt(ACDB_MODEL_SPACE, model) == Acad::eOk)
        addEntities(model, ids);
    if (!paperToo)
        return ids;
    AcDbSymbolTableIterator* made = nullptr;
    static_cast<AcDbSymbolTable*>(table.object())->newIterator(made);
    const std::unique_ptr<AcDbSymbolTableIterator> records(made);
    for (; records && !records->done(); records->step()) {
        AcDbObjectId record;
        if (records->getRecordId(record) == Acad::eOk && record != model && isLayout(record))
            addEntities(record, ids);
    }
    return ids;
}

bool isShown(AcDbObjectId id, bool offCounts) {
    const AcDbObjectPointer<AcDbEntity> entity(id);
    if (entity.openStatus() != Acad::eOk)
        return false;
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity->layerId());
    return layer.openStatus() != Acad::eOk || !(layer->isFrozen() || (offCounts && layer->isOff()));
}

AcDbObjectId entityAt(const AcDbDatabase& drawing, const AcGePoint3d& point) {
    const std::vector<AcDbObjectId> ids = spaceEntities(drawing, false);
    const auto found = std::find_if(ids.rbegin(), ids.rend(), [&](AcDbObjectId id) {
        return isShown(id) && isHit(id, AcGePoint2d(point.x, point.y));
    });
    return found == ids.rend() ? AcDbObjectId() : *found;
}

AcDbObjectId entityOfExpression(const std::wstring& text) {
    constexpr std::wstring_view kStart = L"(handent";
    const std::size_t first = text.find(L'"');
    const std::size_t last = text.rfind(L'"');
    ads_name name;
    AcDbObjectId id;
    const bool isExpression = text.starts_with(kStart) && text.ends_with(L')') && first < last;
    if (!isExpression || acdbHandEnt(text.substr(first + 1, last - first - 1).c_str(), name) != RTNORM ||
        acdbGetObjectId(id, name) != Acad::eOk || id.isErased() ||
        !id.objectClass()->isDerivedFrom(AcDbEntity::desc()))
        return {};
    return id;
}

} // namespace zuhost

int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point) {
    using namespace zuhost;
    const InputRequest request = takeInputRequest();
    const AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (entity == nullptr || point == nullptr || drawing == nullptr)
        return RTERROR;
    AcDbObjectId picked;
    AcGePoint3d where;
    const int code = ask(prompt, request, [&](const std::wstring& text) -> const ACHAR* {
        ads_name last;
        const bool wantsLast = text == L"L" || text == L"l" || text == L"LAST" || text == L"last";
        if (wantsLast && acdbEntLast(last) == RTNORM)
            acdbGetObjectId(picked, last);
        else
            picked = entityOfExpression(text);
        if (!picked.isNull() || wantsLast || text.starts_with(L'(')) {
            where = firstPoint(picked);
            return nullptr;
        }
        const auto entered = parsePoint(text, lastPoint());
        if (!entered)
            return L"A point, an entity's handle as (handent \"2F\"), or L for the last entity is "
                   L"required.\n";
        where = *entered;
        setLastPoint(where);
        picked = entityAt(*drawing, where);
        return nullptr;
    });
    if (code == RTNONE)
        setInputError(InputError::emptyReply);
    if (code != RTNORM)
        return code == RTNONE ? RTERROR : code;
    setInputError(picked.isNull() ? InputError::missedPick : InputError::none);
    if (picked.isNull())
        return RTERROR;
    acdbGetAdsName(entity, picked);
    ads_point_set(asDblArray(where), point);
    return RTNORM;
}
