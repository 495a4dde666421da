#pragma once

#include "dbdict.h"
#include "dbents.h"
#include "dbgroup.h"
#include "dboiter.h"
#include "dbsymtb.h"
#include "drawing/tag_view.h"

namespace zuhost {

/// Members that the interface lacks, for the free functions of zuhost/ and the host's own classes.
struct ObjectAccess {
    static DatabaseCore& core(const AcDbDatabase& database) { return *database.core_; }
    static std::wstring layer(const AcDbEntity& entity) { return entity.layerText(); }
    static std::wstring block(const AcDbBlockReference& reference) { return reference.nameOfBlock(); }
    static std::vector<CurvePiece> pieces(const AcDbCurve& curve);
    static TagView records(const AcDbBlockReference& reference) { return reference.ownSection(); }
    /// Sets position, scale, rotation and normal to those in the records of a reference.
    template <typename Place>
    static void readPlace(const TagView& own, Place& place);
    static std::wstring name(const AcDbSymbolTableRecord& record) { return record.nameText(); }
    static std::wstring name(const AcDbGroup& group) { return group.nameInDictionary(); }
    static std::string encoded(const AcDbObject& object, std::wstring_view text) {
        return object.encoded(text);
    }
    static std::wstring decoded(const AcDbObject& object, std::string_view value) {
        return object.decoded(value);
    }

    static std::vector<AcDbObjectId> entities(const AcDbBlockTableRecord& block, bool skipErased) {
        return block.entityIds(skipErased);
    }
    static std::vector<AcDbObjectId> records(const AcDbSymbolTable& table) { return table.recordIds(); }
    static std::vector<DictionaryEntry> entries(const AcDbDictionary& dictionary) {
        return dictionary.entries();
    }
    static std::vector<std::wstring> danglingNames(const AcDbDictionary& dictionary) {
        return dictionary.danglingNames();
    }
    static bool has(const AcDbGroup& group, AcDbObjectId id) { return group.hasMember(id); }
    static std::vector<AcDbHandle> surplusEntries(const AcDbGroup& group) { return group.surplusEntries(); }
    static Acad::ErrorStatus removeSurplusEntries(AcDbGroup& group) { return group.removeSurplusEntries(); }

    static TagView tags(const AcDbObject& object) { return object.tags(); }
    static const TagList* ownTags(const AcDbObject& object) { return object.ownTags(); }

    static AcDbObjectIterator* newIterator(std::vector<AcDbObjectId> ids, std::vector<AcDbEntity*> entities) {
        return new AcDbObjectIterator(std::move(ids), std::move(entities));
    }

    static void indexReactors(const AcDbObject& object) { object.indexReactors(); }
    template <typename Change>
    static Acad::ErrorStatus changeReactors(AcDbObject& object, Change change) {
        return object.changeReactors(change);
    }
    static Acad::ErrorStatus assertWriteEnabled(AcDbObject& object) { return object.assertWriteEnabled(); }
    static TagList& changingTags(AcDbObject& object) { return object.changingTags(); }
    static bool canBeIn(const AcDbEntity& entity, const Document& document) {
        return entity.canBeIn(document);
    }
    /// Changes the records of an object of a database, whether it is open or not.
    template <typename Change>
    static void changeAnyhow(AcDbObject& object, Change change) {
        const bool wasWriting = object.writing_;
        object.writing_ = true;
        if (object.assertWriteEnabled() == Acad::eOk)
            change(object.changingTags());
        object.writing_ = wasWriting;
        if (!wasWriting)
            object.notifyClosed();
    }
    /// Sets a name without checking it.
    static Acad::ErrorStatus setName(AcDbSymbolTableRecord& record, std::wstring_view name) {
        return record.setTextTag({}, 2, name);
    }
    static void setRecords(AcDbObject& object, TagList records) {
        object.changingTags() = std::move(records);
    }
    /// Takes ownership of an object that is in no database for another one, which will add it to a database.
    template <typename T>
    static PendingPtr<T> pending(T* object) {
        object->isPending_ = true;
        return PendingPtr<T>(object);
    }
    template <typename T>
    static T* released(PendingPtr<T> object) {
        object->isPending_ = false;
        return object.release();
    }
    static bool isPending(const AcDbObject& object) { return object.isPending_; }
    static bool isHeld(const AcDbObject& object) { return object.isHeld_; }
    static std::wstring anonymousName(const AcDbDictionary& dictionary) { return dictionary.anonymousName(); }
    template <typename Notify>
    static void notifyReactors(const AcDbObject& object, Notify notify) {
        object.notifyReactors(notify);
    }

    static Acad::ErrorStatus dxfIn(AcDbDatabase& database, const ACHAR* path, bool strict) {
        return database.read(path, strict);
    }
    static Acad::ErrorStatus dxfIn(AcDbDatabase& database, std::string bytes, const ACHAR* name) {
        return database.read(std::move(bytes), name);
    }
    static Acad::ErrorStatus dxfOut(AcDbDatabase& database, const ACHAR* path, bool binary) {
        return database.write(path, binary);
    }
    static std::wstring& lastError(AcDbDatabase& database) { return database.lastError_; }
    static const std::wstring& lastError(const AcDbDatabase& database) { return database.lastError_; }
};

} // namespace zuhost
