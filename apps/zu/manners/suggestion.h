#pragma once

#include <string>
#include <vector>

namespace zu::app {

/// "; did you mean NAME?" with the one of the names that was probably meant, or an empty text when none is
/// like what was given.
[[nodiscard]] std::string suggestion(const std::string& given, const std::vector<std::string>& names);

} // namespace zu::app
