#pragma once

#include <zuhost/platform/export.h>

#include <string>
#include <string_view>
#include <vector>

namespace zuhost::platform {

/// Loads a shared library, or counts one more use of a loaded one; null on failure. Paths are UTF-8 with "/".
ZUHOST_API void* openLibrary(const std::string& path);
/// The last use unloads the library.
ZUHOST_API void closeLibrary(void* library);
/// Returns null when the library exports no such name.
ZUHOST_API void* findSymbol(void* library, const char* name);
/// Returns the names under which the system's files hold the module "STEM", in the order in which they are
/// tried.
ZUHOST_API std::vector<std::string> libraryNames(const std::string& stem);
/// Returns the module's name, "ZuComn", for the name of a file: "libZuComn.so.1.0.0", "ZuComn.dll".
ZUHOST_API std::string moduleStem(const std::string& file);
/// Returns the file that the code or constant was loaded from; empty if unknown.
ZUHOST_API std::string fileOfAddress(const void* address);
/// Returns the handle by which the system's own functions know the library from openLibrary, and the library
/// or program that holds the address, the running program for null; null on systems without such handles.
ZUHOST_API void* handleOfLibrary(void* library);
ZUHOST_API void* handleOfAddress(const void* address);
/// Returns the file of the running program; empty if unknown.
ZUHOST_API std::string programFile();

} // namespace zuhost::platform
