# What cpack makes of a build, in the build directory:
#
#   cpack -G DEB                                    a Debian package of what is installed
#   cpack -G TGZ                                    the same as an archive
#   cpack --config CPackSourceConfig.cmake          an archive of the sources
#
# Packages hold the installation prefix of the build, below which the kernel library looks for its files: a package for
# others needs -DCMAKE_INSTALL_PREFIX=/usr. If SOURCE_DATE_EPOCH is set, equal builds give equal packages; for Debian
# packages the umask has to be equal, too, because cpack writes it into them.

if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()

set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_VENDOR "Kivo")
set(CPACK_PACKAGE_CONTACT "Kivo" CACHE STRING "Who maintains the packages: a name, and where there is one an <address>")
set(CPACK_PACKAGE_DESCRIPTION "\
Each setting is described once, in code or in XML; values from the command line,
from files and from the application are merged, checked, and explained to users.
.
This package holds the library, the kernel library that it needs, the headers,
the CMake package, the pkg-config file, a main registry file and the command
kivoconfig.")
string(TOLOWER "${PROJECT_NAME}-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}"
    CPACK_PACKAGE_FILE_NAME)

set(CPACK_MONOLITHIC_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
# The configuration directory may lie outside the prefix.
set(CPACK_SET_DESTDIR ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/KivoPackagePermissions.cmake")
set(CPACK_POST_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/KivoPackageArchive.cmake")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# An upgrade keeps a main registry file that the administrator has changed.
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/package/conffiles"
    CONTENT "${CMAKE_INSTALL_FULL_SYSCONFDIR}/kivo/kivobase.crg\n")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${PROJECT_BINARY_DIR}/package/conffiles")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# The sources are what git does not ignore.
set(CPACK_SOURCE_GENERATOR TGZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME "${PROJECT_NAME}-${PROJECT_VERSION}")
set(CPACK_SOURCE_IGNORE_FILES)
foreach(ignored IN ITEMS
        "${PROJECT_BINARY_DIR}"
        "${PROJECT_SOURCE_DIR}/.git"
        "${PROJECT_SOURCE_DIR}/build"
        "${PROJECT_SOURCE_DIR}/CMakeUserPresets.json"
        "${PROJECT_SOURCE_DIR}/.cache"
        "${PROJECT_SOURCE_DIR}/compile_commands.json")
    string(REGEX REPLACE "[][.*+?^$()|\\]" "\\\\\\0" ignored "${ignored}")
    list(APPEND CPACK_SOURCE_IGNORE_FILES "^${ignored}(/|$)")
endforeach()

include(CPack)
