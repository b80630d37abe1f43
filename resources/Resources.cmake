# SPDX-License-Identifier: MIT
# Themes, icons, the waiting animation and translations, compiled into the program that uses them.

set_property(GLOBAL PROPERTY VANTOR_LANGUAGES en ar zh_CN)

# Compiles translations/<catalogue>_<language>.ts of every language and gives in `sources` what adds
# them to a target, below :/Vantor/Translations.
function(vantor_translations sources catalogue)
    get_property(ts_files GLOBAL PROPERTY VANTOR_LANGUAGES)
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

# The theme of high contrast is the dark one in other colours: each text has 7:1 to what is behind it.
# Gives in `sources` what adds it to a target, as :/Vantor/Themes/contrast.qss.
function(vantor_contrast_theme sources)
    set(dark ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/themes/dark.qss)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${dark})
    file(READ ${dark} sheet)
    foreach(pair
            # backgrounds
            12171E=000000 0C1016=000000 1A212B=000000 1E2630=0A0A0A 232D3A=101010 28323F=1E1E1E
            212E3E=1E1E1E 303B4A=1E1E1E 24405F=003C8F 274A7A=003C8F 3A2022=3A0000 2A3340=595959
            # borders and handles
            3B4656=B0B0B0 4A586B=FFFFFF 465262=B0B0B0 5A687A=FFFFFF E5675C=FF9EA3
            # texts
            E7ECF3=FFFFFF A3B0C0=EDEDED 677486=C8C8C8 F2F7FF=FFFFFF D6E6FF=FFFFFF FF7B84=FF9EA3
            FFD9D5=FFFFFF
            # accents
            5B9BFF=FFE100 7BB0FF=FFF07A 36C2AE=4DFFE0)
        string(REPLACE "=" ";" pair ${pair})
        list(GET pair 0 from)
        list(GET pair 1 to)
        string(REPLACE "#${from}" "#${to}" sheet "${sheet}")
    endforeach()
    set(qss ${CMAKE_CURRENT_BINARY_DIR}/contrast.qss)
    file(CONFIGURE OUTPUT ${qss} CONTENT "${sheet}" @ONLY)
    set(qrc ${CMAKE_CURRENT_BINARY_DIR}/contrast.qrc)
    file(CONFIGURE OUTPUT ${qrc} @ONLY CONTENT
        "<RCC><qresource prefix=\"/Vantor/Themes\"><file alias=\"contrast.qss\">${qss}</file></qresource></RCC>\n")
    qt5_add_resources(result ${qrc})
    set(${sources} ${result} PARENT_SCOPE)
endfunction()

# Everything the library itself shows and offers.
function(vantor_resources target)
    vantor_translations(translations vantor)
    vantor_pictures(pictures)
    qt5_add_resources(resources ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/vantor.qrc)
    vantor_contrast_theme(contrast)
    target_sources(${target} PRIVATE ${resources} ${translations} ${pictures} ${contrast})
    get_property(languages GLOBAL PROPERTY VANTOR_LANGUAGES)
    list(JOIN languages "\",\"" languages)
    set_property(SOURCE common/Translate.cpp APPEND PROPERTY
        COMPILE_DEFINITIONS "VANTOR_LANGUAGES=\"${languages}\"")
endfunction()
