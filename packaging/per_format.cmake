# Read by cpack once for each format: where a package's files go, and what only that format holds.
list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 _build)
if(CPACK_GENERATOR STREQUAL "DEB")
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(_own deb)
else()
    set(_own archive)
endif()
list(APPEND CPACK_INSTALL_CMAKE_PROJECTS "${_build}" "${CPACK_PACKAGE_NAME}" "${_own}" /)
