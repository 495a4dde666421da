# Debian packages and a relocatable tar archive, and what they hold beside `cmake --install`: manual pages, changelog,
# copyright. Included with ZU_PACKAGE only; scripts/package does it all.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(maintainer "The ZuComn developers <zucomn@example.org>")
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(made ${PROJECT_BINARY_DIR}/packaging)

# The same commit gives the same bytes.
file(STRINGS CHANGELOG.md newest REGEX "^## \\[${PROJECT_VERSION}\\] - " LIMIT_COUNT 1)
string(REGEX REPLACE ".* - " "" release_date "${newest}")

add_custom_command(OUTPUT ${made}/man/zu.1
  COMMAND ${Python3_EXECUTABLE} ${packaging}/manual.py $<TARGET_FILE:zu> ${made}/man ${PROJECT_VERSION} ${release_date}
  COMMAND sh -c "gzip -9nf ${made}/man/*.1 && touch ${made}/man/zu.1"
  DEPENDS zu ${packaging}/manual.py VERBATIM)
add_custom_target(manual ALL DEPENDS ${made}/man/zu.1)
install(DIRECTORY ${made}/man/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program FILES_MATCHING PATTERN "*.1.gz")

set(package_of_library libzucomn${PROJECT_VERSION_MAJOR})
set(package_of_development libzucomn-dev)
set(package_of_program zucomn)
foreach(component library development program)
  set(package ${package_of_${component}})
  add_custom_command(OUTPUT ${made}/${package}/changelog.gz
    COMMAND sh -c "mkdir -p ${made}/${package} && ${Python3_EXECUTABLE} ${packaging}/changelog.py \
${PROJECT_SOURCE_DIR}/CHANGELOG.md zucomn ${PROJECT_VERSION} '${maintainer}' >${made}/${package}/changelog && \
gzip -9nf ${made}/${package}/changelog"
    DEPENDS CHANGELOG.md ${packaging}/changelog.py VERBATIM)
  add_custom_target(changelog_${component} ALL DEPENDS ${made}/${package}/changelog.gz)
  install(FILES ${made}/${package}/changelog.gz packaging/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
  set(CPACK_DEBIAN_${upper}_FILE_NAME DEB-DEFAULT)
endforeach()
install(FILES packaging/libzucomn1.lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ${package_of_library} COMPONENT library)

set(CPACK_PACKAGE_NAME zucomn)
set(CPACK_PACKAGE_VENDOR "The ZuComn developers")
set(CPACK_PACKAGE_CONTACT "${maintainer}")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_GENERATOR DEB TXZ)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development program)
set(CPACK_PROJECT_CONFIG_FILE ${packaging}/generators.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${packaging}/before_packing.cmake)
set(CPACK_ZU_SOURCE ${PROJECT_SOURCE_DIR})
set(CPACK_ZU_MADE ${made})
set(CPACK_ZU_LIBDIR ${CMAKE_INSTALL_LIBDIR})
set(CPACK_ZU_VERSION ${PROJECT_VERSION})
set(CPACK_ZU_LIBRARY_PACKAGE ${package_of_library})

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${made}/symbols ${packaging}/triggers)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION graphics)
set(same "(= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${package_of_library} ${same}")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "${package_of_library} ${same}")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "fonts-ipaexfont-gothic")
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "common library of a building-services CAD application
The library reads and edits drawings of ducts, pipes, equipment and cable
routes: block references with connection points, attributes and route groups.
With it comes its embedded host, a portable drawing engine that opens and
saves DXF drawings without loss.")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "headers of the building-services CAD library
Headers, CMake package, pkg-config file and an example module for programs
that read and edit drawings of ducts, pipes, equipment and cable routes.")
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "check and edit building-services drawings
The program zu lists, checks, repairs, edits and plots DXF drawings of ducts,
pipes, equipment and cable routes.")

include(CPack)
