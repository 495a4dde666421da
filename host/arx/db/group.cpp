#include "dbgroup.h"

#include "database_core.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "dxf_records/number_text.h"
#include "new_text.h"

#include <algorithm>
#include <unordered_set>

ACRX_CONS_DEFINE_MEMBERS(AcDbGroup, AcDbObject)

using zuhost::TagRange;
using zuhost::TagRef;
using zuhost::TagView;

namespace {

constexpr std::string_view kMarker = "AcDbGroup";
constexpr int kMember = 340;
constexpr std::int64_t kInRecords = 0;

zuhost::Tag entryOf(std::uint64_t handle) {
    return {kMember, zuhost::formatHandle(handle)};
}

/// The members of a group that were seen. Nearly all are listed in ascending order.
class SeenMembers {
public:
    /// Returns false for a member that was there.
    bool insert(const AcDbStub& member) {
        if (ascending_.empty() || ascending_.back() < member.handle) {
            ascending_.push_back(member.handle);
            return true;
        }
        return !std::ranges::binary_search(ascending_, member.handle) && others_.insert(member.handle).second;
    }

private:
    std::vector<std::uint64_t> ascending_;
    std::unordered_set<std::uint64_t> others_;
};

/// The object that the record lists as a member; null for other records and objects not in the drawing.
AcDbStub* listedBy(const TagRef& record, const zuhost::Document& document) {
    const auto handle = record.code == kMember ? record.handle() : std::nullopt;
    return handle ? document.find(*handle) : nullptr;
}

template <typename Predicate>
void eraseEntries(zuhost::TagList& tags, Predicate isErased) {
    const TagRange range = tags.subclass(kMarker);
    tags.eraseIf(range, [&](const zuhost::Tag& tag) { return tag.code == kMember && isErased(tag); });
}

} // namespace

AcDbGroupIterator::AcDbGroupIterator(const AcDbGroup& group) : group_(group) {
    start();
    next();
}

void AcDbGroupIterator::start() {
    place_ = group_.section(kMarker).begin().place();
    version_ = group_.tagVersion();
}

bool AcDbGroupIterator::next() {
    member_ = AcDbObjectId();
    if (version_ != group_.tagVersion())
        start(); // The members before it have been seen.
    const zuhost::TagView records = group_.tags();
    for (auto it = records.at(place_);
         it != records.end() && !zuhost::TagList::endsSubclass(it->code) && done(); ++it) {
        member_ = AcDbObjectId(group_.memberOf(*it, seen_));
        place_ = it.next();
    }
    return !done();
}

Acad::ErrorStatus AcDbGroupIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) const {
    object = nullptr;
    return done() ? Acad::eInvalidIndex : acdbOpenAcDbObject(object, member_, mode);
}

AcDbGroupIterator* AcDbGroup::newIterator() const {
    return new AcDbGroupIterator(*this);
}

zuhost::TagList AcDbGroup::newRecords() const {
    zuhost::TagList records = recordsOf("GROUP", {kMarker});
    for (const auto& [code, value] : {std::pair(300, ""), {70, "0"}, {71, "1"}})
        records.add(code, value);
    return records;
}

AcDbGroup::AcDbGroup(const ACHAR* description, bool selectable) : AcDbGroup() {
    setDescription(description);
    setSelectable(selectable);
}

const ACHAR* AcDbGroup::description() const {
    description_ = textTag(kMarker, 300);
    return description_.c_str();
}
Acad::ErrorStatus AcDbGroup::setDescription(const ACHAR* description) {
    return setTextTag(kMarker, 300, description != nullptr ? description : L"");
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

std::wstring AcDbGroup::nameInDictionary() const {
    AcString name;
    AcDbStub* const owner = ownerId();
    if (owner != nullptr && core()->classOf(*owner) == AcDbDictionary::desc())
        static_cast<const AcDbDictionary&>(core()->object(*owner)).nameAt(objectId(), name);
    return name.kwszPtr();
}

Acad::ErrorStatus AcDbGroup::getName(ACHAR*& name) const {
    const std::wstring known = nameInDictionary();
    name = known.empty() ? nullptr : zuhost::newText(known);
    return known.empty() ? Acad::eNotInDatabase : Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::getName(AcString& name) const {
    name = nameInDictionary().c_str();
    return name.isEmpty() ? Acad::eNotInDatabase : Acad::eOk;
}

Adesk::UInt32 AcDbGroup::allEntityIds(AcDbObjectIdArray& ids) const {
    ids.removeAll();
    if (core() == nullptr)
        return 0;
    SeenMembers seen;
    for (const TagRef& tag : section(kMarker))
        if (AcDbStub* const member = listedBy(tag, *core()->document); member && seen.insert(*member))
            ids.append(member);
    return static_cast<Adesk::UInt32>(ids.length());
}

AcDbStub* AcDbGroup::memberOf(const TagRef& record, std::unordered_set<const AcDbStub*>& seen) const {
    AcDbStub* const member = core() != nullptr ? listedBy(record, *core()->document) : nullptr;
    return member != nullptr && seen.insert(member).second ? member : nullptr;
}

std::vector<AcDbHandle> AcDbGroup::surplusEntries() const {
    std::vector<AcDbHandle> surplus;
    if (core() == nullptr)
        return surplus;
    SeenMembers seen;
    for (const TagRef& tag : section(kMarker)) {
        const AcDbStub* const member = listedBy(tag, *core()->document);
        if (tag.code == kMember && (member == nullptr || !seen.insert(*member)))
            surplus.emplace_back(tag.handle().value_or(0));
    }
    return surplus;
}

Acad::ErrorStatus AcDbGroup::removeSurplusEntries() {
    const Acad::ErrorStatus status = core() != nullptr ? assertWriteEnabled() : Acad::eNotInDatabase;
    if (status != Acad::eOk)
        return status;
    std::unordered_set<const AcDbStub*> seen;
    eraseEntries(changingTags(), [&](const zuhost::Tag& entry) {
        return memberOf({entry.code, entry.value, false}, seen) == nullptr;
    });
    return Acad::eOk;
}

Adesk::UInt32 AcDbGroup::numEntities() const {
    return core() != nullptr ? static_cast<Adesk::UInt32>(members().size()) : 0;
}

AcDbGroup::Members& AcDbGroup::members() const {
    if (membersVersion_ == tagVersion())
        return members_;
    members_.clear();
    std::unordered_set<const AcDbStub*> seen;
    for (const TagRef& tag : section(kMarker))
        if (const AcDbStub* const member = memberOf(tag, seen))
            members_.emplace(member->handle, kInRecords);
    membersVersion_ = tagVersion();
    return members_;
}

bool AcDbGroup::has(const AcDbEntity* entity) const {
    return entity != nullptr && hasMember(entity->objectId());
}

Acad::ErrorStatus AcDbGroup::getIndex(AcDbObjectId id, Adesk::UInt32& index) const {
    AcDbObjectIdArray ids;
    allEntityIds(ids);
    const int found = ids.find(id);
    if (found < 0)
        return Acad::eNotInGroup;
    index = static_cast<Adesk::UInt32>(found);
    return Acad::eOk;
}

bool AcDbGroup::hasMember(AcDbObjectId id) const {
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
    if (hasMember(id))
        return Acad::eAlreadyInGroup;
    // Membership is not drawn: entities on locked layers can be grouped too.
    const AcDbObjectPointer<AcDbEntity> member(id, AcDb::kForWrite, false, true);
    if (member.openStatus() != Acad::eOk)
        return member.openStatus();
    return member->addPersistentReactor(objectId());
}

void AcDbGroup::addPending(AcDbObjectId admitted, std::int64_t position) {
    assertWriteEnabled();
    const std::uint64_t handle = admitted.handle().value();
    members().emplace(handle, position);
    pendingMembers_.emplace(position, handle);
    deferMemberChange();
}

void AcDbGroup::addFirst(AcDbObjectId admitted) {
    addPending(admitted,
               std::min(pendingMembers_.empty() ? kInRecords : pendingMembers_.begin()->first, kInRecords) -
                   1);
}

void AcDbGroup::addLast(AcDbObjectId admitted) {
    addPending(admitted,
               std::max(pendingMembers_.empty() ? kInRecords : pendingMembers_.rbegin()->first, kInRecords) +
                   1);
}

Acad::ErrorStatus AcDbGroup::append(AcDbObjectId id) {
    const Acad::ErrorStatus status = admit(id);
    if (status == Acad::eOk)
        addLast(id);
    return status;
}

Acad::ErrorStatus AcDbGroup::prepend(AcDbObjectId id) {
    const Acad::ErrorStatus status = admit(id);
    if (status == Acad::eOk)
        addFirst(id);
    return status;
}

Acad::ErrorStatus AcDbGroup::admitAll(const AcDbObjectIdArray& ids, std::vector<AcDbObjectId>& admitted) {
    std::unordered_set<AcDbObjectId> seen;
    for (const AcDbObjectId id : ids) {
        if (!seen.insert(id).second)
            continue;
        const Acad::ErrorStatus status = admit(id);
        if (status == Acad::eOk)
            admitted.push_back(id);
        else if (status != Acad::eAlreadyInGroup)
            return status;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::append(const AcDbObjectIdArray& ids) {
    std::vector<AcDbObjectId> admitted;
    const Acad::ErrorStatus status = admitAll(ids, admitted);
    for (const AcDbObjectId id : admitted)
        addLast(id);
    return status;
}

Acad::ErrorStatus AcDbGroup::prepend(const AcDbObjectIdArray& ids) {
    std::vector<AcDbObjectId> admitted;
    const Acad::ErrorStatus status = admitAll(ids, admitted);
    for (; !admitted.empty(); admitted.pop_back())
        addFirst(admitted.back());
    return status;
}

Acad::ErrorStatus AcDbGroup::insertAt(Adesk::UInt32 index, AcDbObjectId id) {
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (index >= numEntities())
        return index == numEntities() ? append(id) : Acad::eInvalidIndex;
    const Acad::ErrorStatus status = admit(id);
    if (status != Acad::eOk)
        return status;
    assertWriteEnabled();
    const std::size_t place = placeOf(index);
    members().emplace(id.handle().value(), kInRecords);
    changingTags().insert(place, entryOf(id.handle().value()));
    membersVersion_ = tagVersion();
    return Acad::eOk;
}

std::size_t AcDbGroup::placeOf(Adesk::UInt32 index) const {
    std::unordered_set<const AcDbStub*> seen;
    const TagView part = section(kMarker);
    auto it = part.begin();
    for (Adesk::UInt32 passed = 0; it != part.end(); ++it)
        if (memberOf(*it, seen) != nullptr && passed++ == index)
            break;
    return it.place();
}

Acad::ErrorStatus AcDbGroup::remove(AcDbObjectId id) {
    if (!hasMember(id))
        return Acad::eNotInGroup;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    const auto member = members().extract(id.handle().value());
    if (member.mapped() != kInRecords)
        pendingMembers_.erase(member.mapped());
    else
        removedMembers_.insert(member.key());
    deferMemberChange();
    detach(id);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::remove(const AcDbObjectIdArray& ids) {
    for (const AcDbObjectId id : ids)
        if (!hasMember(id))
            return Acad::eNotInGroup;
    for (const AcDbObjectId id : ids)
        if (const Acad::ErrorStatus status = hasMember(id) ? remove(id) : Acad::eOk; status != Acad::eOk)
            return status;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbGroup::removeAt(Adesk::UInt32 index) {
    AcDbObjectIdArray ids;
    return index < allEntityIds(ids) ? remove(ids[static_cast<int>(index)]) : Acad::eInvalidIndex;
}

Acad::ErrorStatus AcDbGroup::clear() {
    AcDbObjectIdArray ids;
    allEntityIds(ids);
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    eraseEntries(changingTags(), [](const zuhost::Tag&) { return true; });
    for (const AcDbObjectId id : ids)
        detach(id);
    return Acad::eOk;
}

void AcDbGroup::deferMemberChange() {
    deferChange();
    membersVersion_ = tagVersion();
}

void AcDbGroup::applyDeferred(zuhost::TagList& tags) const {
    eraseEntries(tags, [this](const zuhost::Tag& entry) {
        const auto handle = zuhost::parseHandle(entry.value);
        return handle && removedMembers_.contains(*handle);
    });
    std::vector<zuhost::Tag> before;
    std::vector<zuhost::Tag> after;
    for (const auto& [position, handle] : pendingMembers_) {
        (position < kInRecords ? before : after).push_back(entryOf(handle));
        members_[handle] = kInRecords;
    }
    tags.insert(tags.subclass(kMarker).last, after);
    tags.insert(tags.find(kMember, tags.subclass(kMarker)), before);
    removedMembers_.clear();
    pendingMembers_.clear();
}

void AcDbGroup::detach(AcDbObjectId id) const {
    const AcDbObjectPointer<AcDbObject> member(id, AcDb::kForWrite, true, true);
    if (member.openStatus() == Acad::eOk)
        member->removePersistentReactor(objectId());
}
