#include "test_drawing.h"

#include <zucomn/attributes.h>
#include <zucomn/dbservices.h>
#include <zucomn/route.h>
#include <zuhost/texts.h>

#include <nlohmann/json.hpp>

#include <fstream>

namespace {

using Json = nlohmann::json;

std::string handleOf(AcDbObjectId id) {
    std::array<wchar_t, 20> text{};
    id.handle().getIntoAsciiBuffer(text.data());
    return id.isNull() ? std::string() : zuhost::toUtf8(text.data());
}

std::vector<std::string> handlesOf(const AcDbObjectIdArray& ids) {
    std::vector<std::string> handles;
    for (const AcDbObjectId id : ids)
        handles.push_back(handleOf(id));
    return handles;
}

void expectPoint(const AcGePoint3d& point, const Json& expected) {
    EXPECT_NEAR(point.x, expected[0].get<double>(), 1e-6);
    EXPECT_NEAR(point.y, expected[1].get<double>(), 1e-6);
}

class Sample : public testing::TestWithParam<const char*> {
protected:
    Sample() : drawing(std::string(GetParam()) + ".dxf") {
        std::ifstream file(std::string(ZU_SAMPLES) + "/expected/" + GetParam() + ".json");
        expected = Json::parse(file);
    }

    TestDrawing drawing;
    Json expected;
};

TEST_P(Sample, ElementsAreWhatTheyAre) {
    for (const Json& e : expected["elements"]) {
        SCOPED_TRACE(e["handle"].get<std::string>());
        const AcDbObjectId id = drawing.at(e["handle"]);
        int code = -1;
        EXPECT_EQ(ZuComn_GetBlockElementCode(id, code), 0);
        EXPECT_EQ(code, e["code"].get<int>());
        int kind = 99;
        EXPECT_EQ(RootComn_GetBlockRootKind(id, &kind), 0);
        EXPECT_EQ(kind, e["link_kind"].get<int>());
        AcGePoint3d origin;
        EXPECT_EQ(RootComn_GetOriginPoint(id, origin), 0);
        expectPoint(origin, e["origin"]);
        EXPECT_NEAR(origin.z, e["origin"][2].get<double>(), 1e-6);
        AcDbObjectIdArray groups;
        EXPECT_EQ(ZuComn_GetGroupID(id, groups), 0);
        EXPECT_EQ(handlesOf(groups), e["groups"].get<std::vector<std::string>>());
        for (const auto& [filter, group] : e["group_for_kind"].items())
            EXPECT_EQ(handleOf(ZuComn_GetGroupID(id, std::stoi(filter))),
                      group.is_null() ? "" : group.get<std::string>());
    }
}

TEST_P(Sample, ConnectionPointsLieWhereExpected) {
    for (const Json& e : expected["elements"]) {
        SCOPED_TRACE(e["handle"].get<std::string>());
        const AcDbObjectId id = drawing.at(e["handle"]);
        AcArray<AcGePoint3d> points;
        ASSERT_EQ(ZuComn_GetConnectPoint(id, points), 0);
        ASSERT_EQ(static_cast<std::size_t>(points.length()), e["connect"].size());
        for (int i = 0; i < points.length(); ++i)
            expectPoint(points[i], e["connect"][static_cast<std::size_t>(i)]);
        const Json& nearby = e["near"];
        if (nearby.is_null())
            continue;
        const AcGePoint3d asked(nearby["point"][0].get<double>(), nearby["point"][1].get<double>(), 0.0);
        int count = -1;
        EXPECT_EQ(RootComn_GetConnectPointNo(id, asked, count), nearby["no"].get<int>());
        EXPECT_EQ(count, nearby["count"].get<int>());
        AcGePoint3d nearest;
        double distance = -1.0;
        EXPECT_EQ(RootComn_GetNearConnectPoint(id, asked, nearest, &distance), 0);
        expectPoint(nearest, nearby["nearest"]);
        EXPECT_NEAR(distance, nearby["distance"].get<double>(), 1e-6);
    }
}

TEST_P(Sample, AttributesAndHeightsAreRead) {
    CAttributeData data;
    for (const Json& e : expected["elements"]) {
        SCOPED_TRACE(e["handle"].get<std::string>());
        const AcDbObjectId id = drawing.at(e["handle"]);
        CStringArray texts;
        EXPECT_EQ(data.GetExtensionElementData(id, texts), e["attributes"].is_null() ? 1 : 0);
        std::vector<std::string> read;
        read.reserve(static_cast<std::size_t>(texts.GetSize()));
        for (int i = 0; i < texts.GetSize(); ++i)
            read.push_back(zuhost::toUtf8(zuhost::viewOf(texts[i])));
        EXPECT_EQ(read, e["attributes"].is_null() ? std::vector<std::string>()
                                                  : e["attributes"].get<std::vector<std::string>>());
        for (const char* key : {"S401", "S501"})
            EXPECT_EQ(zuhost::toUtf8(zuhost::viewOf(data.GetValueAttID(id, zuhost::fromUtf8(key).c_str()))),
                      e[key].get<std::string>());
        constexpr double kUntouched = -12345.0;
        int kind = -1;
        double low = kUntouched;
        double high = kUntouched;
        EXPECT_EQ(RootComn_GetOBlockHeight(id, kind, low, high), 0);
        const Json& heights = e["heights"];
        EXPECT_EQ(kind, heights["kind"].get<int>());
        EXPECT_NEAR(low, heights.value("low", kUntouched), 1e-9);
        EXPECT_NEAR(high, heights.value("high", kUntouched), 1e-9);
    }
}

TEST_P(Sample, GroupsAreRead) {
    for (const Json& g : expected["groups"]) {
        SCOPED_TRACE(g["name"].get<std::string>());
        const AcDbObjectId id = drawing.at(g["handle"]);
        CString name;
        EXPECT_EQ(RootComn_GetGroupNameFromGroupOid(id, name), 0);
        EXPECT_EQ(zuhost::toUtf8(zuhost::viewOf(name)), g["name"].get<std::string>());
        AcDbObjectIdArray members;
        EXPECT_EQ(RootComn_GetGroupMember(id, members), 0);
        EXPECT_EQ(handlesOf(members), g["members"].get<std::vector<std::string>>());
        int size = 0;
        EXPECT_EQ(RootComn_GetGroupSize(name, &size), 0);
        EXPECT_EQ(size, members.length());
        int kind = -99;
        EXPECT_EQ(RootComn_GetRootKind(name, &kind), g["root_kind"]["rc"].get<int>());
        EXPECT_EQ(kind, g["root_kind"]["kind"].get<int>());
        EXPECT_EQ(RootComn_GetRootKind2(id, &kind), g["root_kind2"]["rc"].get<int>());
        EXPECT_EQ(kind, g["root_kind2"]["kind"].get<int>());
    }
}

TEST_P(Sample, JoinedElementsAreFoundInOrder) {
    for (const Json& c : expected["connect"]) {
        SCOPED_TRACE(c.dump());
        AcDbObjectIdArray found;
        int count = -1;
        EXPECT_EQ(RootComn_GetConnectBlock(drawing.at(c["group"]), drawing.at(c["element"]), found, &count,
                                           c["filter"]),
                  c["rc"].get<int>());
        EXPECT_EQ(handlesOf(found), c["result"].get<std::vector<std::string>>());
        EXPECT_EQ(count, c["count"].get<int>());
    }
}

INSTANTIATE_TEST_SUITE_P(Drawings, Sample, testing::Values("office-floor", "office-floor-932"),
                         [](const auto& each) {
                             return std::string(each.param) == "office-floor" ? "Utf8" : "CodePage932";
                         });

} // namespace
