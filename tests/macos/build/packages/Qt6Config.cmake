# Qt's own headers and moc, with stub libraries.
set(Qt6Core_VERSION_MAJOR 6)
set(Qt6Core_VERSION_MINOR 4)
set(Qt6Core_FOUND TRUE)
add_executable(Qt6::moc IMPORTED)
set_target_properties(Qt6::moc PROPERTIES IMPORTED_LOCATION /usr/lib/qt6/libexec/moc)
foreach(part Core DBus Gui Network Widgets)
    add_library(Qt6::${part} INTERFACE IMPORTED)
    target_include_directories(
        Qt6::${part}
        INTERFACE "${VANTREL_PREFIX}/include/qt6" "${VANTREL_PREFIX}/include/qt6/Qt${part}"
    )
    target_compile_definitions(Qt6::${part} INTERFACE QT_NO_DEBUG)
    target_link_libraries(Qt6::${part} INTERFACE "-lQt6${part}")
endforeach()
target_link_libraries(Qt6::DBus INTERFACE Qt6::Core)
target_link_libraries(Qt6::Gui INTERFACE Qt6::Core)
target_link_libraries(Qt6::Network INTERFACE Qt6::Core)
target_link_libraries(Qt6::Widgets INTERFACE Qt6::Gui)
