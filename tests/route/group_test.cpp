#include "sample_settings.h"
#include "test_drawing.h"

#include <zucomn/dbservices.h>
#include <zucomn/frame.h>
#include <zucomn/route.h>
#include <zuhost/drawing_files.h>
#include <zuhost/texts.h>

#include <windows.h>

namespace {

class Groups : public testing::Test {
protected:
    AcDbObjectId element(const wchar_t* link = nullptr) {
        const AcDbObjectId id = drawing.element(block, {});
        if (link != nullptr)
            TestDrawing::setLink(id, link);
        return id;
    }
    static AcDbObjectId group(const wchar_t* name, std::initializer_list<AcDbObjectId> members) {
        AcDbObjectId id;
        EXPECT_EQ(RootComn_CreateNewGroup(name, TestDrawing::ids(members), id, false), 0);
        return id;
    }
    static AcDbObjectIdArray members(AcDbObjectId id) {
        AcDbObjectIdArray found;
        EXPECT_EQ(RootComn_GetGroupMember(id, found), 0);
        return found;
    }
    static std::wstring name(AcDbObjectId id) {
        CString text;
        RootComn_GetGroupNameFromGroupOid(id, text);
        return std::wstring(zuhost::viewOf(text));
    }
    static std::wstring handleText(AcDbObjectId id) {
        ACHAR buffer[17];
        id.handle().getIntoAsciiBuffer(buffer);
        return buffer;
    }
    static bool isGone(AcDbObjectId id) {
        int size = 0;
        return RootComn_GetGroupSize(id, &size) == -1;
    }

    TestDrawing drawing;
    AcDbObjectId block = drawing.block(L"RT-1", {});
};

TEST_F(Groups, AreCreatedNumberedAndListed) {
    const AcDbObjectId a = element();
    const AcDbObjectId b = element();
    CString key;
    EXPECT_EQ(RootComn_GetNewGroupName(key), 0);
    AcDbObjectId first;
    EXPECT_EQ(RootComn_CreateNewGroup(key, TestDrawing::ids({a, b, a}), first, false), 0);
    EXPECT_EQ(members(first), TestDrawing::ids({a, b}));
    const AcDbObjectPointer<AcDbGroup> opened(first);
    EXPECT_STREQ(opened->description(), L"*");
    EXPECT_FALSE(opened->isSelectable());
    EXPECT_EQ(name(first), L"*A1");
    EXPECT_EQ(name(group(L"*", {a})), L"*A2");
    AcDbObjectId none;
    EXPECT_EQ(RootComn_CreateNewGroup(L"X", AcDbObjectIdArray(), none, true), -1);
    EXPECT_EQ(RootComn_CreateNewGroup(L"*A1", a, none, true), -1) << "the name is taken";
    EXPECT_TRUE(none.isNull());
    const TestDrawing otherDrawing;
    EXPECT_EQ(RootComn_CreateNewGroup(L"X", TestDrawing::ids({a, b}), none, true), -1)
        << "elements of a drawing that is not the working one";
    EXPECT_EQ(RootComn_GetGroupSize(L"X", nullptr), -1);
}

TEST_F(Groups, NewMembersStandInFront) {
    const AcDbObjectId a = element();
    const AcDbObjectId b = element();
    const AcDbObjectId id = group(L"RTGR00001", {a});
    EXPECT_EQ(RootComn_AddGroupMember(L"RTGR00001", b), 0);
    EXPECT_EQ(RootComn_AddGroupMember(id, a), 0) << "a member keeps its place";
    EXPECT_EQ(members(id), TestDrawing::ids({b, a}));
    CString left;
    int remaining = -1;
    EXPECT_EQ(RootComn_DelGroupMember(id, b, left, &remaining), 0);
    EXPECT_EQ(left, L"RTGR00001");
    EXPECT_EQ(remaining, 1);
    EXPECT_EQ(RootComn_DelGroupMember(id, b), -1);
    EXPECT_EQ(RootComn_AddGroupMember(L"no such group", a), -1);
}

TEST_F(Groups, DeletingLeavesTheMembers) {
    const AcDbObjectId a = element();
    const AcDbObjectId id = group(L"RTGR00001", {a});
    EXPECT_EQ(RootComn_DelGroup(L"RTGR00001"), 0);
    EXPECT_TRUE(isGone(id));
    EXPECT_EQ(RootComn_DelGroup(L"RTGR00001"), -1);
    const AcDbObjectPointer<AcDbEntity> entity(a);
    ASSERT_EQ(entity.openStatus(), Acad::eOk);
    EXPECT_FALSE(entity->hasPersistentReactor(id));
}

TEST_F(Groups, MergeIntoTheLowestNumber) {
    const AcDbObjectId a = element(L"1|");
    const AcDbObjectId b = element(L"1|");
    const AcDbObjectId c = element(L"1|");
    const AcDbObjectId d = element(L"1|");
    const AcDbObjectId seven = group(L"RTGR00007", {a});
    const AcDbObjectId one = group(L"*", {b});
    const AcDbObjectId other = group(L"家具", {b});
    EXPECT_EQ(RootComn_MakeGroup(TestDrawing::ids({c, d, c}), TestDrawing::ids({seven, other, one})), 0);
    EXPECT_TRUE(isGone(seven));
    EXPECT_EQ(members(one), TestDrawing::ids({d, c, b, a})) << "each is put in front of the one before";
    EXPECT_EQ(members(other), TestDrawing::ids({b})) << "no route group";
}

TEST_F(Groups, OfEqualNumbersTheFirstGivenSurvives) {
    const AcDbObjectId a = element(L"1|");
    const AcDbObjectId b = element(L"1|");
    const AcDbObjectId named = group(L"RTGR00001", {a});
    const AcDbObjectId anonymous = group(L"*", {b});
    RootComn_MakeGroup(AcDbObjectIdArray(), TestDrawing::ids({named, anonymous}));
    EXPECT_EQ(members(named), TestDrawing::ids({a, b}));
    EXPECT_TRUE(isGone(anonymous));
}

TEST_F(Groups, AreRouteGroupsByTheStartOfTheirNames) {
    const AcDbObjectId a = element(L"1|");
    const AcDbObjectId b = element(L"1|");
    const AcDbObjectId lower = group(L"rtgr00003", {a});
    RootComn_MakeGroup(TestDrawing::ids({b}), TestDrawing::ids({lower}));
    EXPECT_EQ(members(lower), TestDrawing::ids({b, a}));
    const AcDbObjectId sixDigits = group(L"RTGR000015", {a});
    const AcDbObjectId two = group(L"RTGR00002", {b});
    RootComn_MakeGroup(AcDbObjectIdArray(), TestDrawing::ids({two, lower, sixDigits}));
    EXPECT_EQ(members(sixDigits), TestDrawing::ids({a, b})) << "five digits make its number";
}

TEST_F(Groups, AreMadeOfMoreThanOneElementOnly) {
    const AcDbObjectId a = element(L"1|");
    const AcDbObjectId b = element(L"1|");
    EXPECT_EQ(RootComn_MakeGroup(TestDrawing::ids({a}), AcDbObjectIdArray()), 0);
    CString name;
    EXPECT_EQ(RootComn_GetGroupSize(L"*A1", nullptr), -1);
    EXPECT_EQ(RootComn_MakeGroup(TestDrawing::ids({a, b}), AcDbObjectIdArray()), 0);
    int size = 0;
    EXPECT_EQ(RootComn_GetGroupSize(L"*A1", &size), 0);
    EXPECT_EQ(size, 2);
}

TEST_F(Groups, RepairLeavesOneGroupOfEachKind) {
    const AcDbObjectId tee = element(L"0|");
    const AcDbObjectId supply = element(L"1|");
    const AcDbObjectId back = element(L"2|");
    const AcDbObjectId nine = group(L"RTGR00009", {supply, tee});
    const AcDbObjectId four = group(L"RTGR00004", {supply, tee});
    const AcDbObjectId six = group(L"RTGR00006", {supply, tee});
    const AcDbObjectId two = group(L"RTGR00002", {back, tee});
    const AcDbObjectId onlyTee = group(L"RTGR00001", {tee});
    EXPECT_EQ(RootComn_MakeGroup(TestDrawing::ids({tee}), TestDrawing::ids({four})), 0);
    EXPECT_EQ(members(nine), TestDrawing::ids({supply}));
    EXPECT_EQ(members(six), TestDrawing::ids({supply}));
    EXPECT_TRUE(members(four).contains(tee));
    EXPECT_TRUE(members(two).contains(tee));
    EXPECT_EQ(members(onlyTee), TestDrawing::ids({tee})) << "of unknown kind";
    EXPECT_EQ(RootComn_GetRootGroups2(tee, 1), four);
    EXPECT_EQ(RootComn_GetRootGroups2(tee, 2), two);
    EXPECT_EQ(RootComn_GetRootGroups2(tee, 3), AcDbObjectId());
    EXPECT_EQ(RootComn_GetRootGroups2(tee, 0), two);
    const AcDbObjectId chair = element();
    const AcDbObjectId table = group(L"*", {chair});
    const AcDbObjectId room = group(L"*", {chair});
    EXPECT_EQ(RootComn_GetRootGroups2(chair, -1), AcDbObjectId());
    EXPECT_EQ(members(table), members(room)) << "groups without a kind are no matter of a repair";
}

TEST_F(Groups, ASettingTradesTheRepairForSpeed) {
    const SampleSettings settings;
    const AcDbObjectId tee = element(L"0|");
    const AcDbObjectId nine = group(L"RTGR00009", {element(L"1|"), tee});
    const AcDbObjectId four = group(L"RTGR00004", {element(L"1|"), tee});
    for (const auto& [value, size] : {std::pair(L"1", 2), std::pair(L"0", 1)}) {
        WritePrivateProfileStringW(L"環境設定", L"GR_SPEED_UP", value, ZUCE_INIFILE);
        EXPECT_EQ(RootComn_GetRootGroups2(tee, 1), four);
        EXPECT_EQ(members(nine).length(), size);
    }
}

TEST_F(Groups, KindIsThatOfTheFirstMemberThatTells) {
    const std::tuple<const wchar_t*, const wchar_t*, int, int, int, int> cases[] = {
        {L"0|", L"2|", 0, 2, 0, 2},    {L"4|", L"2|", 0, 4, 0, 4},     {L"0|", L"0|", -1, 0, 0, 0},
        {L"5|", L"1|", -1, 5, -1, 5},  {nullptr, L"2|", -1, -1, 0, 2}, {L"0|", nullptr, -1, -1, -1, -1},
        {nullptr, L"0|", -1, -1, 0, 0}};
    for (const auto& [first, second, status, expectedKind, status2, expectedKind2] : cases) {
        const AcDbObjectId id = group(L"*", {element(first), element(second)});
        int kind = -99;
        int kind2 = -99;
        EXPECT_EQ(RootComn_GetRootKind(id, &kind), status);
        EXPECT_EQ(RootComn_GetRootKind2(id, &kind2), status2);
        EXPECT_EQ(kind, expectedKind) << "group " << zuhost::toUtf8(name(id));
        EXPECT_EQ(kind2, expectedKind2) << "group " << zuhost::toUtf8(name(id));
    }
}

TEST_F(Groups, ListingFiltersByKind) {
    const AcDbObjectId duct = element(L"1|");
    const AcDbObjectId unknown = element(L"0|");
    const AcDbObjectId supply = group(L"RTGR00005", {duct});
    const AcDbObjectId other = group(L"RTGR00006", {unknown, duct});
    const AcDbObjectId zero = group(L"RTGR00007", {unknown});
    const auto list = [](AcDbObjectId id, int filter) {
        int count = -1;
        AcDbObjectIdArray groups;
        CStringArray names;
        CUIntArray kinds;
        EXPECT_EQ(RootComn_GetRootGroups5(id, &count, groups, names, kinds, filter), 0);
        std::wstring text;
        for (int i = 0; i < count; ++i)
            text += std::wstring(zuhost::viewOf(names[i])) + L":" + std::to_wstring(kinds[i]) + L" ";
        return text;
    };
    EXPECT_EQ(list(duct, 0), L"RTGR00005:1 RTGR00006:1 ");
    EXPECT_EQ(list(duct, 2), L"");
    EXPECT_EQ(list(unknown, 0), L"RTGR00006:1 RTGR00007:0 ");
    EXPECT_EQ(list(unknown, 3), L"RTGR00007:3 ") << "an unknown kind passes as the filter";
    EXPECT_EQ(RootComn_AddGroupMember(supply, unknown), 0);
    EXPECT_EQ(list(unknown, 1), L"RTGR00007:1 RTGR00005:1 ") << "an element of link kind 0 is repaired first";
    EXPECT_EQ(members(other), TestDrawing::ids({duct}));
    EXPECT_EQ(members(zero), TestDrawing::ids({unknown}));
}

TEST_F(Groups, MembersOfUnknownGroupsGetARoute) {
    const AcDbObjectId duct = element(L"1|");
    const AcDbObjectId tee = element(L"0|");
    const AcDbObjectId cap = element(L"0|");
    const AcDbObjectId elsewhere = element(L"0|");
    const AcDbObjectId route = group(L"RTGR00003", {duct, tee});
    const AcDbObjectId unknown = group(L"RTGR00004", {tee, elsewhere, cap});
    group(L"RTGR00005", {element(L"1|"), elsewhere});
    group(L"RTGR00006", {element(L"2|"), cap});
    const CStringArray knownNames = arrayOf({L"RTGR00003"});
    const CStringArray unknownNames = arrayOf({L"RTGR00004"});
    CUIntArray knownKinds;
    knownKinds.Add(1);
    CUIntArray unknownKinds;
    unknownKinds.Add(0);
    AcDbObjectIdArray moved;
    const auto run = [&](int kind) {
        return RootComn_SetGroupToUnknownGroupMember(tee, kind, 1, 1, TestDrawing::ids({route}), knownNames,
                                                     knownKinds, TestDrawing::ids({unknown}), unknownNames,
                                                     unknownKinds, moved);
    };
    EXPECT_EQ(run(2), -1);
    EXPECT_EQ(run(1), 0);
    EXPECT_EQ(moved, TestDrawing::ids({cap})) << "the other one has a route group of the kind";
    EXPECT_EQ(members(route), TestDrawing::ids({duct, tee, cap}));
}

TEST_F(Groups, AnElementThatNamesItsGroupTwiceStaysInIt) {
    const AcDbObjectId tee = element(L"0|");
    const AcDbObjectId route = group(L"RTGR00001", {element(L"1|"), tee});
    std::string records = zuhost::dxfOutBytes(drawing.database(), false);
    const std::string entry = "330\r\n" + zuhost::toUtf8(handleText(route)) + "\r\n";
    for (std::size_t at = records.find(entry); at != std::string::npos;
         at = records.find(entry, at + 2 * entry.size()))
        records.insert(at, entry);
    ASSERT_NE(records.find(entry + entry), std::string::npos);
    AcDbDatabase damaged(false);
    ASSERT_EQ(zuhost::dxfInBytes(damaged, records, L""), Acad::eOk);
    AcDbObjectId twice;
    ASSERT_EQ(damaged.getAcDbObjectId(twice, false, tee.handle()), Acad::eOk);
    AcDbObjectIdArray groups;
    EXPECT_EQ(ZuComn_GetGroupID(twice, groups), 0);
    ASSERT_EQ(groups.length(), 1);
    EXPECT_EQ(RootComn_GetRootGroups3(twice, 0), 0);
    EXPECT_EQ(members(groups[0]).length(), 2);
}

TEST_F(Groups, AReactorAloneMakesNoMember) {
    const AcDbObjectId tee = element(L"0|");
    const AcDbObjectId stale = group(L"RTGR00001", {element(L"1|")});
    const AcDbObjectId real = group(L"RTGR00002", {element(L"1|"), tee});
    AcDbObjectPointer<AcDbObject>(tee, AcDb::kForWrite)->addPersistentReactor(stale);
    EXPECT_EQ(RootComn_GetRootGroups2(tee, 1), real);
    EXPECT_TRUE(members(real).contains(tee));
}

TEST_F(Groups, WhatIsOpenElsewhereStopsTheWholeChange) {
    const AcDbObjectId tee = element(L"0|");
    const AcDbObjectId duct = element(L"1|");
    const AcDbObjectId one = group(L"RTGR00001", {element(L"1|"), tee});
    const AcDbObjectId two = group(L"RTGR00002", {duct, tee});
    const AcDbObjectId three = group(L"RTGR00003", {element(L"1|"), tee});
    for (const AcDbObjectId open : {three, tee, two}) {
        const AcDbObjectPointer<AcDbObject> busy(open, AcDb::kForRead);
        EXPECT_EQ(RootComn_GetRootGroups3(tee, 1), -1);
        EXPECT_EQ(RootComn_MakeGroup(TestDrawing::ids({tee}), TestDrawing::ids({one, two, three})), -1);
        EXPECT_EQ(RootComn_GroupMemberCopy(three, two), open == three ? 0 : -1);
        EXPECT_EQ(members(one).length() + members(three).length(), 4);
    }
    const AcDbObjectPointer<AcDbGroup> written(three, AcDb::kForWrite);
    AcDbObjectIdArray groups;
    CStringArray names;
    CUIntArray kinds;
    EXPECT_EQ(RootComn_GetRootGroups5(tee, nullptr, groups, names, kinds, 0), -1);
    EXPECT_TRUE(groups.isEmpty());
    EXPECT_TRUE(members(two).contains(tee));
}

TEST_F(Groups, DeadMembersAreTakenOutBeforeARepair) {
    const AcDbObjectId duct = element(L"1|");
    const AcDbObjectId dead = element(L"1|");
    const AcDbObjectId route = group(L"RTGR00003", {dead, duct});
    TestDrawing::erase(dead);
    EXPECT_EQ(RootComn_GetRootGroups4(duct), 0);
    EXPECT_EQ(members(route), TestDrawing::ids({duct}));
    EXPECT_EQ(RootComn_GetRootGroups4(dead), -1);
}

} // namespace
