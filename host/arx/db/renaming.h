#pragma once

#include <string>
#include <string_view>

namespace zuhost {

struct DatabaseCore;

/// Returns whether records of symbol tables can have the name. Only names of blocks can begin with "*".
[[nodiscard]] bool isRecordName(std::wstring_view name, bool isBlock);

/// Replaces the name of a record of the table ("LAYER", "BLOCK_RECORD" ...) in the variables of the header
/// that name it. Undo does not restore variables.
void renameInVariables(DatabaseCore& core, std::string_view table, const std::wstring& from,
                       const std::wstring& to);

/// The same, and in all objects that name the record, whether they are open or not.
void renameReferences(DatabaseCore& core, std::string_view table, const std::wstring& from,
                      const std::wstring& to);

} // namespace zuhost
