# Include root and warnings. Linked directly only by programs that must not use sanitizers.
add_library(VantrelPlainSettings INTERFACE)
target_include_directories(VantrelPlainSettings INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(
    VantrelPlainSettings
    INTERFACE
        -Wall
        -Wextra
        -Wshadow
        -Wconversion
        -Wnon-virtual-dtor
        -Wold-style-cast
        -Woverloaded-virtual
        -Werror
)

# The interface target that all our other targets link: the above, and the sanitizers.
add_library(VantrelBuildSettings INTERFACE)
target_link_libraries(VantrelBuildSettings INTERFACE VantrelPlainSettings)
if(VANTREL_SANITIZE)
    target_compile_options(VantrelBuildSettings INTERFACE -fsanitize=${VANTREL_SANITIZE} -fno-omit-frame-pointer)
    target_link_options(VantrelBuildSettings INTERFACE -fsanitize=${VANTREL_SANITIZE})
    if(VANTREL_SANITIZE MATCHES "undefined")
        target_compile_options(VantrelBuildSettings INTERFACE -fno-sanitize-recover=undefined)
    endif()
    if(VANTREL_SANITIZE MATCHES "thread")
        # GCC 12 warns that atomic_thread_fence is unknown to tsan, in library headers too.
        target_compile_options(VantrelBuildSettings INTERFACE -Wno-tsan)
    endif()
endif()

# All sources of a folder tree, so that a new file needs no edit elsewhere.
function(vantrel_sources result folder)
    file(GLOB_RECURSE found CONFIGURE_DEPENDS "${folder}/*.cpp" "${folder}/*.h" "${folder}/*.mm")
    set(${result} ${found} PARENT_SCOPE)
endfunction()
