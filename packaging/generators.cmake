# The Debian packages install below /usr, one for each component; the archive holds everything below one folder.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
else()
  set(CPACK_COMPONENTS_ALL_IN_ONE_PACKAGE ON)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
endif()
