#include "network.h"

#include <zucomn/frame.h>
#include <zucomn/route.h>

#include <dbapserv.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

namespace {

constexpr int kTrack = 100; ///< Elements per run.
constexpr double kLength = 500.0;
constexpr double kTrackDistance = 1000.0;

AcDbObjectId addBlock(AcDbDatabase& database, const wchar_t* name, const std::vector<AcGePoint3d>& points) {
    AcDbBlockTable* table = nullptr;
    database.getSymbolTable(table, AcDb::kForWrite);
    auto* const record = new AcDbBlockTableRecord;
    record->setName(name);
    table->add(record);
    table->close();
    for (const AcGePoint3d& place : points) {
        auto* const point = new AcDbPoint(place);
        record->appendAcDbEntity(point);
        point->setLayer(ZUCONECT_LAYER);
        point->close();
        auto* const line = new AcDbLine(points.front(), place);
        record->appendAcDbEntity(line);
        line->close();
    }
    const AcDbObjectId id = record->objectId();
    record->close();
    return id;
}

void addLayer(AcDbDatabase& database, const wchar_t* name) {
    AcDbLayerTable* table = nullptr;
    database.getSymbolTable(table, AcDb::kForWrite);
    auto* const record = new AcDbLayerTableRecord;
    record->setName(name);
    table->add(record);
    record->close();
    table->close();
}

} // namespace

Network::Network(int size) : database(std::make_unique<AcDbDatabase>()) {
    acdbHostApplicationServices()->setWorkingDatabase(database.get());
    database->disableUndoRecording(true);
    addLayer(*database, ZUCONECT_LAYER);
    const AcDbObjectId line = addBlock(*database, L"RT-1", {{0, 0, 0}, {kLength, 0, 0}});
    const AcDbObjectId tee = addBlock(*database, L"RBT-1", {{0, 0, 0}, {kLength, 0, 0}, {0, kLength, 0}});
    AcDbObjectId space;
    {
        const AcDbObjectPointer<AcDbBlockTable> table(database->blockTableId());
        table->getAt(ACDB_MODEL_SPACE, space);
    }
    const AcDbObjectPointer<AcDbBlockTableRecord> record(space, AcDb::kForWrite);
    for (int i = 0; i < size; ++i) {
        const int track = i / kTrack;
        const AcGePoint3d place(i % kTrack * kLength, track * kTrackDistance, 0.0);
        auto* const reference = new AcDbBlockReference(place, i % 2 == 0 ? line : tee);
        AcDbObjectId id;
        record->appendAcDbEntity(id, reference);
        reference->close();
        elements.append(id);
    }
    RootComn_CreateNewGroup(L"*", elements, group, false);
}

Network::~Network() {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

std::vector<Network::Point> Network::points() const {
    std::vector<Point> all;
    for (int i = 0; i < elements.length(); ++i) {
        AcArray<AcGePoint3d> own;
        ZuComn_GetConnectPoint(elements[i], own);
        for (const AcGePoint3d& place : own)
            all.push_back({place, i});
    }
    return all;
}
