# SPDX-License-Identifier: MIT
# Every exported class also has a header of its full name: #include <Vantor/CCSVParser>. This list is
# the one place where they are named; each line is "<class> <header>".
set(VANTOR_FORWARDING_HEADERS
    "CCSVParser controller/CSV/CSVParser.h"
    "CStyleManager common/StyleManager.h"
)

# Writes the forwarding headers below `folder`/Vantor and installs them with the package.
function(vantor_forwarding_headers folder)
    foreach(line IN LISTS VANTOR_FORWARDING_HEADERS)
        string(REPLACE " " ";" pair ${line})
        list(GET pair 0 class)
        list(GET pair 1 header)
        file(CONFIGURE OUTPUT ${folder}/Vantor/${class} @ONLY
            CONTENT "// SPDX-License-Identifier: MIT\n#pragma once\n#include <${header}>\n")
    endforeach()
    install(DIRECTORY ${folder}/Vantor DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vantor)
endfunction()
