#pragma once

#include "dbmain.h"
#include "drawing/document.h"
#include "undo_log.h"

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace zuhost {

/// Names are compared in this form.
[[nodiscard]] std::wstring foldedName(std::wstring_view name);

/// What a database knows beyond its document: the objects built so far, indexes, reactors, undo.
struct DatabaseCore {
    explicit DatabaseCore(AcDbDatabase& database);
    ~DatabaseCore();
    DatabaseCore(const DatabaseCore&) = delete;
    DatabaseCore& operator=(const DatabaseCore&) = delete;

    AcDbDatabase& self;
    std::unique_ptr<Document> document;
    std::vector<AcDbDatabaseReactor*> reactors;
    UndoLog undo;

    /// Takes over an opened document.
    void reset(std::unique_ptr<Document> opened);

    /// The object of the stub, built from its records when nobody opened it before.
    AcDbObject& object(AcDbStub& stub);
    /// Opens the object in the mode; the rules of acdbOpenAcDbObject.
    Acad::ErrorStatus open(AcDbStub& stub, AcDb::OpenMode mode, AcDbObject*& opened);
    /// The class that objects of the stub are of.
    AcRxClass* classOf(const AcDbStub& stub);

    /// Puts a new object into the container and leaves it open for write. `named` dictionaries and tables
    /// enter it themselves.
    AcDbObjectId adopt(AcDbObject* object, Container& container, AcDbStub* owner);

    // ---- the drawing's own objects; null when it lacks them
    [[nodiscard]] AcDbStub* tableHead(std::string_view table);
    [[nodiscard]] AcDbStub* rootDictionary() const;
    [[nodiscard]] AcDbStub* groupDictionary();
    AcDbStub* makeGroupDictionary();
    [[nodiscard]] AcDbStub* modelSpace();

    /// Block record (in drawings before R13 the BLOCK) to the container of its entities.
    [[nodiscard]] Container* blockContainer(const AcDbStub& record);
    void forgetBlocks() { blocks_.clear(); }

    /// Record of a table by name. Indexes are built on first use and follow appended, renamed and erased
    /// records.
    [[nodiscard]] AcDbStub* findRecord(const AcDbStub& table, std::wstring_view name, bool erasedToo);
    [[nodiscard]] std::vector<AcDbStub*> records(const AcDbStub& table);
    void forgetNames(const AcDbStub* table) { names_.erase(table); }

    /// The database is about to go: tells it, and ends its objects.
    void goodbye();

    // ---- told by objects
    void openedForModify(const AcDbObject& object);
    void appended(const AcDbObject& object);
    void modified(const AcDbObject& object);
    void erased(const AcDbObject& object, bool erasing);

    /// Puts an object back into a state of the undo log.
    void restore(AcDbStub& stub, TagList tags, bool erased, UndoLog::Kind kind, bool undoing);

    // ---- saving
    [[nodiscard]] Document::TagSource savedTags();

private:
    void endObjects();

    using NameIndex = std::unordered_map<std::wstring, std::vector<AcDbStub*>>;

    const NameIndex& names(const AcDbStub& table);
    void collectReferencesToErased();
    [[nodiscard]] std::vector<AcDbStub*> collectGone() const;
    [[nodiscard]] TagList currentTags(const AcDbStub& stub) const;
    void addFiltered(AcDbStub* stub);

    std::vector<std::unique_ptr<AcDbObject>> objects_;
    std::unordered_map<const AcDbStub*, Container*> blocks_;
    std::unordered_map<const AcDbStub*, NameIndex> names_;
    std::map<std::string, AcDbStub*, std::less<>> tables_;
    AcDbStub* groups_ = nullptr;
    AcDbStub* modelSpace_ = nullptr;
    std::unordered_map<const AcDbStub*, TagList>
        filtered_; ///< While saving: records without references to erased objects; none for what goes too.
};

} // namespace zuhost
