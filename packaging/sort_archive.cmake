# Run by cpack after each package. The archive again, as cpack packs it in the order in which the disk lists its files:
# sorted, and root's.
if(CPACK_GENERATOR STREQUAL "TGZ")
    cmake_path(GET CPACK_TEMPORARY_DIRECTORY PARENT_PATH _above)
    cmake_path(GET CPACK_TEMPORARY_DIRECTORY FILENAME _name)
    set(_time)
    if(DEFINED ENV{SOURCE_DATE_EPOCH})
        set(_time "--mtime=@$ENV{SOURCE_DATE_EPOCH}")
    endif()
    execute_process(
        COMMAND tar --sort=name --format=gnu --owner=0 --group=0 --numeric-owner ${_time} -C "${_above}" -c "${_name}"
        COMMAND gzip -9n OUTPUT_FILE "${CPACK_PACKAGE_FILES}" COMMAND_ERROR_IS_FATAL ANY)
endif()
