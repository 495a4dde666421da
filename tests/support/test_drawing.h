#pragma once

#include "texts.h"

#include <arxutil.h>
#include <dbapserv.h>
#include <dbents.h>
#include <dbgroup.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <zucomn/model/library.h>
#include <zuhost/drawing_files.h>
#include <zuhost/text_codec.h>

#include <gtest/gtest.h>

#include <memory>

/// A drawing that is the working database during its lifetime, with short functions that add objects to it.
/// Its destructor resets the library, so that tests share no scale, tolerance or reactor.
class TestDrawing {
public:
    /// An empty drawing with the connection layer.
    TestDrawing() : database_(std::make_unique<AcDbDatabase>()) {
        use();
        addLayer(L"_ZU_CONNECT");
    }
    /// A sample drawing.
    explicit TestDrawing(const std::string& sample) : database_(std::make_unique<AcDbDatabase>(false)) {
        use();
        const std::wstring path = zuhost::fromUtf8(std::string(ZU_SAMPLES) + "/drawings/" + sample);
        EXPECT_EQ(database_->dxfIn(path.c_str()), Acad::eOk)
            << zuhost::toUtf8(zuhost::lastErrorText(*database_));
    }
    ~TestDrawing() {
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        zucomn::resetLibrary();
    }
    TestDrawing(const TestDrawing&) = delete;
    TestDrawing& operator=(const TestDrawing&) = delete;

    [[nodiscard]] AcDbDatabase& database() const { return *database_; }

    /// The object with the hexadecimal handle.
    [[nodiscard]] AcDbObjectId at(const std::string& handle) const {
        AcDbObjectId id;
        database_->getAcDbObjectId(id, false, AcDbHandle(zuhost::fromUtf8(handle).c_str()));
        return id;
    }

    void addLayer(const wchar_t* name) const {
        AcDbLayerTable* table = nullptr;
        database_->getSymbolTable(table, AcDb::kForWrite);
        auto* const record = new AcDbLayerTableRecord;
        record->setName(name);
        if (table->add(record) == Acad::eOk)
            record->close();
        else
            delete record;
        table->close();
    }

    /// A block with connection points.
    [[nodiscard]] AcDbObjectId block(const wchar_t* name, const std::vector<AcGePoint3d>& points,
                                     const AcGePoint3d& base = {},
                                     const wchar_t* layer = L"_ZU_CONNECT") const {
        AcDbBlockTable* table = nullptr;
        database_->getSymbolTable(table, AcDb::kForWrite);
        auto* const record = new AcDbBlockTableRecord;
        record->setName(name);
        EXPECT_EQ(table->add(record), Acad::eOk);
        table->close();
        record->setOrigin(base);
        for (const AcGePoint3d& point : points)
            addPoint(*record, point, layer);
        const AcDbObjectId id = record->objectId();
        record->close();
        return id;
    }

    static AcDbObjectId addPoint(AcDbBlockTableRecord& record, const AcGePoint3d& point,
                                 const wchar_t* layer) {
        auto* const entity = new AcDbPoint(point);
        AcDbObjectId id;
        EXPECT_EQ(record.appendAcDbEntity(id, entity), Acad::eOk);
        EXPECT_EQ(entity->setLayer(layer), Acad::eOk);
        entity->close();
        return id;
    }

    [[nodiscard]] AcDbObjectId add(AcDbEntity* entity) const {
        AcDbObjectId space;
        {
            const AcDbObjectPointer<AcDbBlockTable> table(database_->blockTableId());
            table->getAt(ACDB_MODEL_SPACE, space);
        }
        const AcDbObjectPointer<AcDbBlockTableRecord> record(space, AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(record->appendAcDbEntity(id, entity), Acad::eOk);
        entity->close();
        return id;
    }

    [[nodiscard]] AcDbObjectId element(AcDbObjectId block, const AcGePoint3d& position,
                                       const AcGeScale3d& scale = AcGeScale3d(1.0),
                                       double rotation = 0.0) const {
        auto reference = std::make_unique<AcDbBlockReference>(position, block);
        reference->setScaleFactors(scale);
        reference->setRotation(rotation);
        return add(reference.release());
    }

    /// Gives the element the strings of an application; none take them away.
    static void setTexts(AcDbObjectId id, const wchar_t* application,
                         std::initializer_list<const wchar_t*> texts) {
        EXPECT_EQ(ApiComn_appendAttributesArray(id, application, arrayOf(texts)), 0);
    }
    static void setLink(AcDbObjectId id, const wchar_t* text) { setTexts(id, L"ZU_LINK", {text}); }

    static void erase(AcDbObjectId id, bool erasing = true) {
        const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite, true);
        ASSERT_EQ(object.openStatus(), Acad::eOk);
        EXPECT_EQ(object->erase(erasing), Acad::eOk);
    }

    static AcDbObjectIdArray ids(std::initializer_list<AcDbObjectId> list) {
        AcDbObjectIdArray array;
        for (const AcDbObjectId id : list)
            array.append(id);
        return array;
    }

private:
    void use() { acdbHostApplicationServices()->setWorkingDatabase(database_.get()); }

    std::unique_ptr<AcDbDatabase> database_;
};
