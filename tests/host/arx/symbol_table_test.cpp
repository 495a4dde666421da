#include "sample_drawing.h"
#include <zuhost/drawing_files.h>
#include <zuhost/members.h>

namespace {

using SymbolTables = SampleDrawing;

AcDbObjectId find(const AcDbSymbolTable* table, const ACHAR* name) {
    AcDbObjectId found;
    if (table != nullptr)
        table->getIdAt(name, found);
    return found;
}

} // namespace

TEST_F(SymbolTables, NamesAreFoundIgnoringCase) {
    const AcDbObjectPointer<AcDbLayerTable> layers(drawing->layerTableId());
    ASSERT_EQ(layers.openStatus(), Acad::eOk);
    EXPECT_EQ(zuhost::recordIds(*layers).size(), 29U);
    EXPECT_EQ(find(layers, L"_zu_connect"), find(layers, L"_ZU_CONNECT"));
    EXPECT_FALSE(find(layers, L"ｓａ-ダクト") == find(layers, L"SA-ダクト"));
    EXPECT_TRUE(layers->has(L"sa-ダクト"));
    EXPECT_FALSE(layers->has(L""));
    AcDbObjectId none;
    EXPECT_EQ(layers->getIdAt(L"missing", none), Acad::eKeyNotFound);
    EXPECT_EQ(layers->getIdAt(nullptr, none), Acad::eInvalidInput);
    EXPECT_TRUE(none.isNull());
}

TEST_F(SymbolTables, LayerStatesAreReadAndSaved) {
    AcDbLayerTableRecord* layer = nullptr;
    {
        const AcDbObjectPointer<AcDbLayerTable> layers(drawing->layerTableId());
        ASSERT_EQ(layers->getAt(L"機器-固定", layer, AcDb::kForWrite), Acad::eOk);
    }
    EXPECT_TRUE(layer->isLocked());
    EXPECT_EQ(layer->colorIndex(), 6);
    EXPECT_EQ(AcDbObjectPointer<AcDbLinetypeTableRecord>(layer->linetypeObjectId())->numDashes(), 0);
    layer->setIsFrozen(true);
    layer->setIsLocked(false);
    layer->setColorIndex(1);
    EXPECT_EQ(layer->setColorIndex(0), Acad::eInvalidInput);
    EXPECT_EQ(layer->setColorIndex(256), Acad::eInvalidInput);
    EXPECT_EQ(layer->setName(nullptr), Acad::eInvalidInput);
    const AcDbHandle handle = layer->getAcDbHandle();
    layer->close();
    const auto again = reopened();
    const AcDbObjectPointer<AcDbLayerTableRecord> read(idIn(*again, handle.value()));
    EXPECT_FALSE(read->isLocked());
    EXPECT_TRUE(read->isFrozen());
    EXPECT_FALSE(read->isOff());
    EXPECT_EQ(read->colorIndex(), 1);
}

TEST_F(SymbolTables, RecordsAreAddedOnce) {
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(drawing->getSymbolTable(layers, AcDb::kForRead), Acad::eOk);
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    EXPECT_EQ(layers->add(layer.get()), Acad::eNotOpenForWrite);
    ASSERT_EQ(layers->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(layers->add(layer.get()), Acad::eInvalidInput);
    layer->setName(L"sa-ダクト");
    EXPECT_EQ(layers->add(layer.get()), Acad::eDuplicateRecordName);
    layer->setName(L"新しい画層");
    layer->setIsLocked(true);
    AcDbObjectId added;
    AcDbLayerTableRecord* const kept = layer.release();
    EXPECT_EQ(layers->AcDbSymbolTable::add(added, kept), Acad::eOk);
    EXPECT_EQ(layers->add(kept), Acad::eAlreadyInDb);
    kept->close();
    EXPECT_EQ(find(layers, L"新しい画層"), added);
    layers->close();

    const auto again = reopened();
    const AcDbObjectPointer<AcDbLayerTable> read(again->layerTableId());
    const AcDbObjectPointer<AcDbLayerTableRecord> record(find(read, L"新しい画層"));
    ASSERT_EQ(record.openStatus(), Acad::eOk);
    EXPECT_TRUE(record->isLocked());
    EXPECT_EQ(record->ownerId(), again->layerTableId());
}

TEST_F(SymbolTables, NamesOfErasedRecordsCanBeReused) {
    AcDbObjectPointer<AcDbLayerTable> layers(drawing->layerTableId());
    const AcDbObjectId old = find(layers, L"_ZU_HIDE");
    erase(old);
    EXPECT_FALSE(layers->has(L"_ZU_HIDE"));
    AcDbObjectId found;
    EXPECT_EQ(layers->getIdAt(L"_zu_hide", found, true), Acad::eOk);
    EXPECT_EQ(found, old);

    AcDbSymbolTableIterator* all = nullptr;
    layers->newIterator(all);
    const std::unique_ptr<AcDbSymbolTableIterator> owned(all);
    std::size_t count = 0;
    for (; !all->done(); all->step()) {
        EXPECT_EQ(all->getRecordId(found), Acad::eOk);
        EXPECT_NE(found, old);
        ++count;
    }
    EXPECT_EQ(count, 28U);
    EXPECT_EQ(all->getRecordId(found), Acad::eInvalidIndex);

    layers->upgradeOpen();
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(L"_ZU_HIDE");
    EXPECT_EQ(layers->add(layer), Acad::eOk);
    layer->close();
    erase(old, false);
    EXPECT_EQ(find(layers, L"_ZU_HIDE"), old);
}

TEST_F(SymbolTables, RenamedRecordsAreFoundByTheNewName) {
    AcDbObjectPointer<AcDbLayerTable> layers(drawing->layerTableId());
    const AcDbObjectId layer = find(layers, L"_ZU_OTHERS");
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        EXPECT_EQ(record->setName(L"_ZU_SNAP"), Acad::eDuplicateRecordName);
        EXPECT_EQ(record->setName(L"_zu_others"), Acad::eOk);
        EXPECT_EQ(record->setName(L"その他"), Acad::eOk);
    }
    EXPECT_EQ(find(layers, L"その他"), layer);
    EXPECT_FALSE(layers->has(L"_ZU_OTHERS"));
}

TEST_F(SymbolTables, NamesThatRecordsCannotHaveAreRefused) {
    AcDbLayerTableRecord layer;
    AcDbBlockTableRecord block;
    for (const wchar_t* const name : {L"", L"a<b", L"a>b", L"a/b", L"a\\b", L"a\"b", L"a:b", L"a;b", L"a?b",
                                      L"a*b", L"a|b", L"a,b", L"a=b", L"a`b", L"a\nb", L"a\x7F"}) {
        EXPECT_EQ(layer.setName(name), Acad::eInvalidInput) << name;
        EXPECT_EQ(block.setName(name), Acad::eInvalidInput) << name;
    }
    EXPECT_EQ(layer.setName(L"*U"), Acad::eInvalidInput);
    EXPECT_EQ(block.setName(L"*U1"), Acad::eOk);
    EXPECT_EQ(block.setName(L"*"), Acad::eInvalidInput);
    EXPECT_EQ(layer.setName(L" A-1 $_%&()[]{}ダクト"), Acad::eOk);
    AcDbObjectId inserted;
    AcDbDatabase other;
    EXPECT_EQ(drawing->insert(inserted, L"a/b", &other), Acad::eInvalidInput);
}

TEST_F(SymbolTables, WhatNamesARecordFollowsItsNewName) {
    AcDbDatabase made;
    const auto record = [](AcDbSymbolTable* table, AcDbSymbolTableRecord* added, const ACHAR* name) {
        const AcDbObjectPointer<AcDbSymbolTable> owner(table);
        added->setName(name);
        EXPECT_EQ(owner->add(added), Acad::eOk);
        const AcDbObjectId id = added->objectId();
        added->close();
        return id;
    };
    AcDbLayerTable* layers = nullptr;
    AcDbLinetypeTable* linetypes = nullptr;
    AcDbTextStyleTable* styles = nullptr;
    AcDbBlockTable* blocks = nullptr;
    made.getSymbolTable(layers, AcDb::kForWrite);
    made.getSymbolTable(linetypes, AcDb::kForWrite);
    made.getSymbolTable(styles, AcDb::kForWrite);
    made.getSymbolTable(blocks, AcDb::kForWrite);
    const AcDbObjectId layer = record(layers, new AcDbLayerTableRecord, L"OLD");
    const AcDbObjectId linetype = record(linetypes, new AcDbLinetypeTableRecord, L"OLD");
    const AcDbObjectId style = record(styles, new AcDbTextStyleTableRecord, L"OLD");
    const AcDbObjectId block = record(blocks, new AcDbBlockTableRecord, L"OLD");
    AcDbObjectPointer<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setLinetypeObjectId(linetype);
    made.setClayer(layer);
    auto* const text = new AcDbText({0, 0, 0}, L"OLD", style, 1.0);
    const AcDbObjectId textId = add(made, text);
    const AcDbObjectId reference = add(made, new AcDbBlockReference({0, 0, 0}, block));
    AcDbObjectPointer<AcDbText>(textId, AcDb::kForWrite)->setLinetype(linetype);

    made.startUndoRecord();
    const AcDbObjectPointer<AcDbText> open(textId); // an open object follows too
    for (const AcDbObjectId id : {layer, linetype, style, block})
        EXPECT_EQ(AcDbObjectPointer<AcDbSymbolTableRecord>(id, AcDb::kForWrite)->setName(L"neu"), Acad::eOk);
    const auto expectNamed = [&](const AcDbDatabase& database, const char* when) {
        const AcDbObjectPointer<AcDbText> read(idIn(database, textId.handle().value()));
        EXPECT_EQ(read->layerId().handle(), layer.handle()) << when;
        EXPECT_EQ(read->linetypeId().handle(), linetype.handle()) << when;
        EXPECT_EQ(read->textStyle().handle(), style.handle()) << when;
        EXPECT_EQ(textOf(read->objectId()), L"OLD") << when;
        EXPECT_EQ(database.clayer().handle(), layer.handle()) << when;
        const AcDbObjectPointer<AcDbLayerTableRecord> named(idIn(database, layer.handle().value()));
        EXPECT_EQ(named->linetypeObjectId().handle(), linetype.handle()) << when;
        const AcDbObjectPointer<AcDbBlockReference> insert(idIn(database, reference.handle().value()));
        EXPECT_EQ(insert->blockTableRecord().handle(), block.handle()) << when;
    };
    expectNamed(made, "renamed");
    expectNamed(*readBytes(zuhost::dxfOutBytes(made, false)), "saved");
    std::string saved = zuhost::dxfOutBytes(made, false);
    std::erase(saved, '\r');
    std::size_t left = 0;
    for (std::size_t at = saved.find("\nOLD\n"); at != std::string::npos; at = saved.find("\nOLD\n", at + 1))
        ++left;
    EXPECT_EQ(left, 1U) << "the text";
    ASSERT_EQ(made.undo(), Acad::eOk);
    expectNamed(made, "undone");
    EXPECT_TRUE(AcDbLayerTablePointer(&made)->has(L"OLD"));
    EXPECT_EQ(AcDbObjectPointer<AcDbText>(textId)->upgradeOpen(), Acad::eWasOpenForRead) << "as it was open";
}

TEST_F(SymbolTables, LayersHaveTheDeclaredLineWeights) {
    AcDbLayerTableRecord layer;
    const auto weight = [](int value) { return static_cast<AcDb::LineWeight>(value); };
    for (const int refused : {-1, -2, -4, 1, 26, 212, 9999})
        EXPECT_EQ(layer.setLineWeight(weight(refused)), Acad::eInvalidInput) << refused;
    EXPECT_EQ(layer.lineWeight(), AcDb::kLnWtByLwDefault);
    EXPECT_EQ(layer.setLineWeight(AcDb::kLnWt211), Acad::eOk);
    EXPECT_EQ(layer.lineWeight(), AcDb::kLnWt211);
    EXPECT_EQ(drawing->setCelweight(weight(7)), Acad::eInvalidInput);
    EXPECT_EQ(AcDbLine().setLineWeight(weight(7)), Acad::eInvalidInput);
    EXPECT_EQ(AcDbLine().setLineWeight(AcDb::kLnWtByBlock), Acad::eOk);
}

TEST_F(SymbolTables, LayersHaveColoursOfPartsOrOfThePalette) {
    const AcDbObjectPointer<AcDbLayerTable> layers(drawing->layerTableId());
    const AcDbObjectId layer = find(layers, L"_ZU_OTHERS");
    AcCmColor color;
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForWrite);
        record->setIsOff(true);
        EXPECT_EQ(record->setColor(color), Acad::eInvalidInput) << "by layer";
        color.setRGB(200, 100, 50);
        ASSERT_EQ(record->setColor(color), Acad::eOk);
    }
    const auto again = reopened();
    const AcDbLayerTablePointer read(again.get());
    const AcDbObjectPointer<AcDbLayerTableRecord> record(find(read, L"_ZU_OTHERS"), AcDb::kForWrite);
    EXPECT_TRUE(record->color() == color);
    EXPECT_TRUE(record->isOff());
    EXPECT_EQ(record->setColorIndex(3), Acad::eOk);
    EXPECT_TRUE(record->color().isByACI()) << "the index replaces the parts";
    EXPECT_EQ(record->color().colorIndex(), 3);
    EXPECT_TRUE(record->isOff());
    EXPECT_EQ(record->setColorIndex(256), Acad::eInvalidInput);
}

TEST_F(SymbolTables, DashesOfALinetypeAreReadInOrder) {
    std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::string_view pattern = " 73\n0\n 40\n0.0\n";
    const std::size_t at = bytes.find(pattern, bytes.find("Continuous"));
    ASSERT_NE(at, std::string::npos);
    bytes.replace(at, pattern.size(), " 73\n2\n 40\n0.75\n 49\n0.5\n 74\n0\n 49\n-0.25\n 74\n0\n");
    const auto dashed = readBytes(bytes);
    const AcDbObjectPointer<AcDbLinetypeTable> linetypes(dashed->linetypeTableId());
    const AcDbObjectPointer<AcDbLinetypeTableRecord> record(find(linetypes, L"Continuous"));
    EXPECT_EQ(record->patternLength(), 0.75);
    ASSERT_EQ(record->numDashes(), 2);
    EXPECT_EQ(record->dashLengthAt(0), 0.5);
    EXPECT_EQ(record->dashLengthAt(1), -0.25);
    EXPECT_EQ(record->dashLengthAt(2), 0.0);
}
