# Compiles through ccache where it is installed. A launcher that the user gave, even an empty one, is left alone, and so
# is a project that embeds this one.

if(PROJECT_IS_TOP_LEVEL AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(KIVO_CCACHE ccache)
    mark_as_advanced(KIVO_CCACHE)
    if(KIVO_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${KIVO_CCACHE}")
    endif()
endif()
