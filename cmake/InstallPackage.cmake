# SPDX-License-Identifier: MIT
# What find_package(Vantor) needs: the exported targets, the config file and its version file.
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Vantor)
install(EXPORT VantorTargets NAMESPACE Vantor:: DESTINATION ${package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/VantorConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VantorConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VantorConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VantorConfig.cmake ${PROJECT_BINARY_DIR}/VantorConfigVersion.cmake
    DESTINATION ${package_dir})
# What the headers refer to.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}
    FILES_MATCHING PATTERN "*.md" PATTERN images EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR})
