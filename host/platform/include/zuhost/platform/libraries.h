#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zuhost::platform {

/// Loads a shared library, or counts one more use of a loaded one; null on failure. Paths are UTF-8 with "/".
void* openLibrary(const std::string& path);
/// The last use unloads the library.
void closeLibrary(void* library);
/// Returns null when the library exports no such name.
void* findSymbol(void* library, const char* name);
/// Returns the names under which the system's files hold the module "STEM", in the order in which they are
/// tried.
std::vector<std::string> libraryNames(const std::string& stem);
/// Returns the module's name, "ZuComn", for the name of a file: "libZuComn.so.1.0.0", "ZuComn.dll".
std::string moduleStem(const std::string& file);
/// Returns the file that the code or constant was loaded from; empty if unknown.
std::string fileOfAddress(const void* address);
/// Returns the handle by which the system's own functions know the library from openLibrary, and the library
/// or program that holds the address, the running program for null; null on systems without such handles.
void* handleOfLibrary(void* library);
void* handleOfAddress(const void* address);
/// Returns the file of the running program; empty if unknown.
std::string programFile();

} // namespace zuhost::platform
