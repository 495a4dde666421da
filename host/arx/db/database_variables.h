#pragma once

#include "dbmain.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Variables of a drawing's header by their names with "$"; the code is that of the value's record.
namespace zuhost {

struct DatabaseCore;

[[nodiscard]] double realVariable(const DatabaseCore& core, std::string_view name, int code, double missing);
[[nodiscard]] std::int64_t integerVariable(const DatabaseCore& core, std::string_view name, int code,
                                           std::int64_t missing);
[[nodiscard]] std::wstring textVariable(const DatabaseCore& core, std::string_view name, int code);
[[nodiscard]] AcGePoint3d pointVariable(const DatabaseCore& core, std::string_view name);

// Each adds the variable when the drawing lacks it and notifies the database's reactors.
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, double value);
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, std::int64_t value);
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, const std::wstring& text);
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, const AcGePoint3d& point);

} // namespace zuhost
