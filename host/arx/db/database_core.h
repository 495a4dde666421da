#pragma once

#include "ads_names.h"
#include "dbmain.h"
#include "drawing/document.h"
#include "object_memory.h"
#include "part_index.h"
#include "undo_log.h"
#include "zuhost/folded_name.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class AcDbSymbolTableRecord;

namespace zuhost {

struct ObjectKind;

/// Returns the internal state of a database.
[[nodiscard]] DatabaseCore& coreOf(const AcDbDatabase& database);

/// The state of a database beside its document: the objects built so far, indexes, reactors, undo log.
struct DatabaseCore {
    explicit DatabaseCore(AcDbDatabase& database);
    ~DatabaseCore();
    DatabaseCore(const DatabaseCore&) = delete;
    DatabaseCore& operator=(const DatabaseCore&) = delete;

    AcDbDatabase& self;
    DatabaseNumber number{self};
    std::unique_ptr<Document> document;
    std::vector<AcDbDatabaseReactor*> reactors;
    UndoLog undo;
    PartIndex parts;
    /// Number of objects at the start of model space that are known to be erased, for the arrangement of the
    /// parts in which they were counted. Walks begin after them.
    struct ErasedStart {
        std::size_t count = 0;
        std::uint64_t arrangement = 0;
    };
    ErasedStart erasedStart;

    /// Replaces the document. Destroys the objects of the previous one and clears the undo log.
    void reset(std::unique_ptr<Document> opened);

    /// Returns the stub's object; builds it from its records on first use.
    AcDbObject& object(AcDbStub& stub);
    /// Opens the stub's object, even if erased, by the rules of acdbOpenAcDbObject.
    Acad::ErrorStatus open(AcDbStub& stub, AcDb::OpenMode mode, AcDbObject*& opened, bool ignoreLock = false);
    /// Returns true for an entity whose layer is locked.
    [[nodiscard]] bool isOnLockedLayer(const AcDbObject& object);
    /// Called when a record or entry of the owner was closed after a change: drops what is known of layers.
    void recordClosed(const AcDbStub& owner);
    void invalidateLocks() { lockedLayers_.reset(); }
    /// Returns the class of the stub's object without building one of the file.
    AcRxClass* classOf(AcDbStub& stub);
    /// Returns the records of the stub's object, without building one of the file.
    TagView tags(AcDbStub& stub);

    /// Replaces the records of an object that is open for write, as one change.
    static Acad::ErrorStatus replaceTags(AcDbObject& object, TagList tags);
    /// Sets the records of a new object.
    static void initialise(AcDbObject& object, TagList tags);

    /// Adds a new object to the container, takes ownership of it and leaves it open for write. The caller
    /// adds its entry to a dictionary or table. `prepare` is called before the object adds what it held until
    /// then.
    AcDbObjectId adopt(AcDbObject* object, Container& container, AcDbStub* owner,
                       const std::function<void(AcDbStub&)>& prepare = nullptr);

    /// Appends a new entity to a block and leaves it open for write.
    AcDbObjectId appendEntity(AcDbStub& block, AcDbEntity& entity);
    /// Adds a vertex, an attribute or the end of a sequence to its entity, as `adopt` does. A part without a
    /// layer has that of the entity.
    AcDbObjectId adoptPart(AcDbEntity& part, AcDbStub& owner);
    /// Returns the record that ends the vertices or attributes of an entity; null when there is none.
    [[nodiscard]] AcDbStub* sequenceEnd(const AcDbStub& entity);
    /// Adds a new record to a table that has none of its name, and leaves it open for write.
    void addRecord(AcDbStub& table, AcDbSymbolTableRecord& record);
    /// Returns the container that new entities of the block are added to.
    [[nodiscard]] Container& entitiesOf(const AcDbStub& block);

    // ---- objects with a fixed role in the drawing; null when it lacks them
    [[nodiscard]] AcDbStub* tableHead(std::string_view table);
    [[nodiscard]] AcDbStub* rootDictionary() const;
    [[nodiscard]] AcDbStub* groupDictionary();
    AcDbStub* makeGroupDictionary();
    [[nodiscard]] AcDbStub* modelSpace();

    /// Returns the container of a block's entities, by the block record or, in drawings before R13, the
    /// BLOCK; null when there is none.
    [[nodiscard]] Container* blockContainer(const AcDbStub& record);
    /// Adds a new block to the index of blocks, once there is one.
    void indexBlock(Container& block);

    /// Returns the table's record with the name, an erased one only with `erasedToo` and if no other has the
    /// name; null when there is none. The index of names is built on first use; new records
    /// join it, and invalidateNames discards it after a change of names.
    [[nodiscard]] AcDbStub* findRecord(const AcDbStub& table, std::wstring_view name, bool erasedToo);
    [[nodiscard]] std::vector<AcDbStub*> records(const AcDbStub& table);
    void indexName(const AcDbStub& table, AcDbStub& record);
    void invalidateNames(const AcDbStub* table) { names_.erase(table); }

    /// Notifies the reactors of the database's end and destroys its objects.
    void goodbye();

    // ---- called by objects: notify the database's reactors
    void openedForModify(const AcDbObject& object);
    void appended(const AcDbObject& object);
    void modified(const AcDbObject& object);
    void erased(const AcDbObject& object, bool erasing);
    /// Called before and after a variable of the header changes.
    void headerVariable(const ACHAR* name, bool changed);

    /// Restores an object to a state of the undo log and notifies the reactors.
    void restore(AcDbStub& stub, std::optional<TagList> tags, bool erased, UndoLog::Kind kind, bool undoing);

    // ---- saving
    [[nodiscard]] Document::TagSource savedTags();

private:
    /// Destroys an object of the database; frees it unless `memory_` will.
    struct ObjectDeleter {
        void operator()(AcDbObject* object) const;
    };
    using OwnedObject = std::unique_ptr<AcDbObject, ObjectDeleter>;

    [[nodiscard]] OwnedObject build(const AcDbStub& stub);
    void destroyObjects();
    void registerApplications(const TagList& tags);

    using NameIndex = std::unordered_map<std::wstring, std::vector<AcDbStub*>>;

    const NameIndex& names(const AcDbStub& table);
    void collectReferencesToErased();
    [[nodiscard]] std::vector<AcDbStub*> collectErased();
    void addFiltered(AcDbStub* stub);

    ObjectMemory memory_; ///< Of the objects built.
    std::deque<OwnedObject> objects_;
    /// By the document's number of a type; null where records decide, and until asked for.
    std::vector<const ObjectKind*> typeKinds_;
    std::optional<std::unordered_map<const AcDbStub*, Container*>> blocks_; ///< Empty until asked for.
    std::unordered_map<const AcDbStub*, NameIndex> names_;
    std::map<std::string, AcDbStub*, std::less<>> tables_;
    std::optional<std::unordered_set<std::wstring>> lockedLayers_; ///< Folded names; empty until asked for.
    AcDbStub* groups_ = nullptr;
    AcDbStub* modelSpace_ = nullptr;
    /// While saving: records without references to erased objects; empty for objects dropped with their
    /// owner.
    std::unordered_map<const AcDbStub*, TagList> filtered_;
};

} // namespace zuhost
