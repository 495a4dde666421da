#pragma once

#include "dbmain.h"

#include <zuhost/platform/export.h>

#include <map>
#include <unordered_map>
#include <unordered_set>

class AcDbGroup;

/// Iterates over the members of a group in order, each once, and reads the records only as far as needed. The
/// group must stay open and unchanged while the iterator is in use.
class ZUHOST_API AcDbGroupIterator {
public:
    [[nodiscard]] AcDbObjectId objectId() const { return member_; }
    /// Opens the member; the caller closes it. eInvalidIndex at the end.
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead) const;
    [[nodiscard]] bool done() const { return member_.isNull(); }
    /// False at the end.
    bool next();

private:
    friend class AcDbGroup;
    explicit AcDbGroupIterator(const AcDbGroup& group);
    void start();

    const AcDbGroup& group_;
    std::size_t place_ = 0;
    std::uint32_t version_ = 0; ///< Of the records in which `place_` is the next one.
    AcDbObjectId member_;
    std::unordered_set<const AcDbStub*> seen_;
};

/// A named, ordered set of entities. The group is a persistent reactor of each of its members.
class ZUHOST_API AcDbGroup : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbGroup);
    AcDbGroup() = default;
    explicit AcDbGroup(const ACHAR* description, bool selectable = true);

    /// Valid until the next call or the object's end.
    [[nodiscard]] const ACHAR* description() const;
    Acad::ErrorStatus setDescription(const ACHAR* description);
    [[nodiscard]] bool isSelectable() const;
    Acad::ErrorStatus setSelectable(bool selectable);
    /// Returns true when the group's name was generated.
    [[nodiscard]] bool isAnonymous() const;
    Acad::ErrorStatus setAnonymous();
    /// Returns the group's name in its dictionary, which the caller of the first form frees with
    /// acutDelString; eNotInDatabase and an empty name (null in the first form) when it is in none.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus getName(AcString& name) const;

    /// Returns each member once, in order, including erased members, which can be restored.
    Adesk::UInt32 allEntityIds(AcDbObjectIdArray& ids) const;
    [[nodiscard]] Adesk::UInt32 numEntities() const;
    /// The caller deletes the iterator.
    [[nodiscard]] AcDbGroupIterator* newIterator() const;
    [[nodiscard]] bool has(const AcDbEntity* entity) const;
    /// Returns the position of a member, counted from 0; eNotInGroup for others.
    Acad::ErrorStatus getIndex(AcDbObjectId id, Adesk::UInt32& index) const;

    /// eAlreadyInGroup for a member. The entity must not be open.
    Acad::ErrorStatus append(AcDbObjectId id);
    Acad::ErrorStatus prepend(AcDbObjectId id);
    /// Adds those of the list that are not members yet, each once, in the order of the list. Stops at the
    /// first that can't be added and returns its error.
    Acad::ErrorStatus append(const AcDbObjectIdArray& ids);
    Acad::ErrorStatus prepend(const AcDbObjectIdArray& ids);
    /// Inserts before the member with the index, counted from 0; appends for the number of members.
    /// eInvalidIndex for greater indices.
    Acad::ErrorStatus insertAt(Adesk::UInt32 index, AcDbObjectId id);
    /// eNotInGroup when it is not a member.
    Acad::ErrorStatus remove(AcDbObjectId id);
    /// Removes the members of the list; eNotInGroup, and nothing is removed, when one is no member.
    Acad::ErrorStatus remove(const AcDbObjectIdArray& ids);
    /// eInvalidIndex when there is no such member.
    Acad::ErrorStatus removeAt(Adesk::UInt32 index);
    Acad::ErrorStatus clear();

private:
    friend class AcDbGroupIterator;
    [[nodiscard]] zuhost::TagList newRecords() const override;
    friend struct zuhost::ObjectAccess;
    [[nodiscard]] bool hasMember(AcDbObjectId id) const;
    [[nodiscard]] std::vector<AcDbHandle> surplusEntries() const;
    Acad::ErrorStatus removeSurplusEntries();
    [[nodiscard]] std::wstring nameInDictionary() const;
    /// Maps handles of members to positions: 0 for members in the records, negative for pending ones before
    /// them, positive for pending ones after them.
    using Members = std::unordered_map<std::uint64_t, std::int64_t>;
    void applyDeferred(zuhost::TagList& tags) const override;
    /// Returns the index of the members. Built on first use; the group's own changes update it, others
    /// rebuild it.
    Members& members() const;
    /// Returns the member that the record refers to; null for other records, for members already in `seen`
    /// and for objects that are not in the drawing.
    AcDbStub* memberOf(const zuhost::TagRef& record, std::unordered_set<const AcDbStub*>& seen) const;
    /// Checks a new member and makes the group its reactor.
    Acad::ErrorStatus admit(AcDbObjectId id);
    /// Admits those of the list that are not members yet.
    Acad::ErrorStatus admitAll(const AcDbObjectIdArray& ids, std::vector<AcDbObjectId>& admitted);
    /// Removes the group from the reactors of a former member.
    void detach(AcDbObjectId id) const;
    void addFirst(AcDbObjectId admitted);
    void addLast(AcDbObjectId admitted);
    void addPending(AcDbObjectId admitted, std::int64_t position);
    /// Returns the place of the member's record.
    [[nodiscard]] std::size_t placeOf(Adesk::UInt32 index) const;
    /// Defers a change of the records, which would move all later ones with each member.
    void deferMemberChange();

    mutable std::wstring description_;
    mutable Members members_;
    /// Handles by position that are not in the records yet.
    mutable std::map<std::int64_t, std::uint64_t> pendingMembers_;
    mutable std::unordered_set<std::uint64_t>
        removedMembers_; ///< Removed handles that are still in the records.
    mutable std::uint32_t membersVersion_ = ~std::uint32_t{0};
};
