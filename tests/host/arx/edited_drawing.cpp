// Applies fixed edits to a drawing: edited_drawing FROM TO [-b]. check_edited_drawing.py verifies the result.

#include "dbdict.h"
#include "dbents.h"
#include "dbgroup.h"
#include "dbobjptr.h"
#include "dbsymtb.h"

#include <zuhost/drawing_files.h>
#include <zuhost/text_codec.h>

#include <cstdio>
#include <string_view>

namespace {

AcDbObjectId find(const AcDbDatabase& database, Adesk::UInt64 handle) {
    AcDbObjectId id;
    database.getAcDbObjectId(id, false, AcDbHandle(handle));
    return id;
}

void erase(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    object->erase();
}

AcDbObjectId addBlock(AcDbDatabase& database) {
    AcDbBlockTable* blocks = nullptr;
    database.getBlockTable(blocks, AcDb::kForWrite);
    auto* const block = new AcDbBlockTableRecord;
    block->setName(L"新部品");
    blocks->add(block);
    blocks->close();
    auto* const line = new AcDbLine({0, 0, 0}, {100, 0, 0});
    block->appendAcDbEntity(line);
    line->close();
    const AcDbObjectId id = block->objectId();
    block->close();
    return id;
}

void addToModelSpace(AcDbDatabase& database, AcDbEntity* entity) {
    const AcDbObjectPointer<AcDbBlockTable> blocks(database.blockTableId());
    AcDbObjectId spaceId;
    blocks->getAt(ACDB_MODEL_SPACE, spaceId);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(spaceId, AcDb::kForWrite);
    space->appendAcDbEntity(entity);
    entity->close();
}

void addLayer(AcDbDatabase& database) {
    AcDbLayerTable* layers = nullptr;
    database.getLayerTable(layers, AcDb::kForWrite);
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(L"新しい画層");
    layers->add(layer);
    layer->close();
    layers->close();
}

void addGroup(AcDbDatabase& database, AcDbObjectId member) {
    AcDbDictionary* groups = nullptr;
    database.getGroupDictionary(groups, AcDb::kForWrite);
    auto* const group = new AcDbGroup(L"new");
    AcDbObjectId id;
    groups->setAt(L"*", group, id);
    groups->close();
    group->append(member);
    group->close();
}

void setData(AcDbDatabase& database, AcDbObjectId id) {
    acdbRegApp(&database, L"MY_APP");
    resbuf* const chain = acutNewRb(1001);
    acutNewString(L"MY_APP", chain->resval.rstring);
    chain->rbnext = acutNewRb(1000);
    acutNewString(L"能力", chain->rbnext->resval.rstring);
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    object->setXData(chain);
    acutRelRb(chain);
}

void edit(AcDbDatabase& database) {
    {
        const AcDbObjectPointer<AcDbBlockReference> duct(find(database, 0x114), AcDb::kForWrite);
        duct->setLayer(L"通り芯");
        duct->setRotation(1.0);
    }
    erase(find(database, 0x106)); // a shelf
    erase(find(database, 0x187)); // the group *A3
    setData(database, find(database, 0x108));
    addLayer(database);
    addGroup(database, find(database, 0x110));
    addToModelSpace(database, new AcDbBlockReference({1, 2, 3}, addBlock(database)));
    addToModelSpace(database, new AcDbText({0, 0, 0}, L"追加", AcDbObjectId::kNull, 100.0));
    auto* const outline = new AcDbPolyline;
    outline->addVertexAt(0, {0, 0});
    outline->addVertexAt(1, {10, 0}, 1.0);
    addToModelSpace(database, outline);
    addToModelSpace(database, new AcDbArc({0, 0, 0}, 5.0, 0.0, 1.0));
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    AcDbDatabase database(false);
    if (database.dxfIn(zuhost::fromUtf8(argv[1]).c_str()) == Acad::eOk) {
        edit(database);
        const bool binary = argc > 3 && std::string_view(argv[3]) == "-b";
        if (zuhost::dxfOut(database, zuhost::fromUtf8(argv[2]).c_str(), binary) == Acad::eOk)
            return 0;
    }
    std::fprintf(stderr, "%s\n", zuhost::toUtf8(zuhost::lastErrorText(database)).c_str());
    return 1;
}
