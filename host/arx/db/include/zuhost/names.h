#pragma once

#include <zuhost/platform/export.h>

#include <string>

class AcDbBlockReference;
class AcDbEntity;
class AcDbGroup;
class AcDbObject;
class AcDbSymbolTableRecord;

/// Names by value, for code that reads many: the interface returns texts to be freed, or opens other objects.
namespace zuhost {

/// The layer's name, "0" when none is given.
[[nodiscard]] ZUHOST_API std::wstring layerName(const AcDbEntity& entity);
/// The name of the definition, even if the drawing lacks it.
[[nodiscard]] ZUHOST_API std::wstring blockName(const AcDbBlockReference& reference);
[[nodiscard]] ZUHOST_API std::wstring recordName(const AcDbSymbolTableRecord& record);
/// The group's name in its dictionary; empty when it is in none.
[[nodiscard]] ZUHOST_API std::wstring groupName(const AcDbGroup& group);
/// The type's name in drawings: "INSERT", "DICTIONARY" ...
[[nodiscard]] ZUHOST_API std::wstring typeName(const AcDbObject& object);

} // namespace zuhost
