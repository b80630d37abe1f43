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

# Everything the library itself shows and offers.
function(vantor_resources target)
    vantor_translations(translations vantor)
    qt5_add_resources(resources ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/vantor.qrc)
    target_sources(${target} PRIVATE ${resources} ${translations})
endfunction()
