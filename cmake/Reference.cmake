# SPDX-License-Identifier: MIT
# The target docs, where doxygen is installed: the reference of the public classes with the guides, as HTML, as a
# help file of Qt Assistant and Qt Creator, and as a tag file for the references of other projects.
find_package(Doxygen 1.9.4 QUIET)
find_program(VANTOR_QHELPGENERATOR NAMES qhelpgenerator HINTS /usr/lib/qt5/bin)
find_package(Python3 QUIET COMPONENTS Interpreter)
if(NOT DOXYGEN_FOUND OR NOT VANTOR_QHELPGENERATOR OR NOT Python3_FOUND)
    if(VANTOR_BUILD_DOCS)
        message(FATAL_ERROR "The reference needs doxygen, qhelpgenerator and python3")
    endif()
    return()
endif()

# It runs for each file: not through a version manager's script.
execute_process(COMMAND ${Python3_EXECUTABLE} -c "import sys; print(sys.executable, end='')"
    OUTPUT_VARIABLE python COMMAND_ERROR_IS_FATAL ANY)

set(reference ${PROJECT_BINARY_DIR}/reference)
set(headers "")
foreach(target vantor_base vantor_platform vantor)
    get_target_property(target_headers ${target} HEADER_SET)
    get_target_property(folder ${target} SOURCE_DIR)
    list(FILTER target_headers EXCLUDE REGEX "/generated/")
    foreach(header IN LISTS target_headers)
        cmake_path(ABSOLUTE_PATH header BASE_DIRECTORY ${folder})
        list(APPEND headers ${header})
    endforeach()
endforeach()
file(GLOB guides CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*.md)

set(DOXYGEN_PROJECT_NAME Vantor)
set(DOXYGEN_PROJECT_BRIEF "${PROJECT_DESCRIPTION}")
set(DOXYGEN_OUTPUT_DIRECTORY ${reference})
set(DOXYGEN_STRIP_FROM_PATH ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/platform ${PROJECT_SOURCE_DIR})
set(DOXYGEN_STRIP_FROM_INC_PATH ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/platform)
set(DOXYGEN_USE_MDFILE_AS_MAINPAGE ${PROJECT_SOURCE_DIR}/docs/README.md)
set(DOXYGEN_IMAGE_PATH ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/docs/images)
set(DOXYGEN_JAVADOC_AUTOBRIEF NO)
set(DOXYGEN_QT_AUTOBRIEF YES)
set(DOXYGEN_MACRO_EXPANSION YES)
set(DOXYGEN_EXPAND_ONLY_PREDEF YES)
set(DOXYGEN_PREDEFINED
    VANTOR_EXPORT= VANTOR_PLATFORM_EXPORT= VANTOR_BASE_EXPORT= "Q_DECLARE_TR_FUNCTIONS(x)=" "Q_DISABLE_COPY(x)=")
set(DOXYGEN_FILTER_PATTERNS 
    "*.h=${python} ${PROJECT_SOURCE_DIR}/cmake/reference-filter.py"
    "*.md=${python} ${PROJECT_SOURCE_DIR}/cmake/reference-filter.py")
set(DOXYGEN_SEARCH_INCLUDES NO)
set(DOXYGEN_SORT_MEMBER_DOCS NO)
set(DOXYGEN_SORT_BRIEF_DOCS NO)
set(DOXYGEN_BUILTIN_STL_SUPPORT YES)
set(DOXYGEN_HAVE_DOT NO)
set(DOXYGEN_GENERATE_LATEX NO)
set(DOXYGEN_WARN_NO_PARAMDOC NO)
set(DOXYGEN_WARN_IF_INCOMPLETE_DOC NO)
set(DOXYGEN_WARN_LOGFILE ${reference}/warnings.txt)
set(DOXYGEN_WARN_FORMAT "$file:$line: $text")
set(DOXYGEN_HTML_DYNAMIC_MENUS NO)
set(DOXYGEN_HTML_TIMESTAMP NO)
set(DOXYGEN_GENERATE_TAGFILE ${reference}/vantor.tags)
set(DOXYGEN_GENERATE_QHP YES)
set(DOXYGEN_QHP_NAMESPACE vantor.${PROJECT_VERSION_MAJOR}${PROJECT_VERSION_MINOR})
set(DOXYGEN_QHP_VIRTUAL_FOLDER vantor)
set(DOXYGEN_HTML_COPY_CLIPBOARD NO)
set(DOXYGEN_QUIET YES)
file(MAKE_DIRECTORY ${reference})
doxygen_add_docs(reference ${headers} ${guides} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    COMMENT "Writing the reference")

# Doxygen adds anchors to the identifiers, by which F1 would find nothing, and indexes classes with their namespace only.
set(anchors [[s/( id="[^"]+)_(a[0-9a-f]{32})?"/\1"/]])
set(short_names [[s/^ *<keyword name="[A-Za-z:]+::([A-Za-z_]+)" id="[^"]+" (ref="(class|struct)[^"#]+"\/>)$/&\n<keyword name="\1" id="\1" \2/]])
set(with_everything "")
if(VANTOR_BUILD_DOCS)
    set(with_everything ALL)
endif()
add_custom_target(docs ${with_everything}
    COMMAND sed -E -i -e ${anchors} -e ${short_names} ${reference}/html/index.qhp
    COMMAND ${VANTOR_QHELPGENERATOR} ${reference}/html/index.qhp -o ${reference}/vantor.qch
        > ${reference}/vantor.qch.log
    COMMENT "Writing the help file"
    VERBATIM)
add_dependencies(docs reference)

install(DIRECTORY ${reference}/html DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev OPTIONAL)
install(FILES ${reference}/vantor.tags DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT dev OPTIONAL)
install(FILES ${reference}/vantor.qch DESTINATION ${CMAKE_INSTALL_DATADIR}/qt5/doc COMPONENT dev OPTIONAL)
