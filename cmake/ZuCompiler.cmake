# Language level, warnings and sanitizers shared by every target of the project.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# Results must not depend on the compiler's freedom to fuse multiply and add.
add_compile_options(-ffp-contract=off)

set(ZU_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined")
if(ZU_SANITIZE)
  add_compile_options(-fsanitize=${ZU_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=${ZU_SANITIZE})
endif()

# The fuzzer is guided by the coverage of the libraries, not of its targets alone.
if(ZU_BUILD_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

add_library(zu_warnings INTERFACE)
target_compile_options(zu_warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)

# Built programs find the libraries of this build tree; installed ones beside themselves.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
