# Leaks of other libraries, suppressed under the sanitizers.
set(ZU_KNOWN_LEAKS "print_suppressions=0,suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.supp")

# zu_program(VARIABLE TARGET): the command that scripts run for a program, which may need an emulator.
function(zu_program variable target)
  set(program $<TARGET_FILE:${target}>)
  if(CMAKE_CROSSCOMPILING)
    set(program ${CMAKE_CURRENT_BINARY_DIR}/${target})
    file(GENERATE OUTPUT ${program}
      CONTENT "#!/bin/sh\nexec ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:${target}> \"$@\"\n"
      FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  endif()
  set(${variable} ${program} PARENT_SCOPE)
endfunction()

# zu_test(NAME SOURCES a.cpp ... [POSIX b.cpp ...] LIBS x y [FILES Case.Name ...]): one GoogleTest program, its cases
# registered with CTest. The POSIX sources need what only these systems have: fork(), pipes with names, modes and owners of
# files. The cases in FILES change files thousands of times, which takes an emulator minutes: they run without one only.
function(zu_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;POSIX;LIBS;FILES" ${ARGN})
  if(NOT WIN32)
    list(APPEND ARG_SOURCES ${ARG_POSIX})
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} zu_warnings GTest::gtest GTest::gtest_main)
  # Compiling tests takes longer than running them. With Qt some are -fPIC: all are, to share their precompiled headers.
  target_compile_options(${name} PRIVATE -O0 -fPIC)
  list(LENGTH ARG_SOURCES sources)
  if(sources GREATER 1)
    zu_precompile(${name} GROUP tests
      HEADERS <gtest/gtest.h> <dbents.h> <dbsymtb.h> <algorithm> <fstream> <functional> <map> <random>)
  endif()
  target_compile_definitions(${name} PRIVATE
    ZU_SAMPLES="${PROJECT_SOURCE_DIR}/samples" ZU_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  if(CMAKE_CROSSCOMPILING)
    # A program takes the emulator longer to start than to run.
    list(JOIN ARG_FILES : left_out)
    add_test(NAME ${name} COMMAND ${name} --gtest_filter=-${left_out})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
    return()
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    # Of a list of variables only the first would arrive.
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
      ENVIRONMENT_MODIFICATION "LSAN_OPTIONS=set:${ZU_KNOWN_LEAKS}")
endfunction()
