#include "test_drawing.h"

#include <zucomn/dbservices.h>
#include <zucomn/route.h>

#include <afx.h>

namespace {

class Existence : public testing::Test {
protected:
    AcDbObjectId element(const wchar_t* link = nullptr) {
        const AcDbObjectId id = drawing.element(block, {});
        if (link != nullptr)
            TestDrawing::setLink(id, link);
        return id;
    }
    AcDbObjectId dead() {
        const AcDbObjectId id = element();
        TestDrawing::erase(id);
        return id;
    }
    static AcDbObjectId group(std::initializer_list<AcDbObjectId> members) {
        AcDbObjectId id;
        EXPECT_EQ(RootComn_CreateNewGroup(L"*", TestDrawing::ids(members), id, false), 0);
        return id;
    }
    /// Writes a link record that contains a number but no text.
    static void setLinkNumber(AcDbObjectId id) {
        const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
        const std::unique_ptr<resbuf, decltype(&acutRelRb)> chain(acutNewRb(1001), &acutRelRb);
        acutNewString(L"ZU_LINK", chain->resval.rstring);
        chain->rbnext = acutNewRb(1070);
        EXPECT_EQ(object->setXData(chain.get()), Acad::eOk);
    }
    static AcDbObjectIdArray members(AcDbObjectId id) {
        AcDbObjectIdArray found;
        RootComn_GetGroupMember(id, found);
        return found;
    }

    TestDrawing drawing;
    AcDbObjectId block = drawing.block(L"RT-1", {});
};

TEST_F(Existence, DetectsErasedAndMissingObjects) {
    const AcDbObjectId live = element();
    const AcDbObjectId gone = dead();
    EXPECT_EQ(ZuComn_ExistenceIdCheck(live), 0);
    EXPECT_EQ(ZuComn_ExistenceIdCheck(gone), 1);
    EXPECT_EQ(ZuComn_ExistenceIdCheck({}), 1);
    TestDrawing::erase(gone, false);
    EXPECT_EQ(ZuComn_ExistenceIdCheck(gone), 0);
}

TEST_F(Existence, ListsKeepLiveIdsInOrder) {
    const AcDbObjectId a = element();
    const AcDbObjectId b = element();
    const AcDbObjectId gone = dead();
    AcDbObjectIdArray ids = TestDrawing::ids({a, gone, b, gone, {}, a});
    ZuComn_ExistenceIdChecks(ids);
    EXPECT_EQ(ids, TestDrawing::ids({a, b, a}));
}

TEST_F(Existence, RemovesDeadMembersFromGroups) {
    const AcDbObjectId a = element();
    const AcDbObjectId b = element();
    const AcDbObjectId c = element();
    const AcDbObjectId d = element();
    const AcDbObjectId id = group({a, b, c, d});
    for (const AcDbObjectId gone : {b, c, d})
        TestDrawing::erase(gone);
    ZuComn_ExistenceGroupIdCheck(id, a);
    ZuComn_ExistenceGroupIdCheck(id, b);
    EXPECT_EQ(members(id), TestDrawing::ids({a, c, d}));
    AcDbObjectIdArray asked = TestDrawing::ids({c, a});
    ZuComn_ExistenceGroupIdChecks(id, asked);
    EXPECT_EQ(asked, TestDrawing::ids({a}));
    EXPECT_EQ(members(id), TestDrawing::ids({a, d}));
    ZuComn_ExistenceGroupIdChecks(id);
    EXPECT_EQ(members(id), TestDrawing::ids({a}));
    ZuComn_ExistenceGroupIdChecks(AcDbObjectId());
}

TEST_F(Existence, AppendsGroupsOfAnElement) {
    const AcDbObjectId a = element();
    const AcDbObjectId loose = element();
    const AcDbObjectId first = group({a});
    const AcDbObjectId second = group({a});
    AcDbObjectIdArray groups = TestDrawing::ids({loose});
    EXPECT_EQ(ZuComn_GetGroupID(loose, groups), 0);
    EXPECT_EQ(ZuComn_GetGroupID(a, groups), 0);
    EXPECT_EQ(groups, TestDrawing::ids({loose, first, second}));
    EXPECT_EQ(ZuComn_GetGroupID(AcDbObjectId(), groups), -1);
    TestDrawing::erase(a);
    groups.removeAll();
    EXPECT_EQ(ZuComn_GetGroupID(a, groups), 0) << "erased elements are accepted";
    EXPECT_EQ(groups.length(), 2);
}

TEST_F(Existence, LinkKindSelectsAmongSeveralGroups) {
    const AcDbObjectId two = element(L"2|x|");
    const AcDbObjectId three = element(L"3|x|");
    const AcDbObjectId bare = element();
    const AcDbObjectId tee = element(L"0|");
    const AcDbObjectId ofTwo = group({two, tee});
    EXPECT_EQ(ZuComn_GetGroupID(tee, 4), ofTwo) << "the only group, whatever its kind";
    group({bare, tee});
    const AcDbObjectId ofThree = group({three, tee});
    EXPECT_EQ(ZuComn_GetGroupID(tee, 3), ofThree);
    EXPECT_EQ(ZuComn_GetGroupID(tee, 4), AcDbObjectId());
    EXPECT_EQ(ZuComn_GetGroupID(AcDbObjectId(), 3), AcDbObjectId());
    TestDrawing::setLink(two, L"");
    EXPECT_THROW(ZuComn_GetGroupID(tee, 3), CInvalidArgException*)
        << "an element with an empty record is corrupt";
    setLinkNumber(two);
    EXPECT_THROW(ZuComn_GetGroupID(tee, 3), CInvalidArgException*) << "so is one whose record has no text";
    TestDrawing::setTexts(two, L"ZU_LINK", {L"|2|"});
    EXPECT_EQ(ZuComn_GetGroupID(tee, 0), ofTwo) << "an empty first field counts as 0";
}

} // namespace
