# What `cmake --install` puts in place: both libraries, their headers, the language modules, the program with its
# completions, a CMake package, a pkg-config file and the example. The components are those of the packages.
include(CMakePackageConfigHelpers)

set(ZU_HOST_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/zuhost)
set(ZU_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZuComn)

install(TARGETS zuhost ZuComn EXPORT ZuComnTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${ZU_HOST_INCLUDEDIR})

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME program)
install(TARGETS zu RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(WIN32)
  install(FILES ${ZU_COMPILER_LIBRARIES} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
else()
  install(FILES packaging/completions/zu.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME zu)
  install(FILES packaging/completions/zu.zsh DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions RENAME _zu)
  install(FILES packaging/completions/zu.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endif()
install(DIRECTORY samples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zucomn/samples
  PATTERN "expected" EXCLUDE PATTERN "*.py" EXCLUDE)

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
install(DIRECTORY examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libzucomn-dev/examples)
install(DIRECTORY include/zucomn DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
set(parts platform mfc arx/base arx/db arx/editor arxutil)
if(ZU_WINDOWS)
  list(APPEND parts mfc/windows)
else()
  list(APPEND parts mfc/without_windows)
endif()
if(WIN32)
  list(APPEND parts mfc/on_windows)
  # The platform's own are used; the header for Windows leads to tchar.h in the sources' folders.
  set(left_out REGEX "/mfc/include/(windows|windef|fileapi|shlwapi)\\.h$" EXCLUDE REGEX "/on_windows/include/tchar\\.h$" EXCLUDE)
endif()
foreach(part IN LISTS parts)
  install(DIRECTORY host/${part}/include/ DESTINATION ${ZU_HOST_INCLUDEDIR} ${left_out})
endforeach()

install(EXPORT ZuComnTargets NAMESPACE ZuComn:: DESTINATION ${ZU_CMAKEDIR})
configure_package_config_file(cmake/ZuComnConfig.cmake.in ZuComnConfig.cmake INSTALL_DESTINATION ${ZU_CMAKEDIR})
write_basic_package_version_file(ZuComnConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/ZuComnConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/ZuComnConfigVersion.cmake
  cmake/ZuModule.cmake
  DESTINATION ${ZU_CMAKEDIR})

file(RELATIVE_PATH ZU_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/zucomn.pc.in zucomn.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zucomn.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
