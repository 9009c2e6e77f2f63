# Run by cpack on what it is about to pack: gives everything the same permissions whatever the packager's umask, and
# that of the checkout, are.

execute_process(COMMAND chmod -R u=rwX,go=rX "${CPACK_TEMPORARY_DIRECTORY}" COMMAND_ERROR_IS_FATAL ANY)
