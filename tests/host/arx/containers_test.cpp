#include "acdbads.h"
#include "acutads.h"
#include "dbxrecrd.h"
#include "sample_drawing.h"
#include "zuhost/result_chain.h"
#include "zuhost/result_kind.h"

#include <zuhost/undo.h>

#include <cstring>
#include <limits>

namespace {

using Chain = zuhost::ResultChain;

class Containers : public SampleDrawing {
protected:
    /// Returns an extension dictionary of an object, which is made when it has none.
    static AcDbObjectId extensionOf(AcDbObjectId object) {
        const AcDbObjectPointer<AcDbObject> opened(object, AcDb::kForWrite);
        const Acad::ErrorStatus status = opened->createExtensionDictionary();
        EXPECT_TRUE(status == Acad::eOk || status == Acad::eAlreadyInDb);
        return opened->extensionDictionary();
    }
    static AcDbObjectId put(AcDbObjectId dictionary, const ACHAR* name, const Chain& values) {
        const AcDbDictionaryPointer opened(dictionary, AcDb::kForWrite);
        auto* const record = new AcDbXrecord;
        AcDbObjectId id;
        EXPECT_EQ(opened->setAt(name, record, id), Acad::eOk);
        if (values.get() != nullptr) {
            EXPECT_EQ(record->setFromRbChain(*values.get()), Acad::eOk);
        }
        record->close();
        return id;
    }
    static Chain valuesOf(AcDbObjectId record) {
        resbuf* chain = nullptr;
        EXPECT_EQ(AcDbObjectPointer<AcDbXrecord>(record)->rbChain(&chain), Acad::eOk);
        return Chain(chain);
    }
    /// Returns the drawing without the next free handle, which does not go back.
    [[nodiscard]] std::string saved() const {
        std::string bytes = zuhost::dxfOutBytes(*drawing, false);
        const std::size_t seed = bytes.find("$HANDSEED");
        const std::size_t next = bytes.find("\n  9\n", seed);
        return bytes.erase(seed, next - seed);
    }
};

/// Appends a chunk of bytes, which acutBuildList does not take.
void appendChunk(Chain& chain, const std::string& bytes) {
    resbuf* last = chain.get();
    while (last->rbnext != nullptr)
        last = last->rbnext;
    resbuf* const item = acutNewRb(310);
    item->resval.rbinary.clen = static_cast<short>(bytes.size());
    item->resval.rbinary.buf = new char[bytes.size()];
    std::memcpy(item->resval.rbinary.buf, bytes.data(), bytes.size());
    last->rbnext = item;
}

} // namespace

TEST_F(Containers, RecordsHoldTheirValuesWhenTheDrawingIsReadAgain) {
    const ads_point point{1.5, -2.5, 1e-9};
    ads_name duct;
    ASSERT_EQ(acdbGetAdsName(duct, id(kDuct)), Acad::eOk);
    const std::wstring text = L"\u98A8\u7BA1 %%c {a} \\P ^J \\U+0041 \U0001F600";
    const std::wstring lines = L"one\ntwo\ttab\r";
    Chain values(acutBuildList(1, text.c_str(), 300, lines.c_str(), 2, L"", 10, point, 40, 1.0 / 3, 41,
                               5e-324, 70, static_cast<int>(std::numeric_limits<std::int16_t>::min()), 90,
                               std::numeric_limits<std::int32_t>::max(), 290, 1, 330, duct, RTNONE));
    ASSERT_NE(values, nullptr);
    appendChunk(values, std::string("\0\xFFz", 3));
    const AcDbObjectId record = put(extensionOf(id(kDuct)), L"\u8A2D\u5B9A", values);
    const auto again = reopened();
    EXPECT_TRUE(zuhost::warnings(*again).empty());
    const AcDbDictionaryPointer dictionary(AcDbEntityPointer(idIn(*again, kDuct))->extensionDictionary());
    ASSERT_EQ(dictionary.openStatus(), Acad::eOk);
    AcDbObjectId found;
    ASSERT_EQ(dictionary->getAt(L"\u8A2D\u5B9A", found), Acad::eOk);
    EXPECT_EQ(found.handle(), record.handle());
    const Chain read = valuesOf(found);
    const resbuf* expected = values.get();
    for (const resbuf* item = read.get(); item != nullptr; item = item->rbnext, expected = expected->rbnext) {
        ASSERT_NE(expected, nullptr);
        SCOPED_TRACE(item->restype);
        ASSERT_EQ(item->restype, expected->restype);
        switch (zuhost::resultKind(item->restype)) {
        case zuhost::ResultKind::text:
            EXPECT_STREQ(item->resval.rstring, expected->resval.rstring);
            break;
        case zuhost::ResultKind::point:
            EXPECT_EQ(std::memcmp(item->resval.rpoint, expected->resval.rpoint, sizeof point), 0);
            break;
        case zuhost::ResultKind::real:
            EXPECT_EQ(item->resval.rreal, expected->resval.rreal) << "every bit";
            break;
        case zuhost::ResultKind::int32:
            EXPECT_EQ(item->resval.rlong, expected->resval.rlong);
            break;
        case zuhost::ResultKind::chunk:
            EXPECT_EQ(std::memcmp(item->resval.rbinary.buf, "\0\xFFz", 3), 0);
            break;
        case zuhost::ResultKind::name: {
            AcDbObjectId named;
            EXPECT_EQ(acdbGetObjectId(named, item->resval.rlname), Acad::eOk);
            EXPECT_EQ(named, idIn(*again, kDuct)) << "of the drawing that is read";
            break;
        }
        default:
            EXPECT_EQ(item->resval.rint, expected->resval.rint);
        }
    }
    EXPECT_EQ(expected, nullptr);
}

TEST_F(Containers, RecordsRefuseWhatIsNoValue) {
    const AcDbObjectId record =
        put(extensionOf(id(kDuct)), L"DATA", Chain(acutBuildList(1, L"kept", RTNONE)));
    const std::string before = saved();
    const ads_point infinite{0, std::numeric_limits<double>::infinity(), 0};
    {
        const AcDbObjectPointer<AcDbXrecord> opened(record, AcDb::kForWrite);
        for (resbuf* const list :
             {acutBuildList(RTDXF0, L"LINE", RTNONE), acutBuildList(5, L"2F", RTNONE),
              acutBuildList(1, L"x", 105, L"2F", RTNONE), acutBuildList(-3, 1001, L"APP", RTNONE),
              acutBuildList(1000, L"x", RTNONE), acutBuildList(RTSTR, L"x", RTNONE),
              acutBuildList(40, std::numeric_limits<double>::quiet_NaN(), RTNONE),
              acutBuildList(1, L"x", 10, infinite, RTNONE)}) {
            const Chain chain(list);
            ASSERT_NE(list, nullptr);
            EXPECT_EQ(opened->setFromRbChain(*list), Acad::eInvalidInput) << list->restype;
        }
        resbuf chunk;
        chunk.restype = 310;
        chunk.resval.rbinary.clen = 5;
        chunk.resval.rbinary.buf = nullptr;
        EXPECT_EQ(opened->setFromRbChain(chunk), Acad::eInvalidInput) << "without its bytes";
        EXPECT_EQ(opened->rbChain(nullptr), Acad::eInvalidInput);
    }
    EXPECT_TRUE(before == saved());
    const Chain values(acutBuildList(1, L"changed", RTNONE));
    const AcDbObjectPointer<AcDbXrecord> reading(record);
    EXPECT_EQ(const_cast<AcDbXrecord&>(*reading).setFromRbChain(*values.get()), Acad::eNotOpenForWrite);
    EXPECT_STREQ(valuesOf(record).get()->resval.rstring, L"kept");
}

TEST_F(Containers, ChangesOfRecordsAndDictionariesAreUndone) {
    const std::string start = saved();
    drawing->startUndoRecord();
    const AcDbObjectId dictionary = extensionOf(id(kDuct));
    const AcDbObjectId record = put(dictionary, L"DATA", Chain(acutBuildList(1, L"first", RTNONE)));
    const std::string first = saved();
    drawing->startUndoRecord();
    {
        const Chain values(acutBuildList(1, L"second", 40, 2.0, RTNONE));
        EXPECT_EQ(AcDbObjectPointer<AcDbXrecord>(record, AcDb::kForWrite)->setFromRbChain(*values.get()),
                  Acad::eOk);
    }
    const std::string second = saved();
    drawing->startUndoRecord();
    put(dictionary, L"data", Chain());
    EXPECT_TRUE(record.isErased()) << "replaced, whatever the case of the name";
    EXPECT_EQ(AcDbDictionaryPointer(dictionary)->numEntries(), 1U);
    const std::string third = saved();
    for (const std::string* const state : {&second, &first, &start}) {
        EXPECT_EQ(drawing->undo(), Acad::eOk);
        EXPECT_TRUE(saved() == *state);
    }
    for (const std::string* const state : {&first, &second, &third}) {
        EXPECT_EQ(zuhost::redo(*drawing), Acad::eOk);
        EXPECT_TRUE(saved() == *state);
    }
}

TEST_F(Containers, DictionariesRefuseEntitiesAndRecordsOfTables) {
    const std::string before = saved();
    {
        const AcDbDictionaryPointer named(drawing->namedObjectsDictionaryId(), AcDb::kForWrite);
        AcDbObjectId added;
        const std::unique_ptr<AcDbObject> wrong[] = {
            std::make_unique<AcDbLine>(), std::make_unique<AcDbLayerTableRecord>(),
            std::make_unique<AcDbBlockTableRecord>(), std::make_unique<AcDbAttribute>()};
        for (const auto& object : wrong) {
            EXPECT_EQ(named->setAt(L"WRONG", object.get(), added), Acad::eWrongObjectType);
            EXPECT_TRUE(added.isNull());
            EXPECT_EQ(object->database(), nullptr) << "still the caller's";
        }
        const AcDbEntityPointer duct(id(kDuct), AcDb::kForWrite);
        EXPECT_EQ(named->setAt(L"WRONG", duct.object(), added), Acad::eWrongObjectType);
        EXPECT_FALSE(named->has(L"WRONG"));
    }
    EXPECT_TRUE(before == saved());
}

TEST_F(Containers, TablesRefuseRecordsOfOthers) {
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(drawing->getSymbolTable(layers, AcDb::kForWrite), Acad::eOk);
    AcDbLinetypeTableRecord dashes;
    dashes.setName(L"DASHES");
    AcDbBlockTableRecord block;
    block.setName(L"BLOCK");
    AcDbSymbolTable& table = *layers;
    EXPECT_EQ(table.add(&dashes), Acad::eWrongObjectType);
    EXPECT_EQ(table.add(&block), Acad::eWrongObjectType);
    EXPECT_FALSE(layers->has(L"DASHES"));
    EXPECT_EQ(block.database(), nullptr);
    layers->close();
}

TEST_F(Containers, IteratorsOpenWhatTheyAreAt) {
    const AcDbObjectId dictionary = extensionOf(id(kDuct));
    std::vector<AcDbObjectId> records;
    for (const wchar_t* const name : {L"A", L"B", L"C", L"D"})
        records.push_back(put(dictionary, name, Chain()));
    erase(records[1]);
    {
        const AcDbDictionaryPointer opened(dictionary);
        const std::unique_ptr<AcDbDictionaryIterator> entries(opened->newIterator());
        AcDbObject* object = nullptr;
        std::wstring names;
        for (; !entries->done(); entries->next()) {
            names += entries->name();
            AcDbObject* first = nullptr;
            ASSERT_EQ(entries->getObject(first, AcDb::kForWrite), Acad::eOk);
            EXPECT_EQ(first->objectId(), entries->objectId());
            EXPECT_EQ(first->ownerId(), dictionary);
            EXPECT_EQ(entries->getObject(object, AcDb::kForWrite), Acad::eWasOpenForWrite);
            EXPECT_EQ(object, nullptr);
            first->close();
        }
        EXPECT_EQ(names, L"ACD");
        EXPECT_FALSE(entries->setPosition(records[1])) << "erased";
        ASSERT_TRUE(entries->setPosition(records[3]));
        EXPECT_STREQ(entries->name(), L"D");
        EXPECT_FALSE(entries->next());
        EXPECT_TRUE(entries->done());
        EXPECT_EQ(entries->name(), nullptr);
        EXPECT_TRUE(entries->objectId().isNull());
        EXPECT_EQ(entries->getObject(object), Acad::eInvalidIndex);
        EXPECT_EQ(object, nullptr);
        EXPECT_FALSE(entries->next());
    }
}

TEST_F(Containers, ErasedOwnersTakeTheirDictionariesAlong) {
    const AcDbObjectId dictionary = extensionOf(id(kShelf));
    const AcDbObjectId record = put(dictionary, L"DATA", Chain(acutBuildList(1, L"x", RTNONE)));
    EXPECT_EQ(AcDbEntityPointer(id(kShelf), AcDb::kForWrite)->releaseExtensionDictionary(),
              Acad::eContainerNotEmpty);
    erase(id(kShelf));
    const auto again = reopened();
    AcDbObjectId found;
    for (const AcDbObjectId gone : {id(kShelf), dictionary, record})
        EXPECT_NE(again->getAcDbObjectId(found, false, gone.handle()), Acad::eOk) << "not saved";
    EXPECT_TRUE(zuhost::warnings(*again).empty());
    erase(id(kShelf), false);
    const auto restored = reopened();
    EXPECT_EQ(restored->getAcDbObjectId(found, false, record.handle()), Acad::eOk);
    EXPECT_STREQ(valuesOf(found).get()->resval.rstring, L"x");
}
