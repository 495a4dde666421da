#include "editor_drawing.h"

#include <dbelipse.h>
#include <dboiter.h>
#include <zuhost/drawing_files.h>

namespace {

const ads_point kA{1, 2, 3};
const ads_point kB{4, 6, 3};
const ads_point kC{4, 9, 3};
const ads_point kUp{0, 0, 1};

class MadeLists : public EditorDrawing {
protected:
    MadeLists() {
        EXPECT_TRUE(make(Chain(acutBuildList(RTDXF0, L"BLOCK", 2, L"PUMP", 10, kA, 70, 0, RTNONE))));
        makeLine(0, 0, 1, 1);
        EXPECT_TRUE(make(Chain(acutBuildList(RTDXF0, L"ENDBLK", RTNONE))));
    }

    /// Returns the entity made last; null when there is none.
    static AcDbObjectId last() {
        ads_name name;
        AcDbObjectId id;
        if (acdbEntLast(name) == RTNORM)
            acdbGetObjectId(id, name);
        return id;
    }
    static Chain listOf(AcDbObjectId id) {
        ads_name name;
        acdbGetAdsName(name, id);
        return Chain(acdbEntGet(name));
    }
    static int change(const Chain& list) { return acdbEntMod(list.get()); }

    /// Returns a list as text, without names and handles.
    static std::wstring described(const Chain& list) {
        std::wstring text;
        for (const resbuf* item = list.get(); item != nullptr; item = item->rbnext) {
            if (item->restype < 0 || item->restype == 5 || item->restype == 330)
                continue;
            text += std::to_wstring(item->restype) + L"=";
            if (item->restype <= 9 || item->restype == 100)
                text += item->resval.rstring;
            else if (item->restype >= 10 && item->restype < 39)
                text +=
                    std::to_wstring(item->resval.rpoint[X]) + L"," + std::to_wstring(item->resval.rpoint[Y]);
            else if (item->restype >= 38 && item->restype < 60)
                text += std::to_wstring(item->resval.rreal);
            else if (item->restype >= 60 && item->restype < 80)
                text += std::to_wstring(item->resval.rint);
            text += L"\n";
        }
        return text;
    }
    [[nodiscard]] std::unique_ptr<AcDbDatabase> saved() {
        auto copy = std::make_unique<AcDbDatabase>(false);
        EXPECT_EQ(zuhost::dxfInBytes(*copy, zuhost::dxfOutBytes(drawing, false), L"copy.dxf"), Acad::eOk);
        EXPECT_TRUE(zuhost::warnings(*copy).empty());
        return copy;
    }
};

TEST_F(MadeLists, BecomeEntitiesOfTheirClassAndMakeThemAgain) {
    const struct {
        const AcRxClass* kind;
        resbuf* list;
    } cases[] = {
        {AcDbLine::desc(), acutBuildList(RTDXF0, L"line", 10, kA, 11, kB, 62, 1, RTNONE)},
        {AcDbPoint::desc(), acutBuildList(RTDXF0, L"POINT", 10, kA, 6, L"ByBlock", RTNONE)},
        {AcDbCircle::desc(), acutBuildList(RTDXF0, L"CIRCLE", 10, kA, 40, 2.5, 39, 1.5, 210, kUp, RTNONE)},
        {AcDbArc::desc(), acutBuildList(RTDXF0, L"ARC", 10, kA, 40, 2.5, 50, 0.5, 51, 1.5, RTNONE)},
        {AcDbEllipse::desc(),
         acutBuildList(RTDXF0, L"ELLIPSE", 10, kA, 11, kB, 40, 0.5, 41, 0.0, 42, 3.0, RTNONE)},
        {AcDbText::desc(), acutBuildList(RTDXF0, L"TEXT", 1, L"\u914D\u7BA1 %%c", 10, kA, 40, 2.5, 72, 1, 11,
                                         kB, 73, 2, RTNONE)},
        {AcDbMText::desc(), acutBuildList(RTDXF0, L"MTEXT", 1, L"a\\Pb", 10, kA, 40, 2.5, 71, 5, RTNONE)},
        {AcDbBlockReference::desc(),
         acutBuildList(RTDXF0, L"INSERT", 2, L"pump", 10, kA, 41, 2.0, 50, 0.25, RTNONE)},
        {AcDbPolyline::desc(),
         acutBuildList(RTDXF0, L"LWPOLYLINE", 70, 1, 10, kA, 42, 0.5, 10, kB, 10, kC, RTNONE)},
        {AcDbAttributeDefinition::desc(),
         acutBuildList(RTDXF0, L"ATTDEF", 1, L"none", 2, L"TAG", 3, L"Tag?", 10, kA, 40, 2.5, 70, 0, RTNONE)},
        {AcDbEntity::desc(), acutBuildList(RTDXF0, L"SOLID", 10, kA, 11, kB, 12, kC, 13, kC, RTNONE)},
        {AcDbEntity::desc(), acutBuildList(RTDXF0, L"SPLINE", 100, L"AcDbEntity", 8, L"0", 100, L"AcDbSpline",
                                           70, 8, 71, 3, RTNONE)},
    };
    for (const auto& c : cases) {
        const Chain given(c.list);
        ASSERT_NE(given, nullptr);
        ASSERT_EQ(acdbEntMake(given.get()), RTNORM) << testing::PrintToString(described(given));
        const AcDbObjectId first = last();
        const Chain list = listOf(first);
        if (c.kind != AcDbEntity::desc()) {
            EXPECT_EQ(first.objectClass(), c.kind);
        }
        for (const resbuf* value = given.get()->rbnext; value != nullptr; value = value->rbnext)
            EXPECT_NE(item(list, value->restype), nullptr) << value->restype;
        // A list that is read makes an equal entity, and changes none.
        ASSERT_EQ(acdbEntMake(list.get()), RTNORM);
        EXPECT_NE(last(), first);
        EXPECT_EQ(described(listOf(last())), described(list));
        const std::string before = zuhost::dxfOutBytes(drawing, false);
        EXPECT_EQ(change(list), RTNORM);
        EXPECT_TRUE(before == zuhost::dxfOutBytes(drawing, false)) << "the same values";
    }
    const auto copy = saved();
    EXPECT_EQ(copy->approxNumObjects(), drawing.approxNumObjects());
}

TEST_F(MadeLists, VerticesHaveTheClassOfTheirPolyline) {
    for (const bool inSpace : {false, true}) {
        ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"POLYLINE", 66, 1, 70, inSpace ? 8 : 0, RTNONE))));
        for (const ads_real* const point : {kA, kB, kC})
            ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"VERTEX", 10, point, 40, 0.5, 41, 0.5, 70,
                                                 inSpace ? 32 : 0, RTNONE))));
        ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"SEQEND", RTNONE))));
        const auto copy = saved();
        for (const AcDbDatabase* const database :
             {static_cast<const AcDbDatabase*>(&drawing), static_cast<const AcDbDatabase*>(copy.get())}) {
            AcDbObjectId id;
            ASSERT_EQ(database->getAcDbObjectId(id, false, last().handle()), Acad::eOk);
            const AcDbObjectPointer<AcDbCurve> curve(id);
            ASSERT_EQ(curve.openStatus(), Acad::eOk);
            EXPECT_EQ(curve->isA(), inSpace ? AcDb3dPolyline::desc() : AcDb2dPolyline::desc());
            double end = 0.0;
            double length = 0.0;
            ASSERT_EQ(curve->getEndParam(end), Acad::eOk);
            ASSERT_EQ(curve->getDistAtParam(end, length), Acad::eOk);
            EXPECT_DOUBLE_EQ(length, 8.0);
            if (!inSpace) {
                const std::unique_ptr<AcDbObjectIterator> vertices(
                    AcDb2dPolyline::cast(curve.object())->vertexIterator());
                EXPECT_EQ(AcDbObjectPointer<AcDb2dVertex>(vertices->objectId())->startWidth(), 0.5);
            }
        }
    }
}

TEST_F(MadeLists, OfUnknownTypesAreRefused) {
    // The low bytes of these letters spell LINE.
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"\u014C\u0149\u014E\u0145", 10, kA, 11, kB, RTNONE))));
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"", 10, kA, 11, kB, RTNONE))));
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"LINE\n", 10, kA, 11, kB, RTNONE))));
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"LINE", 8, L"", 10, kA, 11, kB, RTNONE))));
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"LINE", 100, L"AcDbLine", 10, kA, 11, kB, RTNONE))));
    EXPECT_TRUE(last().isNull());
}

TEST_F(MadeLists, ChangesOfAListAreWhatItSays) {
    makeCircle(1, 2, 5);
    const AcDbObjectId id = last();
    ads_name name;
    acdbGetAdsName(name, id);
    const ads_point tilted{0, 1, 0};
    ASSERT_EQ(change(Chain(acutBuildList(-1, name, 40, 7.5, 39, 2.0, 210, tilted, RTNONE))), RTNORM);
    {
        const AcDbObjectPointer<AcDbCircle> circle(id);
        EXPECT_EQ(circle->radius(), 7.5);
        EXPECT_EQ(circle->thickness(), 2.0);
        EXPECT_EQ(circle->normal(), AcGeVector3d(0, 1, 0));
    }
    // The type, the handle and the owner stay.
    ads_name model;
    acdbGetAdsName(model, drawing.layerTableId());
    ASSERT_EQ(change(Chain(acutBuildList(-1, name, RTDXF0, L"LINE", 5, L"1", 330, model, 62, 4, RTNONE))),
              RTNORM);
    EXPECT_EQ(id.objectClass(), AcDbCircle::desc());
    EXPECT_EQ(AcDbEntityPointer(id)->colorIndex(), 4);
    EXPECT_EQ(AcDbEntityPointer(id)->ownerId(), drawing.currentSpaceId());

    const std::string before = zuhost::dxfOutBytes(drawing, false);
    const double infinite = std::numeric_limits<double>::infinity();
    for (resbuf* const list : {acutBuildList(-1, name, 40, infinite, RTNONE),
                               acutBuildList(-1, name, 62, 3, 6, L"NO_SUCH", RTNONE),
                               acutBuildList(-1, name, 62, 3, -3, 1001, L"NOT_REGISTERED", RTNONE),
                               acutBuildList(-1, name, 8, L"", RTNONE), acutBuildList(62, 3, RTNONE),
                               acutBuildList(-1, model, 62, 3, RTNONE)}) {
        EXPECT_EQ(change(Chain(list)), RTERROR);
        EXPECT_TRUE(before == zuhost::dxfOutBytes(drawing, false));
    }
}

TEST_F(MadeLists, AppendedValuesBelongToTheClassThatHasThem) {
    // Appended to the list, and inserted after the layer: both are habits.
    for (const bool appends : {false, true}) {
        ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"TEXT", 1, L"P", 10, kA, 40, 2.5, RTNONE))));
        const Chain list = listOf(last());
        resbuf* before = list.get();
        while (before->rbnext != nullptr && (appends || before->restype != 8))
            before = before->rbnext;
        resbuf* const rest = before->rbnext;
        before->rbnext = acutBuildList(62, 4, 370, 50, 39, 1.5, 50, 0.5, 72, 4, 73, 3, RTNONE);
        while (before->rbnext != nullptr)
            before = before->rbnext;
        before->rbnext = rest;
        ASSERT_EQ(change(list), RTNORM);
        const auto copy = saved();
        AcDbObjectId id;
        ASSERT_EQ(copy->getAcDbObjectId(id, false, last().handle()), Acad::eOk);
        const AcDbObjectPointer<AcDbText> text(id);
        EXPECT_EQ(text->colorIndex(), 4);
        EXPECT_EQ(text->lineWeight(), AcDb::kLnWt050);
        EXPECT_EQ(text->thickness(), 1.5);
        EXPECT_EQ(text->horizontalMode(), AcDb::kTextMid);
        EXPECT_EQ(text->verticalMode(), AcDb::kTextTop);
        EXPECT_NE(text->rotation(), 0.0);
    }
    makeLine(0, 0, 1, 1);
    ads_name name;
    acdbGetAdsName(name, last());
    ASSERT_EQ(change(Chain(acutBuildList(-1, name, 6, L"ByBlock", 48, 2.5, 60, 1, RTNONE))), RTNORM);
    const AcDbEntityPointer line(last());
    EXPECT_EQ(line->linetypeScale(), 2.5);
    EXPECT_FALSE(line->isVisible());
}

TEST_F(MadeLists, OfErasedAndLockedEntitiesCannotBeChanged) {
    makeLine(0, 0, 1, 1, L"PIPES");
    const AcDbObjectId id = last();
    const Chain list = listOf(id);
    {
        const AcDbLayerTableRecordPointer layer(L"PIPES", &drawing, AcDb::kForWrite);
        layer->setIsLocked(true);
    }
    ads_name name;
    acdbGetAdsName(name, id);
    EXPECT_EQ(change(list), RTERROR);
    EXPECT_EQ(acdbEntDel(name), RTERROR);
    {
        const AcDbLayerTableRecordPointer layer(L"PIPES", &drawing, AcDb::kForWrite);
        layer->setIsLocked(false);
    }
    EXPECT_EQ(acdbEntDel(name), RTNORM);
    EXPECT_EQ(change(list), RTERROR);
    EXPECT_EQ(acdbEntUpd(name), RTNORM);
    ads_name next;
    EXPECT_EQ(acdbEntNext(name, next), RTERROR);
    EXPECT_EQ(acdbEntNext(nullptr, nullptr), RTERROR);
    EXPECT_EQ(acdbEntLast(nullptr), RTERROR);
    EXPECT_EQ(acdbHandEnt(nullptr, next), RTERROR);
    for (const wchar_t* const bad : {L"", L"G", L"-1", L"0", L" 2F", L"10000000000000000", L"\u0132\u0146"})
        EXPECT_EQ(acdbHandEnt(bad, next), RTERROR) << testing::PrintToString(std::wstring(bad));
}

TEST_F(MadeLists, OfBlocksMakeThemAnewAndNameAnonymousOnes) {
    // A definition replaces the block's entities, and references show the new ones.
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"INSERT", 2, L"PUMP", 10, kA, RTNONE))));
    const AcDbObjectId reference = last();
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"BLOCK", 2, L"PUMP", 10, kUp, 70, 0, RTNONE))));
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"BLOCK", 2, L"INNER", 10, kUp, 70, 0, RTNONE))))
        << "inside of another";
    makeCircle(0, 0, 3);
    ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"ENDBLK", RTNONE))));
    AcDbVoidPtrArray parts;
    ASSERT_EQ(AcDbEntityPointer(reference)->explode(parts), Acad::eOk);
    ASSERT_EQ(parts.length(), 1);
    const std::unique_ptr<AcDbEntity> part(static_cast<AcDbEntity*>(parts[0]));
    EXPECT_EQ(part->isA(), AcDbCircle::desc());
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"BLOCK", 2, L"*U", 10, kA, 70, 1, RTNONE))));
        ASSERT_TRUE(make(Chain(acutBuildList(RTDXF0, L"ENDBLK", RTNONE))));
    }
    const AcDbObjectPointer<AcDbBlockTable> blocks(drawing.blockTableId());
    EXPECT_TRUE(blocks->has(L"*U1"));
    EXPECT_TRUE(blocks->has(L"*U2"));
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"BLOCK", 2, L"", 10, kA, 70, 0, RTNONE))));
    EXPECT_FALSE(make(Chain(acutBuildList(RTDXF0, L"BLOCK", 2, L"*Model_Space", 10, kA, 70, 0, RTNONE))))
        << "a layout";
    EXPECT_NE(saved(), nullptr);
}

} // namespace
