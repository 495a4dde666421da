#pragma once

#include <zuhost/platform/export.h>

#include <string>

namespace zuhost {

/// Returns the text of the exception that is being handled, and deletes one of the framework's: for the last
/// handler (`catch (...)`) around code of modules. Never empty.
[[nodiscard]] ZUHOST_API std::wstring deleteEscapedException();

} // namespace zuhost
