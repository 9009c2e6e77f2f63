# What `cmake --install` puts where: the two libraries, the module, the public headers, the CMake package, the pkg-config
# file, the main registry file, the schemas, the copyright notice, and the command kivoconfig with its manual page and its
# completion.
# Everything is found relative to its own place, so an installed tree can be moved.

include(CMakePackageConfigHelpers)

set(packageDirectory "${CMAKE_INSTALL_LIBDIR}/cmake/kivo-configuration")
set(pkgConfigDirectory "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
# A folder of their own: names such as "configuration" and "kernel" are too common for the one that all packages share.
set(includeDirectory "${CMAKE_INSTALL_INCLUDEDIR}/kivo-configuration")

# The two libraries lie side by side; $ORIGIN lets the one find the other wherever that is. Before it is installed, too:
# the folder of the build would leave traces.
set_target_properties(kivo-configuration PROPERTIES INSTALL_RPATH "$ORIGIN" BUILD_RPATH_USE_ORIGIN ON)
set_target_properties(kivo-kernel PROPERTIES EXPORT_NAME kernel)

install(TARGETS kivo-configuration kivo-kernel
    EXPORT kivo-configuration
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    INCLUDES DESTINATION "${includeDirectory}")

set_target_properties(kivo-configuration-xerces PROPERTIES INSTALL_RPATH "$ORIGIN/.." BUILD_RPATH_USE_ORIGIN ON)
install(TARGETS kivo-configuration-xerces LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}/${KIVO_MODULE_FOLDER}")

install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/" "${PROJECT_BINARY_DIR}/include/"
    DESTINATION "${includeDirectory}"
    FILES_MATCHING PATTERN "*.h")

install(EXPORT kivo-configuration
    NAMESPACE kivo::
    FILE kivo-configurationTargets.cmake
    DESTINATION "${packageDirectory}")
configure_package_config_file(
    "${CMAKE_CURRENT_LIST_DIR}/kivo-configurationConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/kivo-configurationConfig.cmake"
    INSTALL_DESTINATION "${packageDirectory}"
    NO_SET_AND_CHECK_MACRO)
# While the major version is 0, a new minor version may break callers.
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/kivo-configurationConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/kivo-configurationConfig.cmake"
    "${PROJECT_BINARY_DIR}/kivo-configurationConfigVersion.cmake"
    DESTINATION "${packageDirectory}")

cmake_path(SET pkgConfigPrefix NORMALIZE "${CMAKE_INSTALL_PREFIX}")
cmake_path(ABSOLUTE_PATH pkgConfigDirectory BASE_DIRECTORY "${pkgConfigPrefix}" OUTPUT_VARIABLE pkgConfigPath)
cmake_path(RELATIVE_PATH pkgConfigPrefix BASE_DIRECTORY "${pkgConfigPath}" OUTPUT_VARIABLE KIVO_PKGCONFIG_TO_PREFIX)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY "${pkgConfigPrefix}"
    OUTPUT_VARIABLE KIVO_PREFIX_TO_LIB)
cmake_path(ABSOLUTE_PATH includeDirectory BASE_DIRECTORY "${pkgConfigPrefix}" OUTPUT_VARIABLE includePath)
cmake_path(RELATIVE_PATH includePath BASE_DIRECTORY "${pkgConfigPrefix}" OUTPUT_VARIABLE KIVO_PREFIX_TO_INCLUDE)
configure_file("${CMAKE_CURRENT_LIST_DIR}/kivo-configuration.pc.in" "${PROJECT_BINARY_DIR}/kivo-configuration.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/kivo-configuration.pc" DESTINATION "${pkgConfigDirectory}")

# The minimal main registry file, where the kernel library looks for it by default. Relative to the prefix where it lies
# below it, so that `cmake --install --prefix` moves it too; for the prefix /usr it is /etc.
set(registryDirectory "${CMAKE_INSTALL_FULL_SYSCONFDIR}/kivo")
cmake_path(IS_PREFIX CMAKE_INSTALL_PREFIX "${registryDirectory}" NORMALIZE registryIsBelowPrefix)
if(registryIsBelowPrefix)
    cmake_path(RELATIVE_PATH registryDirectory BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}")
endif()
install(FILES "${PROJECT_SOURCE_DIR}/etc/kivobase.crg" DESTINATION "${registryDirectory}")

# For editors and scripts.
set(schemaDirectory "${CMAKE_INSTALL_DATADIR}/kivo-configuration")
install(FILES "${PROJECT_SOURCE_DIR}/docs/registry.xsd" DESTINATION "${schemaDirectory}")

if(TARGET kivoconfig)
    cmake_path(SET binPath NORMALIZE "${CMAKE_INSTALL_FULL_BINDIR}")
    cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY "${binPath}" OUTPUT_VARIABLE binToLib)
    set_target_properties(kivoconfig PROPERTIES INSTALL_RPATH "$ORIGIN/${binToLib}" BUILD_RPATH_USE_ORIGIN ON)
    install(TARGETS kivoconfig RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")

    set(toolDirectory "${PROJECT_SOURCE_DIR}/tools/kivoconfig")
    install(FILES "${toolDirectory}/kivoconfig.schema.json" DESTINATION "${schemaDirectory}")
    install(FILES "${toolDirectory}/kivoconfig.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
    install(FILES "${toolDirectory}/completion/kivoconfig.bash"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME kivoconfig)
    # Debian's zsh looks for the completions of packages in a folder of another name.
    set(zshFolder site-functions)
    if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        set(zshFolder vendor-completions)
    endif()
    install(FILES "${toolDirectory}/completion/kivoconfig.zsh"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/${zshFolder}" RENAME _kivoconfig)
endif()

# In the folder of the package's name, where Debian looks for it.
install(FILES "${PROJECT_SOURCE_DIR}/COPYRIGHT" DESTINATION "${CMAKE_INSTALL_DOCDIR}" RENAME copyright)
