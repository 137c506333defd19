# A toolchain for macOS on any system, for scripts/mac/build --check: clang compiles against the C and C++ headers that
# zig carries and against our own framework headers; zig links against stub libraries.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR "${VANTREL_PROCESSOR}")
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VANTREL_PROCESSOR VANTREL_COMPILER VANTREL_PREFIX)
set(CMAKE_CXX_COMPILER "${VANTREL_COMPILER}")
set(CMAKE_OBJCXX_COMPILER "${VANTREL_COMPILER}")
find_program(CMAKE_AR llvm-ar-19 REQUIRED)
find_program(CMAKE_RANLIB llvm-ranlib-19 REQUIRED)
find_program(CMAKE_INSTALL_NAME_TOOL llvm-install-name-tool-19 REQUIRED)
set(CMAKE_OSX_SYSROOT "" CACHE STRING "")
set(CMAKE_OSX_ARCHITECTURES "" CACHE STRING "")
# Libraries of the build machine's own system must not be found.
set(CMAKE_FIND_ROOT_PATH "${VANTREL_PREFIX}" "${CMAKE_CURRENT_LIST_DIR}/packages")
foreach(kind LIBRARY INCLUDE PACKAGE)
    set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
