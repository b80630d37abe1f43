# SPDX-License-Identifier: MIT
# How a target of this project is built: warnings, sanitizers, Qt's strictness. One function adds a
# test, one a benchmark, one a fuzz target.

# Warnings, sanitizers and Qt's strictness for one of our own targets. ALLOW_ASCII is for tests, whose data
# would drown in QStringLiteral.
function(vantor_compile_options target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "ALLOW_ASCII" "" "")
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2
        $<$<BOOL:${VANTOR_WERROR}>:-Werror>)
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_CAST_TO_ASCII
        $<$<NOT:$<BOOL:${arg_ALLOW_ASCII}>>:QT_NO_CAST_FROM_ASCII>
        QT_DEPRECATED_WARNINGS QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
    if(VANTOR_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${VANTOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${VANTOR_SANITIZE})
    endif()
endfunction()

# A shared library of the package: hidden symbols, an export header, a header set, SOVERSION.
#   vantor_library(target EXPORT_HEADER Name.h EXPORT_MACRO NAME HEADERS a.h … SOURCES a.cpp …)
function(vantor_library target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORT_HEADER;EXPORT_MACRO" "HEADERS;SOURCES")
    add_library(${target} SHARED ${arg_SOURCES})
    vantor_compile_options(${target})
    generate_export_header(${target}
        EXPORT_FILE_NAME ${CMAKE_CURRENT_BINARY_DIR}/generated/${arg_EXPORT_HEADER}
        EXPORT_MACRO_NAME ${arg_EXPORT_MACRO})
    target_sources(${target}
        PUBLIC FILE_SET HEADERS
        BASE_DIRS ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR}/generated
        FILES ${arg_HEADERS} ${CMAKE_CURRENT_BINARY_DIR}/generated/${arg_EXPORT_HEADER})
    set_target_properties(${target} PROPERTIES
        VERSION ${PROJECT_VERSION}
        SOVERSION ${VANTOR_SOVERSION}
        # The libraries of the package find one another wherever it is installed.
        INSTALL_RPATH $ORIGIN
        VERIFY_INTERFACE_HEADER_SETS ON)
    target_compile_features(${target} PUBLIC cxx_std_17)
    # The components are the packages: runtime, dev, client, server.
    install(TARGETS ${target} EXPORT VantorTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
        FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vantor COMPONENT dev)
endfunction()

# A test program from <name>.cpp, offscreen.
#   vantor_add_test(name [LABELS threads …] [SOURCES more.cpp …] [LIBRARIES target …])
function(vantor_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LABELS;SOURCES;LIBRARIES")
    add_executable(${name} ${name}.cpp ${arg_SOURCES})
    vantor_compile_options(${name} ALLOW_ASCII)
    target_link_libraries(${name} PRIVATE vantor_test_support ${arg_LIBRARIES})
    add_test(NAME ${name} COMMAND ${name})
    vantor_test_environment(${name} ${arg_LABELS})
    # What ThreadSanitizer has to look at.
    if("threads" IN_LIST arg_LABELS)
        if(NOT TARGET thread_tests)
            add_custom_target(thread_tests)
        endif()
        add_dependencies(thread_tests ${name})
    endif()
endfunction()

# vantor_run_on_display(<test>): an X server of its own for that test, instead of the offscreen
# platform.
function(vantor_run_on_display test)
    set_property(TEST ${test} APPEND PROPERTY ENVIRONMENT "QT_QPA_PLATFORM=xcb")
    set_target_properties(${test} PROPERTIES
        CROSSCOMPILING_EMULATOR ${PROJECT_SOURCE_DIR}/tests/support/on_display)
endfunction()

# Environment every test runs in; further arguments become the test's labels. On an X server, Qt would
# load the software driver of OpenGL, which leaks and which no test needs.
function(vantor_test_environment test)
    set(suppressions ${PROJECT_SOURCE_DIR}/tests/support)
    set_tests_properties(${test} PROPERTIES
        TIMEOUT 300
        LABELS "${ARGN}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_XCB_GL_INTEGRATION=none;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${suppressions}/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;TSAN_OPTIONS=ignore_noninstrumented_modules=1:second_deadlock_stack=1")
endfunction()

# A benchmark program from <name>.cpp.
function(vantor_add_benchmark name)
    add_executable(${name} ${name}.cpp)
    vantor_compile_options(${name})
    target_link_libraries(${name} PRIVATE Vantor::Vantor vantor_letter benchmark::benchmark ${ARGN})
endfunction()

# A libFuzzer target from <name>.cpp, with the libraries that it needs.
function(vantor_add_fuzzer name)
    add_executable(${name} ${name}.cpp)
    vantor_compile_options(${name})
    target_link_libraries(${name} PRIVATE ${ARGN})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
endfunction()

# vantor_man_page(<program> COMPONENT c SECTION n SUMMARY text [INCLUDE file]): what --help and --version say, as a
# manual page, where help2man is installed.
function(vantor_man_page program)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "COMPONENT;SECTION;SUMMARY;INCLUDE" "")
    find_program(VANTOR_HELP2MAN help2man)
    if(NOT VANTOR_HELP2MAN)
        if(VANTOR_BUILD_DOCS)
            message(FATAL_ERROR "The man pages need help2man")
        endif()
        return()
    endif()
    set(page ${PROJECT_BINARY_DIR}/man/${program}.${arg_SECTION})
    add_custom_command(OUTPUT ${page}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/man
        COMMAND ${CMAKE_COMMAND} -E env LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen
            ${VANTOR_HELP2MAN} --no-info --section=${arg_SECTION} --name=${arg_SUMMARY}
            --source=Vantor --include=${arg_INCLUDE} --output=${page} $<TARGET_FILE:${program}>
        DEPENDS ${program} ${arg_INCLUDE}
        COMMENT "Writing ${program}.${arg_SECTION}"
        VERBATIM)
    if(NOT TARGET man)
        add_custom_target(man)
    endif()
    if(VANTOR_BUILD_DOCS)
        add_custom_target(man_${program} ALL DEPENDS ${page})
    else()
        add_custom_target(man_${program} DEPENDS ${page})
    endif()
    add_dependencies(man man_${program})
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${arg_SECTION}
        COMPONENT ${arg_COMPONENT} OPTIONAL)
endfunction()
