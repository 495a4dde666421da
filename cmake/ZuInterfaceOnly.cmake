# Checks that the library, the examples and the modules of tests compile on the headers of the host's interface alone,
# as a module for the real host does: those below zuhost/ are out of reach.

# Forwards each header of the interface. Its own includes of zuhost/ headers, in quotes, are found beside the header.
set(interface ${CMAKE_BINARY_DIR}/interface)
file(GLOB headers CONFIGURE_DEPENDS host/*/include/*.h host/*/*/include/*.h)
# These take the place of others, where windows are left out and where the platform's own headers are used.
list(FILTER headers EXCLUDE REGEX "/(without_windows|on_windows)/")
foreach(header ${headers})
  cmake_path(GET header FILENAME name)
  file(CONFIGURE OUTPUT ${interface}/${name} CONTENT "#include \"${header}\"\n" @ONLY)
  string(APPEND every_header "#include <${name}>\n")
endforeach()
# The headers that the interface includes from another folder: what differs between systems.
foreach(rules zuhost/platform/export.h zuhost/platform/system_rules.h)
  file(CONFIGURE OUTPUT ${interface}/${rules} @ONLY
    CONTENT "#include \"${PROJECT_SOURCE_DIR}/host/platform/posix/include/${rules}\"\n")
endforeach()
file(CONFIGURE OUTPUT every_header.cpp CONTENT "${every_header}" @ONLY)

file(GLOB_RECURSE sources CONFIGURE_DEPENDS src/*.cpp examples/*.cpp)
add_library(interface_only OBJECT ${sources} ${CMAKE_CURRENT_BINARY_DIR}/every_header.cpp
  tests/host/arx/base/modules/module.cpp
  tests/host/mfc/sample_module.cpp)
target_include_directories(interface_only PRIVATE src src/reading/bare include dxf_records/include tests/support ${interface})
target_link_libraries(interface_only PRIVATE zu_warnings)
# Nothing is linked, so no code is generated.
target_compile_options(interface_only PRIVATE -fsyntax-only)
