# kivo-reproducible: what the libraries that are handed out are compiled with, so that they are the same whatever folder
# the sources lie in; the XML library's macros name the file that throws. Linked privately, as kivo-warnings is.
#
# Debug information and coverage data keep the whole paths, which their tools look for.

add_library(kivo-reproducible INTERFACE)
target_compile_options(kivo-reproducible INTERFACE "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")
