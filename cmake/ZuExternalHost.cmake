# Builds the library alone, for a host whose headers and libraries come from a kit: ZU_HOST_INCLUDE and ZU_HOST_LIBRARIES.
# Nothing of host/ is compiled or in reach; drawings and tables are read by the interface alone (src/reading/bare).
if(NOT ZU_HOST_INCLUDE OR NOT ZU_HOST_LIBRARIES)
  message(FATAL_ERROR "ZU_HOST=external needs the kit: give the folders of its headers (and of the framework's, if your \
compiler does not find them itself) in ZU_HOST_INCLUDE and its libraries in ZU_HOST_LIBRARIES, as lists.")
endif()
foreach(folder IN LISTS ZU_HOST_INCLUDE)
  if(NOT IS_DIRECTORY ${folder})
    message(FATAL_ERROR "ZU_HOST_INCLUDE: ${folder} is not a folder. Give the kit's folders of headers.")
  endif()
endforeach()

add_library(zuhost INTERFACE)
target_include_directories(zuhost SYSTEM INTERFACE ${ZU_HOST_INCLUDE})
target_link_libraries(zuhost INTERFACE ${ZU_HOST_LIBRARIES})
set(ZU_WINDOWS ON)
add_subdirectory(dxf_records)
add_subdirectory(src)

include(GNUInstallDirs)
install(TARGETS ZuComn
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY include/zucomn DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
