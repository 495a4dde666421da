# Builds the library against a stand-in kit, as for an external host: headers that hold the host's interface and nothing
# below zuhost/, and a library of stubs. The examples and the modules of tests compile on the same headers.
set(kit ${CMAKE_BINARY_DIR}/kit)

# Forwards each header of the interface. Its own includes of zuhost/ headers, in quotes, are found beside the header.
file(GLOB headers CONFIGURE_DEPENDS host/*/include/*.h host/*/*/include/*.h)
list(FILTER headers EXCLUDE REGEX "/without_windows/") # takes the place of the windows' header where they are left out
foreach(header ${headers})
  cmake_path(GET header FILENAME name)
  file(CONFIGURE OUTPUT ${kit}/include/${name} CONTENT "#include \"${header}\"\n" @ONLY)
  string(APPEND every_header "#include <${name}>\n")
endforeach()
# The one header that the interface includes from another folder: what differs between systems.
set(rules zuhost/platform/system_rules.h)
file(CONFIGURE OUTPUT ${kit}/include/${rules} @ONLY
  CONTENT "#include \"${PROJECT_SOURCE_DIR}/host/platform/posix/include/${rules}\"\n")
file(CONFIGURE OUTPUT every_header.cpp CONTENT "${every_header}" @ONLY)
file(CONFIGURE OUTPUT stubs.cpp CONTENT "extern \"C\" void acrxGetServiceRegistry() {}\n" @ONLY)

add_library(kit_host SHARED ${CMAKE_CURRENT_BINARY_DIR}/stubs.cpp)
set(ZU_HOST external)
set(ZU_HOST_INCLUDE ${kit}/include)
set(ZU_HOST_LIBRARIES kit_host)
include(ZuExternalHost)

file(GLOB_RECURSE sources CONFIGURE_DEPENDS examples/*.cpp)
add_library(interface_only OBJECT ${sources} ${CMAKE_CURRENT_BINARY_DIR}/every_header.cpp
  tests/host/arx/base/modules/module.cpp
  tests/host/mfc/sample_module.cpp)
target_include_directories(interface_only PRIVATE include tests/support)
target_link_libraries(interface_only PRIVATE zuhost zu_warnings)
# Nothing is linked, so no code is generated.
target_compile_options(interface_only PRIVATE -fsyntax-only)
