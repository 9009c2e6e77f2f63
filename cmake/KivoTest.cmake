# kivo_add_test(<name> SOURCES <file>... [LIBRARIES <target>...] [DEFINITIONS <definition>...] [CONCURRENT])
#
# Builds a GoogleTest executable and registers each of its cases with ctest, labelled with the folder's name.
#
# LIBRARIES    what is under test: kivo-configuration for the exported classes, or kivo-configuration-internal for what
#              they are made of (never both, since each has its own Manager); and the test's helpers
# CONCURRENT   the cases use several threads: they get the label "concurrent" too, and the target concurrent-tests,
#              which the thread sanitizer's run builds, includes this executable

include(GoogleTest)

add_custom_target(concurrent-tests)

function(kivo_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "CONCURRENT" "" "SOURCES;LIBRARIES;DEFINITIONS")
    if(arg_UNPARSED_ARGUMENTS OR NOT arg_SOURCES)
        message(FATAL_ERROR "kivo_add_test(${name}): SOURCES missing, or not understood: ${arg_UNPARSED_ARGUMENTS}")
    endif()

    add_executable(${name} ${arg_SOURCES})
    target_include_directories(${name} PRIVATE
        "${PROJECT_SOURCE_DIR}/include" "${PROJECT_SOURCE_DIR}/src" "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
    # It is the library that has to be fast: tests build in three quarters of the time that -O3 takes, and with the
    # sanitizers in a third of the time that -O1 takes.
    target_compile_options(${name} PRIVATE "$<$<CONFIG:Release>:-O1>" "$<$<CONFIG:Debug>:-O0>")
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} kivo-kernel GTest::gmock_main Threads::Threads kivo-warnings)

    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME labels)
    if(arg_CONCURRENT)
        list(APPEND labels concurrent)
        add_dependencies(concurrent-tests ${name})
    endif()

    # Cases keep the names of their rows, which the rows' bytes would replace otherwise.
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES TEST_LIST ${name}_CASES)

    # gtest_discover_tests cannot hand on a property with several values, so ctest reads the properties from a file.
    configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/KivoTestProperties.cmake.in" ${name}-properties.cmake @ONLY)
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${CMAKE_CURRENT_BINARY_DIR}/${name}-properties.cmake")
endfunction()
