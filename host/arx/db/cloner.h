#pragma once

#include "database_core.h"
#include "dbidmap.h"

#include <memory>
#include <string_view>

namespace zuhost {

/// Returns a copy that is in no database, without handle, owner, reactors, extension dictionary, vertices and
/// attributes; null for a class that can't be created.
[[nodiscard]] std::unique_ptr<AcDbObject> copyOf(const AcDbObject& object);

/// Copies objects with what they own, within a database or from one to another. First all objects are copied,
/// then `translate` replaces the handles in the copies. What blocks and dictionaries hold waits its turn in a
/// list: they may be nested as deep as a drawing likes.
class Cloner {
public:
    Cloner(DatabaseCore& from, DatabaseCore& to, AcDbIdMapping& mapping, AcDb::DuplicateRecordCloning mode);

    /// Copies the objects and translates; stops at the first one that can't be copied.
    Acad::ErrorStatus cloneAll(const AcDbObjectIdArray& ids, AcDbObjectId owner);
    /// Copies one object; a null owner stands for its own owner.
    Acad::ErrorStatus clone(AcDbObjectId id, AcDbObjectId owner, bool isPrimary);
    /// Replaces the handles of copied objects in the copies made so far.
    void translate();

private:
    [[nodiscard]] bool isWithin() const { return &from_ == &to_; }
    Acad::ErrorStatus cloneAlone(AcDbObjectId id, AcDbObjectId owner, bool isPrimary);
    Acad::ErrorStatus cloneContents(AcDbStub& source, AcDbStub& copy);
    Acad::ErrorStatus cloneEntity(AcDbObject& source, AcDbStub& block, bool isPrimary);
    Acad::ErrorStatus cloneRecord(AcDbObject& source, AcDbStub& table, bool isPrimary);
    Acad::ErrorStatus cloneEntry(AcDbObject& source, AcDbStub& dictionary, bool isPrimary);
    Acad::ErrorStatus cloneParts(AcDbStub& source, AcDbStub& copy);
    Acad::ErrorStatus cloneBlockContents(AcDbStub& source, AcDbStub& copy);
    Acad::ErrorStatus cloneExtension(AcDbObject& source, AcDbObject& copy);
    /// Copies an object that another object owns; the entries that it owns itself follow.
    AcDbStub* cloneOwned(AcDbObject& source, AcDbStub* owner, bool isPrimary);
    Acad::ErrorStatus cloneNamedRecords(const AcDbObject& object);
    Acad::ErrorStatus cloneNamed(std::string_view table, const std::wstring& name);
    void overwrite(AcDbStub& record, const AcDbObject& source);
    void note(AcDbStub& source, AcDbStub& copy, bool isCloned, bool isPrimary);
    [[nodiscard]] AcDbStub* copyOfStub(const AcDbStub* source) const;
    void translate(AcDbStub& copy);
    [[nodiscard]] std::uint64_t translated(std::uint64_t handle) const;
    void attachMembers(AcDbStub& group);

    DatabaseCore& from_;
    DatabaseCore& to_;
    AcDbIdMapping& mapping_;
    AcDb::DuplicateRecordCloning mode_;
    std::vector<AcDbStub*> copies_; ///< To be translated.
    std::vector<std::pair<AcDbStub*, AcDbStub*>>
        pending_; ///< Blocks and dictionaries, their copies still empty.
};

} // namespace zuhost
