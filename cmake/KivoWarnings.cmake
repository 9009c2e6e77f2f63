# kivo-warnings: the warnings that all code of the project is compiled with. Linked privately, as
# $<BUILD_INTERFACE:kivo-warnings>, so that they reach neither an installed package nor a project that uses it.

add_library(kivo-warnings INTERFACE)

target_compile_options(kivo-warnings INTERFACE
    -Wall
    -Wextra
    -Wpedantic
    -Wconversion
    -Wsign-conversion
    -Wshadow
    -Wold-style-cast
    -Wnon-virtual-dtor
    -Woverloaded-virtual
    -Wcast-align
    -Wformat=2
    -Wimplicit-fallthrough
    -Wextra-semi
    -Werror=switch # in every build: a switch over an enumeration that forgets an enumerator is a fault
    # g++ reports paths inside the standard library's own headers, once inlined; clang reads the code as written.
    $<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wnull-dereference>
    $<$<BOOL:${KIVO_WARNINGS_AS_ERRORS}>:-Werror>)
