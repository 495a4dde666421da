#pragma once

#include <string>

class AcDbBlockReference;
class AcDbEntity;
class AcDbGroup;
class AcDbObject;
class AcDbSymbolTableRecord;

/// Names by value, for code that reads many: the interface returns texts to be freed, or opens other objects.
namespace zuhost {

/// The layer's name, "0" when none is given.
[[nodiscard]] std::wstring layerName(const AcDbEntity& entity);
/// The name of the definition, even if the drawing lacks it.
[[nodiscard]] std::wstring blockName(const AcDbBlockReference& reference);
[[nodiscard]] std::wstring recordName(const AcDbSymbolTableRecord& record);
/// The group's name in its dictionary; empty when it is in none.
[[nodiscard]] std::wstring groupName(const AcDbGroup& group);
/// The type's name in drawings: "INSERT", "DICTIONARY" ...
[[nodiscard]] std::wstring typeName(const AcDbObject& object);

} // namespace zuhost
