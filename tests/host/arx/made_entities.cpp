// Prints the values of the entities of a drawing, adds one of each kind and saves it: made_entities FROM TO.
// check_made_entities.py verifies both.

#include "dbapserv.h"
#include "dbelipse.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dboiter.h"
#include "dbsymtb.h"

#include <zuhost/text_codec.h>

#include <cmath>
#include <cstdio>

namespace {

void print(const char* name, std::initializer_list<double> values) {
    std::printf("%s", name);
    for (const double value : values)
        std::printf(" %.6g", std::round(value * 1e6) / 1e6 + 0.0); // not -0
    std::printf("\n");
}

void printPoint(const char* name, const AcGePoint3d& p) {
    print(name, {p.x, p.y, p.z});
}

void printParts(AcDbObjectIterator* parts) {
    for (; !parts->done(); parts->step()) {
        const AcDbObjectPointer<AcDbEntity> part(parts->objectId());
        if (const auto* vertex = AcDb2dVertex::cast(part.object())) {
            printPoint("  vertex", vertex->position());
            print("  bulge", {vertex->bulge()});
        }
        if (const auto* vertex = AcDb3dPolylineVertex::cast(part.object()))
            printPoint("  vertex", vertex->position());
        if (const auto* attribute = AcDbAttribute::cast(part.object())) {
            ACHAR* tag = attribute->tag();
            std::printf("  attribute %s\n", zuhost::toUtf8(tag).c_str());
            acutDelString(tag);
            print("  height", {attribute->height()});
        }
    }
    delete parts;
}

void printCurve(const AcDbCurve& curve) {
    double end = 0.0;
    double length = 0.0;
    AcGePoint3d point;
    curve.getEndParam(end);
    curve.getDistAtParam(end, length);
    curve.getStartPoint(point);
    printPoint("start", point);
    print("length", {length});
}

void print(const AcDbEntity& entity) {
    std::printf("%s\n", zuhost::toUtf8(entity.isA()->name()).c_str());
    print("colour", {static_cast<double>(entity.colorIndex()), entity.linetypeScale()});
    if (const auto* curve = AcDbCurve::cast(&entity))
        printCurve(*curve);
    AcDbExtents box;
    if (entity.getGeomExtents(box) == Acad::eOk) {
        printPoint("min", box.minPoint());
        printPoint("max", box.maxPoint());
    }
    if (const auto* text = AcDbText::cast(&entity)) {
        printPoint("alignment", text->alignmentPoint());
        print("text",
              {text->height(), text->rotation(), text->widthFactor(), text->oblique(),
               static_cast<double>(text->horizontalMode()), static_cast<double>(text->verticalMode())});
    }
    if (const auto* text = AcDbMText::cast(&entity)) {
        printPoint("location", text->location());
        print("text",
              {text->textHeight(), text->width(), text->rotation(), static_cast<double>(text->attachment())});
    }
    if (const auto* reference = AcDbBlockReference::cast(&entity)) {
        printPoint("position", reference->position());
        printParts(reference->attributeIterator());
    }
    if (const auto* polyline = AcDb2dPolyline::cast(&entity))
        printParts(polyline->vertexIterator());
    if (const auto* polyline = AcDb3dPolyline::cast(&entity))
        printParts(polyline->vertexIterator());
}

AcDbObjectId modelSpace(const AcDbDatabase& database) {
    AcDbObjectId space;
    AcDbObjectPointer<AcDbBlockTable>(database.blockTableId())->getAt(ACDB_MODEL_SPACE, space);
    return space;
}

void add(AcDbDatabase& database, AcDbEntity* entity) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(modelSpace(database), AcDb::kForWrite);
    // Old drawings have no such entity.
    if (space->appendAcDbEntity(entity) == Acad::eNotApplicable)
        delete entity;
    else
        entity->close();
}

AcDbObjectId addBlock(AcDbDatabase& database) {
    const AcDbObjectPointer<AcDbBlockTable> blocks(database.blockTableId(), AcDb::kForWrite);
    auto* const block = new AcDbBlockTableRecord;
    block->setName(L"MADE");
    AcDbObjectId id;
    blocks->add(id, block);
    auto* const circle = new AcDbCircle({1, 0, 0}, AcGeVector3d::kZAxis, 0.5);
    auto* const tag = new AcDbAttributeDefinition({0, 1, 0}, L"none", L"TAG", L"Which tag?");
    tag->setHeight(2.0);
    tag->setFieldLength(12);
    for (AcDbEntity* const entity : {static_cast<AcDbEntity*>(circle), static_cast<AcDbEntity*>(tag)}) {
        block->appendAcDbEntity(entity);
        entity->close();
    }
    block->close();
    return id;
}

void addReference(AcDbDatabase& database) {
    auto* const reference = new AcDbBlockReference({10, 20, 0}, addBlock(database));
    reference->setScaleFactors({2, 2, 2});
    reference->setRotation(1.5707963267948966);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(modelSpace(database), AcDb::kForWrite);
    space->appendAcDbEntity(reference);
    auto* const attribute = new AcDbAttribute({0, 0, 0}, L"P-1", L"TAG");
    reference->appendAttribute(attribute);
    attribute->setAttributeFromBlock(reference->blockTransform());
    attribute->close();
    reference->close();
}

void addTexts(AcDbDatabase& database) {
    auto* const text = new AcDbText({1, 2, 0}, L"縦", AcDbObjectId::kNull, 2.5, 0.5);
    text->setHorizontalMode(AcDb::kTextCenter);
    text->setVerticalMode(AcDb::kTextTop);
    text->setAlignmentPoint({3, 4, 0});
    text->setWidthFactor(0.8);
    text->setOblique(0.25);
    add(database, text);
    auto* const lines = new AcDbMText;
    lines->setContents(std::wstring(600, L'漢').c_str());
    lines->setLocation({5, 6, 7});
    lines->setTextHeight(3.5);
    lines->setWidth(100.0);
    lines->setAttachment(AcDbMText::kMiddleCenter);
    lines->setRotation(0.5);
    add(database, lines);
}

void addPolylines(AcDbDatabase& database) {
    auto* const outline = new AcDbPolyline;
    outline->addVertexAt(0, {0, 0}, 1.0, 0.5, 0.25);
    outline->addVertexAt(1, {10, 0});
    outline->addVertexAt(2, {10, 10});
    outline->setElevation(4.0);
    outline->setClosed(true);
    add(database, outline);
    AcGePoint3dArray corners;
    for (const AcGePoint3d& corner : {AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 0), AcGePoint3d(4, 3, 2)})
        corners.append(corner);
    add(database, new AcDb3dPolyline(AcDb::k3dSimplePoly, corners, true));
    auto* const flat = new AcDb2dPolyline(AcDb::k2dSimplePoly, corners, 5.0, false);
    flat->setColorIndex(3);
    add(database, flat);
}

void addEach(AcDbDatabase& database) {
    auto* const line = new AcDbLine({1, 2, 3}, {4, 6, 3});
    line->setColorIndex(1);
    line->setLinetypeScale(2.0);
    line->setLineWeight(AcDb::kLnWt050);
    add(database, line);
    auto* const circle = new AcDbCircle({1, 2, 3}, -AcGeVector3d::kZAxis, 5.0);
    AcCmColor orange;
    orange.setRGB(255, 128, 0);
    circle->setColor(orange);
    add(database, circle);
    add(database, new AcDbArc({1, 2, 0}, 5.0, 0.5, 2.0));
    add(database, new AcDbPoint({7, 8, 9}));
    add(database, new AcDbEllipse({1, 2, 3}, AcGeVector3d::kZAxis, {0, 4, 0}, 0.5, 0.0, 1.0));
    addTexts(database);
    addPolylines(database);
    addReference(database);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    AcDbDatabase database(false);
    if (database.dxfIn(zuhost::fromUtf8(argv[1]).c_str()) != Acad::eOk)
        return 1;
    acdbHostApplicationServices()->setWorkingDatabase(&database);
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(modelSpace(database));
        AcDbBlockTableRecordIterator* entities = nullptr;
        space->newIterator(entities);
        for (; !entities->done(); entities->step()) {
            AcDbObjectId id;
            entities->getEntityId(id);
            print(*AcDbObjectPointer<AcDbEntity>(id));
        }
        delete entities;
    }
    addEach(database);
    return database.dxfOut(zuhost::fromUtf8(argv[2]).c_str()) == Acad::eOk ? 0 : 1;
}
