#include "sample_drawing.h"

#include <zuhost/drawing_files.h>
#include <zuhost/members.h>
#include <zuhost/names.h>
#include <zuhost/reactor_ids.h>
#include <zuhost/text_codec.h>
#include <zuhost/undo.h>

#include <algorithm>

namespace {

/// Records the notifications of a database.
class RecordingReactor : public AcDbDatabaseReactor {
public:
    explicit RecordingReactor(AcDbDatabase& database) : database_(&database) { database.addReactor(this); }
    ~RecordingReactor() override {
        if (database_ != nullptr)
            database_->removeReactor(this);
    }

    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override { record("append", o); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* o) override { record("unappend", o); }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* o) override { record("reappend", o); }
    void objectOpenedForModify(const AcDbDatabase*, const AcDbObject* o) override { record("open", o); }
    void objectModified(const AcDbDatabase*, const AcDbObject* o) override {
        record("modify", o);
        // The object must be closed when its reactors are notified.
        AcDbObject* again = nullptr;
        readable_ = acdbOpenAcDbObject(again, o->objectId(), AcDb::kForRead, true) == Acad::eOk;
        if (again != nullptr)
            again->close();
    }
    void objectErased(const AcDbDatabase*, const AcDbObject* o, bool erased) override {
        record(erased ? "erase" : "unerase", o);
    }
    void goodbye(const AcDbDatabase*) override { database_ = nullptr; }

    /// Returns the notifications since the last call.
    [[nodiscard]] std::string take() { return std::exchange(log_, {}); }
    [[nodiscard]] bool readable() const { return readable_; }
    [[nodiscard]] bool isOrphaned() const { return database_ == nullptr; }

private:
    void record(const char* what, const AcDbObject* object) {
        ACHAR digits[17];
        object->getAcDbHandle().getIntoAsciiBuffer(digits);
        log_ += what + (' ' + zuhost::toUtf8(digits)) + '|';
    }

    AcDbDatabase* database_;
    std::string log_;
    bool readable_ = false;
};

class ObjectReactor : public AcDbObjectReactor {
public:
    void openedForModify(const AcDbObject*) override { log += "open|"; }
    void modified(const AcDbObject*) override { log += "modify|"; }
    void erased(const AcDbObject*, bool erasing) override { log += erasing ? "erase|" : "unerase|"; }
    void unappended(const AcDbObject*) override { log += "unappend|"; }
    void reappended(const AcDbObject*) override { log += "reappend|"; }
    void goodbye(const AcDbObject* object) override {
        log += "bye|";
        last = object->objectId().handle().value();
    }

    std::string log;
    Adesk::UInt64 last = 0;
};

using Reactors = SampleDrawing;

} // namespace

TEST_F(Reactors, DatabaseReactorsAreNotifiedWhenObjectsClose) {
    RecordingReactor reactor(*drawing);
    {
        const AcDbObjectPointer<AcDbEntity> duct(id(kDuct), AcDb::kForWrite);
        EXPECT_EQ(reactor.take(), "");
        duct->setColorIndex(1);
        duct->setColorIndex(2);
        EXPECT_EQ(reactor.take(), "open 114|");
    }
    EXPECT_EQ(reactor.take(), "modify 114|");
    EXPECT_TRUE(reactor.readable());
    // Reading, or opening for write without a change, sends no notification.
    EXPECT_EQ(AcDbObjectPointer<AcDbEntity>(id(kDuct))->colorIndex(), 2);
    { const AcDbObjectPointer<AcDbEntity> unchanged(id(kDuct), AcDb::kForWrite); }
    EXPECT_EQ(reactor.take(), "");
    erase(id(kDuct));
    EXPECT_EQ(reactor.take(), "open 114|modify 114|erase 114|");
    erase(id(kDuct), false);
    EXPECT_EQ(reactor.take(), "open 114|modify 114|unerase 114|");
}

TEST_F(Reactors, AppendedObjectsAreReportedOnce) {
    RecordingReactor reactor(*drawing);
    const AcDbObjectId point = add(*drawing, new AcDbPoint);
    const std::string added = reactor.take();
    EXPECT_EQ(added.find("append"), 0U) << added;
    EXPECT_EQ(added.find("modify"), std::string::npos) << added;
    drawing->removeReactor(&reactor);
    erase(point);
    EXPECT_EQ(reactor.take(), "");
}

/// Deletes another reactor when notified of a change or of the database's end.
class DeletingReactor : public RecordingReactor {
public:
    DeletingReactor(AcDbDatabase& database, std::unique_ptr<RecordingReactor>& other)
        : RecordingReactor(database), other_(other) {}
    void objectModified(const AcDbDatabase*, const AcDbObject*) override { other_.reset(); }
    void goodbye(const AcDbDatabase* database) override {
        other_.reset();
        RecordingReactor::goodbye(database);
    }

private:
    std::unique_ptr<RecordingReactor>& other_;
};

TEST_F(Reactors, OfADatabaseMayRemoveOthers) {
    std::unique_ptr<RecordingReactor> other;
    const DeletingReactor heir(*drawing, other);
    other = std::make_unique<RecordingReactor>(*drawing);
    drawing->addReactor(other.get());
    drawing->addReactor(nullptr);
    {
        const AcDbObjectPointer<AcDbEntity> duct(id(kDuct), AcDb::kForWrite);
        duct->addReactor(nullptr);
        EXPECT_EQ(duct->setLayer(static_cast<const ACHAR*>(nullptr)), Acad::eInvalidInput);
        duct->setColorIndex(5);
    }
    EXPECT_EQ(other, nullptr);

    auto ending = std::make_unique<AcDbDatabase>();
    const DeletingReactor last(*ending, other);
    other = std::make_unique<RecordingReactor>(*ending);
    ending.reset();
    EXPECT_EQ(other, nullptr);
    EXPECT_TRUE(last.isOrphaned());
}

TEST_F(Reactors, OfAnObjectMayRemoveOthers) {
    struct Remover : ObjectReactor {
        void modified(const AcDbObject* object) override {
            object->removeReactor(other.get());
            other.reset();
        }
        std::unique_ptr<ObjectReactor> other = std::make_unique<ObjectReactor>();
    };
    Remover remover;
    const AcDbObjectPointer<AcDbEntity> duct(id(kDuct), AcDb::kForWrite);
    duct->addReactor(&remover);
    duct->addReactor(remover.other.get());
    duct->setColorIndex(5);
    duct->downgradeOpen();
    EXPECT_EQ(remover.other, nullptr);
    duct->removeReactor(&remover);
}

TEST_F(Reactors, TransientReactorsAreNotifiedOfTheirObject) {
    ObjectReactor objectReactor;
    {
        const AcDbObjectPointer<AcDbEntity> duct(id(kDuct), AcDb::kForWrite);
        duct->addReactor(&objectReactor);
        duct->addReactor(&objectReactor);
        duct->setColorIndex(5);
    }
    EXPECT_EQ(objectReactor.log, "open|modify|");
    erase(id(kDuct));
    EXPECT_EQ(objectReactor.log, "open|modify|open|modify|erase|");
    objectReactor.log.clear();
    // Objects are destroyed with their drawing; their handle is still valid in goodbye.
    EXPECT_EQ(drawing->dxfIn(samplePath(L"office-floor-932.dxf").c_str()), Acad::eOk);
    EXPECT_EQ(objectReactor.log, "bye|");
    EXPECT_EQ(objectReactor.last, kDuct);
}

TEST_F(Reactors, OtherObjectsCanStillBeOpenedInGoodbye) {
    struct LayerReader : ObjectReactor {
        void goodbye(const AcDbObject* object) override {
            ObjectReactor::goodbye(object);
            const AcDbObjectPointer<AcDbLayerTableRecord> layer(AcDbEntity::cast(object)->layerId());
            isLocked = layer.openStatus() == Acad::eOk && layer->isLocked();
        }
        bool isLocked = false;
    };
    AcDbObjectPointer<AcDbLayerTable> layers(drawing->layerTableId());
    ASSERT_NE(layers.object(), nullptr);
    for (const AcDbObjectId layer : zuhost::recordIds(*layers.object()))
        AcDbObjectPointer<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setIsLocked(true);
    layers.close();
    LayerReader reader;
    AcDbObjectPointer<AcDbEntity>(id(kDuct))->addReactor(&reader);
    EXPECT_EQ(drawing->dxfIn(samplePath(L"office-floor-932.dxf").c_str()), Acad::eOk);
    EXPECT_EQ(reader.log, "bye|");
    EXPECT_TRUE(reader.isLocked);
}

TEST_F(Reactors, PersistentReactorsAreListedFirstInStoredOrder) {
    ObjectReactor objectReactor;
    const AcDbObjectPointer<AcDbObject> handler(id(kAirHandler), AcDb::kForWrite, false, true);
    handler->addReactor(&objectReactor);
    EXPECT_EQ(handler->addPersistentReactor(id(kSingle)), Acad::eOk);
    EXPECT_EQ(handler->addPersistentReactor(id(kSingle)), Acad::eOk);
    EXPECT_EQ(handler->addPersistentReactor(AcDbObjectId::kNull), Acad::eNullObjectId);
    const AcDbVoidPtrArray* const list = handler->reactors();
    ASSERT_EQ(list->length(), 5);
    const Adesk::UInt64 expected[] = {0x185, 0x184, kSupply, kSingle};
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(acdbIsPersistentReactor(list->at(i)));
        EXPECT_EQ(acdbPersistentReactorObjectId(list->at(i)).handle().value(), expected[i]);
    }
    EXPECT_FALSE(acdbIsPersistentReactor(list->at(4)));
    EXPECT_TRUE(acdbPersistentReactorObjectId(list->at(4)).isNull());
    handler->removeReactor(&objectReactor);
    EXPECT_EQ(handler->removePersistentReactor(id(0x184)), Acad::eOk);
    EXPECT_EQ(handler->removePersistentReactor(id(0x184)), Acad::eKeyNotFound);
    EXPECT_EQ(handler->reactors()->length(), 3);
}

TEST_F(Reactors, PersistentReactorsChangeSeveralAtATime) {
    const AcDbObjectPointer<AcDbObject> handler(id(kAirHandler), AcDb::kForWrite, false, true);
    const auto handles = [&handler] {
        std::vector<Adesk::UInt64> found;
        for (const void* const entry : *handler->reactors())
            found.push_back(acdbPersistentReactorObjectId(entry).handle().value());
        return found;
    };
    using Handles = std::vector<Adesk::UInt64>;
    EXPECT_EQ(zuhost::addPersistentReactors(*handler,
                                            {id(kSingle), id(0x184), AcDbObjectId(), id(kSingle), id(kDuct)}),
              Acad::eOk);
    EXPECT_EQ(handles(), (Handles{0x185, 0x184, kSupply, kSingle, kDuct}));
    EXPECT_EQ(zuhost::removePersistentReactors(*handler, {id(kSupply), id(0x185), id(kFurniture)}),
              Acad::eOk);
    EXPECT_EQ(handles(), (Handles{0x184, kSingle, kDuct}));
    EXPECT_EQ(zuhost::removePersistentReactors(*handler, {id(kDuct), id(0x184), id(kSingle)}), Acad::eOk);
    EXPECT_TRUE(handles().empty());
    EXPECT_EQ(zuhost::addPersistentReactors(*handler, {id(kDuct)}), Acad::eOk);
    EXPECT_EQ(handles(), Handles{kDuct});
    handler->downgradeOpen();
    EXPECT_EQ(zuhost::addPersistentReactors(*handler, {id(kSingle)}), Acad::eNotOpenForWrite);
    EXPECT_EQ(zuhost::removePersistentReactors(*handler, {id(kDuct)}), Acad::eNotOpenForWrite);
}

TEST_F(Reactors, PersistentReactorsAreReadOnceEachInPlace) {
    const std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::string start = "{ACAD_REACTORS\n";
    const std::size_t at = bytes.find(start, bytes.find("\n106\n")) + start.size();
    std::string many; // More than are searched one by one.
    for (int handle = 100; handle < 190; ++handle)
        many += "330\n" + std::to_string(handle) + "\n";
    const std::pair<std::string, bool> cases[] = {
        {"", true},
        {"330\n183\n330\n187\n", true},
        {"330\n186\n", false},
        {"330\nFFFFFF\n330\n183\n", false},
        {"330\nno handle\n330\n0\n", false},
        {many, false},
        {many + many, false},
    };
    for (const auto& [records, isClean] : cases) {
        const auto again = readBytes(std::string(bytes).insert(at, records));
        const AcDbObjectPointer<AcDbObject> shelf(idIn(*again, kShelf));
        ASSERT_NE(shelf.object(), nullptr);
        std::vector<AcDbObjectId> listed;
        for (const void* const reactor : *shelf->reactors())
            if (const AcDbObjectId id = acdbPersistentReactorObjectId(reactor);
                std::ranges::count(listed, id) == 0)
                listed.push_back(id);
        std::vector<AcDbObjectId> read{idIn(*again, kDuct)};
        EXPECT_EQ(zuhost::readPersistentReactors(*shelf.object(), read), isClean) << records;
        EXPECT_EQ(zuhost::surplusReactors(*shelf.object()).empty(), isClean) << records;
        EXPECT_EQ(read, listed) << records;
    }
}

TEST_F(Reactors, RecordsLikeThemAfterTheFirstMarkerAreData) {
    std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::string marker = "AcDbEntity\n";
    const std::string data = "102\n{ACAD_REACTORS\n330\n187\n102\n}\n";
    bytes.insert(bytes.find(marker, bytes.find("\n106\n")) + marker.size(), data);
    const auto again = readBytes(bytes);
    std::vector<AcDbObjectId> before;
    std::vector<AcDbObjectId> after;
    zuhost::readPersistentReactors(*AcDbObjectPointer<AcDbObject>(id(kShelf)).object(), before);
    const AcDbObjectPointer<AcDbObject> shelf(idIn(*again, kShelf), AcDb::kForWrite);
    zuhost::readPersistentReactors(*shelf.object(), after);
    EXPECT_EQ(after.size(), before.size());
    const AcDbObjectId added = idIn(*again, kSingle);
    EXPECT_EQ(shelf->addPersistentReactor(added), Acad::eOk);
    EXPECT_TRUE(shelf->hasPersistentReactor(added));
    EXPECT_NE(zuhost::dxfOutBytes(*again, false).find(data), std::string::npos);
}

TEST_F(Reactors, ChangesMoveTheRecordsThatFollow) {
    AcDbLayerTableRecordPointer(L"機器-固定", drawing.get(), AcDb::kForWrite)->setIsLocked(false);
    const AcDbObjectPointer<AcDbBlockReference> handler(id(kAirHandler));
    EXPECT_EQ(zuhost::blockName(*handler), L"KK-AHU");
    ASSERT_EQ(handler->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(zuhost::removePersistentReactors(*handler, {id(kSupply), id(0x184), id(0x185)}), Acad::eOk);
    handler->downgradeOpen();
    EXPECT_EQ(zuhost::blockName(*handler), L"KK-AHU");
}

TEST_F(Reactors, RemovingTheLastOneRemovesItsGroup) {
    const AcDbObjectPointer<AcDbObject> shelf(id(kShelf), AcDb::kForWrite);
    ASSERT_EQ(shelf->removePersistentReactor(id(kFurniture)), Acad::eOk);
    EXPECT_EQ(zuhost::dxfOutBytes(*drawing, false).find("{ACAD_REACTORS\n102\n}"), std::string::npos);
}

TEST_F(Reactors, UndoAndRedoNotify) {
    drawing->startUndoRecord();
    const AcDbObjectId point = add(*drawing, new AcDbPoint);
    erase(id(kDuct));
    ACHAR digits[17];
    point.handle().getIntoAsciiBuffer(digits);
    const std::string name = zuhost::toUtf8(digits);
    RecordingReactor reactor(*drawing);
    ObjectReactor ofPoint;
    ObjectReactor ofDuct;
    AcDbObjectPointer<AcDbObject>(point)->addReactor(&ofPoint);
    AcDbObjectPointer<AcDbObject>(id(kDuct), AcDb::kForRead, true)->addReactor(&ofDuct);
    ASSERT_EQ(drawing->undo(), Acad::eOk);
    const std::string undone = reactor.take();
    EXPECT_NE(undone.find("unappend " + name + "|"), std::string::npos) << undone;
    EXPECT_NE(undone.find("modify 114|unerase 114|"), std::string::npos) << undone;
    ASSERT_EQ(zuhost::redo(*drawing), Acad::eOk);
    const std::string redone = reactor.take();
    EXPECT_NE(redone.find("reappend " + name + "|"), std::string::npos) << redone;
    EXPECT_NE(redone.find("modify 114|erase 114|"), std::string::npos) << redone;
    EXPECT_EQ(ofPoint.log, "unappend|reappend|");
    EXPECT_EQ(ofDuct.log, "modify|unerase|modify|erase|");
    drawing.reset(); // before the reactors that it notifies
}
