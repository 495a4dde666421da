# zu_module(TARGET [NAME name] [STRINGS file.strings])
#
# Makes a module of the host from a shared library (or from the objects of one): adds the source file by which it tells
# the host of itself when it is loaded, with its DllMain and its built-in texts. The file's static object is the last to be
# constructed, so that the module's own are there before its attach runs: the file is the target's last source, or, for
# Windows, where static objects are constructed from the last source to the first, its first one.
#
# The module defines   extern "C" int DllMain(HINSTANCE, DWORD reason, void*)   (hidden, one in each module)
# and, when the host is to start it,   extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode, void*)   (exported).
function(zu_module target)
  cmake_parse_arguments(ARG "" "NAME;STRINGS" "" ${ARGN})
  set(name ${target})
  if(ARG_NAME)
    set(name ${ARG_NAME})
  endif()
  set(ZU_MODULE_NAME ${name})
  set(ZU_MODULE_STRINGS "nullptr")
  if(ARG_STRINGS)
    get_filename_component(strings_file ${ARG_STRINGS} ABSOLUTE)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${strings_file})
    file(READ ${strings_file} strings_text)
    # Written as one array of bytes: string literals have a length limit.
    file(READ ${strings_file} strings_hex HEX)
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "\\\\x\\1" strings_escaped "${strings_hex}")
    string(REGEX REPLACE "((\\\\x[0-9a-f][0-9a-f])(\\\\x[0-9a-f][0-9a-f])?(\\\\x[0-9a-f][0-9a-f])?(\\\\x[0-9a-f][0-9a-f])?(\\\\x[0-9a-f][0-9a-f])?(\\\\x[0-9a-f][0-9a-f])?(\\\\x[0-9a-f][0-9a-f])?(\\\\x[0-9a-f][0-9a-f])?)"
      "    \"\\1\"\n" strings_lines "${strings_escaped}")
    set(ZU_MODULE_STRINGS "\n${strings_lines}")
  endif()
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}_module.cpp)
  file(CONFIGURE OUTPUT ${source} @ONLY CONTENT [=[
// Written by zu_module().
#include <windows.h>
#include <zuhost/module.h>

extern "C" int DllMain(HINSTANCE instance, DWORD reason, void* reserved);

namespace {

const char* const kStrings = @ZU_MODULE_STRINGS@;

const zuhost::ModuleRegistration registration({&registration, "@ZU_MODULE_NAME@", &DllMain, kStrings});

} // namespace
]=])
  if(WIN32)
    get_target_property(sources ${target} SOURCES)
    set_property(TARGET ${target} PROPERTY SOURCES ${source} ${sources})
    # The host runs the module's DllMain, with its own handle; the system is to find none.
    target_compile_definitions(${target} PRIVATE DllMain=zuModuleMain)
  else()
    target_sources(${target} PRIVATE ${source})
  endif()
endfunction()
