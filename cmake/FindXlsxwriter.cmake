# SPDX-License-Identifier: MIT
# Finds libxlsxwriter. Its pkg-config file asks for zlib's development package too, which only a static
# library would need. Gives the target Xlsxwriter::Xlsxwriter.
find_path(Xlsxwriter_INCLUDE_DIR xlsxwriter.h)
find_library(Xlsxwriter_LIBRARY xlsxwriter)
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Xlsxwriter REQUIRED_VARS Xlsxwriter_LIBRARY Xlsxwriter_INCLUDE_DIR)
if(Xlsxwriter_FOUND AND NOT TARGET Xlsxwriter::Xlsxwriter)
    add_library(Xlsxwriter::Xlsxwriter UNKNOWN IMPORTED)
    set_target_properties(Xlsxwriter::Xlsxwriter PROPERTIES
        IMPORTED_LOCATION ${Xlsxwriter_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${Xlsxwriter_INCLUDE_DIR})
endif()
mark_as_advanced(Xlsxwriter_INCLUDE_DIR Xlsxwriter_LIBRARY)
