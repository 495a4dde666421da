#pragma once

#include "dbmain.h"

#include <map>
#include <unordered_map>
#include <unordered_set>

class AcDbGroup;

/// Goes through the members of a group in order, each once, reading no further than it is asked to. The group
/// stays open, and is not changed, as long as it is in use.
class AcDbGroupIterator {
public:
    explicit AcDbGroupIterator(const AcDbGroup& group);

    [[nodiscard]] AcDbObjectId objectId() const { return member_; }
    [[nodiscard]] bool done() const { return member_.isNull(); }
    /// False at the end.
    bool next();

private:
    const AcDbGroup& group_;
    std::size_t place_;
    AcDbObjectId member_;
    std::unordered_set<const AcDbStub*> seen_;
};

/// A named, ordered set of entities. The group is a persistent reactor of each of its members.
class AcDbGroup : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbGroup);
    AcDbGroup();
    explicit AcDbGroup(const ACHAR* description, bool selectable = true);

    [[nodiscard]] std::wstring description() const;
    Acad::ErrorStatus setDescription(const ACHAR* description);
    [[nodiscard]] bool isSelectable() const;
    Acad::ErrorStatus setSelectable(bool selectable);
    /// True when the host gave the group its name.
    [[nodiscard]] bool isAnonymous() const;
    Acad::ErrorStatus setAnonymous();
    /// Name in the group dictionary; empty when the group is in none.
    [[nodiscard]] std::wstring getName() const;

    /// Each member once, in order; erased members are still listed (they may come back).
    Adesk::UInt32 allEntityIds(AcDbObjectIdArray& ids) const;
    [[nodiscard]] Adesk::UInt32 numEntities() const;
    /// The caller deletes the iterator.
    [[nodiscard]] AcDbGroupIterator* newIterator() const;
    [[nodiscard]] bool has(AcDbObjectId id) const;

    /// eAlreadyInGroup for a member. Members must not be open for read or write elsewhere.
    Acad::ErrorStatus append(AcDbObjectId id);
    Acad::ErrorStatus prepend(AcDbObjectId id);
    /// Those of the list that are no members yet, each once and in the order of the list; ends with the first
    /// that can't be one.
    Acad::ErrorStatus append(const AcDbObjectIdArray& ids);
    Acad::ErrorStatus prepend(const AcDbObjectIdArray& ids);
    /// Before the member with the index, counted from 0; at the end for their number. eInvalidIndex beyond
    /// it.
    Acad::ErrorStatus insertAt(Adesk::UInt32 index, AcDbObjectId id);
    /// eNotInGroup for one that is no member.
    Acad::ErrorStatus remove(AcDbObjectId id);
    Acad::ErrorStatus clear();

    /// Entries beside the members, as damaged drawings have them, in order: of objects that are not in the
    /// drawing, and repeated ones.
    [[nodiscard]] std::vector<AcDbHandle> surplusEntries() const;
    Acad::ErrorStatus removeSurplusEntries();

private:
    friend class AcDbGroupIterator;
    /// Places of members by handle: 0 for those in the records, negative for new ones before them, positive
    /// for new ones behind them.
    using Members = std::unordered_map<std::uint64_t, std::int64_t>;
    void bringUpToDate(zuhost::TagList& tags) const override;
    /// Kept up to date by the group's own changes.
    Members& members() const;
    /// The member that the record names for the first time; null for other records and surplus entries.
    AcDbStub* memberOf(const zuhost::Tag& record, std::unordered_set<const AcDbStub*>& seen) const;
    /// Checks a new member and makes the group its reactor.
    Acad::ErrorStatus admit(AcDbObjectId id);
    /// Those of the list that are no members yet.
    Acad::ErrorStatus admitAll(const AcDbObjectIdArray& ids, std::vector<AcDbObjectId>& admitted);
    void leave(AcDbObjectId id) const;
    void enterFirst(AcDbObjectId admitted);
    void enterLast(AcDbObjectId admitted);
    void enter(AcDbObjectId admitted, std::int64_t place);
    Acad::ErrorStatus insert(AcDbObjectId id, std::size_t place);
    void letRecordsLag();

    mutable Members members_;
    /// Handles that the records don't list yet, by place.
    mutable std::map<std::int64_t, std::uint64_t> arrived_;
    mutable std::unordered_set<std::uint64_t> departed_; ///< Handles that the records still list.
    mutable std::uint32_t membersVersion_ = ~std::uint32_t{0};
};
