#include "dbelipse.h"
#include "dbidmap.h"
#include "dboiter.h"
#include "sample_drawing.h"

#include <zuhost/drawing_files.h>
#include <zuhost/members.h>
#include <zuhost/names.h>

namespace {

class Cloning : public SampleDrawing {
protected:
    static AcDbObjectIdArray listOf(std::initializer_list<AcDbObjectId> ids) {
        AcDbObjectIdArray list;
        for (const AcDbObjectId id : ids)
            list.append(id);
        return list;
    }
    static AcDbObjectId copyIn(const AcDbIdMapping& mapping, AcDbObjectId id) {
        AcDbIdPair pair(id, {}, false);
        return mapping.compute(pair) ? pair.value() : AcDbObjectId();
    }
    static std::size_t entitiesIn(AcDbDatabase& database, const ACHAR* block = ACDB_MODEL_SPACE) {
        const AcDbObjectPointer<AcDbBlockTableRecord> record(blockId(database, block));
        return record.openStatus() == Acad::eOk ? zuhost::entityIds(*record).size() : 0;
    }
    static std::wstring dataOf(AcDbObjectId id) {
        std::wstring texts;
        resbuf* const chain = AcDbObjectPointer<AcDbObject>(id)->xData();
        for (const resbuf* item = chain; item != nullptr; item = item->rbnext)
            if (item->restype == 1000 || item->restype == 1001)
                texts += std::wstring(item->resval.rstring) + L'|';
        acutRelRb(chain);
        return texts;
    }
    static std::size_t countIn(std::string_view text, std::string_view part) {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1))
            ++count;
        return count;
    }
    static AcDb3dPolyline* corner() {
        AcGePoint3dArray points;
        for (const AcGePoint3d& point : {AcGePoint3d(0, 0, 0), AcGePoint3d(3, 4, 0), AcGePoint3d(3, 4, 5)})
            points.append(point);
        return new AcDb3dPolyline(AcDb::k3dSimplePoly, points);
    }
    static double lengthOf(const AcDbCurve& curve) {
        double end = 0.0;
        double length = 0.0;
        curve.getEndParam(end);
        curve.getDistAtParam(end, length);
        return length;
    }
    /// Returns a block with a circle, a polyline and the definition of an attribute.
    AcDbObjectId madeBlock() const {
        const AcDbBlockTablePointer table(drawing.get(), AcDb::kForWrite);
        auto* const block = new AcDbBlockTableRecord;
        block->setName(L"MADE");
        AcDbObjectId made;
        EXPECT_EQ(table->add(made, block), Acad::eOk);
        AcDbEntity* const entities[] = {new AcDbCircle({1, 0, 0}, AcGeVector3d::kZAxis, 2.0), corner(),
                                        new AcDbAttributeDefinition({0, 1, 0}, L"値", L"TAG", L"?")};
        for (AcDbEntity* const entity : entities) {
            EXPECT_EQ(block->appendAcDbEntity(entity), Acad::eOk);
            entity->close();
        }
        block->close();
        return made;
    }
};

} // namespace

TEST_F(Cloning, ACloneIsInNoDatabaseUntilItIsAppended) {
    std::unique_ptr<AcRxObject> clone(AcDbEntityPointer(id(kBranch))->clone());
    auto* const copy = AcDbBlockReference::cast(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->database(), nullptr);
    EXPECT_EQ(zuhost::layerName(*copy), L"SA-ダクト");
    EXPECT_EQ(copy->setPosition({1, 2, 3}), Acad::eOk);
    const AcDbObjectId added = add(*drawing, static_cast<AcDbEntity*>(clone.release()));
    EXPECT_NE(added, id(kBranch));
    EXPECT_EQ(dataOf(added), dataOf(id(kBranch)));
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockReference>(added)->blockTableRecord(),
              AcDbObjectPointer<AcDbBlockReference>(id(kBranch))->blockTableRecord());
    EXPECT_FALSE(AcDbEntityPointer(added)->hasPersistentReactor(id(kSupply))) << "groups do not hold copies";
    EXPECT_NE(AcDbObjectPointer<AcDbBlockReference>(id(kBranch))->position().x, 1.0);
}

TEST_F(Cloning, DeepCloneObjectsCopiesWithinADrawing) {
    const std::size_t before = entitiesIn(*drawing);
    AcDbObjectIdArray ids = listOf({id(kDuct), id(kBranch), id(kDuct)});
    AcDbIdMapping mapping;
    ASSERT_EQ(drawing->deepCloneObjects(ids, blockId(*drawing, ACDB_MODEL_SPACE), mapping), Acad::eOk);
    EXPECT_EQ(entitiesIn(*drawing), before + 2) << "each object once";
    int pairs = 0;
    for (AcDbIdMappingIter pair(mapping); !pair.done(); pair.next())
        ++pairs;
    EXPECT_EQ(pairs, 2);
    const AcDbObjectId copy = copyIn(mapping, id(kDuct));
    EXPECT_EQ(dataOf(copy), dataOf(id(kDuct)));
    EXPECT_EQ(AcDbEntityPointer(copy, AcDb::kForWrite).openStatus(), Acad::eOk) << "copies are closed";

    ids = listOf({id(kDuct)});
    AcDbIdMapping another;
    EXPECT_EQ(drawing->deepCloneObjects(ids, drawing->layerTableId(), another), Acad::eInvalidOwnerObject);
    ids = listOf({drawing->clayer()});
    EXPECT_EQ(drawing->deepCloneObjects(ids, drawing->layerTableId(), another), Acad::eDuplicateRecordName);
    erase(id(kShelf));
    ids = listOf({id(kShelf)});
    EXPECT_EQ(drawing->deepCloneObjects(ids, {}, another), Acad::eWasErased);
}

TEST_F(Cloning, DeepCloneTranslatesTheMembersOfAGroup) {
    AcDbObjectIdArray ids = listOf({id(kDuct), id(kSupply)});
    AcDbIdMapping mapping;
    ASSERT_EQ(drawing->deepCloneObjects(ids, {}, mapping), Acad::eOk);
    const AcDbObjectId group = copyIn(mapping, id(kSupply));
    const AcDbObjectId duct = copyIn(mapping, id(kDuct));
    const AcDbObjectPointer<AcDbGroup> copied(group);
    ASSERT_EQ(copied.openStatus(), Acad::eOk);
    EXPECT_TRUE(zuhost::isMember(*copied, duct));
    EXPECT_FALSE(zuhost::isMember(*copied, id(kDuct)));
    EXPECT_TRUE(zuhost::isMember(*copied, id(kBranch))) << "what is not copied stays a member";
    EXPECT_TRUE(AcDbEntityPointer(duct)->hasPersistentReactor(group));
    EXPECT_EQ(zuhost::groupName(*copied), L"*A4");
}

TEST_F(Cloning, DeepCloneReturnsTheCopyOpen) {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(blockId(*drawing, ACDB_MODEL_SPACE), AcDb::kForWrite);
    AcDbIdMapping mapping;
    AcDbObject* copy = nullptr;
    ASSERT_EQ(AcDbEntityPointer(id(kDuct))->deepClone(space.object(), copy, mapping), Acad::eOk);
    ASSERT_NE(copy, nullptr);
    EXPECT_TRUE(copy->isWriteEnabled());
    copy->close();
    EXPECT_EQ(AcDbEntityPointer(id(kDuct))->deepClone(space.object(), copy, mapping), Acad::eOk);
    EXPECT_EQ(copy, nullptr) << "copied before";
    EXPECT_EQ(AcDbEntityPointer(id(kDuct))->deepClone(nullptr, copy, mapping), Acad::eNullObjectPointer);
}

TEST_F(Cloning, WblockCloneTakesAlongWhatTheObjectsName) {
    AcDbDatabase target;
    AcDbObjectIdArray ids = listOf({id(kBranch)});
    AcDbIdMapping mapping;
    ASSERT_EQ(target.wblockCloneObjects(ids, target.currentSpaceId(), mapping, AcDb::kDrcIgnore), Acad::eOk);
    EXPECT_EQ(mapping.destDb(), &target);
    const auto saved = readBytes(zuhost::dxfOutBytes(target, false));
    EXPECT_TRUE(zuhost::warnings(*saved).empty());
    const AcDbLayerTableRecordPointer layer(L"SA-ダクト", saved.get());
    ASSERT_EQ(layer.openStatus(), Acad::eOk);
    EXPECT_EQ(layer->colorIndex(), AcDbLayerTableRecordPointer(L"SA-ダクト", drawing.get())->colorIndex());
    EXPECT_EQ(entitiesIn(*saved, L"RBT-D300-200"), entitiesIn(*drawing, L"RBT-D300-200"));
    const AcDbObjectId copy = idIn(*saved, copyIn(mapping, id(kBranch)).handle());
    EXPECT_EQ(dataOf(copy), dataOf(id(kBranch)));
    EXPECT_FALSE(AcDbObjectPointer<AcDbBlockReference>(copy)->blockTableRecord().isNull());

    AcDbIdMapping refused;
    EXPECT_EQ(target.wblockCloneObjects(ids, target.currentSpaceId(), refused, AcDb::kDrcMangleName),
              Acad::eNotImplementedYet);
    EXPECT_EQ(drawing->wblockCloneObjects(ids, drawing->currentSpaceId(), refused, AcDb::kDrcIgnore),
              Acad::eWrongDatabase);
}

TEST_F(Cloning, DuplicateRecordsAreKeptOrReplaced) {
    for (const auto mode : {AcDb::kDrcIgnore, AcDb::kDrcReplace}) {
        AcDbDatabase target;
        AcDbLayerTableRecordPointer own(L"0", &target, AcDb::kForWrite);
        own->setColorIndex(4);
        own.close();
        const AcDbLayerTableRecordPointer other(L"0", drawing.get());
        AcDbObjectIdArray ids = listOf({other->objectId()});
        AcDbIdMapping mapping;
        ASSERT_EQ(target.wblockCloneObjects(ids, target.layerTableId(), mapping, mode), Acad::eOk);
        EXPECT_EQ(AcDbLayerTableRecordPointer(L"0", &target)->colorIndex(),
                  mode == AcDb::kDrcIgnore ? 4 : other->colorIndex());
    }
}

TEST_F(Cloning, InsertMakesABlockOfADrawing) {
    AcDbDatabase target;
    AcDbObjectId block;
    ASSERT_EQ(drawing->setInsbase({5, 6, 0}), Acad::eOk);
    ASSERT_EQ(target.insert(block, L"床", drawing.get()), Acad::eOk);
    EXPECT_EQ(entitiesIn(target, L"床"), entitiesIn(*drawing));
    EXPECT_EQ(AcDbObjectPointer<AcDbBlockTableRecord>(block)->origin(), AcGePoint3d(5, 6, 0));
    EXPECT_EQ(target.insert(block, L"床", drawing.get()), Acad::eDuplicateRecordName);
    EXPECT_EQ(target.insert(block, L"", drawing.get()), Acad::eInvalidInput);
    EXPECT_EQ(target.insert(block, L"x", nullptr), Acad::eNullObjectPointer);
}

TEST_F(Cloning, DrawingsAreWrittenToNewOnes) {
    AcDbDatabase* output = nullptr;
    ASSERT_EQ(drawing->wblock(output), Acad::eOk);
    std::unique_ptr<AcDbDatabase> made(output);
    EXPECT_EQ(zuhost::dxfOutBytes(*made, false), zuhost::dxfOutBytes(*drawing, false));

    drawing->setInsunits(AcDb::kUnitsMeters);
    ASSERT_EQ(drawing->wblock(output, listOf({id(kShelf), id(kDuct)}), {5, 6, 0}), Acad::eOk);
    made.reset(output);
    EXPECT_EQ(entitiesIn(*made), 2U);
    EXPECT_EQ(made->insbase(), AcGePoint3d(5, 6, 0));
    EXPECT_EQ(made->insunits(), AcDb::kUnitsMeters);

    const AcDbObjectPointer<AcDbBlockReference> duct(id(kDuct));
    const AcDbObjectId block = duct->blockTableRecord();
    const AcDbObjectPointer<AcDbBlockTableRecord> definition(block);
    ASSERT_EQ(drawing->wblock(output, block), Acad::eOk);
    made.reset(output);
    EXPECT_EQ(entitiesIn(*made), zuhost::entityIds(*definition).size());
    EXPECT_EQ(made->insbase(), definition->origin());

    EXPECT_EQ(drawing->wblock(output, id(kDuct)), Acad::eInvalidInput);
    EXPECT_EQ(output, nullptr);
    EXPECT_EQ(made->wblock(output, listOf({id(kDuct)}), {}), Acad::eWrongDatabase);
    EXPECT_EQ(drawing->wblock(nullptr, listOf({id(kDuct)}), {}, AcDb::kDrcIgnore), Acad::eNullObjectPointer);
    EXPECT_EQ(AcDbDatabase(false).wblock(output), Acad::eNoDatabase);
}

TEST_F(Cloning, PartsAndExtensionDictionariesAreCopiedWithTheirOwner) {
    std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    const std::string_view section = "ENTITIES\n";
    const std::string polyline = "  0\nPOLYLINE\n  5\nF01\n100\nAcDbEntity\n  8\n0\n100\nAcDb2dPolyline\n"
                                 " 66\n1\n  0\nVERTEX\n  5\nF02\n330\nF01\n100\nAcDbEntity\n  8\n0\n100\n"
                                 "AcDbVertex\n100\nAcDb2dVertex\n 10\n7.5\n 20\n0.0\n 30\n0.0\n  0\nSEQEND\n"
                                 "  5\nF03\n330\nF01\n100\nAcDbEntity\n  8\n0\n";
    bytes.insert(bytes.find(section, bytes.find("ENTITIES")) + section.size(), polyline);
    const auto edited = readBytes(bytes);
    const AcDbObjectId source = idIn(*edited, 0xF01);
    {
        const AcDbEntityPointer entity(source, AcDb::kForWrite);
        ASSERT_EQ(entity->createExtensionDictionary(), Acad::eOk);
        EXPECT_EQ(entity->createExtensionDictionary(), Acad::eAlreadyInDb);
        const AcDbDictionaryPointer extension(entity->extensionDictionary(), AcDb::kForWrite);
        AcDbObjectId inner;
        auto* const held = new AcDbDictionary;
        ASSERT_EQ(extension->setAt(L"内", held, inner), Acad::eOk);
        held->close();
        EXPECT_EQ(entity->releaseExtensionDictionary(), Acad::eWasOpenForWrite);
    }
    AcDbObjectIdArray ids = listOf({source});
    AcDbIdMapping mapping;
    ASSERT_EQ(edited->deepCloneObjects(ids, edited->currentSpaceId(), mapping), Acad::eOk);
    const AcDbObjectId copy = copyIn(mapping, source);
    const AcDbObjectId vertex = copyIn(mapping, idIn(*edited, 0xF02));
    EXPECT_EQ(AcDbObjectPointer<AcDbObject>(vertex)->ownerId(), copy);
    const auto saved = readBytes(zuhost::dxfOutBytes(*edited, false));
    EXPECT_TRUE(zuhost::warnings(*saved).empty());
    const AcDbObjectId again = idIn(*saved, copy.handle());
    const AcDbDictionaryPointer extension(AcDbEntityPointer(again)->extensionDictionary());
    ASSERT_EQ(extension.openStatus(), Acad::eOk);
    AcDbObjectId inner;
    EXPECT_EQ(extension->getAt(L"内", inner), Acad::eOk);
    EXPECT_NE(extension->objectId(), AcDbEntityPointer(idIn(*saved, 0xF01))->extensionDictionary());
}

TEST_F(Cloning, CopiesHoldTheVerticesAndAttributes) {
    {
        const AcDbObjectPointer<AcDbBlockReference> branch(id(kBranch), AcDb::kForWrite);
        auto* const attribute = new AcDbAttribute({1, 2, 3}, L"値", L"TAG");
        ASSERT_EQ(branch->appendAttribute(attribute), Acad::eOk);
        attribute->close();
    }
    AcDbEntity* copy = nullptr;
    const AcGeMatrix3d moved = AcGeMatrix3d::translation({100, 0, 0});
    ASSERT_EQ(AcDbEntityPointer(id(kBranch))->getTransformedCopy(moved, copy), Acad::eOk);
    const AcDbObjectId reference = add(*drawing, copy);
    const AcDbObjectId polyline = add(*drawing, corner());
    ASSERT_EQ(AcDbEntityPointer(polyline)->getTransformedCopy(AcGeMatrix3d::scaling(2.0), copy), Acad::eOk);
    const AcDbObjectId scaled = add(*drawing, copy);
    AcDbObjectIdArray ids = listOf({polyline, reference});
    AcDbIdMapping mapping;
    ASSERT_EQ(drawing->deepCloneObjects(ids, {}, mapping), Acad::eOk);

    const std::string bytes = zuhost::dxfOutBytes(*drawing, false);
    EXPECT_EQ(countIn(bytes, "\nSEQEND"), 6U) << "one for each entity with parts";
    const auto saved = readBytes(bytes);
    EXPECT_TRUE(zuhost::warnings(*saved).empty());
    const auto read = [&](AcDbObjectId was) { return idIn(*saved, was.handle().value()); };
    EXPECT_EQ(lengthOf(*AcDbObjectPointer<AcDb3dPolyline>(read(polyline))), 10.0);
    EXPECT_EQ(lengthOf(*AcDbObjectPointer<AcDb3dPolyline>(read(scaled))), 20.0);
    EXPECT_EQ(lengthOf(*AcDbObjectPointer<AcDb3dPolyline>(read(copyIn(mapping, polyline)))), 10.0);
    for (const AcDbObjectId was : {reference, copyIn(mapping, reference)}) {
        const AcDbObjectPointer<AcDbBlockReference> owner(read(was));
        const std::unique_ptr<AcDbObjectIterator> attributes(owner->attributeIterator());
        ASSERT_FALSE(attributes->done());
        EXPECT_EQ(AcDbObjectPointer<AcDbAttribute>(attributes->objectId())->position(),
                  AcGePoint3d(101, 2, 3));
        EXPECT_EQ(textOf(attributes->objectId()), L"値");
        attributes->step();
        EXPECT_TRUE(attributes->done());
    }
}

TEST_F(Cloning, ExplodedReferencesBecomeCopiesOfTheBlocksEntities) {
    const AcDbObjectId block = madeBlock();
    const std::size_t before = entitiesIn(*drawing);
    const std::pair<AcGeScale3d, const AcRxClass*> cases[] = {{{2, 2, 2}, AcDbCircle::desc()},
                                                              {{2, 4, 2}, AcDbEllipse::desc()}};
    for (const auto& [scale, round] : cases) {
        const AcDbObjectId reference = add(*drawing, new AcDbBlockReference({10, 0, 0}, block));
        const AcDbObjectPointer<AcDbBlockReference> opened(reference, AcDb::kForWrite);
        opened->setScaleFactors(scale);
        AcDbVoidPtrArray parts;
        const Acad::ErrorStatus status = opened->explode(parts);
        if (round == AcDbEllipse::desc()) {
            EXPECT_EQ(status, Acad::eCannotScaleNonUniformly) << "texts can't be scaled unequally";
            EXPECT_TRUE(parts.isEmpty());
            continue;
        }
        ASSERT_EQ(status, Acad::eOk);
        ASSERT_EQ(parts.length(), 3);
        std::vector<std::unique_ptr<AcDbEntity>> owned;
        for (void* const part : parts)
            owned.emplace_back(static_cast<AcDbEntity*>(part));
        EXPECT_EQ(owned[0]->isA(), round);
        EXPECT_EQ(AcDbCircle::cast(owned[0].get())->center(), AcGePoint3d(12, 0, 0));
        EXPECT_EQ(AcDbCircle::cast(owned[0].get())->radius(), 4.0);
        EXPECT_EQ(lengthOf(*AcDbCurve::cast(owned[1].get())), 20.0);
        EXPECT_EQ(AcDbText::cast(owned[2].get())->position(), AcGePoint3d(10, 2, 0));
        AcDbObjectId added = add(*drawing, owned[1].release());
        EXPECT_EQ(lengthOf(*AcDbObjectPointer<AcDb3dPolyline>(added)), 20.0);
    }
    EXPECT_EQ(entitiesIn(*drawing), before + 3);
}

TEST_F(Cloning, BlocksAndDictionariesMayBeNestedDeeply) {
    constexpr int kDepth = 20'000;
    AcDbDatabase source;
    AcDbObjectId reference;
    {
        const AcDbBlockTablePointer table(&source, AcDb::kForWrite);
        AcDbObjectId inner;
        for (int i = 0; i <= kDepth; ++i) {
            auto* const block = new AcDbBlockTableRecord;
            block->setName((L"B" + std::to_wstring(i)).c_str());
            AcDbObjectId outer;
            ASSERT_EQ(table->add(outer, block), Acad::eOk);
            if (i > 0) {
                auto* const entity = new AcDbBlockReference(AcGePoint3d::kOrigin, inner);
                ASSERT_EQ(block->appendAcDbEntity(reference, entity), Acad::eOk);
                entity->close();
            }
            block->close();
            inner = outer;
        }
    }
    {
        const AcDbEntityPointer entity(reference, AcDb::kForWrite);
        ASSERT_EQ(entity->createExtensionDictionary(), Acad::eOk);
        AcDbObjectId dictionary = entity->extensionDictionary();
        for (int i = 0; i < kDepth; ++i) {
            const AcDbDictionaryPointer opened(dictionary, AcDb::kForWrite);
            auto* const entry = new AcDbDictionary;
            ASSERT_EQ(opened->setAt(L"内", entry, dictionary), Acad::eOk);
            entry->close();
        }
    }
    AcDbDatabase target;
    AcDbObjectIdArray ids = listOf({reference});
    AcDbIdMapping mapping;
    ASSERT_EQ(target.wblockCloneObjects(ids, target.currentSpaceId(), mapping, AcDb::kDrcIgnore), Acad::eOk);
    int pairs = 0;
    for (AcDbIdMappingIter pair(mapping); !pair.done(); pair.next())
        ++pairs;
    EXPECT_GE(pairs, 3 * kDepth) << "a block, its reference and a dictionary on each level";
    EXPECT_EQ(entitiesIn(target, L"B1"), 1U);
}

TEST_F(Cloning, ExtensionDictionariesAreReleasedWhenEmpty) {
    const AcDbEntityPointer duct(id(kDuct), AcDb::kForWrite);
    EXPECT_EQ(duct->releaseExtensionDictionary(), Acad::eKeyNotFound);
    ASSERT_EQ(duct->createExtensionDictionary(), Acad::eOk);
    const AcDbObjectId first = duct->extensionDictionary();
    EXPECT_EQ(duct->releaseExtensionDictionary(), Acad::eOk);
    EXPECT_TRUE(duct->extensionDictionary().isNull());
    EXPECT_TRUE(first.isErased());
    ASSERT_EQ(duct->createExtensionDictionary(), Acad::eOk);
    erase(duct->extensionDictionary());
    EXPECT_EQ(reopened()->approxNumObjects(),
              SampleDrawing::read(samplePath(L"office-floor.dxf"))->approxNumObjects())
        << "erased dictionaries and references to them are not saved";
}
