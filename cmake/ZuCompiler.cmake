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

# zu_precompile(TARGET [GROUP name] HEADERS header ...): large headers that many sources of a target include are compiled
# once, for a group of targets with the same options once for all. Sources include what they use all the same: other
# presets build without. A compiler cache would find less with them, so not then either.
function(zu_precompile target)
  cmake_parse_arguments(ARG "" "GROUP" "HEADERS" ${ARGN})
  if(CMAKE_CXX_COMPILER_LAUNCHER)
    return()
  endif()
  # g++ 12 falsely finds faults in its own std::string and std::optional, and keeps them to itself only where their
  # header is read as one of the system's, which a precompiled one is not.
  set(false_alarms -Wno-array-bounds -Wno-maybe-uninitialized -Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread)
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:${false_alarms}>)
  get_property(first GLOBAL PROPERTY zu_precompiled_${ARG_GROUP})
  if(ARG_GROUP AND first)
    target_precompile_headers(${target} REUSE_FROM ${first})
    return()
  endif()
  target_precompile_headers(${target} PRIVATE ${ARG_HEADERS})
  set_property(GLOBAL PROPERTY zu_precompiled_${ARG_GROUP} ${target})
endfunction()

# Results must not depend on the compiler's freedom to fuse multiply and add.
if(MSVC)
  add_compile_options(/utf-8 /permissive- /Zc:__cplusplus /fp:precise)
else()
  add_compile_options(-ffp-contract=off)
endif()

# For code that reads records. Otherwise every change elsewhere moves its functions, and its time by up to 5 %.
if(NOT MSVC)
  set(ZU_ALIGN_FUNCTIONS -falign-functions=64)
endif()

# For fuzzing, fuzzer-no-link instruments the libraries too: their coverage guides the fuzzer.
set(ZU_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined")
if(ZU_SANITIZE)
  add_compile_options(-fsanitize=${ZU_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=${ZU_SANITIZE})
endif()

add_library(zu_warnings INTERFACE)
if(MSVC)
  target_compile_options(zu_warnings INTERFACE /W4)
else()
  target_compile_options(zu_warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
endif()

# wchar_t of 16 bits, as other platforms have it, to show that nothing depends on its size. What the shared C++ and C
# libraries do for wide text is made for 32 bits: here each library and program has the templates and functions itself.
option(ZU_SHORT_WCHAR "Build with a wchar_t of 16 bits, for tests" OFF)
if(ZU_SHORT_WCHAR)
  add_compile_options(-fshort-wchar)
  add_compile_definitions(_GLIBCXX_EXTERN_TEMPLATE=0)
  add_link_options(-Wl,-Bsymbolic-functions)
  add_library(zu_short_wchar OBJECT ${PROJECT_SOURCE_DIR}/tests/support/short_wchar.cpp)
  target_compile_options(zu_short_wchar PRIVATE -fno-builtin)
  target_sources(zu_warnings INTERFACE $<TARGET_OBJECTS:zu_short_wchar>)
endif()

# Built programs find the libraries of this build tree; installed ones beside themselves.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
if(WIN32)
  # The same sources give the same bytes.
  add_link_options(-Wl,--no-insert-timestamp)
  # The system looks for libraries beside the program: those of the project, and of the compiler.
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  set(CMAKE_SHARED_LIBRARY_PREFIX "")
  set(CMAKE_SHARED_MODULE_PREFIX "")
  foreach(name libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name} OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    file(COPY ${file} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
    list(APPEND ZU_COMPILER_LIBRARIES ${file})
  endforeach()
endif()
# Paths from $ORIGIN have the same length in every folder, so that every folder's build has the same bytes.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
