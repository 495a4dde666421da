#pragma once

#include "dbdict.h"
#include "dbents.h"
#include "dbgroup.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include <zuhost/drawing_files.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

/// Fixture with the drawing of a small office floor and helpers to read and edit it.
class SampleDrawing : public testing::Test {
protected:
    static constexpr Adesk::UInt64 kAirHandler = 0x10C; ///< In groups, on the locked layer.
    static constexpr Adesk::UInt64 kBranch = 0x116;     ///< Mirrored; in the groups *A1 and *A3.
    static constexpr Adesk::UInt64 kDuct = 0x114;       ///< In the group *A1.
    static constexpr Adesk::UInt64 kShelf = 0x106;      ///< In the group of furniture; no extended data.
    static constexpr Adesk::UInt64 kSupply = 0x183;     ///< The group *A1.
    static constexpr Adesk::UInt64 kFurniture = 0x186;
    static constexpr Adesk::UInt64 kSingle = 0x187; ///< The group *A3, of the branch alone.

    static std::unique_ptr<AcDbDatabase> read(const std::wstring& path) {
        auto database = std::make_unique<AcDbDatabase>(false);
        EXPECT_EQ(database->dxfIn(path.c_str()), Acad::eOk) << path;
        return database;
    }
    static std::unique_ptr<AcDbDatabase> readBytes(const std::string& bytes) {
        auto database = std::make_unique<AcDbDatabase>(false);
        EXPECT_EQ(zuhost::dxfInBytes(*database, bytes, L"memory.dxf"), Acad::eOk);
        return database;
    }

    SampleDrawing() : drawing(read(samplePath(L"office-floor.dxf"))) {}

    static std::wstring samplePath(const std::wstring& name) {
        const std::string folder = ZU_SAMPLES "/drawings/";
        return std::wstring(folder.begin(), folder.end()) + name;
    }

    [[nodiscard]] AcDbObjectId id(Adesk::UInt64 handle) const { return idIn(*drawing, handle); }
    static AcDbObjectId idIn(const AcDbDatabase& database, Adesk::UInt64 handle) {
        AcDbObjectId found;
        EXPECT_EQ(database.getAcDbObjectId(found, false, AcDbHandle(handle)), Acad::eOk) << handle;
        return found;
    }

    /// Saves the drawing to memory and opens the result.
    [[nodiscard]] std::unique_ptr<AcDbDatabase> reopened() const {
        return readBytes(zuhost::dxfOutBytes(*drawing, false));
    }

    static std::wstring textOf(AcDbObjectId text) {
        AcString found;
        AcDbObjectPointer<AcDbText>(text)->textString(found);
        return found.kwszPtr();
    }

    static AcDbObjectId blockId(AcDbDatabase& database, const ACHAR* name) {
        const AcDbObjectPointer<AcDbBlockTable> blocks(database.blockTableId());
        AcDbObjectId found;
        blocks->getAt(name, found);
        return found;
    }

    /// Appends an entity to model space and closes it.
    static AcDbObjectId add(AcDbDatabase& database, AcDbEntity* entity) {
        const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(database, ACDB_MODEL_SPACE),
                                                            AcDb::kForWrite);
        AcDbObjectId added;
        EXPECT_EQ(space->appendAcDbEntity(added, entity), Acad::eOk);
        entity->close();
        return added;
    }

    static void erase(AcDbObjectId object, bool erasing = true) {
        const AcDbObjectPointer<AcDbObject> opened(object, AcDb::kForWrite, true, true);
        ASSERT_EQ(opened.openStatus(), Acad::eOk);
        EXPECT_EQ(opened->erase(erasing), Acad::eOk);
    }

    std::unique_ptr<AcDbDatabase> drawing;
};
