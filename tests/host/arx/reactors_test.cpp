#include "sample_drawing.h"

namespace {

/// Writes down what it is told.
class Witness : public AcDbDatabaseReactor {
public:
    explicit Witness(AcDbDatabase& database) : database_(&database) { database.addReactor(this); }
    ~Witness() override {
        if (database_ != nullptr)
            database_->removeReactor(this);
    }

    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override { note("append", o); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* o) override { note("unappend", o); }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* o) override { note("reappend", o); }
    void objectOpenedForModify(const AcDbDatabase*, const AcDbObject* o) override { note("open", o); }
    void objectModified(const AcDbDatabase*, const AcDbObject* o) override {
        note("modify", o);
        // Nothing is open any more when reactors are told.
        AcDbObject* again = nullptr;
        readable_ = acdbOpenAcDbObject(again, o->objectId(), AcDb::kForRead, true) == Acad::eOk;
        if (again != nullptr)
            again->close();
    }
    void objectErased(const AcDbDatabase*, const AcDbObject* o, bool erased) override {
        note(erased ? "erase" : "unerase", o);
    }
    void goodbye(const AcDbDatabase*) override { database_ = nullptr; }

    [[nodiscard]] std::string told() { return std::exchange(told_, {}); }
    [[nodiscard]] bool readable() const { return readable_; }
    [[nodiscard]] bool isAlone() const { return database_ == nullptr; }

private:
    void note(const char* what, const AcDbObject* object) {
        ACHAR digits[17];
        object->getAcDbHandle().getIntoAsciiBuffer(digits);
        told_ += what;
        told_ += ' ';
        for (const ACHAR* digit = digits; *digit != L'\0'; ++digit)
            told_ += static_cast<char>(*digit);
        told_ += '|';
    }

    AcDbDatabase* database_;
    std::string told_;
    bool readable_ = false;
};

class Observer : public AcDbObjectReactor {
public:
    void openedForModify(const AcDbObject*) override { told += "open|"; }
    void modified(const AcDbObject*) override { told += "modify|"; }
    void erased(const AcDbObject*, bool erasing) override { told += erasing ? "erase|" : "unerase|"; }
    void unappended(const AcDbObject*) override { told += "unappend|"; }
    void reappended(const AcDbObject*) override { told += "reappend|"; }
    void goodbye(const AcDbObject* object) override {
        told += "bye|";
        last = object->objectId().handle().value();
    }

    std::string told;
    Adesk::UInt64 last = 0;
};

using Reactors = SampleDrawing;

} // namespace

TEST_F(Reactors, DatabaseReactorsAreToldWhenObjectsClose) {
    Witness witness(*drawing);
    {
        const AcDbObjectPointer<AcDbEntity> duct(id(kDuct), AcDb::kForWrite);
        EXPECT_EQ(witness.told(), "");
        duct->setColorIndex(1);
        duct->setColorIndex(2);
        EXPECT_EQ(witness.told(), "open 114|");
    }
    EXPECT_EQ(witness.told(), "modify 114|");
    EXPECT_TRUE(witness.readable());
    // Neither reading nor an opening without change tells anybody.
    EXPECT_EQ(AcDbObjectPointer<AcDbEntity>(id(kDuct))->colorIndex(), 2);
    { const AcDbObjectPointer<AcDbEntity> unchanged(id(kDuct), AcDb::kForWrite); }
    EXPECT_EQ(witness.told(), "");
    erase(id(kDuct));
    EXPECT_EQ(witness.told(), "open 114|modify 114|erase 114|");
    erase(id(kDuct), false);
    EXPECT_EQ(witness.told(), "open 114|modify 114|unerase 114|");
}

TEST_F(Reactors, AdditionsAreToldOnce) {
    Witness witness(*drawing);
    const AcDbObjectId point = add(*drawing, new AcDbPoint);
    const std::string told = witness.told();
    EXPECT_EQ(told.find("append"), 0U) << told;
    EXPECT_EQ(told.find("modify"), std::string::npos) << told;
    drawing->removeReactor(&witness);
    erase(point);
    EXPECT_EQ(witness.told(), "");
}

TEST_F(Reactors, DatabaseTellsItsEnd) {
    auto other = std::make_unique<AcDbDatabase>();
    Witness witness(*other);
    other.reset();
    EXPECT_TRUE(witness.isAlone());
}

/// Deletes another one when it is told of a change.
class Heir : public Witness {
public:
    Heir(AcDbDatabase& database, std::unique_ptr<Witness>& other) : Witness(database), other_(other) {}
    void objectModified(const AcDbDatabase*, const AcDbObject*) override { other_.reset(); }
    void goodbye(const AcDbDatabase* database) override {
        other_.reset();
        Witness::goodbye(database);
    }

private:
    std::unique_ptr<Witness>& other_;
};

TEST_F(Reactors, MayTakeOthersOffTheList) {
    std::unique_ptr<Witness> other;
    const Heir heir(*drawing, other);
    other = std::make_unique<Witness>(*drawing);
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
    const Heir last(*ending, other);
    other = std::make_unique<Witness>(*ending);
    ending.reset();
    EXPECT_EQ(other, nullptr);
    EXPECT_TRUE(last.isAlone());
}

TEST_F(Reactors, OfAnObjectMayTakeOthersOffTheList) {
    struct Remover : Observer {
        void modified(const AcDbObject* object) override {
            object->removeReactor(other.get());
            other.reset();
        }
        std::unique_ptr<Observer> other = std::make_unique<Observer>();
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

TEST_F(Reactors, TransientReactorsAreToldOfTheirObject) {
    Observer observer;
    {
        const AcDbObjectPointer<AcDbEntity> duct(id(kDuct), AcDb::kForWrite);
        duct->addReactor(&observer);
        duct->addReactor(&observer);
        duct->setColorIndex(5);
    }
    EXPECT_EQ(observer.told, "open|modify|");
    erase(id(kDuct));
    EXPECT_EQ(observer.told, "open|modify|open|modify|erase|");
    observer.told.clear();
    // An object ends with its drawing, and can still be asked who it was.
    EXPECT_EQ(drawing->dxfIn(samplePath(L"office-floor-932.dxf").c_str()), Acad::eOk);
    EXPECT_EQ(observer.told, "bye|");
    EXPECT_EQ(observer.last, kDuct);
}

TEST_F(Reactors, ObjectsAreThereUntilTheLastIsToldOfTheirEnd) {
    struct Curious : Observer {
        void goodbye(const AcDbObject* object) override {
            Observer::goodbye(object);
            const AcDbObjectPointer<AcDbLayerTableRecord> layer(AcDbEntity::cast(object)->layerId());
            isLocked = layer.openStatus() == Acad::eOk && layer->isLocked();
        }
        bool isLocked = false;
    };
    for (const AcDbObjectId layer : AcDbObjectPointer<AcDbLayerTable>(drawing->layerTableId())->recordIds())
        AcDbObjectPointer<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setIsLocked(true);
    Curious curious;
    AcDbObjectPointer<AcDbEntity>(id(kDuct))->addReactor(&curious);
    EXPECT_EQ(drawing->dxfIn(samplePath(L"office-floor-932.dxf").c_str()), Acad::eOk);
    EXPECT_EQ(curious.told, "bye|");
    EXPECT_TRUE(curious.isLocked);
}

TEST_F(Reactors, PersistentReactorsComeFirstInStoredOrder) {
    Observer observer;
    const AcDbObjectPointer<AcDbObject> handler(id(kAirHandler), AcDb::kForWrite);
    handler->addReactor(&observer);
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
    handler->removeReactor(&observer);
    EXPECT_EQ(handler->removePersistentReactor(id(0x184)), Acad::eOk);
    EXPECT_EQ(handler->removePersistentReactor(id(0x184)), Acad::eKeyNotFound);
    EXPECT_EQ(handler->reactors()->length(), 3);
}

TEST_F(Reactors, PersistentReactorsChangeSeveralAtATime) {
    const AcDbObjectPointer<AcDbObject> handler(id(kAirHandler), AcDb::kForWrite);
    const auto handles = [&handler] {
        std::vector<Adesk::UInt64> found;
        for (const void* const entry : *handler->reactors())
            found.push_back(acdbPersistentReactorObjectId(entry).handle().value());
        return found;
    };
    using Handles = std::vector<Adesk::UInt64>;
    EXPECT_EQ(
        handler->addPersistentReactors({id(kSingle), id(0x184), AcDbObjectId(), id(kSingle), id(kDuct)}),
        Acad::eOk);
    EXPECT_EQ(handles(), (Handles{0x185, 0x184, kSupply, kSingle, kDuct}));
    EXPECT_EQ(handler->removePersistentReactors({id(kSupply), id(0x185), id(kFurniture)}), Acad::eOk);
    EXPECT_EQ(handles(), (Handles{0x184, kSingle, kDuct}));
    EXPECT_EQ(handler->removePersistentReactors({id(kDuct), id(0x184), id(kSingle)}), Acad::eOk);
    EXPECT_TRUE(handles().empty());
    EXPECT_EQ(handler->addPersistentReactors({id(kDuct)}), Acad::eOk);
    EXPECT_EQ(handles(), Handles{kDuct});
    handler->downgradeOpen();
    EXPECT_EQ(handler->addPersistentReactors({id(kSingle)}), Acad::eNotOpenForWrite);
    EXPECT_EQ(handler->removePersistentReactors({id(kDuct)}), Acad::eNotOpenForWrite);
}

TEST_F(Reactors, TheLastOneTakesItsListAlong) {
    const AcDbObjectPointer<AcDbObject> shelf(id(kShelf), AcDb::kForWrite);
    ASSERT_EQ(shelf->removePersistentReactor(id(kFurniture)), Acad::eOk);
    EXPECT_EQ(drawing->dxfOutBytes(false).find("{ACAD_REACTORS\n102\n}"), std::string::npos);
}

TEST_F(Reactors, UndoAndRedoAreTold) {
    drawing->startUndoRecord();
    const AcDbObjectId point = add(*drawing, new AcDbPoint);
    erase(id(kDuct));
    ACHAR digits[17];
    point.handle().getIntoAsciiBuffer(digits);
    const std::string name(digits, digits + std::char_traits<ACHAR>::length(digits));
    Witness witness(*drawing);
    Observer ofPoint;
    Observer ofDuct;
    AcDbObjectPointer<AcDbObject>(point)->addReactor(&ofPoint);
    AcDbObjectPointer<AcDbObject>(id(kDuct), AcDb::kForRead, true)->addReactor(&ofDuct);
    ASSERT_EQ(drawing->undo(), Acad::eOk);
    const std::string undone = witness.told();
    EXPECT_NE(undone.find("unappend " + name + "|"), std::string::npos) << undone;
    EXPECT_NE(undone.find("modify 114|unerase 114|"), std::string::npos) << undone;
    ASSERT_EQ(drawing->redo(), Acad::eOk);
    const std::string redone = witness.told();
    EXPECT_NE(redone.find("reappend " + name + "|"), std::string::npos) << redone;
    EXPECT_NE(redone.find("modify 114|erase 114|"), std::string::npos) << redone;
    EXPECT_EQ(ofPoint.told, "unappend|reappend|");
    EXPECT_EQ(ofDuct.told, "modify|unerase|modify|erase|");
    drawing.reset(); // before those that it tells of its end
}
