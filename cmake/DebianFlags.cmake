# SPDX-License-Identifier: MIT
# Read by the preset "package" before project(): Debian's flags, hardening included. dpkg-buildpackage
# has them in the environment already.
find_program(VANTOR_DPKG_BUILDFLAGS dpkg-buildflags REQUIRED)
foreach(pair CPPFLAGS:CMAKE_CXX_FLAGS CXXFLAGS:CMAKE_CXX_FLAGS LDFLAGS:CMAKE_SHARED_LINKER_FLAGS
        LDFLAGS:CMAKE_MODULE_LINKER_FLAGS LDFLAGS:CMAKE_EXE_LINKER_FLAGS)
    string(REPLACE ":" ";" pair ${pair})
    list(GET pair 0 flag)
    list(GET pair 1 variable)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env DEB_BUILD_MAINT_OPTIONS=hardening=+all
            ${VANTOR_DPKG_BUILDFLAGS} --get ${flag}
        OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    string(APPEND ${variable}_INIT " ${flags}")
    set(${variable}_INIT "${${variable}_INIT}")
endforeach()
