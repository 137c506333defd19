# From its headers only: the library's symbols depend on the C++ library.
add_library(fmt::fmt INTERFACE IMPORTED)
target_include_directories(fmt::fmt INTERFACE "${VANTREL_PREFIX}/include")
target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
