# SPDX-License-Identifier: MIT
# Themes, icons, the waiting animation and translations, compiled into the program that uses them.

# Compiles translations/<catalogue>_<language>.ts of every language and gives in `sources` what adds
# them to a target, below :/Vantor/Translations.
function(vantor_translations sources catalogue)
    set(ts_files en ar)
    list(TRANSFORM ts_files PREPEND ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/translations/${catalogue}_)
    list(TRANSFORM ts_files APPEND .ts)
    qt5_add_translation(qm_files ${ts_files})
    set(entries "")
    foreach(qm_file IN LISTS qm_files)
        get_filename_component(name ${qm_file} NAME)
        string(APPEND entries "<file alias=\"${name}\">${qm_file}</file>")
    endforeach()
    set(qrc ${CMAKE_CURRENT_BINARY_DIR}/${catalogue}_translations.qrc)
    file(CONFIGURE OUTPUT ${qrc} @ONLY CONTENT
        "<RCC><qresource prefix=\"/Vantor/Translations\">@entries@</qresource></RCC>\n")
    qt5_add_resources(result ${qrc})
    set(${sources} ${result} PARENT_SCOPE)
endfunction()

# Pictures at the paths that clients' themes name: <path>.svg below ovrin/ becomes :/Ovrin/<path>.png
# and its @2x.
set(VANTOR_OVRIN_PICTURES
    Icon/Images/Public/Icon/SepHide
    Icon/Images/Public/Icon/SepShow
    Menu/Images/System/Menu/UserManagement
    Tree/Images/Public/Control/Tree/HomePage
    Tree/Images/Public/Control/Tree/LastPage
    Tree/Images/Public/Control/Tree/NextPage
    Tree/Images/Public/Control/Tree/PreviousPage)

# Draws the pictures while building and gives in `sources` what adds them to a target.
function(vantor_pictures sources)
    set(tool vantor_render_icon) # runs while building: not for the machine that is built for
    add_executable(${tool} ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/render-icon.cpp)
    set_target_properties(${tool} PROPERTIES AUTOMOC OFF RUNS_WHILE_BUILDING ON)
    target_link_libraries(${tool} PRIVATE Qt5::Svg)
    set(entries "")
    set(pngs "")
    foreach(picture IN LISTS VANTOR_OVRIN_PICTURES)
        set(svg ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/ovrin/${picture}.svg)
        set(png ${CMAKE_CURRENT_BINARY_DIR}/ovrin/${picture})
        cmake_path(GET png PARENT_PATH folder)
        file(MAKE_DIRECTORY ${folder})
        add_custom_command(OUTPUT ${png}.png ${png}@2x.png
            COMMAND ${tool} ${svg} ${png}.png
            DEPENDS ${tool} ${svg}
            COMMENT "Drawing ${picture}.png")
        list(APPEND pngs ${png}.png ${png}@2x.png)
        string(APPEND entries "<file alias=\"${picture}.png\">${png}.png</file>")
        string(APPEND entries "<file alias=\"${picture}@2x.png\">${png}@2x.png</file>")
    endforeach()
    set(qrc ${CMAKE_CURRENT_BINARY_DIR}/ovrin.qrc)
    file(CONFIGURE OUTPUT ${qrc} CONTENT
        "<RCC><qresource prefix=\"/Ovrin\">${entries}</qresource></RCC>\n")
    add_custom_command(OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/qrc_ovrin.cpp
        COMMAND Qt5::rcc --name ovrin --output ${CMAKE_CURRENT_BINARY_DIR}/qrc_ovrin.cpp ${qrc}
        DEPENDS ${qrc} ${pngs})
    set(${sources} ${CMAKE_CURRENT_BINARY_DIR}/qrc_ovrin.cpp PARENT_SCOPE)
endfunction()

# Everything the library itself shows and offers.
function(vantor_resources target)
    vantor_translations(translations vantor)
    vantor_pictures(pictures)
    qt5_add_resources(resources ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/vantor.qrc)
    target_sources(${target} PRIVATE ${resources} ${translations} ${pictures})
endfunction()
