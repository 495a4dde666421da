#include "acdbads.h"

#include "database_core.h"
#include "dbapserv.h"
#include "dbobjptr.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

using zuhost::Container;

AcDbDatabase* workingDrawing() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    return drawing != nullptr && zuhost::coreOf(*drawing).document ? drawing : nullptr;
}

/// The objects of model space, vertices and attributes included: few drawings have any in its block.
class ModelSpaceObjects {
public:
    explicit ModelSpaceObjects(zuhost::DatabaseCore& core) : core_(core), space_(core.modelSpace()) {
        if (core.erasedStart.arrangement != core.parts.arrangements())
            core.erasedStart = {0, core.parts.arrangements()};
        if (space_ == nullptr)
            return;
        parts_[0] = core.blockContainer(*space_);
        parts_[1] = core.document->findContainer(Container::Kind::entities);
    }

    /// Returns the first object that is not erased; null without one.
    [[nodiscard]] AcDbStub* first() const {
        std::size_t& erased = core_.erasedStart.count;
        while (erased < size() && at(erased)->erased)
            ++erased;
        return from(erased);
    }

    /// Returns the first object at or after the place that is not erased; null at the end.
    [[nodiscard]] AcDbStub* from(std::size_t place) const {
        for (; place < size(); ++place)
            if (!at(place)->erased && isOwned(*at(place)))
                return at(place);
        return nullptr;
    }

    /// Returns the last entity that is not erased; null without one.
    [[nodiscard]] AcDbStub* last() const {
        for (std::size_t place = size(); place-- > 0;)
            if (!at(place)->erased && at(place)->owner == space_)
                return at(place);
        return nullptr;
    }

    /// Finds an object, at once if it was the last one found: drawings are walked object by object.
    [[nodiscard]] std::optional<std::size_t> find(const AcDbStub* object) const {
        static std::size_t lastPlace = 0;
        for (const std::size_t place : {lastPlace, lastPlace + 1})
            if (place < size() && at(place) == object)
                return lastPlace = place;
        for (std::size_t place = 0; place < size(); ++place)
            if (at(place) == object)
                return lastPlace = place;
        return std::nullopt;
    }

private:
    [[nodiscard]] std::size_t sizeOf(std::size_t part) const {
        return parts_[part] != nullptr ? parts_[part]->members.size() : 0;
    }
    [[nodiscard]] std::size_t size() const { return sizeOf(0) + sizeOf(1); }
    [[nodiscard]] AcDbStub* at(std::size_t place) const {
        return place < sizeOf(0) ? parts_[0]->members[place] : parts_[1]->members[place - sizeOf(0)];
    }
    [[nodiscard]] bool isOwned(const AcDbStub& stub) const {
        return stub.owner == space_ || (stub.owner != nullptr && stub.owner->owner == space_);
    }

    zuhost::DatabaseCore& core_;
    const AcDbStub* space_;
    std::array<const Container*, 2> parts_{};
};

int nameOf(AcDbStub* object, ads_name result) {
    return object != nullptr && acdbGetAdsName(result, AcDbObjectId(object)) == Acad::eOk ? RTNORM : RTERROR;
}

} // namespace

int acdbEntNext(const std::int64_t* entity, ads_name result) {
    AcDbDatabase* const drawing = workingDrawing();
    if (result == nullptr || drawing == nullptr)
        return RTERROR;
    zuhost::DatabaseCore& core = zuhost::coreOf(*drawing);
    core.parts.arrange(*core.document);
    const ModelSpaceObjects objects(core);
    if (entity == nullptr || ads_name_nil(entity))
        return nameOf(objects.first(), result);
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk)
        return RTERROR;
    const auto place = objects.find(id);
    return place ? nameOf(objects.from(*place + 1), result) : RTERROR;
}

int acdbEntLast(ads_name result) {
    AcDbDatabase* const drawing = workingDrawing();
    if (result == nullptr || drawing == nullptr)
        return RTERROR;
    return nameOf(ModelSpaceObjects(zuhost::coreOf(*drawing)).last(), result);
}

int acdbEntDel(const ads_name entity) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, entity) != Acad::eOk)
        return RTERROR;
    const AcDbObjectPointer<AcDbEntity> object(id, AcDb::kForWrite, true);
    return object.openStatus() == Acad::eOk && object->erase(!id.isErased()) == Acad::eOk ? RTNORM : RTERROR;
}

int acdbEntUpd(const ads_name entity) {
    AcDbObjectId id;
    return acdbGetObjectId(id, entity) == Acad::eOk ? RTNORM : RTERROR;
}
