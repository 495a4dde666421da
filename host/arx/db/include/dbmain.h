#pragma once

#include "acdb.h"
#include "adslib.h"
#include "dbid.h"
#include "gemat3d.h"
#include "rxclass.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <variant>
#include <vector>

class AcDbBlockTable;
class AcDbDictionary;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbObject;
class AcDbRegAppTable;
class AcDbTextStyleTable;

namespace zuhost {
class Document;
class ReactorIndex;
class TagList;
struct DatabaseCore;
struct DocumentError;
struct Tag;
struct TagRange;
AcRxObject* makeEntity();
AcRxObject* makeSymbolTable();
} // namespace zuhost

/// Notified of the changes of one object that it was added to. The object must not be changed by the reactor.
class AcDbObjectReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectReactor);

    virtual void openedForModify(const AcDbObject* /*object*/) {}
    virtual void modified(const AcDbObject* /*object*/) {}
    virtual void erased(const AcDbObject* /*object*/, bool /*erasing*/) {}
    /// The object's addition was undone, or redone. Other undone and redone changes count as changes.
    virtual void unappended(const AcDbObject* /*object*/) {}
    virtual void reappended(const AcDbObject* /*object*/) {}
    virtual void goodbye(const AcDbObject* /*object*/) {}
};

/// Notified of changes of the objects of a database when they are closed after the change.
class AcDbDatabaseReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor);

    virtual void objectAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    /// An addition that was undone, and one that was redone.
    virtual void objectUnAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectReAppended(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    /// Before the first change of an opening.
    virtual void objectOpenedForModify(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectModified(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/) {}
    virtual void objectErased(const AcDbDatabase* /*database*/, const AcDbObject* /*object*/,
                              bool /*erased*/ = true) {}
    /// The database is about to go; the reactor is taken off its list.
    virtual void goodbye(const AcDbDatabase* /*database*/) {}
};

/// An object of a drawing.
///
/// Objects of a database are opened with acdbOpenObject and closed again; members that change the object need
/// it to be open for write and otherwise return eNotOpenForWrite and change nothing. An object that is in no
/// database yet belongs to its maker and may always be changed.
class AcDbObject : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    ~AcDbObject() override;

    [[nodiscard]] AcDbObjectId objectId() const { return AcDbObjectId(stub_); }
    [[nodiscard]] AcDbObjectId ownerId() const;
    [[nodiscard]] AcDbDatabase* database() const;
    [[nodiscard]] AcDbHandle getAcDbHandle() const { return objectId().handle(); }
    /// The type's name in drawings: "INSERT", "DICTIONARY" ...
    [[nodiscard]] std::wstring dxfName() const;

    // ---- open state
    Acad::ErrorStatus close();
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    [[nodiscard]] bool isReadEnabled() const { return readers_ > 0 || writing_ || stub_ == nullptr; }
    [[nodiscard]] bool isWriteEnabled() const { return writing_ || stub_ == nullptr; }
    [[nodiscard]] bool isNewObject() const;
    [[nodiscard]] bool isModified() const { return modified_; }

    // ---- erasing
    Acad::ErrorStatus erase(bool erasing = true);
    [[nodiscard]] bool isErased() const { return objectId().isErased(); }

    // ---- reactors
    void addReactor(AcDbObjectReactor* reactor) const;
    void removeReactor(AcDbObjectReactor* reactor) const;
    Acad::ErrorStatus addPersistentReactor(AcDbObjectId reactor);
    /// Adds those that are missing, in their order and in one pass.
    Acad::ErrorStatus addPersistentReactors(const std::vector<AcDbObjectId>& reactors);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId reactor);
    /// Takes all entries of several away in one pass.
    Acad::ErrorStatus removePersistentReactors(const std::unordered_set<AcDbObjectId>& reactors);
    [[nodiscard]] bool hasPersistentReactor(AcDbObjectId reactor) const;
    /// Persistent reactors in stored order, then transient ones; each entry is to be asked with
    /// acdbIsPersistentReactor. Null for an object that is in no database. Valid until the object changes.
    [[nodiscard]] const AcDbVoidPtrArray* reactors() const;
    /// Entries among the persistent reactors, as damaged drawings have them, of objects that are not in the
    /// drawing, and repeated ones.
    [[nodiscard]] std::vector<AcDbHandle> surplusReactors() const;
    Acad::ErrorStatus removeSurplusReactors();

    // ---- extended data
    /// The values of one application, or of all (null): a chain that the caller frees with acutRelRb; null
    /// for none.
    [[nodiscard]] resbuf* xData(const ACHAR* application = nullptr) const;
    /// Replaces the values of each application named in the chain (1001 items); an application without values
    /// loses its data. eRegappIdNotFound for one that the drawing doesn't know, eXdataSizeExceeded when the
    /// object's data would pass 16 KB; the object is then unchanged.
    Acad::ErrorStatus setXData(const resbuf* chain);

    [[nodiscard]] AcDbObjectId extensionDictionary() const;

    // ---- records, for classes of the database and tools
    [[nodiscard]] const zuhost::TagList& tags() const {
        if (tagsLag_)
            catchUp();
        return *tags_;
    }
    /// Counts the changes of the records, so that what was derived from them can be kept until they change.
    [[nodiscard]] std::uint32_t tagVersion() const { return tagVersion_; }

protected:
    AcDbObject();

    /// eOk when the object may be changed now; its state before the first change is kept for undo.
    Acad::ErrorStatus assertWriteEnabled();
    /// The records for changing, after assertWriteEnabled.
    zuhost::TagList& changingTags();
    /// After a change that the records don't show yet: `bringUpToDate` enters it when they are next looked
    /// at.
    void letTagsLag();
    virtual void bringUpToDate(zuhost::TagList& /*tags*/) const {}
    /// The records without such changes.
    [[nodiscard]] const zuhost::TagList& laggingTags() const { return *tags_; }

    [[nodiscard]] zuhost::DatabaseCore* core() const;
    [[nodiscard]] std::wstring decoded(std::string_view value) const;
    [[nodiscard]] std::string encoded(std::wstring_view text) const;
    [[nodiscard]] zuhost::TagRange section(std::string_view marker) const;
    /// Returns where extended data begins in the records.
    [[nodiscard]] std::size_t extendedDataStart() const;

    /// Typed records of the class's own section; missing ones give the default.
    [[nodiscard]] double realTag(std::string_view marker, int code, double missing) const;
    [[nodiscard]] std::int64_t integerTag(std::string_view marker, int code, std::int64_t missing) const;
    [[nodiscard]] std::wstring textTag(std::string_view marker, int code) const;
    [[nodiscard]] AcGePoint3d pointTag(std::string_view marker, int code,
                                       const AcGePoint3d& missing = {}) const;
    Acad::ErrorStatus setRealTag(std::string_view marker, int code, double value);
    Acad::ErrorStatus setIntegerTag(std::string_view marker, int code, std::int64_t value);
    Acad::ErrorStatus setTextTag(std::string_view marker, int code, std::wstring_view text);
    Acad::ErrorStatus setPointTag(std::string_view marker, int code, const AcGePoint3d& point);

    /// Records of a new object: its type and the markers of its classes, in order.
    void startRecords(std::string_view type, std::initializer_list<std::string_view> markers);

    /// Called after the object itself was erased or unerased.
    virtual void subErased(bool /*erasing*/) {}

private:
    friend struct zuhost::DatabaseCore;
    friend class AcDbDatabase;

    void notifyClosed();
    /// Calls `tell` with each transient reactor that is there at the start and not taken off meanwhile.
    template <typename Tell>
    void tellReactors(Tell tell) const {
        const auto told = transientReactors_;
        for (AcDbObjectReactor* reactor : told)
            if (std::find(transientReactors_.begin(), transientReactors_.end(), reactor) !=
                transientReactors_.end())
                tell(*reactor);
    }
    void catchUp() const;
    /// A position in the records, with the version of these that it holds for.
    struct KnownPlace {
        std::uint32_t version = 0;
        bool isKnown = false;
        std::size_t place = 0;
    };
    /// Returns the position that `find` determines. Keeps it until the records change: objects in many groups
    /// have long lists of reactors before all else. Searches anew while the object is open for write, since
    /// the records can then change within one version.
    template <typename Find>
    std::size_t placeOf(KnownPlace& known, Find find) const;
    [[nodiscard]] std::size_t firstMarker() const;
    /// The index of the persistent reactors; null for an object that has few.
    zuhost::ReactorIndex* reactorIndex() const;
    template <typename Change>
    Acad::ErrorStatus changeReactors(Change change);

    AcDbStub* stub_ = nullptr;
    std::unique_ptr<zuhost::TagList> tags_;
    mutable std::vector<AcDbObjectReactor*> transientReactors_;
    mutable AcDbVoidPtrArray reactorList_;
    mutable std::unique_ptr<zuhost::ReactorIndex> reactorIndex_;
    mutable KnownPlace firstMarker_;
    mutable KnownPlace extendedDataStart_;
    std::uint32_t tagVersion_ = 0;
    std::uint32_t notedStep_ = 0; ///< The undo step that holds the object's state before it.
    std::uint16_t readers_ = 0;
    mutable bool tagsLag_ = false;
    bool writing_ = false;
    bool modified_ = false;     ///< Changed in the present opening.
    bool appended_ = false;     ///< Put into the database in the present opening.
    bool eraseToggled_ = false; ///< Erased or brought back in the present opening.
};

/// Something that is drawn.
class AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);

    [[nodiscard]] AcDbObjectId blockId() const { return ownerId(); }
    /// Name of the layer, "0" when none is given; the caller frees it with acutDelString.
    [[nodiscard]] ACHAR* layer() const;
    /// The same by value.
    [[nodiscard]] std::wstring layerName() const;
    [[nodiscard]] AcDbObjectId layerId() const;
    /// eKeyNotFound when the drawing has no such layer.
    Acad::ErrorStatus setLayer(const ACHAR* name);
    Acad::ErrorStatus setLayer(AcDbObjectId layer);
    /// 1 to 255, 0 by block, 256 by layer (also when none is given).
    [[nodiscard]] Adesk::UInt16 colorIndex() const;
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 index);
    /// "ByLayer" when none is given.
    [[nodiscard]] std::wstring linetypeName() const;
    [[nodiscard]] AcDb::LineWeight lineWeight() const;
    [[nodiscard]] bool isInPaperSpace() const;
    [[nodiscard]] bool isVisible() const;

protected:
    AcDbEntity() = default;
    friend class AcDbBlockTableRecord;
    /// A drawing's entity names its layer.
    void ensureLayer();

    /// Direction of extrusion of plane entities.
    [[nodiscard]] AcGeVector3d normalTag(std::string_view marker) const;
};

/// Opens an object. On failure `object` is null.
/// eNullObjectId, eWasErased (unless `openErased`), eWasOpenForWrite, eWasOpenForRead (asking to write),
/// eAtMaxReaders, eNotThatKindOfClass (typed form).
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

template <typename T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false) {
    object = nullptr;
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObject(opened, id, mode, openErased);
    if (status != Acad::eOk)
        return status;
    object = T::cast(opened);
    if (object != nullptr)
        return Acad::eOk;
    opened->close();
    return Acad::eNotThatKindOfClass;
}

/// Whether an entry of AcDbObject::reactors names an object of the drawing, and which.
bool acdbIsPersistentReactor(const void* reactor);
AcDbObjectId acdbPersistentReactorObjectId(const void* reactor);

/// Makes an application known to the working database, so that extended data may name it.
int acdbRegApp(const ACHAR* application);
Acad::ErrorStatus acdbRegApp(AcDbDatabase* database, const ACHAR* application);

/// A drawing.
class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);

    /// An empty drawing; with `buildDefaultDrawing` false one that is to be filled by dxfIn.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = true);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    /// Fills the database from a DXF file, ASCII or binary. eFileNotFound, eFileAccessErr or eBadDxfFile,
    /// with file, line and problem in lastErrorText; the database is then as it was. `strict` makes the first
    /// warning an error.
    Acad::ErrorStatus dxfIn(const ACHAR* path, bool strict = false);
    /// The same from bytes in memory; `name` is for messages.
    Acad::ErrorStatus dxfInBytes(std::string bytes, const ACHAR* name);
    /// Saves as DXF in the form it was read in (or the given one), replacing the file as a whole.
    /// On failure the old file is untouched and lastErrorText has the reason: eFileAccessErr when the file is
    /// the one that the drawing was opened from (or last saved to) and another program has changed or removed
    /// it since, see zuhost/drawing_files.h; eFilerError for all others.
    Acad::ErrorStatus dxfOut(const ACHAR* path);
    Acad::ErrorStatus dxfOut(const ACHAR* path, bool binary);
    /// What dxfOut would write.
    [[nodiscard]] std::string dxfOutBytes(bool binary);
    [[nodiscard]] bool isBinary() const;
    /// "FILE:LINE: PROBLEM" of the last failure.
    [[nodiscard]] const std::wstring& lastErrorText() const;
    /// "FILE:LINE: warning: PROBLEM" of each fault that did not keep the drawing from opening, limited in
    /// number.
    [[nodiscard]] std::vector<std::wstring> warnings() const;
    /// The number of $ACADVER: 1009 for R12 ... 1032 for R2018.
    [[nodiscard]] int originalFileVersion() const;

    /// eUnknownHandle when there is no object with the handle. `createIfNotFound` is not supported.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                      const AcDbHandle& handle) const;
    [[nodiscard]] std::size_t approxNumObjects() const;

    [[nodiscard]] AcDbObjectId blockTableId() const;
    [[nodiscard]] AcDbObjectId layerTableId() const;
    [[nodiscard]] AcDbObjectId linetypeTableId() const;
    [[nodiscard]] AcDbObjectId textStyleTableId() const;
    [[nodiscard]] AcDbObjectId regAppTableId() const;
    [[nodiscard]] AcDbObjectId namedObjectsDictionaryId() const;
    /// Null when the drawing has none (before R13).
    [[nodiscard]] AcDbObjectId groupDictionaryId() const;

    // Each opens the object; the caller closes it.
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead) {
        return getSymbolTable(table, mode);
    }
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                AcDb::OpenMode mode = AcDb::kForRead);
    /// Made when the drawing lacks it (with kForWrite only).
    Acad::ErrorStatus getGroupDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);

    /// Puts a new object that no table, block or dictionary owns into the drawing; eNoDatabase before there
    /// is one.
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);

    void addReactor(AcDbDatabaseReactor* reactor);
    void removeReactor(AcDbDatabaseReactor* reactor);

    // ---- undo
    /// Begins a step: what changes from here to the next one is undone at once. Within a group that the user
    /// opened (UNDO BEGIN) it begins none.
    void startUndoRecord();
    void disableUndoRecording(bool disable);
    [[nodiscard]] bool undoRecording() const;
    /// Takes the last step back, or does it again; eUndoOperationNotAvailable when there is none.
    Acad::ErrorStatus undo();
    Acad::ErrorStatus redo();

    /// Inner state, for the host's own classes.
    [[nodiscard]] zuhost::DatabaseCore& core() const { return *core_; }

private:
    Acad::ErrorStatus take(std::variant<std::unique_ptr<zuhost::Document>, zuhost::DocumentError> opened,
                           bool strict);

    std::unique_ptr<zuhost::DatabaseCore> core_;
    std::wstring lastError_;
};
