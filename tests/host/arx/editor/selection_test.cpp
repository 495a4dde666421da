#include "editor_drawing.h"

#include <dbelipse.h>
#include <dxf_records.h>
#include <zuhost/drawing_files.h>

#include <functional>
#include <vector>

namespace {

class Selection : public EditorDrawing {
protected:
    /// A line, a circle, a line on a frozen layer and a text, in this order.
    Selection() {
        makeLine(0, 0, 10, 0, L"PIPES", 1);
        makeCircle(20, 0, 5, L"DUCTS");
        makeLine(0, 5, 10, 5, L"FROZEN", 3);
        const ads_point at{30, 0, 0};
        EXPECT_TRUE(
            make(Chain(acutBuildList(RTDXF0, L"TEXT", 8, L"NOTES", 10, at, 40, 2.5, 1, L"Pump*1", RTNONE))));
        AcDbObjectId layer;
        const AcDbObjectPointer<AcDbLayerTable> layers(drawing.layerTableId());
        layers->getAt(L"FROZEN", layer);
        const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        record->setIsFrozen(true);
    }

    /// Returns the indices, in the order above, of what the set holds, as a text; the set is freed.
    std::string names(int code, ads_name set) {
        if (code != RTNORM)
            return code == RTCAN ? "cancelled" : "error";
        Adesk::Int32 length = 0;
        EXPECT_EQ(acedSSLength(set, &length), RTNORM);
        std::string found;
        for (Adesk::Int32 i = 0; i < length; ++i) {
            ads_name entity;
            EXPECT_EQ(acedSSName(set, i, entity), RTNORM);
            found += std::to_string(place(entity));
        }
        EXPECT_EQ(acedSSFree(set), RTNORM);
        return found;
    }
    static int place(const ads_name entity) {
        ads_name name;
        int place = 0;
        for (int code = acdbEntNext(nullptr, name); code == RTNORM; code = acdbEntNext(name, name), ++place)
            if (ads_name_equal(name, entity))
                return place;
        return -1;
    }

    std::string select(const wchar_t* mode, const void* point1 = nullptr, const void* point2 = nullptr,
                       const resbuf* filter = nullptr) {
        ads_name set;
        return names(acedSSGet(mode, point1, point2, filter, set), set);
    }
    std::string filtered(resbuf* filter) {
        EXPECT_NE(filter, nullptr);
        const Chain chain(filter);
        return select(L"X", nullptr, nullptr, chain.get());
    }
};

TEST_F(Selection, SelectsByMode) {
    const ads_point low{-1, -1, 0};
    const ads_point high{16, 6, 0};
    EXPECT_EQ(select(L"X"), "3210") << "the newest first";
    EXPECT_EQ(select(L"_A"), "310") << "not what is frozen";
    EXPECT_EQ(select(L"W", low, high), "0");
    EXPECT_EQ(select(L"C", low, high), "10");
    EXPECT_EQ(select(L"C", high, low), "10") << "corners in either order";
    EXPECT_EQ(select(L"L"), "3");
    EXPECT_EQ(select(L"P"), "3");
    EXPECT_EQ(select(L"I"), "error");
    EXPECT_EQ(select(L"W", low), "error");
    EXPECT_EQ(select(L"NONSENSE"), "error");
    EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, nullptr), RTERROR);
    const ads_point on{20, 5, 0};
    const ads_point inside{20, 0, 0};
    EXPECT_EQ(select(nullptr, on), "1");
    EXPECT_EQ(select(nullptr, inside), "error");
    const ads_point corners[3] = {{14, -10, 0}, {40, -10, 0}, {40, 30, 0}};
    const Chain triangle(
        acutBuildList(RTPOINT, corners[0], RTPOINT, corners[1], RTPOINT, corners[2], RTNONE));
    EXPECT_EQ(select(L"WP", triangle.get()), "3");
    EXPECT_EQ(select(L"CP", triangle.get()), "31");
    EXPECT_EQ(select(L"F", triangle.get()), "error") << "the fence is not closed";
    const Chain fence(acutBuildList(RTPOINT, low, RTPOINT, high, RTNONE));
    EXPECT_EQ(select(L"F", fence.get()), "0");
}

TEST_F(Selection, WindowsSelectEveryKindOfCurve) {
    AcGePoint3dArray corners;
    for (const AcGePoint3d& corner :
         {AcGePoint3d(100, 0, 0), AcGePoint3d(110, 0, 7), AcGePoint3d(110, 10, 0)})
        corners.append(corner);
    AcGeDoubleArray bulges;
    bulges.setLogicalLength(3);
    bulges[0] = 1.0; // a half circle below
    bulges[1] = bulges[2] = 0.0;
    AcDbEntity* const curves[] = {
        new AcDb3dPolyline(AcDb::k3dSimplePoly, corners),
        new AcDb2dPolyline(AcDb::k2dSimplePoly, corners, 0.0, true, 0.0, 0.0, &bulges),
        new AcDbEllipse({105, 5, 0}, AcGeVector3d::kZAxis, {4, 0, 0}, 0.5),
    };
    for (AcDbEntity* const curve : curves) {
        AcDbBlockTableRecordPointer(ACDB_MODEL_SPACE, &drawing, AcDb::kForWrite)->appendAcDbEntity(curve);
        curve->close();
    }
    // Vertices and the ends of their sequences count: the curves are 4, 9 and 14.
    const ads_point low{99, -1, 0};
    const ads_point belowArc{99, -6, 0};
    const ads_point high{111, 11, 0};
    EXPECT_EQ(select(L"W", belowArc, high), "1494");
    EXPECT_EQ(select(L"W", low, high), "144") << "the arc of the second leaves the window";
    EXPECT_EQ(select(L"C", low, high), "1494");
    const ads_point middle{105, 5, 0};
    const ads_point right{106, 9, 0};
    EXPECT_EQ(select(L"C", middle, right), "149") << "the ellipse, and the side that closes the second";
    const ads_point onEllipse{105, 7, 0};
    EXPECT_EQ(select(nullptr, onEllipse), "14");
}

TEST_F(Selection, WindowsSelectWhatIsDrawnByRecords) {
    int handle = 0xA0;
    const auto drawn = [&](std::string_view type, std::string_view records) {
        return dxfRecords("0 " + std::string(type) + "|5 " + std::to_string(handle++) +
                          "|100 AcDbEntity|8 0|" + std::string(records));
    };
    // A spline that bends from (0,0) over (5,10) to (10,0), reaching y = 5; a hatch whose boundaries are a
    // square at 20 and a clockwise circle at 40; a dimension drawn by a line at 60; a face at 80.
    const std::string bytes =
        dxfRecords(
            "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|5 B1|100 "
            "AcDbEntity|8 0|100 AcDbBlockBegin|2 *D1|70 1|10 0.0|20 0.0|30 0.0|0 LINE|5 B2|100 AcDbEntity|8 "
            "0|100 AcDbLine|10 60.0|20 0.0|30 0.0|11 65.0|21 0.0|31 0.0|0 ENDBLK|5 B3|100 AcDbEntity|8 "
            "0|100 AcDbBlockEnd|0 ENDSEC|0 SECTION|2 ENTITIES") +
        drawn("SPLINE",
              "100 AcDbSpline|70 8|71 2|72 6|73 3|74 0|40 0.0|40 0.0|40 0.0|40 1.0|40 1.0|40 1.0|10 "
              "0.0|20 0.0|30 0.0|10 5.0|20 10.0|30 0.0|10 10.0|20 0.0|30 0.0") +
        drawn("HATCH",
              "100 AcDbHatch|10 0.0|20 0.0|30 0.0|210 0.0|220 0.0|230 1.0|2 SOLID|70 1|71 0|91 2|92 2|72 "
              "0|73 1|93 4|10 20.0|20 0.0|10 24.0|20 0.0|10 24.0|20 4.0|10 20.0|20 4.0|97 0|92 1|93 1|72 "
              "2|10 40.0|20 0.0|40 3.0|50 0.0|51 360.0|73 0|97 0|75 1|76 1|98 0") +
        drawn("DIMENSION", "100 AcDbDimension|2 *D1|10 60.0|20 0.0|30 0.0|70 0") +
        drawn("3DFACE", "100 AcDbFace|10 80.0|20 0.0|30 0.0|11 84.0|21 0.0|31 0.0|12 84.0|22 4.0|32 0.0|13 "
                        "80.0|23 4.0|33 0.0") +
        dxfRecords("0 ENDSEC|0 EOF");
    AcDbDatabase other(false);
    ASSERT_EQ(zuhost::dxfInBytes(other, bytes, L"memory.dxf"), Acad::eOk);
    acdbHostApplicationServices()->setWorkingDatabase(&other);
    struct Case {
        ads_point low, high;
        const char* within;
        const char* crossing;
    };
    for (const Case& c :
         {Case{{-1, -1, 0}, {11, 5.1, 0}, "0", "0"}, Case{{-1, -1, 0}, {11, 4.9, 0}, "error", "0"},
          Case{{4, 4.9, 0}, {6, 6, 0}, "error", "0"}, Case{{4, 5.1, 0}, {6, 9, 0}, "error", "error"},
          Case{{19, -4, 0}, {44, 5, 0}, "1", "1"}, Case{{23, 3, 0}, {25, 5, 0}, "error", "1"},
          Case{{36, -1, 0}, {38, 1, 0}, "error", "1"}, Case{{59, -1, 0}, {66, 1, 0}, "2", "2"},
          Case{{79, -1, 0}, {85, 5, 0}, "3", "3"}, Case{{81, 3, 0}, {82, 5, 0}, "error", "3"}}) {
        SCOPED_TRACE(c.low[X]);
        EXPECT_EQ(select(L"W", c.low, c.high), c.within);
        EXPECT_EQ(select(L"C", c.low, c.high), c.crossing);
    }
    acdbHostApplicationServices()->setWorkingDatabase(&drawing);
}

TEST_F(Selection, Filters) {
    const ads_point origin{0, 0, 0};
    EXPECT_EQ(filtered(acutBuildList(RTDXF0, L"LINE,TEXT", RTNONE)), "320");
    EXPECT_EQ(filtered(acutBuildList(RTDXF0, L"LINE", 8, L"p*", RTNONE)), "0");
    EXPECT_EQ(filtered(acutBuildList(62, 256, RTNONE)), "31") << "by layer when there is no colour";
    EXPECT_EQ(filtered(acutBuildList(-4, L">=", 62, 3, RTNONE)), "321");
    EXPECT_EQ(filtered(acutBuildList(-4, L"<OR", 8, L"PIPES", 8, L"DUCTS", -4, L"OR>", RTNONE)), "10");
    EXPECT_EQ(filtered(acutBuildList(-4, L"<NOT", RTDXF0, L"LINE", -4, L"NOT>", RTNONE)), "31");
    EXPECT_EQ(filtered(acutBuildList(-4, L"<XOR", RTDXF0, L"LINE", 8, L"PIPES,DUCTS", -4, L"XOR>", RTNONE)),
              "21");
    EXPECT_EQ(filtered(acutBuildList(-4, L">,=,*", 10, origin, RTNONE)), "31");
    EXPECT_EQ(filtered(acutBuildList(10, origin, RTNONE)), "0");
    EXPECT_EQ(filtered(acutBuildList(1, L"Pump`**", RTNONE)), "3");
    EXPECT_EQ(filtered(acutBuildList(1, L"pump*", RTNONE)), "error") << "texts heed case";
    EXPECT_EQ(filtered(acutBuildList(410, L"Model", RTNONE)), "3210");
    EXPECT_EQ(filtered(acutBuildList(67, 1, RTNONE)), "error");
    EXPECT_EQ(filtered(acutBuildList(-4, L"&", 62, 2, RTNONE)), "2");
    EXPECT_EQ(filtered(acutBuildList(-4, L"<AND", 62, 2, RTNONE)), "error") << "not closed";
    EXPECT_EQ(filtered(acutBuildList(-4, L"AND>", RTNONE)), "error");
    EXPECT_EQ(filtered(acutBuildList(-4, L"=~", 62, 2, RTNONE)), "error");
    EXPECT_EQ(filtered(acutBuildList(62, 2, -4, L"=", RTNONE)), "error");
    resbuf* deep = nullptr;
    for (int i = 0; i < 100'000; ++i) {
        resbuf* const item = acutBuildList(-4, L"<AND", RTNONE);
        item->rbnext = deep;
        deep = item;
    }
    EXPECT_EQ(filtered(deep), "error");
}

TEST_F(Selection, FiltersByExtendedData) {
    acdbRegApp(L"MY_APP");
    ads_name last;
    ASSERT_EQ(acdbEntLast(last), RTNORM);
    AcDbObjectId id;
    acdbGetObjectId(id, last);
    {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        const Chain data(acutBuildList(1001, L"MY_APP", 1000, L"x", RTNONE));
        ASSERT_EQ(entity->setXData(data.get()), Acad::eOk);
    }
    EXPECT_EQ(filtered(acutBuildList(-3, 1001, L"MY_APP", RTNONE)), "3");
    EXPECT_EQ(filtered(acutBuildList(-3, 1001, L"OTHER", RTNONE)), "error");
}

TEST_F(Selection, AsksTheUser) {
    for (const auto& [typed, expected] : {
             std::pair{L"L\n\n", "3"},
             std::pair{L"ALL\nR\n20,5\n\n", "30"},
             std::pair{L"W -1,-1 11,6\n\n", "0"},
             std::pair{L"nonsense 5,0 5,0 \n", "0"},
             std::pair{L"(handent \"FFFF\") 5,0 \n", "0"},
             std::pair{L"L\n", "cancelled"},
             std::pair{L"\n", "error"},
             std::pair{L"", "cancelled"},
         }) {
        type(typed);
        EXPECT_EQ(select(nullptr), expected) << testing::PrintToString(std::wstring(typed));
    }
    type(L"ALL\n\n");
    const Chain lines(acutBuildList(RTDXF0, L"LINE", RTNONE));
    EXPECT_EQ(select(nullptr, nullptr, nullptr, lines.get()), "0");
    type(L"20,5 ");
    EXPECT_EQ(select(L":S"), "1") << "ends with the first entity";
}

TEST_F(Selection, PicksOneEntity) {
    ads_name entity;
    ads_point where;
    resbuf reason;
    type(L"5,0 L 100,100\n\n");
    ASSERT_EQ(acedEntSel(L"Pick: ", entity, where), RTNORM);
    EXPECT_EQ(place(entity), 0);
    EXPECT_EQ(asPnt3d(where), AcGePoint3d(5, 0, 0));
    ASSERT_EQ(acedEntSel(nullptr, entity, where), RTNORM);
    EXPECT_EQ(place(entity), 3);
    EXPECT_EQ(acedEntSel(L"", entity, where), RTERROR);
    acedGetVar(L"ERRNO", &reason);
    EXPECT_EQ(reason.resval.rint, 7);
    EXPECT_EQ(acedEntSel(L"", entity, where), RTERROR);
    acedGetVar(L"ERRNO", &reason);
    EXPECT_EQ(reason.resval.rint, 52);
    EXPECT_EQ(acedEntSel(L"", entity, where), RTCAN);
    EXPECT_EQ(acedEntSel(L"", nullptr, where), RTERROR);
    ads_name first;
    acdbEntNext(nullptr, first);
    AcDbObjectId id;
    acdbGetObjectId(id, first);
    wchar_t handle[17];
    id.handle().getIntoAsciiBuffer(handle);
    type((L"(handent \"" + std::wstring(handle) + L"\")\n").c_str());
    ASSERT_EQ(acedEntSel(L"", entity, where), RTNORM);
    EXPECT_TRUE(ads_name_equal(entity, first));
}

TEST_F(Selection, KeepsSets) {
    ads_name set;
    ads_name first;
    ads_name last;
    Adesk::Int32 length = -1;
    ASSERT_EQ(acedSSAdd(nullptr, nullptr, set), RTNORM);
    EXPECT_EQ(acedSSLength(set, &length), RTNORM);
    EXPECT_EQ(length, 0);
    ASSERT_EQ(acdbEntNext(nullptr, first), RTNORM);
    ASSERT_EQ(acdbEntLast(last), RTNORM);
    EXPECT_EQ(acedSSAdd(first, set, set), RTNORM);
    EXPECT_EQ(acedSSAdd(first, set, set), RTNORM) << "a member already";
    EXPECT_EQ(acedSSAdd(last, set, set), RTNORM);
    EXPECT_EQ(acedSSMemb(last, set), RTNORM);
    EXPECT_EQ(acedSSDel(first, set), RTNORM);
    EXPECT_EQ(acedSSDel(first, set), RTERROR);
    EXPECT_EQ(acedSSMemb(first, set), RTERROR);
    ads_name name;
    EXPECT_EQ(acedSSName(set, 0, name), RTNORM);
    EXPECT_TRUE(ads_name_equal(name, last));
    EXPECT_EQ(acedSSName(set, 1, name), RTERROR);
    EXPECT_EQ(acedSSName(set, -1, name), RTERROR);
    EXPECT_EQ(acedSSFree(set), RTNORM);
    EXPECT_EQ(acedSSFree(set), RTERROR);
    EXPECT_EQ(acedSSLength(set, &length), RTERROR);
    EXPECT_EQ(acedSSLength(first, &length), RTERROR) << "an entity is no set";
    EXPECT_EQ(acedSSAdd(set, nullptr, name), RTERROR) << "a set is no entity";
    std::vector<std::pair<std::int64_t, std::int64_t>> open;
    while (acedSSAdd(nullptr, nullptr, set) == RTNORM && open.size() < 1000)
        open.emplace_back(set[0], set[1]);
    EXPECT_EQ(open.size(), 128U);
    for (const auto& [a, b] : open) {
        const ads_name opened{a, b};
        acedSSFree(opened);
    }
}

} // namespace
