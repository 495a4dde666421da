#include "plain_search.h"
#include "random_network.h"
#include <zucomn/model/joints.h>
#include <zuhost/undo.h>

#include <algorithm>
#include <random>

namespace {

/// Compares the search with its plain form for every element.
void expectEqualEverywhere(const RandomNetwork& network, int kindFilter) {
    for (const AcDbObjectId element : network.elements) {
        AcDbObjectIdArray expected;
        const int status = plainConnectBlock(network.group, element, expected, kindFilter);
        AcDbObjectIdArray found;
        int count = -1;
        EXPECT_EQ(RootComn_GetConnectBlock(network.group, element, found, &count, kindFilter), status);
        EXPECT_EQ(found, expected) << "element " << element.handle().value() << ", filter " << kindFilter;
        EXPECT_EQ(count, expected.length());
    }
}

/// Many points are searched in halves of the plane; joints lie on both sides of the cut, and across it.
TEST(JoinedPoints, OfManyAreThoseOfEachElement) {
    constexpr std::size_t kPoints = 20'000;
    TestDrawing drawing;
    const AcDbObjectId block = drawing.block(L"RT-A", {});
    std::vector<AcDbObjectId> owners(40);
    std::generate(owners.begin(), owners.end(), [&] { return drawing.element(block, {}); });
    std::mt19937 random(3);
    const auto at = [&](unsigned places) { return 0.05 * static_cast<double>(random() % places); };
    std::vector<zucomn::ConnectionPoint> points;
    for (std::size_t i = 0; i < kPoints; ++i)
        points.push_back({owners[random() % owners.size()], 0, {at(200), at(9000)}});
    const std::vector<std::vector<AcDbObjectId>> elements = zucomn::joinedElements(points, 1);
    std::vector<bool> expected(kPoints);
    std::transform(elements.begin(), elements.end(), expected.begin(),
                   [](const auto& of) { return !of.empty(); });
    EXPECT_EQ(zucomn::joinedPoints(points), expected);
    const auto joined = std::count(expected.begin(), expected.end(), true);
    EXPECT_TRUE(joined > 1000 && joined < 19'000) << joined;
}

TEST(Crowds, AreSearchedByTheRule) {
    const TestDrawing drawing;
    std::mt19937 random(1);
    const auto offset = [&random] { return static_cast<double>(random() % 1000) / 2000.0; };
    AcDbObjectIdArray elements;
    for (const int size : {1, 3, 9, 40, 400}) {
        std::vector<AcGePoint3d> points;
        points.reserve(static_cast<std::size_t>(size));
        for (int i = 0; i < size; ++i)
            points.emplace_back(offset(), size == 40 ? 0.0 : offset(), 0.0);
        const AcDbObjectId block = drawing.block((L"RT-" + std::to_wstring(size)).c_str(), points);
        for (int i = 0; i < 4; ++i)
            elements.append(drawing.element(block, {2.0 * offset(), 2.0 * offset(), 0.0}));
    }
    for (int round = 0; round < 2; ++round) {
        for (const AcDbObjectId element : elements) {
            AcDbObjectIdArray found;
            AcDbObjectIdArray expected;
            RootComn_GetConnectBlock4(elements, element, found, 0);
            plainConnectBlock(elements, element, nullptr, expected, 0);
            EXPECT_EQ(found, expected) << element.handle().value();
        }
        RootComn_SetOriginPoint(elements.last(), {0.8, 0.8, 0.0});
    }
}

class RandomNetworks : public testing::TestWithParam<unsigned> {};

TEST_P(RandomNetworks, AreSearchedByTheRule) {
    RandomNetwork network(GetParam(), 120);
    for (const int filter : {0, 2, 4})
        expectEqualEverywhere(network, filter);
    AcDbObjectIdArray candidates;
    for (int i = 0; i < 60; ++i)
        candidates.append(network.anyElement());
    candidates.append(AcDbObjectId());
    for (int i = 0; i < 20; ++i) {
        const AcDbObjectId element = network.anyElement();
        const AcGePoint3d point = network.place();
        AcDbObjectIdArray expected;
        AcDbObjectIdArray found;
        int count = -1;
        EXPECT_EQ(RootComn_GetConnectBlock7(candidates, element, point, found, &count, 0),
                  plainConnectBlock(candidates, element, &point, expected, 0));
        EXPECT_EQ(RootComn_GetConnectBlock4(candidates, element, found, 2),
                  plainConnectBlock(candidates, element, nullptr, expected, 2));
        EXPECT_EQ(found, expected) << "what is in the result already is not added again";
    }
}

TEST_P(RandomNetworks, FollowChangesOfTheDrawing) {
    RandomNetwork network(GetParam() + 1000, 60);
    AcDbDatabase& database = network.drawing.database();
    for (int round = 0; round < 40; ++round) {
        database.startUndoRecord();
        const AcDbObjectId element = network.anyElement();
        switch (network.upTo(9)) {
        case 0:
            RootComn_SetOriginPoint(element, network.place());
            break;
        case 1: {
            const AcDbObjectPointer<AcDbObject> object(element, AcDb::kForWrite, true);
            object->erase(!object->isErased());
            break;
        }
        case 2:
            RootComn_AddGroupMember(network.group, network.addElement());
            break;
        case 3:
            RootComn_DelGroupMember(network.group, element);
            break;
        case 4:
            if (!element.isErased())
                TestDrawing::setLink(element, (std::to_wstring(network.upTo(5)) + L"|").c_str());
            break;
        case 5: {
            const AcDbObjectPointer<AcDbBlockReference> reference(element, AcDb::kForWrite);
            if (reference.openStatus() == Acad::eOk)
                reference->setRotation(network.upTo(4) * std::numbers::pi / 2);
            break;
        }
        case 6: {
            const AcDbObjectPointer<AcDbBlockTableRecord> block(network.blocks[0], AcDb::kForWrite);
            TestDrawing::addPoint(*block.object(), network.place(), L"_ZU_CONNECT");
            break;
        }
        case 7: {
            const AcDbObjectPointer<AcDbBlockTableRecord> block(network.blocks[1], AcDb::kForWrite);
            block->setOrigin(network.place());
            break;
        }
        default:
            database.undo();
        }
        if (network.upTo(5) == 0)
            zuhost::redo(database);
        expectEqualEverywhere(network, round % 3);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomNetworks, testing::Range(1U, 9U));

class Joined : public testing::Test {
protected:
    AcDbObjectIdArray search(AcDbObjectId element, int filter = 0) const {
        AcDbObjectIdArray found;
        EXPECT_EQ(RootComn_GetConnectBlock(group, element, found, nullptr, filter), 0);
        return found;
    }

    TestDrawing drawing;
    AcDbObjectId line = drawing.block(L"RT-1", {{0, 0, 0}, {1, 0, 0}});
    AcDbObjectId fitting = drawing.block(L"rbl-1", {{0, 0, 0}});
    AcDbObjectId a = drawing.element(line, {0, 0, 0});
    AcDbObjectId b = drawing.element(line, {1, 0, 0});
    AcDbObjectId c = drawing.element(fitting, {2, 0, 0});
    AcDbObjectId group;

    void SetUp() override { RootComn_CreateNewGroup(L"*", TestDrawing::ids({a, b, c}), group, false); }
};

TEST_F(Joined, AtTheToleranceAndNotBeyond) {
    EXPECT_EQ(search(a), TestDrawing::ids({b}));
    RootComn_SetOriginPoint(a, {-0.1, 0, 0});
    AcGePoint3d nearest;
    double distance = 0;
    RootComn_GetNearConnectPoint(b, {0.9, 0, 0}, nearest, &distance);
    EXPECT_EQ(search(a).length(), distance <= 0.1 ? 1 : 0);
    ZuComn_setTolerance(0.1, 0.0);
    EXPECT_TRUE(search(a).isEmpty());
    EXPECT_EQ(search(b), TestDrawing::ids({c})) << "a tolerance of nothing joins equal points";
    ZuComn_setTolerance(0.1, 1e9);
    EXPECT_EQ(search(a), TestDrawing::ids({b, c}));
}

TEST_F(Joined, FilterPassesKindZeroButNotMissing) {
    const std::pair<const wchar_t*, bool> cases[] = {
        {L"0|", true}, {L"2|", true}, {L"3|", false}, {L"x|", false}};
    for (const auto& [link, isKept] : cases) {
        TestDrawing::setLink(b, link);
        EXPECT_EQ(!search(a, 2).isEmpty(), isKept) << zuhost::toUtf8(link);
    }
}

TEST_F(Joined, AnElementOpenForWriteCanNotBeRead) {
    EXPECT_EQ(search(a), TestDrawing::ids({b}));
    {
        const AcDbObjectPointer<AcDbBlockReference> busy(b, AcDb::kForWrite);
        EXPECT_TRUE(search(a).isEmpty());
        AcDbObjectIdArray found;
        EXPECT_EQ(RootComn_GetConnectBlock(group, b, found, nullptr, 0), -1);
        const AcDbObjectId other = drawing.element(line, {1, 0, 0});
        EXPECT_EQ(RootComn_GetConnectBlock4(TestDrawing::ids({b, other}), a, found, 0), 0);
        EXPECT_EQ(found, TestDrawing::ids({other}));
        found.removeAll();
    }
    EXPECT_EQ(search(a), TestDrawing::ids({b}));
}

TEST_F(Joined, APointOpenForWriteCanNotBeRead) {
    AcDbObjectId point;
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(line, AcDb::kForWrite);
        point = TestDrawing::addPoint(*block.object(), {0.5, 0, 0}, L"_ZU_CONNECT");
    }
    AcDbObjectIdArray found;
    {
        const AcDbObjectPointer<AcDbPoint> busy(point, AcDb::kForWrite);
        EXPECT_EQ(RootComn_GetConnectBlock(group, a, found, nullptr, 0), -1);
        EXPECT_TRUE(search(c).isEmpty());
    }
    EXPECT_EQ(RootComn_GetConnectBlock5(group, c, {0.5, 0, 0}, found, nullptr, 0), 0);
    EXPECT_EQ(found, TestDrawing::ids({a})) << "known again when it was closed unchanged";
}

TEST_F(Joined, VariantsDifferInCandidatesAndPoints) {
    AcDbObjectIdArray found;
    int count = -1;
    EXPECT_EQ(RootComn_GetConnectBlock2(group, a, found, &count), -1) << "a route line";
    EXPECT_EQ(count, 0);
    EXPECT_EQ(RootComn_GetConnectBlock2(group, c, found, &count), 0);
    EXPECT_EQ(found, TestDrawing::ids({b}));
    EXPECT_EQ(RootComn_GetConnectBlock3(group, c, found, &count, 0, 7), 0);
    EXPECT_EQ(count, 0) << "found already";
    EXPECT_EQ(RootComn_GetConnectBlock6(group, c, found, nullptr, 0), 0);
    EXPECT_EQ(found.length(), 1);
    found.removeAll();
    EXPECT_EQ(RootComn_GetConnectBlock5(group, a, {2, 0.05, 500}, found, &count, 0), 0);
    EXPECT_EQ(found, TestDrawing::ids({b, c})) << "points are compared in plan";
    EXPECT_EQ(RootComn_GetConnectBlock(AcDbObjectId(), a, found, &count, 0), -1);
    EXPECT_EQ(RootComn_GetConnectBlock(group, group, found, &count, 0), -1);
    AcDbObjectIdArray merged = TestDrawing::ids({c});
    RootComn_GetConnectBlock2Sub(TestDrawing::ids({a, c}), TestDrawing::ids({b, a}), merged);
    EXPECT_EQ(merged, TestDrawing::ids({c, a, b}));
}

TEST_F(Joined, TheExtendedFormReachesFarAtLargeScales) {
    const AcDbObjectId remote = drawing.element(line, {22, 0, 0});
    const AcDbObjectId beyond = drawing.element(line, {22.001, 0, 0});
    const AcDbObjectIdArray all = TestDrawing::ids({a, b, c, beyond, remote});
    AcDbObjectIdArray found = TestDrawing::ids({remote});
    int count = -1;
    const int full = 1;
    EXPECT_EQ(RootComn_GetConnectBlock4EX(0, all, c, found, &count, &full), -1) << "one connection point";
    EXPECT_TRUE(found.isEmpty());
    EXPECT_EQ(RootComn_GetConnectBlock4EX(0, all, b, found, &count, &full), 0);
    EXPECT_EQ(found, TestDrawing::ids({a, c}));
    ZuComn_SetScale(50.0);
    EXPECT_EQ(RootComn_GetConnectBlock4EX(0, all, b, found, &count, &full), 0);
    EXPECT_EQ(found, TestDrawing::ids({a, c, remote}));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(RootComn_GetConnectBlock4EX(1, all, b, found, &count, &full), 0);
    EXPECT_EQ(found, TestDrawing::ids({a, remote})) << "the element's own code";
    EXPECT_EQ(RootComn_GetConnectBlock4EX(2, all, b, found, &count, nullptr), 0);
    EXPECT_EQ(found, TestDrawing::ids({c}));
}

TEST_F(Joined, TheNextDrawingStartsAnew) {
    EXPECT_EQ(search(a).length(), 1);
    for (int i = 0; i < 3; ++i) {
        RandomNetwork network(77, 30);
        expectEqualEverywhere(network, 0);
    }
}

} // namespace
