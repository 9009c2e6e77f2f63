# Run by cpack when it has made its packages: packs an archive again, with its entries in order and owned by root, which
# cpack sees to for Debian packages only.

if(NOT CPACK_GENERATOR STREQUAL "TGZ")
    return()
endif()

set(times)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    set(times "--mtime=@$ENV{SOURCE_DATE_EPOCH}")
endif()
cmake_path(GET CPACK_TEMPORARY_DIRECTORY PARENT_PATH parent)
cmake_path(GET CPACK_TEMPORARY_DIRECTORY FILENAME folder)
execute_process(
    COMMAND tar --create "--file=${CPACK_PACKAGE_FILES}" "--use-compress-program=gzip -9 --no-name"
        --sort=name --format=gnu --owner=root:0 --group=root:0 ${times} "--directory=${parent}" "${folder}"
    COMMAND_ERROR_IS_FATAL ANY)
