# SPDX-License-Identifier: GPL-3.0-or-later
# Parsing the headers of Qt takes longer than compiling most of our sources.

# velmora_add_headers(NAME LIBRARIES library... HEADERS header...)
# Compiles the headers once for all targets that call target_precompile_headers(... REUSE_FROM NAME).
# Such a target may define more macros than the libraries named here do, but none that the headers
# use.
function(velmora_add_headers name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES;HEADERS")
    add_library(${name} OBJECT ${PROJECT_SOURCE_DIR}/cmake/headers.cpp)
    target_link_libraries(${name} PRIVATE velmora_settings ${arg_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()
