#include "dbgroup.h"

#include "database_core.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "drawing/number_text.h"

#include <algorithm>
#include <unordered_set>

ACRX_CONS_DEFINE_MEMBERS(AcDbGroup, AcDbObject)

using zuhost::TagRange;

namespace {

constexpr std::string_view kMarker = "AcDbGroup";
constexpr int kMember = 340;

} // namespace

AcDbGroup::AcDbGroup() {
    startRecords("GROUP", {kMarker});
    setTextTag(kMarker, 300, L"");
    setIntegerTag(kMarker, 70, 0);
    setIntegerTag(kMarker, 71, 1);
}

AcDbGroup::AcDbGroup(const ACHAR* description, bool selectable) : AcDbGroup() {
    setDescription(description);
    setSelectable(selectable);
}

std::wstring AcDbGroup::description() const {
    return textTag(kMarker, 300);
}
Acad::ErrorStatus AcDbGroup::setDescription(const ACHAR* description) {
    return setTextTag(kMarker, 300, description);
}
bool AcDbGroup::isSelectable() const {
    return integerTag(kMarker, 71, 1) != 0;
}
Acad::ErrorStatus AcDbGroup::setSelectable(bool selectable) {
    return setIntegerTag(kMarker, 71, selectable ? 1 : 0);
}
bool AcDbGroup::isAnonymous() const {
    return integerTag(kMarker, 70, 0) != 0;
}
Acad::ErrorStatus AcDbGroup::setAnonymous() {
    return setIntegerTag(kMarker, 70, 1);
}

std::wstring AcDbGroup::getName() const {
    std::wstring name;
    AcDbStub* const owner = ownerId();
    if (owner == nullptr || core()->classOf(*owner) != AcDbDictionary::desc())
        return name;
    static_cast<const AcDbDictionary&>(core()->object(*owner)).nameAt(objectId(), name);
    return name;
}

Adesk::UInt32 AcDbGroup::allEntityIds(AcDbObjectIdArray& ids) const {
    ids.removeAll();
    if (core() == nullptr)
        return 0;
    std::unordered_set<const AcDbStub*> seen;
    const TagRange range = section(kMarker);
    for (std::size_t i = range.first; i < range.last; ++i)
        if (AcDbStub* const member = memberAt(i, seen))
            ids.append(member);
    return static_cast<Adesk::UInt32>(ids.length());
}

AcDbStub* AcDbGroup::memberAt(std::size_t place, std::unordered_set<const AcDbStub*>& seen) const {
    if (tags()[place].code != kMember)
        return nullptr;
    const auto handle = zuhost::parseHandle(tags()[place].value);
    AcDbStub* const member = handle ? core()->document->find(*handle) : nullptr;
    return member != nullptr && seen.insert(member).second ? member : nullptr;
}

std::vector<AcDbHandle> AcDbGroup::surplusEntries() const {
    std::vector<AcDbHandle> surplus;
    if (core() == nullptr)
        return surplus;
    std::unordered_set<const AcDbStub*> seen;
    const TagRange range = section(kMarker);
    for (std::size_t i = range.first; i < range.last; ++i)
        if (tags()[i].code == kMember && memberAt(i, seen) == nullptr)
            surplus.emplace_back(zuhost::parseHandle(tags()[i].value).value_or(0));
    return surplus;
}

Acad::ErrorStatus AcDbGroup::removeSurplusEntries() {
    const Acad::ErrorStatus status = core() != nullptr ? assertWriteEnabled() : Acad::eNotInDatabase;
    if (status != Acad::eOk)
        return status;
    std::unordered_set<const AcDbStub*> seen;
    const TagRange range = section(kMarker);
    std::vector<zuhost::Tag> kept;
    for (std::size_t i = 0; i < tags().size(); ++i) {
        const bool isEntry = i >= range.first && i < range.last && tags()[i].code == kMember;
        if (!isEntry || memberAt(i, seen) != nullptr)
            kept.push_back(tags()[i]);
    }
    changingTags() = zuhost::TagList(std::move(kept));
    return Acad::eOk;
}

Adesk::UInt32 AcDbGroup::numEntities() const {
    AcDbObjectIdArray ids;
    return allEntityIds(ids);
}

AcDbGroup::Members& AcDbGroup::members() const {
    if (membersVersion_ == tagVersion())
        return members_;
    members_.clear();
    const TagRange range = section(kMarker);
    for (std::size_t i = range.first; i < range.last; ++i)
        if (const auto handle =
                tags()[i].code == kMember ? zuhost::parseHandle(tags()[i].value) : std::nullopt)
            members_.insert(*handle);
    membersVersion_ = tagVersion();
    return members_;
}

bool AcDbGroup::has(AcDbObjectId id) const {
    return !id.isNull() && members().contains(id.handle().value());
}

Acad::ErrorStatus AcDbGroup::admit(AcDbObjectId id) {
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (id.isNull())
        return Acad::eNullObjectId;
    if (id.database() != database())
        return Acad::eWrongDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (has(id))
        return Acad::eAlreadyInGroup;
    const AcDbObjectPointer<AcDbEntity> member(id, AcDb::kForWrite);
    if (member.openStatus() != Acad::eOk)
        return member.openStatus();
    return member->addPersistentReactor(objectId());
}

void AcDbGroup::enter(const std::vector<AcDbObjectId>& admitted, std::size_t place) {
    assertWriteEnabled();
    Members& known = members();
    std::vector<zuhost::Tag> added;
    for (const AcDbObjectId id : admitted) {
        added.push_back({kMember, zuhost::formatHandle(id.handle().value())});
        known.insert(id.handle().value());
    }
    changingTags().insert(place, added);
    membersVersion_ = tagVersion();
}

Acad::ErrorStatus AcDbGroup::insert(AcDbObjectId id, std::size_t place) {
    const Acad::ErrorStatus status = admit(id);
    if (status == Acad::eOk)
        enter({id}, place);
    return status;
}

Acad::ErrorStatus AcDbGroup::append(AcDbObjectId id) {
    return insert(id, section(kMarker).last);
}

Acad::ErrorStatus AcDbGroup::append(const AcDbObjectIdArray& ids) {
    std::vector<AcDbObjectId> admitted;
    std::unordered_set<AcDbObjectId> seen;
    Acad::ErrorStatus status = Acad::eOk;
    for (const AcDbObjectId id : ids) {
        if (!seen.insert(id).second)
            continue;
        status = admit(id);
        if (status == Acad::eOk)
            admitted.push_back(id);
        else if (status != Acad::eAlreadyInGroup)
            break;
        status = Acad::eOk;
    }
    if (!admitted.empty())
        enter(admitted, section(kMarker).last);
    return status;
}

Acad::ErrorStatus AcDbGroup::prepend(AcDbObjectId id) {
    return insert(id, tags().find(kMember, section(kMarker)));
}

Acad::ErrorStatus AcDbGroup::insertAt(Adesk::UInt32 index, AcDbObjectId id) {
    const TagRange range = section(kMarker);
    Adesk::UInt32 passed = 0;
    for (std::size_t i = range.first; i < range.last; ++i)
        if (tags()[i].code == kMember && passed++ == index)
            return insert(id, i);
    return passed == index ? append(id) : Acad::eInvalidIndex;
}

Acad::ErrorStatus AcDbGroup::remove(AcDbObjectId id) {
    if (!has(id))
        return Acad::eNotInGroup;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const TagRange range = section(kMarker);
    for (std::size_t i = range.last; i-- > range.first;)
        if (tags()[i].code == kMember && zuhost::parseHandle(tags()[i].value) == id.handle().value())
            changingTags().erase({i, i + 1});
    leave(id);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::clear() {
    AcDbObjectIdArray ids;
    allEntityIds(ids);
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const TagRange range = section(kMarker);
    std::vector<zuhost::Tag> kept(tags().begin(), tags().end());
    const auto first = kept.begin() + static_cast<std::ptrdiff_t>(range.first);
    const auto last = kept.begin() + static_cast<std::ptrdiff_t>(range.last);
    kept.erase(std::remove_if(first, last, [](const zuhost::Tag& tag) { return tag.code == kMember; }), last);
    changingTags() = zuhost::TagList(std::move(kept));
    for (const AcDbObjectId id : ids)
        leave(id);
    return Acad::eOk;
}

void AcDbGroup::leave(AcDbObjectId id) const {
    const AcDbObjectPointer<AcDbObject> member(id, AcDb::kForWrite, true);
    if (member.openStatus() == Acad::eOk)
        member->removePersistentReactor(objectId());
}
