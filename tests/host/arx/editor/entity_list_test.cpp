#include "editor_drawing.h"

#include <zuhost/drawing_files.h>

namespace {

class EntityList : public EditorDrawing {
protected:
    static Chain last() {
        ads_name name;
        EXPECT_EQ(acdbEntLast(name), RTNORM);
        return Chain(acdbEntGet(name));
    }
    static resbuf* item(const Chain& list, int code) {
        return const_cast<resbuf*>(EditorDrawing::item(list, code));
    }
};

TEST_F(EntityList, HoldsWhatWasMade) {
    makeLine(1, 2, 3, 4, L"PIPES", 5);
    const Chain list = last();
    EXPECT_STREQ(item(list, 0)->resval.rstring, L"LINE");
    EXPECT_STREQ(item(list, 8)->resval.rstring, L"PIPES");
    EXPECT_EQ(item(list, 62)->resval.rint, 5);
    EXPECT_EQ(asPnt3d(item(list, 11)->resval.rpoint), AcGePoint3d(3, 4, 0));
    ads_name named;
    ASSERT_EQ(acdbHandEnt(item(list, 5)->resval.rstring, named), RTNORM);
    EXPECT_TRUE(ads_name_equal(named, item(list, -1)->resval.rlname));
    AcDbObjectId owner;
    ASSERT_EQ(acdbGetObjectId(owner, item(list, 330)->resval.rlname), Acad::eOk);
    EXPECT_EQ(AcDbBlockTableRecord::desc(), owner.objectClass());
    const AcDbObjectPointer<AcDbLayerTable> layers(drawing.layerTableId());
    EXPECT_TRUE(layers->has(L"PIPES")) << "an unknown layer is added";
}

TEST_F(EntityList, ChangesValues) {
    makeLine(1, 2, 3, 4);
    const Chain list = last();
    item(list, 11)->resval.rpoint[X] = 30;
    acutUpdString(L"DUCTS", item(list, 8)->resval.rstring);
    ASSERT_EQ(acdbEntMod(list.get()), RTNORM);
    AcDbObjectId id;
    acdbGetObjectId(id, item(list, -1)->resval.rlname);
    const AcDbObjectPointer<AcDbLine> line(id);
    EXPECT_EQ(line->endPoint(), AcGePoint3d(30, 4, 0));
    EXPECT_STREQ(std::unique_ptr<ACHAR[]>(line->layer()).get(), L"DUCTS");
    EXPECT_EQ(acdbEntMod(list.get()), RTERROR) << "open for read";
    EXPECT_EQ(acdbEntMod(nullptr), RTERROR);
    const Chain nameless(acutBuildList(8, L"0", RTNONE));
    EXPECT_EQ(acdbEntMod(nameless.get()), RTERROR);
}

TEST_F(EntityList, ChangesTheNumberOfVertices) {
    const ads_point a{0, 0, 0};
    const ads_point b{1, 0, 0};
    const ads_point c{1, 1, 0};
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"LWPOLYLINE", 10, a, 10, b, 10, c, RTNONE))));
    Chain list = last();
    EXPECT_EQ(item(list, 90)->resval.rlong, 3);
    // Drop the last vertex.
    resbuf* second = item(list, 10)->rbnext;
    while (second->restype != 10)
        second = second->rbnext;
    resbuf* before = second;
    while (before->rbnext->restype != 10)
        before = before->rbnext;
    resbuf* const dropped = before->rbnext;
    before->rbnext = dropped->rbnext;
    dropped->rbnext = nullptr;
    acutRelRb(dropped);
    item(list, 90)->resval.rlong = 2;
    ASSERT_EQ(acdbEntMod(list.get()), RTNORM);
    AcDbObjectId id;
    acdbGetObjectId(id, item(list, -1)->resval.rlname);
    {
        const AcDbObjectPointer<AcDbPolyline> polyline(id);
        AcGePoint2d point;
        EXPECT_EQ(polyline->numVerts(), 2U);
        polyline->getPointAt(1, point);
        EXPECT_EQ(point, AcGePoint2d(1, 0));
    }
    // Insert one between the two.
    resbuf* const added = acutNewRb(10);
    added->resval.rpoint[Y] = 7;
    resbuf* const first = item(list, 10);
    added->rbnext = first->rbnext;
    first->rbnext = added;
    item(list, 90)->resval.rlong = 3;
    ASSERT_EQ(acdbEntMod(list.get()), RTNORM);
    const AcDbObjectPointer<AcDbPolyline> polyline(id);
    AcGePoint2d point;
    EXPECT_EQ(polyline->numVerts(), 3U);
    polyline->getPointAt(1, point);
    EXPECT_EQ(point, AcGePoint2d(0, 7));
    polyline->getPointAt(2, point);
    EXPECT_EQ(point, AcGePoint2d(1, 0));
}

TEST_F(EntityList, RejectsIncompleteLists) {
    const ads_point at{0, 0, 0};
    const ads_point infinite{INFINITY, 0, 0};
    for (resbuf* const list : {
             acutBuildList(8, L"0", RTNONE),
             acutBuildList(RTDXF0, L"LINE", 10, at, RTNONE),
             acutBuildList(RTDXF0, L"LINE", 10, at, 11, infinite, RTNONE),
             acutBuildList(RTDXF0, L"LINE", 6, L"NO_SUCH_LINETYPE", 10, at, 11, at, RTNONE),
             acutBuildList(RTDXF0, L"NO_SUCH_TYPE", 10, at, RTNONE),
             acutBuildList(RTDXF0, L"INSERT", 2, L"NO_SUCH_BLOCK", 10, at, RTNONE),
             acutBuildList(RTDXF0, L"VERTEX", 10, at, RTNONE),
             acutBuildList(RTDXF0, L"DICTIONARY", 100, L"AcDbDictionary", RTNONE),
             acutBuildList(RTDXF0, L"ENDBLK", RTNONE),
             acutBuildList(RTDXF0, L"LINE", 10, at, 11, at, -3, 1001, L"NOT_REGISTERED", RTNONE),
         }) {
        const Chain chain(list);
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(acdbEntMake(list), RTERROR);
    }
    ads_name none;
    EXPECT_EQ(acdbEntLast(none), RTERROR) << "nothing was added";
    EXPECT_EQ(acdbEntMake(nullptr), RTERROR);
}

TEST_F(EntityList, MakesBlocksAndEntitiesOfParts) {
    const ads_point at{5, 5, 0};
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"BLOCK", 2, L"TAG", 10, at, 70, 0, RTNONE))));
    makeLine(0, 0, 1, 1);
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"ENDBLK", RTNONE))));
    ads_name name;
    EXPECT_EQ(acdbEntLast(name), RTERROR) << "the line is in the block";
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"INSERT", 66, 1, 2, L"TAG", 10, at, RTNONE))));
    ASSERT_TRUE(make(
        Chain(acutBuildList(RTDXF0, L"ATTRIB", 10, at, 40, 2.5, 1, L"P-1", 2, L"NUMBER", 70, 0, RTNONE))));
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"SEQEND", RTNONE))));
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"SEQEND", RTNONE))));
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"POLYLINE", 66, 1, 70, 0, RTNONE))));
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"VERTEX", 10, at, RTNONE))));
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"SEQEND", RTNONE))));

    std::wstring types;
    for (int code = acdbEntNext(nullptr, name); code == RTNORM; code = acdbEntNext(name, name)) {
        const Chain list(acdbEntGet(name));
        types += std::wstring(item(list, 0)->resval.rstring) + L" ";
    }
    EXPECT_EQ(types, L"INSERT ATTRIB SEQEND POLYLINE VERTEX SEQEND ");
    AcDbDatabase copy(false);
    ASSERT_EQ(zuhost::dxfInBytes(copy, zuhost::dxfOutBytes(drawing, false), L"copy.dxf"), Acad::eOk);
    EXPECT_TRUE(zuhost::warnings(copy).empty());
}

TEST_F(EntityList, GivesExtendedDataOnRequest) {
    acdbRegApp(L"MY_APP");
    acdbRegApp(L"OTHER");
    const ads_point at{0, 0, 0};
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"POINT", 10, at, -3, 1001, L"OTHER", 1070, 1, 1001,
                                         L"MY_APP", 1000, L"x", RTNONE))));
    ads_name name;
    acdbEntLast(name);
    EXPECT_EQ(item(Chain(acdbEntGet(name)), -3), nullptr);
    const Chain mine(acutBuildList(RTSTR, L"my*", RTNONE));
    const Chain list(acdbEntGetX(name, mine.get()));
    ASSERT_NE(item(list, -3), nullptr);
    EXPECT_STREQ(item(list, 1001)->resval.rstring, L"MY_APP");
    EXPECT_EQ(item(list, 1070), nullptr);
    acutUpdString(L"changed", item(list, 1000)->resval.rstring);
    ASSERT_EQ(acdbEntMod(list.get()), RTNORM);
    const Chain all(acutBuildList(RTSTR, L"*", RTNONE));
    const Chain changed(acdbEntGetX(name, all.get()));
    EXPECT_STREQ(item(changed, 1000)->resval.rstring, L"changed");
    EXPECT_EQ(item(changed, 1070)->resval.rint, 1);
}

TEST_F(EntityList, ErasesAndUnerases) {
    makeLine(0, 0, 1, 1);
    makeCircle(0, 0, 1);
    ads_name circle;
    ads_name name;
    ASSERT_EQ(acdbEntLast(circle), RTNORM);
    EXPECT_EQ(acdbEntDel(circle), RTNORM);
    EXPECT_EQ(acdbEntGet(circle), nullptr);
    acdbEntLast(name);
    EXPECT_FALSE(ads_name_equal(name, circle));
    EXPECT_EQ(acdbEntNext(name, name), RTERROR);
    EXPECT_EQ(acdbEntDel(circle), RTNORM);
    EXPECT_NE(Chain(acdbEntGet(circle)), nullptr);
    EXPECT_EQ(acdbEntUpd(circle), RTNORM);
}

TEST_F(EntityList, ManyEntitiesAreErasedInLinearTime) {
    constexpr int kMany = 40000;
    AcDbBlockTableRecordPointer space(drawing.currentSpaceId(), AcDb::kForWrite);
    for (int i = 0; i < kMany; ++i) {
        AcDbObjectPointer<AcDbPoint> point;
        point.create();
        ASSERT_EQ(space->appendAcDbEntity(point), Acad::eOk);
    }
    space.close();
    ads_name first;
    ASSERT_EQ(acdbEntNext(nullptr, first), RTNORM);
    int erased = 0;
    ads_name name;
    for (; acdbEntNext(nullptr, name) == RTNORM; ++erased)
        ASSERT_EQ(acdbEntDel(name), RTNORM);
    EXPECT_EQ(erased, kMany);
    EXPECT_EQ(acdbEntDel(first), RTNORM) << "takes the erasing back";
    ASSERT_EQ(acdbEntNext(nullptr, name), RTNORM);
    EXPECT_TRUE(ads_name_equal(name, first));
    EXPECT_EQ(acdbEntNext(name, name), RTERROR);
}

TEST(EntityNames, AreRefusedOnceTheirDrawingIsClosed) {
    ads_name name;
    {
        AcDbDatabase drawing;
        ASSERT_EQ(acdbGetAdsName(name, drawing.layerTableId()), Acad::eOk);
    }
    AcDbObjectId id;
    EXPECT_EQ(acdbGetObjectId(id, name), Acad::eInvalidAdsName);
    const ads_name nonsense{12345, 678};
    EXPECT_EQ(acdbGetObjectId(id, nonsense), Acad::eInvalidAdsName);
    EXPECT_EQ(acdbGetObjectId(id, nullptr), Acad::eInvalidAdsName);
    EXPECT_EQ(acdbGetAdsName(name, AcDbObjectId()), Acad::eNullObjectId);
    EXPECT_TRUE(ads_name_nil(name));
    EXPECT_EQ(acdbEntGet(name), nullptr);
    EXPECT_EQ(acdbEntDel(name), RTERROR);
    EXPECT_EQ(acdbHandEnt(L"2F", name), RTERROR) << "without a drawing";
    EXPECT_EQ(acdbEntNext(nullptr, name), RTERROR);
}

} // namespace
