#include "cloner.h"
#include "dbents.h"
#include "dbgroup.h"
#include "dbsymtb.h"
#include "object_access.h"
#include "object_factory.h"

#include <zuhost/text_codec.h>

namespace zuhost {

namespace {

constexpr int kOwner = 330;
constexpr int kBracket = 102;
constexpr int kMarker = 100;

bool isIdentityGroup(const Tag& tag) {
    return tag.code == kBracket && (tag.value == "{ACAD_REACTORS" || tag.value == "{ACAD_XDICTIONARY");
}

/// Removes the handle, the owner, the reactors and the extension dictionary, which precede the first marker.
void removeIdentity(TagList& tags) {
    bool isInHead = true;
    bool isInGroup = false;
    tags.eraseIf(tags.all(), [&](const Tag& tag) {
        isInHead = isInHead && tag.code != kMarker;
        if (!isInHead)
            return false;
        if (isIdentityGroup(tag))
            return isInGroup = true;
        if (isInGroup) {
            isInGroup = tag.code != kBracket;
            return true;
        }
        return tag.code == 5 || tag.code == 105 || tag.code == kOwner;
    });
}

} // namespace

std::unique_ptr<AcDbObject> copyOf(const AcDbObject& object) {
    TagList records;
    for (const TagRef& tag : ObjectAccess::tags(object))
        records.add(tag.tag());
    removeIdentity(records);
    if (object.database() != nullptr) // the texts of an object outside of drawings are in UTF-8
        for (Tag& tag : records)
            tag.value = toUtf8(ObjectAccess::decoded(object, tag.value));
    auto copy = std::unique_ptr<AcDbObject>(static_cast<AcDbObject*>(object.isA()->create()));
    if (!copy)
        return nullptr;
    ObjectAccess::setRecords(*copy, std::move(records));
    if (const auto* const block = AcDbBlockTableRecord::cast(&object)) {
        auto& copied = static_cast<AcDbBlockTableRecord&>(*copy);
        const ACHAR* comments = nullptr;
        block->comments(comments);
        copied.setOrigin(block->origin());
        copied.setComments(comments);
    }
    ObjectAccess::notifyReactors(object, [&](AcDbObjectReactor& r) { r.copied(&object, copy.get()); });
    return copy;
}

} // namespace zuhost

AcRxObject* AcDbObject::clone() const {
    return zuhost::copyOf(*this).release();
}

AcRxObject* AcDbEntity::clone() const {
    std::unique_ptr<AcDbObject> copy = zuhost::copyOf(*this);
    if (copy)
        copyPartsTo(static_cast<AcDbEntity&>(*copy));
    return copy.release();
}

Acad::ErrorStatus AcDbObject::deepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& mapping,
                                        bool isPrimary) const {
    copy = nullptr;
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (owner == nullptr)
        return Acad::eNullObjectPointer;
    if (owner->database() != database())
        return Acad::eWrongDatabase;
    AcDbIdPair known(objectId(), {}, false);
    if (mapping.compute(known))
        return Acad::eOk;
    zuhost::Cloner cloner(*core(), *core(), mapping, AcDb::kDrcNotApplicable);
    Acad::ErrorStatus status = cloner.clone(objectId(), owner->objectId(), isPrimary);
    cloner.translate();
    if (status != Acad::eOk)
        return status;
    mapping.compute(known);
    return acdbOpenAcDbObject(copy, known.value(), AcDb::kForWrite);
}

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(AcDbObjectIdArray& ids, AcDbObjectId owner,
                                                 AcDbIdMapping& mapping, bool /*deferTranslation*/) {
    if (!core_->document)
        return Acad::eNoDatabase;
    zuhost::Cloner cloner(*core_, *core_, mapping, AcDb::kDrcNotApplicable);
    return cloner.cloneAll(ids, owner);
}

Acad::ErrorStatus AcDbDatabase::wblockCloneObjects(AcDbObjectIdArray& ids, AcDbObjectId owner,
                                                   AcDbIdMapping& mapping,
                                                   AcDb::DuplicateRecordCloning cloning,
                                                   bool /*deferTranslation*/) {
    if (cloning != AcDb::kDrcIgnore && cloning != AcDb::kDrcReplace)
        return Acad::eNotImplementedYet;
    if (!core_->document)
        return Acad::eNoDatabase;
    if (ids.isEmpty())
        return Acad::eOk;
    AcDbDatabase* const source = ids.first().database();
    if (source == nullptr)
        return Acad::eNullObjectId;
    if (source == this)
        return Acad::eWrongDatabase;
    constexpr int kLastWithoutMarkers = 1009;
    if ((zuhost::coreOf(*source).document->version() <= kLastWithoutMarkers) !=
        (core_->document->version() <= kLastWithoutMarkers))
        return Acad::eNotApplicable;
    zuhost::Cloner cloner(zuhost::coreOf(*source), *core_, mapping, cloning);
    return cloner.cloneAll(ids, owner);
}
