#pragma once

// Part of dbmain.h: objects of a drawing.

#include "AcString.h"
#include "acutmem.h"
#include "dbid.h"
#include "dbmain_reactors.h"
#include "gept3dar.h"

#include <zuhost/platform/export.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class AcDbIdMapping;

namespace zuhost {
class ReactorIndex;
class TagList;
class TagRef;
class TagView;
struct DatabaseCore;
struct ObjectAccess;
struct TagRange;

/// Deletes an object that another one owned while both are in no database. One that a smart pointer holds is
/// left to that pointer.
struct ZUHOST_API PendingDeleter {
    void operator()(AcDbObject* object) const;
};
template <typename T>
using PendingPtr = std::unique_ptr<T, PendingDeleter>;
} // namespace zuhost

/// An object of a drawing. Its setters return eInvalidInput for numbers that are not finite.
///
/// Objects of a database are opened with acdbOpenObject and closed again; members that change the object need
/// it to be open for write and otherwise return eNotOpenForWrite and change nothing. An object that is in no
/// database yet is owned by the code that created it and may always be changed.
class ZUHOST_API AcDbObject : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    ~AcDbObject() override;

    [[nodiscard]] AcDbObjectId objectId() const { return AcDbObjectId(stub_); }
    [[nodiscard]] AcDbObjectId ownerId() const;
    [[nodiscard]] AcDbDatabase* database() const;
    [[nodiscard]] AcDbHandle getAcDbHandle() const { return objectId().handle(); }
    void getAcDbHandle(AcDbHandle& handle) const { handle = getAcDbHandle(); }

    // ---- open state
    Acad::ErrorStatus close();
    /// eOnLockedLayer for an entity whose layer is locked.
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    [[nodiscard]] bool isReadEnabled() const { return readers_ > 0 || writing_ || stub_ == nullptr; }
    [[nodiscard]] bool isWriteEnabled() const { return writing_ || stub_ == nullptr; }
    [[nodiscard]] bool isNewObject() const;
    [[nodiscard]] bool isModified() const { return modified_; }

    // ---- erasing
    /// eOnLockedLayer for an entity whose layer is locked, unless it is new or was opened in spite of it.
    Acad::ErrorStatus erase(bool erasing = true);
    [[nodiscard]] bool isErased() const { return objectId().isErased(); }

    // ---- reactors
    void addReactor(AcDbObjectReactor* reactor) const;
    void removeReactor(AcDbObjectReactor* reactor) const;
    Acad::ErrorStatus addPersistentReactor(AcDbObjectId reactor);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId reactor);
    [[nodiscard]] bool hasPersistentReactor(AcDbObjectId reactor) const;
    /// Returns the persistent reactors in stored order, then the transient ones; acdbIsPersistentReactor
    /// tells them apart. Null for an object that is in no database. Valid until the object changes.
    [[nodiscard]] const AcDbVoidPtrArray* reactors() const;

    // ---- extended data
    /// Returns the values of one application, or of all (null), as a chain that the caller frees with
    /// acutRelRb; null when there are none.
    [[nodiscard]] resbuf* xData(const ACHAR* application = nullptr) const;
    /// Replaces the values of each application named in the chain (1001 items); an application without values
    /// loses its data. eRegappIdNotFound for one that is not registered, eXdataSizeExceeded when the object's
    /// data would exceed 16 KB; the object is then unchanged.
    Acad::ErrorStatus setXData(const resbuf* chain);

    /// Null when there is none, or it is erased.
    [[nodiscard]] AcDbObjectId extensionDictionary() const;
    /// Adds an empty extension dictionary. eAlreadyInDb when there is one, eNotInDatabase for an object that
    /// is in no database yet.
    Acad::ErrorStatus createExtensionDictionary();
    /// Erases the extension dictionary; eContainerNotEmpty when it has entries, eKeyNotFound when there is
    /// none.
    Acad::ErrorStatus releaseExtensionDictionary();

    // ---- copies
    /// Returns a copy with the same records and extended data, which is in no database; the caller owns it.
    /// The copy names no persistent reactors and no extension dictionary.
    [[nodiscard]] AcRxObject* clone() const override;
    /// Copies the object, its vertices, attributes and extension dictionary into the same database and adds
    /// them to the owner, a block or a dictionary; the copy stays open for write. `copy` is null, with eOk,
    /// for an object that the mapping has already. AcDbDatabase::deepCloneObjects translates the references
    /// between the objects of one operation as well.
    Acad::ErrorStatus deepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& mapping,
                                bool isPrimary = true) const;

protected:
    AcDbObject();

    // ---- records
    /// Returns the records where they are: in the drawing's bytes until the object is first changed, then in
    /// a list of its own. Valid until the object changes.
    [[nodiscard]] zuhost::TagView tags() const;
    /// Returns the object's own list of records; null while they are those in the drawing's bytes.
    [[nodiscard]] const zuhost::TagList* ownTags() const;
    /// Returns a number that grows with each change of the records; caches compare it.
    [[nodiscard]] std::uint32_t tagVersion() const { return tagVersion_; }

    /// Returns eOk when the object may be changed now. Before the first change records its state for undo and
    /// gives it a list of its own: places in the drawing's bytes do not apply to it.
    Acad::ErrorStatus assertWriteEnabled();
    /// Returns the records to be changed. Call assertWriteEnabled first.
    zuhost::TagList& changingTags();
    /// Defers a change: `applyDeferred` applies it to the records when they are next read.
    void deferChange();
    virtual void applyDeferred(zuhost::TagList& /*tags*/) const {}
    /// Returns the records without the deferred changes.
    [[nodiscard]] zuhost::TagView storedTags() const;

    [[nodiscard]] zuhost::DatabaseCore* core() const;
    [[nodiscard]] std::wstring decoded(std::string_view value) const;
    [[nodiscard]] std::string encoded(std::wstring_view text) const;
    /// Returns the records of the class with the marker; all before the extended data for an empty one.
    [[nodiscard]] zuhost::TagView section(std::string_view marker) const;

    /// Return typed records of the class's own section, or the default when there is none.
    [[nodiscard]] double realTag(std::string_view marker, int code, double missing) const;
    [[nodiscard]] std::int64_t integerTag(std::string_view marker, int code, std::int64_t missing) const;
    [[nodiscard]] std::wstring textTag(std::string_view marker, int code) const;
    [[nodiscard]] AcGePoint3d pointTag(std::string_view marker, int code,
                                       const AcGePoint3d& missing = {}) const;
    Acad::ErrorStatus setRealTag(std::string_view marker, int code, double value);
    Acad::ErrorStatus setIntegerTag(std::string_view marker, int code, std::int64_t value);
    Acad::ErrorStatus setTextTag(std::string_view marker, int code, std::wstring_view text);
    Acad::ErrorStatus setPointTag(std::string_view marker, int code, const AcGePoint3d& point);

    /// Returns the records that a new object begins with. Called when one that is in no database is first
    /// read or changed: objects of a drawing never need them.
    [[nodiscard]] virtual zuhost::TagList newRecords() const;
    /// Returns a list of the type and the markers of the classes, in order.
    [[nodiscard]] static zuhost::TagList recordsOf(std::string_view type,
                                                   std::initializer_list<std::string_view> markers);

    /// Called after the object itself was erased or unerased.
    virtual void subErased(bool /*erasing*/) {}
    /// Called when the object has become one of a database and is open for write: adds what it held until
    /// then.
    virtual void subAppended() {}

private:
    friend struct zuhost::DatabaseCore;
    friend struct zuhost::ObjectAccess;
    friend struct zuhost::PendingDeleter;
    friend class AcDbDatabase;
    template <typename T>
    friend class AcDbObjectPointer;

    void notifyClosed();
    /// Calls `notify` with each transient reactor, except those that are added or removed meanwhile.
    template <typename Notify>
    void notifyReactors(Notify notify) const {
        if (!reactors_)
            return;
        const auto all = reactors_->transient;
        for (AcDbObjectReactor* reactor : all)
            if (isTransientReactor(reactor))
                notify(*reactor);
    }
    [[nodiscard]] bool isTransientReactor(const AcDbObjectReactor* reactor) const;
    /// Flushes deferred changes; creates the records of an object that is in no database.
    void completeTags() const;
    /// Replaces the own list of records; without one the records are again those in the drawing's bytes.
    void replaceTags(std::optional<zuhost::TagList> tags);
    /// Records the state for undo and notifies reactors before the first change.
    Acad::ErrorStatus startChange();
    void flushChanges() const;
    /// Builds the index of the persistent reactors of an object that has many.
    void indexReactors() const;
    /// Null when it was not built since the records changed.
    [[nodiscard]] zuhost::ReactorIndex* currentReactorIndex() const;
    template <typename Change>
    Acad::ErrorStatus changeReactors(Change change);

    /// What few objects have.
    struct Reactors {
        std::vector<AcDbObjectReactor*> transient;
        AcDbVoidPtrArray list; ///< Returned by `reactors`.
        std::unique_ptr<zuhost::ReactorIndex> index;
    };
    Reactors& ownReactors() const;

    AcDbStub* stub_ = nullptr;
    mutable std::unique_ptr<zuhost::TagList> own_; ///< Null until the object is first changed.
    mutable std::unique_ptr<Reactors> reactors_;
    std::uint32_t tagVersion_ = 0;
    std::uint32_t recordedStep_ = 0; ///< The undo step in which the object's state was recorded last.
    std::uint16_t readers_ = 0;
    mutable bool hasDeferredChanges_ : 1 = false;
    bool writing_ : 1 = false;
    bool lockIsIgnored_ : 1 = false; ///< Open for write whatever the entity's layer.
    bool isPending_ : 1 = false;     ///< In no database, and owned by an object that is in none either.
    bool isHeld_ : 1 = false;        ///< In no database, and held by a smart pointer.
    bool isInBlock_ : 1 = false;     ///< Its database owns it and frees its memory with that of others.
    bool modified_ = false;          ///< Changed since the object was opened.
    bool appended_ = false;          ///< Added to the database since the object was opened.
    bool eraseToggled_ = false;      ///< Erased or unerased since the object was opened.
};
