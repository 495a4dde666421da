# Leaks of other libraries, suppressed under the sanitizers.
set(ZU_KNOWN_LEAKS "print_suppressions=0,suppressions=${PROJECT_SOURCE_DIR}/tests/support/leaks.supp")

# zu_test(NAME SOURCES a.cpp b.cpp LIBS x y): one GoogleTest program, its cases registered with CTest.
function(zu_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} zu_warnings GTest::gtest GTest::gtest_main)
  list(LENGTH ARG_SOURCES sources)
  if(sources GREATER 2)
    zu_precompile(${name} <gtest/gtest.h> <algorithm> <memory> <string> <vector>)
  endif()
  target_compile_definitions(${name} PRIVATE
    ZU_SAMPLES="${PROJECT_SOURCE_DIR}/samples" ZU_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    # Of a list of variables only the first would arrive.
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
      ENVIRONMENT_MODIFICATION "LSAN_OPTIONS=set:${ZU_KNOWN_LEAKS}")
endfunction()
