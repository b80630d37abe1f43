# SPDX-License-Identifier: MIT
# What find_package(Vantor) needs: the exported targets, the config file and its version file; and
# what pkg-config needs.
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Vantor)
install(EXPORT VantorTargets NAMESPACE Vantor:: DESTINATION ${package_dir} COMPONENT dev)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/VantorConfig.cmake.in
    ${PROJECT_BINARY_DIR}/VantorConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VantorConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VantorConfig.cmake ${PROJECT_BINARY_DIR}/VantorConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT dev)
file(RELATIVE_PATH pc_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${PROJECT_SOURCE_DIR}/cmake/vantor.pc.in ${PROJECT_BINARY_DIR}/vantor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vantor.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
# What the headers refer to.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev
    FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN interface.txt PATTERN examples EXCLUDE
    PATTERN docs/README.md EXCLUDE PATTERN add-a-widget.md EXCLUDE)
# Their list, without those that only the sources have.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/README.md)
file(READ ${PROJECT_SOURCE_DIR}/docs/README.md documents)
string(REGEX REPLACE "\n`tools/pictures`[^\n]*\n" "" documents "${documents}")
string(REGEX REPLACE "\n[^\n]*Working on Vantor.*" "\n" documents "${documents}")
string(REGEX REPLACE "\n[^\n]*\\.\\./README\\.md[^\n]*" "" documents "${documents}")
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/installed/README.md CONTENT "${documents}" @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/installed/README.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev)
# A package has both under the names that its distribution wants.
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT about)
