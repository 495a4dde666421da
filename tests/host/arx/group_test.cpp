#include "sample_drawing.h"
#include <zuhost/drawing_files.h>
#include <zuhost/members.h>
#include <zuhost/names.h>

#include <algorithm>
#include <random>

namespace {

class Groups : public SampleDrawing {
protected:
    static std::vector<Adesk::UInt64> members(const AcDbGroup& group) {
        AcDbObjectIdArray ids;
        group.allEntityIds(ids);
        std::vector<Adesk::UInt64> handles;
        for (const AcDbObjectId member : ids)
            handles.push_back(member.handle().value());
        return handles;
    }

    [[nodiscard]] bool hasReactor(Adesk::UInt64 entity, Adesk::UInt64 group) const {
        return AcDbObjectPointer<AcDbObject>(id(entity), AcDb::kForRead, true)
            ->hasPersistentReactor(id(group));
    }
};

using Handles = std::vector<Adesk::UInt64>;

} // namespace

TEST_F(Groups, MembersAreListedInOrder) {
    const AcDbObjectPointer<AcDbGroup> furniture(id(kFurniture));
    EXPECT_EQ(zuhost::groupName(*furniture), L"家具");
    EXPECT_EQ(members(*furniture), (Handles{0x106, 0x108, 0x10A}));
    AcDbObjectIdArray ids;
    ids.append(id(kDuct));
    EXPECT_EQ(furniture->allEntityIds(ids), 3U) << "the list is emptied first";
    EXPECT_TRUE(zuhost::isMember(*furniture, id(kShelf)));
    EXPECT_FALSE(zuhost::isMember(*furniture, id(kDuct)));
    const AcDbObjectPointer<AcDbGroup> supply(id(kSupply));
    EXPECT_EQ(supply->numEntities(), 23U);
    Handles passed;
    for (const std::unique_ptr<AcDbGroupIterator> i(supply->newIterator()); !i->done(); i->next())
        passed.push_back(i->objectId().handle().value());
    EXPECT_EQ(passed, members(*supply));
    EXPECT_TRUE(supply->isAnonymous());
}

TEST_F(Groups, MembersAreInsertedAtTheirPlaces) {
    AcDbObjectPointer<AcDbGroup> group(id(kSingle), AcDb::kForWrite);
    EXPECT_EQ(group->append(id(kDuct)), Acad::eOk);
    EXPECT_EQ(group->prepend(id(kShelf)), Acad::eOk);
    EXPECT_EQ(group->insertAt(1, id(kAirHandler)), Acad::eOk);
    EXPECT_EQ(group->insertAt(4, id(0x110)), Acad::eOk);
    EXPECT_EQ(group->insertAt(9, id(0x112)), Acad::eInvalidIndex);
    EXPECT_EQ(group->append(id(kDuct)), Acad::eAlreadyInGroup);
    EXPECT_EQ(group->append(AcDbObjectId::kNull), Acad::eNullObjectId);
    const Handles expected{kShelf, kAirHandler, kBranch, kDuct, 0x110};
    EXPECT_EQ(members(*group), expected);
    for (const Adesk::UInt64 member : expected)
        EXPECT_TRUE(hasReactor(member, kSingle)) << member;
    EXPECT_FALSE(hasReactor(0x112, kSingle));
    group.close();
    const auto again = reopened();
    const AcDbObjectPointer<AcDbGroup> read(idIn(*again, kSingle));
    EXPECT_EQ(members(*read), expected);
    EXPECT_TRUE(AcDbObjectPointer<AcDbObject>(idIn(*again, kShelf))->hasPersistentReactor(read->objectId()));
}

TEST_F(Groups, PlacesOfMembersDoNotCountSurplusEntries) {
    std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::size_t first = bytes.find("340\n106\n");
    ASSERT_NE(first, std::string::npos);
    bytes.insert(first, "340\nFFF\n340\n106\n");
    const auto damaged = readBytes(bytes);
    const AcDbObjectPointer<AcDbGroup> group(idIn(*damaged, kFurniture), AcDb::kForWrite);
    EXPECT_EQ(group->insertAt(1, idIn(*damaged, kDuct)), Acad::eOk);
    EXPECT_EQ(members(*group), (Handles{0x106, kDuct, 0x108, 0x10A}));
}

TEST_F(Groups, ListsAreAddedAndMembersRemoved) {
    const AcDbObjectPointer<AcDbGroup> group(id(kSingle), AcDb::kForWrite);
    AcDbObjectIdArray ids;
    for (const Adesk::UInt64 handle : {kDuct, kBranch, kDuct, kShelf})
        ids.append(id(handle));
    EXPECT_EQ(group->append(ids), Acad::eOk);
    EXPECT_EQ(members(*group), (Handles{kBranch, kDuct, kShelf}));
    EXPECT_EQ(group->remove(id(kDuct)), Acad::eOk);
    EXPECT_EQ(group->remove(id(kDuct)), Acad::eNotInGroup);
    EXPECT_FALSE(zuhost::isMember(*group, id(kDuct)));
    EXPECT_TRUE(zuhost::isMember(*group, id(kShelf)));
    EXPECT_FALSE(hasReactor(kDuct, kSingle));
    EXPECT_TRUE(hasReactor(kDuct, kSupply));
    EXPECT_EQ(group->clear(), Acad::eOk);
    EXPECT_EQ(group->numEntities(), 0U);
    EXPECT_EQ(group->append(id(kShelf)), Acad::eOk);
    EXPECT_EQ(group->prepend(ids), Acad::eOk);
    EXPECT_EQ(members(*group), (Handles{kDuct, kBranch, kShelf}));
    EXPECT_EQ(group->clear(), Acad::eOk);
    EXPECT_FALSE(hasReactor(kBranch, kSingle));
}

TEST_F(Groups, OpenMembersAndGroupsOpenForReadAreRejected) {
    const AcDbObjectPointer<AcDbGroup> group(id(kSingle));
    EXPECT_EQ(group->append(id(kDuct)), Acad::eNotOpenForWrite);
    EXPECT_EQ(group->remove(id(kBranch)), Acad::eNotOpenForWrite);
    group->upgradeOpen();
    AcDbObjectPointer<AcDbEntity> reading(id(kDuct));
    EXPECT_EQ(group->append(id(kDuct)), Acad::eWasOpenForRead);
    EXPECT_EQ(members(*group), Handles{kBranch});
    EXPECT_EQ(group->append(id(kSupply)), Acad::eNotThatKindOfClass);
    AcDbDatabase other;
    EXPECT_EQ(group->append(add(other, new AcDbPoint)), Acad::eWrongDatabase);
    AcDbGroup loose;
    EXPECT_EQ(loose.append(id(kShelf)), Acad::eNotInDatabase);
}

TEST_F(Groups, ErasedMembersStayUntilSaved) {
    erase(id(kShelf));
    {
        const AcDbObjectPointer<AcDbGroup> furniture(id(kFurniture));
        EXPECT_EQ(furniture->numEntities(), 3U);
    }
    const auto without = reopened();
    EXPECT_EQ(members(*AcDbObjectPointer<AcDbGroup>(idIn(*without, kFurniture))), (Handles{0x108, 0x10A}));
    erase(id(kShelf), false);
    EXPECT_EQ(members(*AcDbObjectPointer<AcDbGroup>(idIn(*reopened(), kFurniture))),
              (Handles{0x106, 0x108, 0x10A}));
}

TEST_F(Groups, ErasedGroupsAreNoReactorsAfterSaving) {
    erase(id(kFurniture));
    EXPECT_TRUE(hasReactor(kShelf, kFurniture));
    const std::string saved = zuhost::dxfOutBytes(*drawing, false);
    EXPECT_EQ(saved.find("  3\n家具\n"), std::string::npos) << "the dictionary entry is dropped";
    const auto again = readBytes(saved);
    const AcDbObjectPointer<AcDbObject> shelf(idIn(*again, kShelf));
    EXPECT_EQ(shelf->reactors()->length(), 0);
    AcDbObjectId found;
    EXPECT_EQ(AcDbObjectPointer<AcDbDictionary>(again->groupDictionaryId())->getAt(L"家具", found),
              Acad::eKeyNotFound);
    // Unerasing the group restores all references to it.
    erase(id(kFurniture), false);
    EXPECT_EQ(members(*AcDbObjectPointer<AcDbGroup>(idIn(*reopened(), kFurniture))),
              (Handles{0x106, 0x108, 0x10A}));
}

TEST_F(Groups, RandomChangesReachTheRecords) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    };
    const Handles pool = members(*AcDbObjectPointer<AcDbGroup>(id(kSupply)));
    Handles expected = pool;
    for (int round = 0; round < 60; ++round) {
        const Handles before = expected;
        drawing->startUndoRecord();
        for (std::size_t change = 0; change < 1 + below(8); ++change) {
            const AcDbObjectPointer<AcDbGroup> group(id(kSupply), AcDb::kForWrite);
            const Adesk::UInt64 handle = pool[below(pool.size())];
            if (std::erase(expected, handle) > 0) {
                EXPECT_EQ(group->remove(id(handle)), Acad::eOk);
            } else if (below(2) == 0) {
                expected.insert(expected.begin(), handle);
                EXPECT_EQ(group->prepend(id(handle)), Acad::eOk);
            } else {
                expected.push_back(handle);
                EXPECT_EQ(group->append(id(handle)), Acad::eOk);
            }
            EXPECT_EQ(group->numEntities(), expected.size());
            EXPECT_EQ(zuhost::isMember(*group, id(handle)),
                      std::find(expected.begin(), expected.end(), handle) != expected.end());
        }
        if (below(3) == 0) {
            EXPECT_EQ(drawing->undo(), Acad::eOk);
            expected = before;
        }
        if (below(2) == 0) {
            EXPECT_EQ(members(*AcDbObjectPointer<AcDbGroup>(id(kSupply))), expected);
        }
        if (below(10) == 0) {
            EXPECT_EQ(members(*AcDbObjectPointer<AcDbGroup>(idIn(*reopened(), kSupply))), expected);
        }
    }
    for (const Adesk::UInt64 handle : pool)
        EXPECT_EQ(hasReactor(handle, kSupply),
                  std::find(expected.begin(), expected.end(), handle) != expected.end());
}
