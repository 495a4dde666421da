#include "sample_drawing.h"
#include "summinfo.h"

#include <acutads.h>
#include <dbxrecrd.h>
#include <zuhost/members.h>
#include <zuhost/names.h>
#include <zuhost/result_chain.h>

namespace {

class Dictionaries : public SampleDrawing {
protected:
    AcDbObjectPointer<AcDbDictionary> groups{drawing->groupDictionaryId(), AcDb::kForWrite};

    static std::vector<std::wstring> names(const AcDbDictionary& dictionary) {
        std::vector<std::wstring> found;
        for (const auto& entry : zuhost::entriesOf(dictionary))
            found.push_back(entry.name);
        return found;
    }
};

using Names = std::vector<std::wstring>;

} // namespace

TEST_F(Dictionaries, EntriesKeepTheirOrder) {
    EXPECT_EQ(names(*groups), (Names{L"*A1", L"RTGR00007", L"*A2", L"家具", L"*A3"}));
    AcDbObjectId found;
    EXPECT_EQ(groups->getAt(L"rtgr00007", found), Acad::eOk);
    EXPECT_EQ(found.handle().value(), 0x184U);
    EXPECT_EQ(groups->getAt(L"none", found), Acad::eKeyNotFound);
    AcString name;
    EXPECT_EQ(groups->nameAt(id(kFurniture), name), Acad::eOk);
    EXPECT_EQ(name, L"家具");
    EXPECT_EQ(groups->nameAt(id(kDuct), name), Acad::eKeyNotFound);
    const std::unique_ptr<AcDbDictionaryIterator> iterator(groups->newIterator());
    EXPECT_STREQ(iterator->name(), L"*A1");
    EXPECT_TRUE(iterator->next());
    EXPECT_EQ(iterator->objectId(), found);
}

TEST_F(Dictionaries, IteratorsStayAtTheirEnd) {
    const std::unique_ptr<AcDbDictionaryIterator> entries(groups->newIterator());
    while (entries->next()) {
    }
    EXPECT_FALSE(entries->next());
    EXPECT_TRUE(entries->done());
    EXPECT_EQ(entries->name(), nullptr);
    EXPECT_TRUE(entries->objectId().isNull());
}

TEST_F(Dictionaries, AnonymousGroupsGetTheNextNumber) {
    AcDbObjectId added;
    auto* const group = new AcDbGroup(L"説明", false);
    EXPECT_EQ(groups->setAt(L"*", group, added), Acad::eOk);
    EXPECT_TRUE(group->isAnonymous());
    EXPECT_EQ(zuhost::groupName(*group), L"*A4");
    group->close();
    auto* const named = new AcDbGroup;
    EXPECT_EQ(groups->setAt(L"給気", named, added), Acad::eOk);
    EXPECT_FALSE(named->isAnonymous());
    named->close();
    groups.close();

    const auto again = reopened();
    const AcDbObjectPointer<AcDbDictionary> read(again->groupDictionaryId());
    EXPECT_EQ(names(*read), (Names{L"*A1", L"RTGR00007", L"*A2", L"家具", L"*A3", L"*A4", L"給気"}));
    AcDbObjectId found;
    read->getAt(L"*A4", found);
    const AcDbObjectPointer<AcDbGroup> saved(found);
    EXPECT_STREQ(saved->description(), L"説明");
    EXPECT_FALSE(saved->isSelectable());
    EXPECT_TRUE(saved->isAnonymous());
    EXPECT_EQ(saved->ownerId(), read->objectId());
    EXPECT_TRUE(saved->hasPersistentReactor(read->objectId()));
}

TEST_F(Dictionaries, EntriesAreReplacedAndRemoved) {
    AcDbObjectId added;
    auto* const group = new AcDbGroup;
    EXPECT_EQ(groups->setAt(L"家具", group, added), Acad::eOk);
    group->close();
    EXPECT_TRUE(id(kFurniture).isErased());
    AcDbObjectId found;
    EXPECT_EQ(groups->getAt(L"家具", found), Acad::eOk);
    EXPECT_EQ(found, added);
    EXPECT_EQ(groups->remove(L"*a2"), Acad::eOk);
    EXPECT_EQ(groups->remove(L"*a2"), Acad::eKeyNotFound);
    EXPECT_EQ(groups->remove(id(kSingle)), Acad::eOk);
    EXPECT_FALSE(id(kSingle).isErased());
    EXPECT_EQ(names(*groups), (Names{L"*A1", L"RTGR00007", L"家具"}));
    EXPECT_EQ(groups->numEntries(), 3U);
}

TEST_F(Dictionaries, RemovedEntriesAreNoLongerFound) {
    AcDbObjectId found;
    EXPECT_EQ(groups->remove(L"*A3"), Acad::eOk);
    EXPECT_EQ(groups->remove(L"*A1"), Acad::eOk);
    EXPECT_EQ(groups->getAt(L"*A1", found), Acad::eKeyNotFound);
    AcString name;
    EXPECT_EQ(groups->nameAt(id(kFurniture), name), Acad::eOk);
    EXPECT_EQ(name, L"家具");
    auto* const group = new AcDbGroup;
    EXPECT_EQ(groups->setAt(L"*", group, found), Acad::eOk);
    EXPECT_EQ(zuhost::groupName(*group), L"*A3") << "the highest number in use is 2";
    group->close();
    // An object with two entries is found by the remaining one.
    {
        const AcDbObjectPointer<AcDbGroup> furniture(id(kFurniture), AcDb::kForWrite);
        EXPECT_EQ(groups->setAt(L"棚", furniture, found), Acad::eOk);
    }
    EXPECT_EQ(groups->remove(id(kFurniture)), Acad::eOk);
    EXPECT_EQ(groups->nameAt(id(kFurniture), name), Acad::eOk);
    EXPECT_EQ(name, L"棚");
    EXPECT_EQ(groups->remove(L"rtgr00007"), Acad::eOk);
    EXPECT_EQ(groups->numEntries(), 3U);
    EXPECT_EQ(groups->remove(id(kFurniture)), Acad::eOk);
    EXPECT_FALSE(groups->has(id(kFurniture)));
    groups.close();
    const auto again = reopened();
    EXPECT_EQ(names(*AcDbObjectPointer<AcDbDictionary>(again->groupDictionaryId())), (Names{L"*A2", L"*A3"}));
}

TEST_F(Dictionaries, UndoRestoresRemovedEntriesStepByStep) {
    const Names all = names(*groups);
    for (const wchar_t* const name : {L"*A1", L"家具", L"*A2"}) {
        drawing->startUndoRecord();
        EXPECT_EQ(groups->remove(name), Acad::eOk);
    }
    drawing->startUndoRecord();
    EXPECT_EQ(groups->remove(id(0x184)), Acad::eOk);
    EXPECT_EQ(names(*groups), (Names{L"*A3"}));
    groups.close();
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(drawing->undo(), Acad::eOk);
    EXPECT_EQ(names(*AcDbObjectPointer<AcDbDictionary>(drawing->groupDictionaryId())), all);
}

// Takes minutes if the cost of a change grows with the number of entries.
TEST_F(Dictionaries, ManyEntriesAreAddedAndRemovedInLinearTime) {
    constexpr int kMany = 30000;
    std::vector<AcDbObjectId> made(kMany);
    for (AcDbObjectId& added : made) {
        auto* const group = new AcDbGroup;
        ASSERT_EQ(groups->setAt(L"*", group, added), Acad::eOk);
        group->close();
    }
    EXPECT_EQ(groups->numEntries(), 5U + kMany);
    for (const AcDbObjectId group : made)
        ASSERT_EQ(groups->remove(group), Acad::eOk);
    EXPECT_EQ(names(*groups), (Names{L"*A1", L"RTGR00007", L"*A2", L"家具", L"*A3"}));
}

TEST_F(Dictionaries, OneInNoDatabaseHoldsObjectsUntilItIsAdded) {
    const auto add = [](AcDbDictionary& dictionary, const wchar_t* name, AcDbObject* object) {
        AcDbObjectId none;
        const Acad::ErrorStatus status = dictionary.setAt(name, object, none);
        EXPECT_TRUE(none.isNull());
        return status;
    };
    const auto text = [](const wchar_t* value) {
        auto record = std::make_unique<AcDbXrecord>();
        const zuhost::ResultChain chain(acutBuildList(1, value, RTNONE));
        EXPECT_EQ(record->setFromRbChain(*chain), Acad::eOk);
        return record.release();
    };
    auto* const outer = new AcDbDictionary;
    auto* const inner = new AcDbDictionary;
    EXPECT_EQ(add(*outer, L"first", text(L"replaced")), Acad::eOk);
    EXPECT_EQ(add(*outer, L"FIRST", text(L"kept")), Acad::eOk);
    EXPECT_EQ(add(*outer, L"inner", inner), Acad::eOk);
    EXPECT_EQ(add(*inner, L"deep", text(L"deep")), Acad::eOk);
    EXPECT_EQ(add(*outer, L"gone", text(L"gone")), Acad::eOk);
    EXPECT_EQ(outer->remove(L"gone"), Acad::eOk);
    EXPECT_EQ(outer->numEntries(), 2U);
    EXPECT_TRUE(outer->has(L"First"));
    EXPECT_EQ(add(*outer, L"itself", outer), Acad::eInvalidInput);
    EXPECT_EQ(add(*inner, L"its owner", outer), Acad::eInvalidInput);
    EXPECT_EQ(add(*outer, L"twice", inner), Acad::eInvalidInput);

    AcDbObjectPointer<AcDbDictionary> root(drawing->namedObjectsDictionaryId(), AcDb::kForWrite);
    AcDbObjectId added;
    ASSERT_EQ(root->setAt(L"OUTER", outer, added), Acad::eOk);
    EXPECT_EQ(names(*outer), (Names{L"FIRST", L"inner"}));
    outer->close();
    root.close();

    const auto again = reopened();
    const AcDbObjectPointer<AcDbDictionary> named(again->namedObjectsDictionaryId());
    AcDbDictionary* read = nullptr;
    ASSERT_EQ(named->getAt(L"OUTER", read, AcDb::kForRead), Acad::eOk);
    const AcDbDictionaryPointer owned(read);
    ASSERT_EQ(read->getAt(L"inner", read, AcDb::kForRead), Acad::eOk);
    const AcDbDictionaryPointer ownedInner(read);
    AcDbXrecord* record = nullptr;
    ASSERT_EQ(read->getAt(L"deep", record, AcDb::kForRead), Acad::eOk);
    const AcDbObjectPointer<AcDbXrecord> ownedRecord(record);
    resbuf* chain = nullptr;
    ASSERT_EQ(record->rbChain(&chain), Acad::eOk);
    EXPECT_STREQ(zuhost::ResultChain(chain)->resval.rstring, L"deep");
}

TEST_F(Dictionaries, EntriesAreOwnedHardOnRequest) {
    const auto pointers = [this] {
        std::string codes;
        const std::string bytes = zuhost::dxfOutBytes(*drawing, false);
        std::size_t at = bytes.find("RTGR00007");
        for (const char* const name : {"RTGR00007", "LAST"})
            if (at = bytes.find(name, at); at != std::string::npos)
                codes += bytes.substr(bytes.find('\n', at) + 1, 3);
        return codes;
    };
    EXPECT_FALSE(groups->isTreatElementsAsHard());
    EXPECT_EQ(pointers(), "350");
    EXPECT_EQ(groups->setTreatElementsAsHard(true), Acad::eOk);
    AcDbObjectId added;
    auto* const group = new AcDbGroup;
    ASSERT_EQ(groups->setAt(L"LAST", group, added), Acad::eOk);
    group->close();
    EXPECT_EQ(pointers(), "360360") << "those known and those to come";
    EXPECT_EQ(groups->getAt(L"rtgr00007", added), Acad::eOk);
    EXPECT_EQ(groups->setTreatElementsAsHard(false), Acad::eOk);
    EXPECT_FALSE(groups->isTreatElementsAsHard());
    EXPECT_EQ(pointers(), "350350");
    groups->downgradeOpen();
    EXPECT_EQ(groups->setTreatElementsAsHard(true), Acad::eNotOpenForWrite);
}

TEST_F(Dictionaries, InvalidEntriesAreRejected) {
    auto group = std::make_unique<AcDbGroup>();
    AcDbObjectId added;
    EXPECT_EQ(groups->setAt(L"", group.get(), added), Acad::eInvalidInput);
    EXPECT_EQ(groups->setAt(L"x", nullptr, added), Acad::eInvalidInput);
    AcDbDatabase other;
    const AcDbObjectPointer<AcDbDictionary> foreign(other.groupDictionaryId(), AcDb::kForWrite);
    ASSERT_EQ(foreign.openStatus(), Acad::eOk);
    {
        const AcDbObjectPointer<AcDbGroup> furniture(id(kFurniture), AcDb::kForWrite);
        EXPECT_EQ(foreign->setAt(L"x", furniture, added), Acad::eWrongDatabase);
    }
    AcDbObjectId none;
    EXPECT_EQ(groups->getAt(nullptr, none), Acad::eInvalidInput);
    EXPECT_EQ(groups->remove(static_cast<const ACHAR*>(nullptr)), Acad::eInvalidInput);
    EXPECT_FALSE(groups->has(static_cast<const ACHAR*>(nullptr)));
    EXPECT_STREQ(AcDbGroup(nullptr).description(), L"");
    groups->downgradeOpen();
    EXPECT_EQ(groups->setAt(L"x", group.get(), added), Acad::eNotOpenForWrite);
    EXPECT_EQ(groups->remove(L"*A1"), Acad::eNotOpenForWrite);
    EXPECT_EQ(foreign->numEntries(), 0U);
}

TEST_F(Dictionaries, EntriesOfErasedObjectsAreHidden) {
    erase(id(kFurniture));
    AcDbObjectId found;
    EXPECT_EQ(groups->getAt(L"家具", found), Acad::eWasErased);
    EXPECT_EQ(groups->numEntries(), 4U);
    erase(id(kFurniture), false);
    EXPECT_EQ(groups->numEntries(), 5U);
}

TEST_F(Dictionaries, CustomVariablesAreSaved) {
    const auto infoOf = [](AcDbDatabase& database) {
        AcDbDatabaseSummaryInfo* found = nullptr;
        EXPECT_EQ(acdbGetSummaryInfo(&database, found), Acad::eOk);
        return std::unique_ptr<AcDbDatabaseSummaryInfo>(found);
    };
    auto info = infoOf(*drawing);
    ASSERT_EQ(info->numCustomInfo(), 2);
    AcString value;
    EXPECT_EQ(info->getCustomSummaryInfo(L"zuanno", value), Acad::eOk);
    EXPECT_EQ(value, L"1");
    AcString key;
    EXPECT_EQ(info->getCustomSummaryInfo(1, key, value), Acad::eOk);
    EXPECT_EQ(key, L"図面名称");
    EXPECT_EQ(info->getCustomSummaryInfo(2, key, value), Acad::eInvalidIndex);
    EXPECT_EQ(info->addCustomSummaryInfo(L"ZUANNO", L"2"), Acad::eDuplicateKey);
    EXPECT_EQ(info->setCustomSummaryInfo(L"ZUANNO", L"2"), Acad::eOk);
    EXPECT_EQ(info->addCustomSummaryInfo(L"縮尺", L"1:50"), Acad::eOk);
    EXPECT_EQ(info->deleteCustomSummaryInfo(L"図面名称"), Acad::eOk);
    EXPECT_EQ(info->deleteCustomSummaryInfo(L"図面名称"), Acad::eKeyNotFound);
    EXPECT_EQ(info->setTitle(L"空調"), Acad::eOk);
    EXPECT_EQ(info->setHyperlinkBase(L"https://example.org"), Acad::eOk);
    EXPECT_EQ(info->setTitle(L"空調設備"), Acad::eOk);
    ASSERT_EQ(acdbPutSummaryInfo(info.get()), Acad::eOk);

    const auto again = reopened();
    info = infoOf(*again);
    ASSERT_EQ(info->numCustomInfo(), 2);
    EXPECT_EQ(info->getCustomSummaryInfo(L"縮尺", value), Acad::eOk);
    EXPECT_EQ(value, L"1:50");
    EXPECT_EQ(info->getCustomSummaryInfo(0, key, value), Acad::eOk);
    EXPECT_EQ(value, L"2");
    EXPECT_EQ(info->getTitle(value), Acad::eOk);
    EXPECT_EQ(value, L"空調設備");
    EXPECT_EQ(info->getHyperlinkBase(value), Acad::eOk);
    EXPECT_EQ(value, L"https://example.org");
    EXPECT_EQ(info->getSubject(value), Acad::eOk);
    EXPECT_TRUE(value.isEmpty());
    const std::string bytes = zuhost::dxfOutBytes(*again, false);
    ASSERT_EQ(acdbPutSummaryInfo(info.get()), Acad::eOk);
    EXPECT_EQ(zuhost::dxfOutBytes(*again, false), bytes) << "nothing changed";
}
