#pragma once

#include <dbdict.h>
#include <zuhost/platform/export.h>

#include <string>
#include <unordered_set>
#include <vector>

class AcDbBlockTableRecord;
class AcDbGroup;
class AcDbSymbolTable;

/// What containers and reactor lists hold, as lists, and repairs of what damaged drawings hold.
namespace zuhost {

/// The block's entities in drawing order, without vertices and attributes, which belong to their entities.
[[nodiscard]] ZUHOST_API std::vector<AcDbObjectId> entityIds(const AcDbBlockTableRecord& block,
                                                             bool skipErased = true);
[[nodiscard]] ZUHOST_API std::vector<AcDbObjectId> recordIds(const AcDbSymbolTable& table);

/// The entries in their order, without those of erased and of missing objects.
[[nodiscard]] ZUHOST_API std::vector<DictionaryEntry> entriesOf(const AcDbDictionary& dictionary);
/// Returns the names of entries whose object is not in the drawing.
[[nodiscard]] ZUHOST_API std::vector<std::wstring> danglingNames(const AcDbDictionary& dictionary);

[[nodiscard]] ZUHOST_API bool isMember(const AcDbGroup& group, AcDbObjectId id);
/// Returns the entries that are not members, in order: those of objects that are not in the drawing, and
/// repeated ones.
[[nodiscard]] ZUHOST_API std::vector<AcDbHandle> surplusEntries(const AcDbGroup& group);
ZUHOST_API Acad::ErrorStatus removeSurplusEntries(AcDbGroup& group);

/// Adds the missing persistent reactors in the given order, in one pass.
ZUHOST_API Acad::ErrorStatus addPersistentReactors(AcDbObject& object,
                                                   const std::vector<AcDbObjectId>& reactors);
/// Removes all entries of several persistent reactors in one pass.
ZUHOST_API Acad::ErrorStatus removePersistentReactors(AcDbObject& object,
                                                      const std::unordered_set<AcDbObjectId>& reactors);
/// Returns the entries of persistent reactors that are not in the drawing, and repeated entries.
[[nodiscard]] ZUHOST_API std::vector<AcDbHandle> surplusReactors(const AcDbObject& object);
ZUHOST_API Acad::ErrorStatus removeSurplusReactors(AcDbObject& object);

} // namespace zuhost
