# What Debian calls hardening=+all, for the programs that users run; tests/packaging/hardened-programs
# verifies it in the built programs. Included before the targets it applies to.
option(VANTREL_HARDENING "Harden the programs as Debian's hardening=+all does (Linux)" OFF)

if(VANTREL_HARDENING AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
    include(CheckCXXCompilerFlag)
    include(CheckPIESupported)
    check_pie_supported(LANGUAGES CXX)
    set(CMAKE_POSITION_INDEPENDENT_CODE ON)
    # Nobody interposes the programs' functions; without this, -fPIC prevents inlining.
    set(hardening -fno-semantic-interposition -fstack-protector-strong -Wformat -Werror=format-security)
    # The compiler knows which processors support them.
    foreach(flag -fstack-clash-protection -fcf-protection)
        string(MAKE_C_IDENTIFIER "VANTREL_HAS${flag}" known)
        check_cxx_compiler_flag(${flag} ${known})
        if(${known})
            list(APPEND hardening ${flag})
        endif()
    endforeach()
    # Fortified functions need optimisation. Distributions' compilers may define their own level.
    list(APPEND hardening -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -D_GLIBCXX_ASSERTIONS)
    include(CheckCXXSourceCompiles)
    string(TOUPPER "${CMAKE_BUILD_TYPE}" type)
    string(JOIN " " CMAKE_REQUIRED_FLAGS ${CMAKE_CXX_FLAGS_${type}} ${hardening})
    check_cxx_source_compiles(
        "#include <features.h>\n#if __USE_FORTIFY_LEVEL < 2\n#error off\n#endif\nint main() { return 0; }"
        VANTREL_HAS_FORTIFIED_FUNCTIONS
    )
    unset(CMAKE_REQUIRED_FLAGS)
    if(NOT VANTREL_HAS_FORTIFIED_FUNCTIONS)
        message(FATAL_ERROR "VANTREL_HARDENING needs an optimising build type such as RelWithDebInfo")
    endif()
    target_compile_options(VantrelPlainSettings INTERFACE ${hardening})
    target_link_options(VantrelPlainSettings INTERFACE -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()
