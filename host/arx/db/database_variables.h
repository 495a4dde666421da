#pragma once

#include "dbmain.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

/// Variables of a drawing's header by their names with "$"; the code is that of the value's record.
namespace zuhost {

struct DatabaseCore;
class TagList;
struct TagRange;

/// Returns the records of a variable's value; an empty range at the end of the header when it is missing.
[[nodiscard]] TagRange variableValue(const TagList& header, std::string_view name);
/// Returns whether a number is one that the variable may have: scales and sizes are finite and positive,
/// units and precisions not negative.
[[nodiscard]] bool isInRange(std::string_view name, double value);
/// Sets a variable by a function that is called with the header and the range of the variable's value, and
/// notifies the database's reactors. eNoDatabase without a drawing.
Acad::ErrorStatus changeVariable(DatabaseCore& core, std::string_view name,
                                 const std::function<void(TagList&, TagRange)>& change);

[[nodiscard]] double realVariable(const DatabaseCore& core, std::string_view name, int code, double missing);
[[nodiscard]] std::int64_t integerVariable(const DatabaseCore& core, std::string_view name, int code,
                                           std::int64_t missing);
[[nodiscard]] std::wstring textVariable(const DatabaseCore& core, std::string_view name, int code);
[[nodiscard]] AcGePoint3d pointVariable(const DatabaseCore& core, std::string_view name);

// Each adds the variable when the drawing lacks it and notifies the database's reactors. eInvalidInput for a
// number that is not in the variable's range.
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, double value);
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, std::int64_t value);
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, const std::wstring& text);
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, const AcGePoint2d& point);
Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, const AcGePoint3d& point);

} // namespace zuhost
