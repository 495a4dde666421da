#include "route/element_code.h"
#include "test_drawing.h"

#include <zucomn/frame.h>
#include <zucomn/route.h>

#include <numbers>

namespace {

TEST(ElementCode, FollowsTheFirstPrefixThatMatches) {
    const std::pair<const wchar_t*, int> cases[] = {
        {L"KK-AHU", 0},   {L"kk", 0},      {L"RTM-1", 2},   {L"RT-1", 1},    {L"RTGR", 1},    {L"RBL1", 3},
        {L"rbth1", 21},   {L"RBTD", 22},   {L"RBT-1", 4},   {L"RBC", 5},     {L"RB45LX", 6},  {L"RB45T", 24},
        {L"RB90LUX", 17}, {L"RB90LD", 18}, {L"RB90L-1", 7}, {L"RBSLU", 8},   {L"RBSLD", 9},   {L"RBSTH", 25},
        {L"RBSTN", 26},   {L"RBSTK", 27},  {L"RBSTU", 10},  {L"RBSTD", 11},  {L"RBSTR", 23},  {L"RBS-1", 12},
        {L"RBST", 12},    {L"RBRD", 13},   {L"RBR", 100},   {L"RBHPRR", 19}, {L"RBHPHI", 20}, {L"RBHPX", 14},
        {L"RBMS", 15},    {L"RBV", 16},    {L"RBE1", 99},   {L"RB-1", 101},  {L"RB", 100},    {L"R", 100},
        {L"", 100},       {L"XRT", 100},   {L"書棚", 100},
    };
    for (const auto& [name, code] : cases)
        EXPECT_EQ(zu::elementCode(name), code) << zuhost::toUtf8(name);
}

TEST(ElementCode, SearchCodesMindCaseAndForm) {
    const std::tuple<const wchar_t*, int, int> cases[] = {
        {L"RBTH1", 31, 31}, {L"RBTD", 32, 32}, {L"RTM-1", 1, 1},  {L"RB45L", 6, 0},
        {L"RB90LU", 17, 0}, {L"RB90LX", 7, 0}, {L"RBS-1", 12, 0}, {L"RBSX", 0, 0},
        {L"KK-1", 1000, 0}, {L"rt-1", 0, 0},   {L"", 0, 0}};
    for (const auto& [name, full, shortForm] : cases) {
        EXPECT_EQ(zu::searchCode(name, true), full) << zuhost::toUtf8(name);
        EXPECT_EQ(zu::searchCode(name, false), shortForm) << zuhost::toUtf8(name);
    }
}

TEST(Element, LinkKindIsOneDigitBeforeABar) {
    const TestDrawing drawing;
    const AcDbObjectId element = drawing.element(drawing.block(L"RT-1", {}), {});
    const auto kind = [&] {
        int read = 99;
        EXPECT_EQ(RootComn_GetBlockRootKind(element, &read), 0);
        return read;
    };
    EXPECT_EQ(kind(), -1);
    const std::pair<const wchar_t*, int> cases[] = {{L"3|abc", 3}, {L"0|", 0},  {L"6||", 6}, {L"7|abc", -1},
                                                    {L"|abc", -1}, {L"3", -1},  {L"", -1},   {L"03|", -1},
                                                    {L" 3|", -1},  {L"-1|", -1}};
    for (const auto& [text, expected] : cases) {
        TestDrawing::setLink(element, text);
        EXPECT_EQ(kind(), expected) << zuhost::toUtf8(text);
    }
    int untouched = 5;
    EXPECT_EQ(RootComn_GetBlockRootKind(AcDbObjectId(), &untouched), 0);
    EXPECT_EQ(untouched, -1);
}

TEST(Element, ConnectionPointsFollowBaseScaleTurnAndMirror) {
    const TestDrawing drawing;
    const AcDbObjectId block =
        drawing.block(L"RT-1", {{11, 20, 5}, {13, 21, 5}}, {10, 20, 3}, L"_zu_Connect");
    const AcDbObjectId mirrored = drawing.element(block, {100, 200, 50}, {-2, 3, 1}, std::numbers::pi / 2);
    AcArray<AcGePoint3d> points;
    CString text;
    ASSERT_EQ(ZuComn_GetConnectPoint(mirrored, points, nullptr, &text), 0);
    ASSERT_EQ(points.length(), 2);
    // (1, 0) and (3, 1) scaled to (-2, 0) and (-6, 3), turned to (0, -2) and (-3, -6).
    EXPECT_LT(points[0].distanceTo({100, 198, 0}), 1e-9);
    EXPECT_LT(points[1].distanceTo({97, 194, 0}), 1e-9);
    EXPECT_EQ(text.Remove(L'\n'), 2) << "one line for each point";
    EXPECT_EQ(ZuComn_GetConnectPoint(mirrored, points, L"_ZU_SNAP"), 0);
    EXPECT_TRUE(points.isEmpty());
}

TEST(Element, NearPointsPreferTheFirstAndNumbersTheLast) {
    const TestDrawing drawing;
    const AcDbObjectId block = drawing.block(L"RT-1", {{0, 0, 0}, {0.1, 0, 0}, {5, 0, 0}});
    const AcDbObjectId element = drawing.element(block, {0, 0, 0});
    int count = 0;
    AcGePoint3d nearest(0.05, 0, 0); // its old value must not matter
    double distance = 0.0;
    EXPECT_EQ(RootComn_GetConnectPointNo(element, {0.05, 0, 0}, count), 1);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(RootComn_GetNearConnectPoint(element, {0.05, 0, 0}, nearest, &distance), 0);
    EXPECT_EQ(nearest, AcGePoint3d(0, 0, 0));
    EXPECT_DOUBLE_EQ(distance, 0.05);
    EXPECT_EQ(RootComn_GetConnectPointNo(element, {5.1, 0, 7}, count),
              RootComn_GetConnectPointNo(element, {5.1, 0, 0}, count));
    EXPECT_EQ(RootComn_GetConnectPointNo(element, {-0.1, 0, 0}, count), 0) << "exactly at the tolerance";
    EXPECT_EQ(RootComn_GetConnectPointNo(element, {-0.1000001, 0, 0}, count), -1);
    EXPECT_EQ(RootComn_GetNearConnectPointInOutCheck(element, {0, 0, 0}, true), 1);
    EXPECT_EQ(RootComn_GetNearConnectPointInOutCheck(element, {1, 1, 0}, false), 1);
    ZuComn_SetScale(50.0);
    ZuComn_setTolerance(2.0, 0.1);
    EXPECT_EQ(RootComn_GetConnectPointNo(element, {6.5, 0, 0}, count), 2)
        << "the first tolerance above scale 1";
    const AcDbObjectId bare = drawing.element(drawing.block(L"RT-2", {}), {});
    EXPECT_EQ(RootComn_GetNearConnectPoint(bare, {}, nearest, &distance), -1);
}

TEST(Element, OriginIsReadAndSetOnReferencesOnly) {
    const TestDrawing drawing;
    const AcDbObjectId element = drawing.element(drawing.block(L"RT-1", {}), {1, 2, 3});
    AcGePoint3d origin;
    EXPECT_EQ(RootComn_GetOriginPoint(element, origin), 0);
    EXPECT_EQ(origin, AcGePoint3d(1, 2, 3));
    EXPECT_EQ(RootComn_SetOriginPoint(element, {4, 5, 6}), 0);
    RootComn_GetOriginPoint(element, origin);
    EXPECT_EQ(origin, AcGePoint3d(4, 5, 6));
    const AcDbObjectId line = drawing.add(new AcDbLine({0, 0, 0}, {1, 0, 0}));
    EXPECT_EQ(RootComn_GetOriginPoint(line, origin), -1);
    EXPECT_EQ(RootComn_SetOriginPoint(line, origin), -1);
    EXPECT_EQ(RootComn_GetOriginPoint({}, origin), -1);
}

TEST(Element, HeightsGoByThePrefixInAnyCase) {
    const TestDrawing drawing;
    const std::pair<const wchar_t*, int> cases[] = {{L"KK-2", 0}, {L"kk-1", 1},  {L"Rbs-1", 4},
                                                    {L"rt-1", 3}, {L"rtm-1", 3}, {L"rb-1", 1}};
    for (const auto& [name, expected] : cases) {
        int kind = -1;
        double low = 0.0;
        double high = 0.0;
        EXPECT_EQ(RootComn_GetOBlockHeight(drawing.element(drawing.block(name, {}), {}), kind, low, high), 0);
        EXPECT_EQ(kind, expected) << zuhost::toUtf8(name);
    }
}

TEST(Directions, RunFromTheSecondPointToTheFirst) {
    EXPECT_DOUBLE_EQ(RootComn_Get2PointAngle({0, 1, 0}, {0, 0, 0}), 90.0);
    EXPECT_DOUBLE_EQ(RootComn_Get2PointAngle({0, 0, 0}, {0, 1, 0}), 270.0);
    EXPECT_DOUBLE_EQ(RootComn_Get2PointRadian({-1, 0, 0}, {0, 0, 0}), std::numbers::pi);
    EXPECT_EQ(RootComn_Get2PointAngle({1, -1e-300, 0}, {0, 0, 0}), 0.0) << "360 degrees are 0";
    int which = -1;
    EXPECT_EQ(RootComn_GetNearPointToPoint({0, 0, 0}, {1, 0, 0}, {0, 1, 0}, which), 0);
    EXPECT_EQ(which, 0) << "equally near";
    RootComn_GetNearPointToPoint({0, 0, 0}, {2, 0, 0}, {0, 1, 0}, which);
    EXPECT_EQ(which, 1);
}

TEST(Directions, PointsAreTurnedAboutTheCentre) {
    AcGePoint3d out;
    RootComn_PointRotation2({1, 2, 3}, 10, -270, out);
    EXPECT_LT(out.distanceTo({1, 12, 3}), 1e-9);
    RootComn_PointRotation2({1, 2, 3}, 0, 45, out);
    EXPECT_EQ(out, AcGePoint3d(1, 2, 3));
    RootComn_PointRotation4({1, 2, 3}, 10, 450, out);
    EXPECT_LT(out.distanceTo({1, 12, 3}), 1e-9);
    RootComn_PointRotation3({1, 2, 3}, 10, std::numbers::pi, out);
    EXPECT_LT(out.distanceTo({-9, 2, 3}), 1e-9);
    double x = 0;
    double y = 0;
    RootComn_PointRotation(1, 2, 10, 90, &x, &y);
    EXPECT_NEAR(x, 1, 1e-9);
    EXPECT_NEAR(y, 12, 1e-9);
    AcGePoint3d centre(5, 5, 0);
    RootComn_PointRotation3(centre, 1, 0, centre);
    EXPECT_EQ(centre, AcGePoint3d(6, 5, 0)) << "the output may be the centre itself";
}

} // namespace
