# SPDX-License-Identifier: MIT
# Read by the preset "headers" right after project(): parse the sources and stop there. As a compile
# option, not a compiler flag, because CMake's own trial programs must still link. So must what runs
# while building.
add_compile_options($<$<NOT:$<BOOL:$<TARGET_PROPERTY:RUNS_WHILE_BUILDING>>>:-fsyntax-only>)
# There is nothing to link then, but the targets that compile headers wait for their libraries.
set(CMAKE_CXX_CREATE_SHARED_LIBRARY "<CMAKE_COMMAND> -E touch <TARGET>")
set(CMAKE_CXX_CREATE_SHARED_MODULE "<CMAKE_COMMAND> -E touch <TARGET>")
