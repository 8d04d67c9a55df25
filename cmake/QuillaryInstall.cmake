# What `cmake --install` puts where: the two libraries with their headers, what
# CMake and pkg-config say of them, and the program with its man page and completion.
include(CMakePackageConfigHelpers)

set_target_properties(quillary_shared PROPERTIES EXPORT_NAME quillary)
install(TARGETS quillary_shared quillary_static EXPORT quillary
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY include/quillary DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/quillary)
install(EXPORT quillary NAMESPACE quillary:: FILE quillary-config.cmake DESTINATION ${package_folder} COMPONENT development)
write_basic_package_version_file(quillary-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/quillary-config-version.cmake DESTINATION ${package_folder} COMPONENT development)

list(TRANSFORM QUILLARY_NEEDED_LIBRARIES PREPEND -l OUTPUT_VARIABLE needed)
list(JOIN needed " " QUILLARY_NEEDED_OPTIONS)
# From its own folder, so that the installed tree can be moved.
file(RELATIVE_PATH QUILLARY_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/quillary.pc.in quillary.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quillary.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

install(TARGETS quillary RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
install(FILES docs/quillary.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
install(FILES tools/quillary/completion/quillary.bash RENAME quillary
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tools)
