#include "dboiter.h"
#include "dbvertex.h"
#include "sample_drawing.h"

#include <zuhost/names.h>

namespace {

class Appending : public SampleDrawing {
protected:
    static AcDb3dPolyline* inSpace() {
        AcGePoint3dArray points;
        points.append({0, 0, 0});
        points.append({3, 4, 0});
        return new AcDb3dPolyline(AcDb::k3dSimplePoly, points);
    }
    static AcDb2dPolyline* inPlane() {
        AcGePoint3dArray points;
        points.append({0, 0, 0});
        points.append({3, 4, 0});
        return new AcDb2dPolyline(AcDb::k2dSimplePoly, points);
    }
    static std::vector<AcDbObjectId> partsOf(AcDbObjectIterator* made) {
        const std::unique_ptr<AcDbObjectIterator> parts(made);
        std::vector<AcDbObjectId> ids;
        for (; !parts->done(); parts->step())
            ids.push_back(parts->objectId());
        return ids;
    }
    [[nodiscard]] std::string saved() const { return zuhost::dxfOutBytes(*drawing, false); }
};

} // namespace

TEST_F(Appending, APartIsAppendedOnceWhetherItsOwnerIsInADrawingOrNot) {
    const std::unique_ptr<AcDb3dPolyline> space(inSpace());
    auto* const inSpaceVertex = new AcDb3dPolylineVertex({1, 2, 3});
    EXPECT_EQ(space->appendVertex(inSpaceVertex), Acad::eOk);
    EXPECT_EQ(space->appendVertex(inSpaceVertex), Acad::eAlreadyInDb);
    const std::unique_ptr<AcDb2dPolyline> plane(inPlane());
    auto* const inPlaneVertex = new AcDb2dVertex({1, 2, 0});
    EXPECT_EQ(plane->appendVertex(inPlaneVertex), Acad::eOk);
    EXPECT_EQ(plane->appendVertex(inPlaneVertex), Acad::eAlreadyInDb);
    EXPECT_EQ(plane->appendVertex(nullptr), Acad::eNullObjectPointer);
    AcDbBlockReference reference;
    auto* const attribute = new AcDbAttribute({0, 0, 0}, L"1", L"TAG");
    EXPECT_EQ(reference.appendAttribute(attribute), Acad::eOk);
    EXPECT_EQ(reference.appendAttribute(attribute), Acad::eAlreadyInDb);
    const std::unique_ptr<AcDbObjectIterator> attributes(reference.attributeIterator());
    EXPECT_EQ(attributes->entity(), attribute);
    attributes->step();
    EXPECT_TRUE(attributes->done());
    double end = 0.0;
    EXPECT_EQ(space->getEndParam(end), Acad::eOk);
    EXPECT_EQ(end, 2.0) << "three vertices";
}

TEST_F(Appending, EntitiesWithAnOpenPartAreNotTransformedInPart) {
    const AcDbObjectId polylines[] = {add(*drawing, inSpace()), add(*drawing, inPlane())};
    const AcGeMatrix3d moved = AcGeMatrix3d::translation({10, 0, 0});
    for (const AcDbObjectId id : polylines) {
        const AcDbObjectPointer<AcDbCurve> curve(id, AcDb::kForWrite);
        auto* const plane = AcDb2dPolyline::cast(curve.object());
        const std::vector<AcDbObjectId> vertices =
            partsOf(plane != nullptr ? plane->vertexIterator()
                                     : AcDb3dPolyline::cast(curve.object())->vertexIterator());
        ASSERT_EQ(vertices.size(), 2U);
        const std::string before = saved();
        {
            const AcDbEntityPointer reading(vertices[1], AcDb::kForRead);
            EXPECT_EQ(curve->transformBy(moved), Acad::eWasOpenForRead);
        }
        {
            const AcDbEntityPointer writing(vertices[1], AcDb::kForWrite);
            EXPECT_EQ(curve->transformBy(moved), Acad::eWasOpenForWrite);
        }
        EXPECT_TRUE(before == saved());
        EXPECT_EQ(curve->transformBy(moved), Acad::eOk);
        AcGePoint3d point;
        curve->getEndPoint(point);
        EXPECT_EQ(point, AcGePoint3d(13, 4, 0));
    }
    AcDbObjectId attributeId;
    const AcDbObjectPointer<AcDbBlockReference> reference(id(kBranch), AcDb::kForWrite);
    auto* const attribute = new AcDbAttribute({0, 0, 0}, L"1", L"TAG");
    ASSERT_EQ(reference->appendAttribute(attributeId, attribute), Acad::eOk);
    const AcGePoint3d position = reference->position();
    EXPECT_EQ(reference->transformBy(moved), Acad::eWasOpenForWrite);
    EXPECT_EQ(reference->position(), position);
    attribute->close();
    EXPECT_EQ(reference->transformBy(moved), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbAttribute>(attributeId)->position(), AcGePoint3d(10, 0, 0));
}

TEST_F(Appending, EntitiesOpenForReadAreNotChanged) {
    const AcDbObjectId ids[] = {id(kBranch), id(kDuct), id(kShelf), add(*drawing, inSpace()),
                                add(*drawing, inPlane())};
    const std::string before = saved();
    for (const AcDbObjectId entity : ids) {
        const AcDbEntityPointer opened(entity, AcDb::kForRead);
        ASSERT_EQ(opened.openStatus(), Acad::eOk);
        auto& reading = const_cast<AcDbEntity&>(*opened);
        EXPECT_EQ(reading.transformBy(AcGeMatrix3d::scaling(2.0)), Acad::eNotOpenForWrite);
        EXPECT_EQ(reading.setLayer(L"0"), Acad::eNotOpenForWrite);
        EXPECT_EQ(reading.setLinetype(L"ByBlock"), Acad::eNotOpenForWrite);
        EXPECT_EQ(reading.setVisibility(AcDb::kInvisible), Acad::eNotOpenForWrite);
        EXPECT_EQ(reading.setPropertiesFrom(&reading), Acad::eNotOpenForWrite);
        EXPECT_EQ(reading.erase(), Acad::eNotOpenForWrite);
        EXPECT_EQ(reading.createExtensionDictionary(), Acad::eNotOpenForWrite);
        EXPECT_FALSE(reading.isModified());
    }
    EXPECT_TRUE(before == saved());
}

TEST_F(Appending, LayersThatTheDrawingLacksAreAdded) {
    auto* const line = new AcDbLine({0, 0, 0}, {1, 0, 0});
    ASSERT_EQ(line->setLayer(L"\u672A\u77E5"), Acad::eOk);
    ASSERT_EQ(line->setLinetype(L"UNKNOWN"), Acad::eOk);
    const AcDbObjectId added = add(*drawing, line);
    const auto again = reopened();
    const AcDbEntityPointer read(idIn(*again, added.handle().value()));
    EXPECT_EQ(zuhost::layerName(*read), L"\u672A\u77E5");
    EXPECT_FALSE(read->layerId().isNull()) << "the layer is added";
    EXPECT_FALSE(read->linetypeId().isNull()) << "an unknown linetype becomes that of the layer";
}

TEST_F(Appending, AColourIndexOfALayerReplacesItsColourByParts) {
    std::string bytes = saved();
    const std::size_t layer = bytes.find("SA-\u30C0\u30AF\u30C8\n");
    ASSERT_NE(layer, std::string::npos);
    bytes.insert(bytes.find('\n', layer) + 1, "420\n1193046\n430\nBOOK$NAME\n");
    drawing = readBytes(bytes);
    {
        const AcDbLayerTableRecordPointer record(L"SA-\u30C0\u30AF\u30C8", drawing.get(), AcDb::kForWrite);
        ASSERT_EQ(record->setColorIndex(3), Acad::eOk);
        EXPECT_EQ(record->colorIndex(), 3);
    }
    const std::string now = saved();
    EXPECT_EQ(now.find("\n1193046\n"), std::string::npos) << "other programs would show the old colour";
    EXPECT_EQ(now.find("BOOK$NAME"), std::string::npos);
}
