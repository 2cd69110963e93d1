# The package for clients: headers, both libraries, find_package(halyard) and halyard.pc.
# tests/install/ builds a client against an installation of it.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/halyard)

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/halyard DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN *.h)
install(TARGETS halyard halyard_static EXPORT halyard
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT halyard NAMESPACE halyard:: FILE halyard-targets.cmake DESTINATION ${package_dir})

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/halyard-config.cmake.in
                              ${PROJECT_BINARY_DIR}/halyard-config.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/halyard-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/halyard-config.cmake ${PROJECT_BINARY_DIR}/halyard-config-version.cmake
        DESTINATION ${package_dir})

set(pc_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH pc_to_prefix /prefix/${pc_dir} /prefix)
configure_file(${CMAKE_CURRENT_LIST_DIR}/halyard.pc.in ${PROJECT_BINARY_DIR}/halyard.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/halyard.pc DESTINATION ${pc_dir})
