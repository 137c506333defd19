# The application for macOS: Vantrel.app.
include("${CMAKE_SOURCE_DIR}/cmake/Vendor.cmake")
set(bundle "${CMAKE_SOURCE_DIR}/packaging/macos")
configure_file("${bundle}/Info.plist.in" Info.plist @ONLY)
set(icon "${CMAKE_CURRENT_BINARY_DIR}/Vantrel.icns")
add_custom_command(
    OUTPUT "${icon}"
    COMMAND "${CMAKE_SOURCE_DIR}/scripts/mac/icons" "${icon}"
    DEPENDS "${CMAKE_SOURCE_DIR}/packaging/icons/org.vantrel.Vantrel.svg"
    VERBATIM
)
set_source_files_properties("${icon}" PROPERTIES MACOSX_PACKAGE_LOCATION Resources)

# The actions for Shortcuts are in Swift. Commands of our own build them, because CMake's support for Swift cannot write
# the metadata in which the system finds them, and would pass the other languages' flags to the Swift compiler.
set(intents "${CMAKE_SOURCE_DIR}/scripts/mac/intents")
set(intentsObject "${CMAKE_CURRENT_BINARY_DIR}/VantrelIntents.o")
if(CMAKE_OSX_ARCHITECTURES)
    set(processors "${CMAKE_OSX_ARCHITECTURES}")
else()
    set(processors "${CMAKE_SYSTEM_PROCESSOR}")
endif()
add_custom_command(
    OUTPUT "${intentsObject}"
    COMMAND "${intents}" object "${intentsObject}" "${CMAKE_OSX_DEPLOYMENT_TARGET}" "${processors}"
    DEPENDS "${intents}" "${bundle}/VantrelIntents.swift" "${CMAKE_CURRENT_SOURCE_DIR}/commands/VantrelIntents.h"
    VERBATIM
)
set_source_files_properties("${intentsObject}" PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
execute_process(
    COMMAND "${intents}" libraries
    OUTPUT_VARIABLE swiftLibraries
    OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY
)

add_executable(Vantrel MACOSX_BUNDLE main.mm "${icon}" "${intentsObject}" "${VANTREL_VENDOR_SOURCE}")
target_compile_definitions(Vantrel PRIVATE VANTREL_VERSION="${PROJECT_VERSION}")
target_link_libraries(
    Vantrel
    PRIVATE VantrelCommands VantrelDiagnostics VantrelInterface VantrelLicensing VantrelMacos VantrelPosix
            VantrelThumbnails
)
target_link_directories(Vantrel PRIVATE ${swiftLibraries})
target_link_options(Vantrel PRIVATE "-Wl,-rpath,@executable_path/../Frameworks")
set_target_properties(Vantrel PROPERTIES MACOSX_BUNDLE_INFO_PLIST "${CMAKE_CURRENT_BINARY_DIR}/Info.plist")
add_custom_command(
    TARGET Vantrel
    POST_BUILD
    COMMAND
        "${intents}" metadata "${intentsObject}" "${CMAKE_OSX_DEPLOYMENT_TARGET}" "${processors}"
        "$<TARGET_FILE:Vantrel>" "$<TARGET_BUNDLE_CONTENT_DIR:Vantrel>/Resources"
    VERBATIM
)
