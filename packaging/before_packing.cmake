# Run on the files of the packages before they are packed. Debian's packages find their libraries without a run path, and
# name the symbols of the library with the version that brought them.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
file(GLOB_RECURSE files LIST_DIRECTORIES false ${CPACK_TEMPORARY_DIRECTORY}/*/bin/zu ${CPACK_TEMPORARY_DIRECTORY}/*/lib*.so.*.*)
foreach(file IN LISTS files)
  file(RPATH_REMOVE FILE ${file})
endforeach()

set(work ${CPACK_ZU_MADE}/symbols-work)
file(MAKE_DIRECTORY ${work}/debian)
file(WRITE ${work}/debian/control
  "Source: zucomn\nMaintainer: ${CPACK_PACKAGE_CONTACT}\n\nPackage: ${CPACK_ZU_LIBRARY_PACKAGE}\nArchitecture: any\n")
file(GLOB libraries ${CPACK_TEMPORARY_DIRECTORY}/library/usr/${CPACK_ZU_LIBDIR}/lib*.so.*.*)
list(TRANSFORM libraries PREPEND -e)
file(REMOVE ${CPACK_ZU_MADE}/symbols) # else the symbols of an earlier build stay in it
execute_process(COMMAND dpkg-gensymbols -q -c0 -v${CPACK_ZU_VERSION} -p${CPACK_ZU_LIBRARY_PACKAGE}
    -P${CPACK_TEMPORARY_DIRECTORY}/library ${libraries} -O${CPACK_ZU_MADE}/symbols
  WORKING_DIRECTORY ${work} COMMAND_ERROR_IS_FATAL ANY)
