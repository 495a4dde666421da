# What `cmake --install` puts in place: both libraries, their headers, the language modules, the program, a CMake
# package and a pkg-config file.
include(CMakePackageConfigHelpers)

set(ZU_HOST_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/zuhost)
set(ZU_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZuComn)

install(TARGETS zuhost ZuComn EXPORT ZuComnTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${ZU_HOST_INCLUDEDIR})
install(TARGETS zu RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

install(DIRECTORY include/zucomn DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
foreach(part mfc mfc/windows arx/base arx/db arx/editor arxutil)
  install(DIRECTORY host/${part}/include/ DESTINATION ${ZU_HOST_INCLUDEDIR})
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
