# Standard and library headers that most sources include, compiled once per target. A compiler cache finds more
# without them, so they are off by default with one.
if(CMAKE_CXX_COMPILER_LAUNCHER)
    set(precompile OFF)
else()
    set(precompile ON)
endif()
option(VANTREL_PRECOMPILED_HEADERS "Precompile common headers" ${precompile})

# Further arguments are the target's own, such as <QWidget>. With few sources it would not pay.
function(vantrel_precompile target)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    list(LENGTH sources count)
    if(VANTREL_PRECOMPILED_HEADERS AND count GREATER 5)
        target_precompile_headers(
            ${target}
            PRIVATE
                <algorithm>
                <array>
                <chrono>
                <expected>
                <filesystem>
                <functional>
                <map>
                <memory>
                <optional>
                <set>
                <string>
                <string_view>
                <utility>
                <variant>
                <vector>
                <fmt/format.h>
                ${ARGN}
        )
    endif()
endfunction()
