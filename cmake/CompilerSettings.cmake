# SPDX-License-Identifier: GPL-3.0-or-later
# Warnings, sanitizers and counters of our own code; velmora_settings carries them to every target.
add_library(velmora_settings INTERFACE)
target_compile_options(velmora_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wcast-qual -Wformat=2 -Wnull-dereference
    $<$<BOOL:${VELMORA_WARNINGS_AS_ERRORS}>:-Werror>)
# Only explicit conversions are allowed, so that no char literal becomes a text by accident.
target_compile_definitions(velmora_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH
    QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# The released programs read files of any origin, so these options make remaining errors harder to
# exploit. They also keep the paths of the build machine out of the programs.
target_compile_options(velmora_settings INTERFACE $<$<CONFIG:Release>:
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -fstack-clash-protection
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>)
target_link_options(velmora_settings INTERFACE $<$<CONFIG:Release>:-pie -Wl,-z,relro,-z,now>)
if(VELMORA_SANITIZE)
    target_compile_options(velmora_settings INTERFACE
        -fsanitize=${VELMORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(velmora_settings INTERFACE -fsanitize=${VELMORA_SANITIZE})
    # g++ 12 warns about null pointers in its own instrumentation. Builds without it keep this warning.
    target_compile_options(velmora_settings INTERFACE
        -Wno-null-dereference $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    # It also takes texts that are joined with operator+ for too short when it looks for races.
    if(VELMORA_SANITIZE STREQUAL "thread")
        target_compile_options(velmora_settings INTERFACE
            $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds;-Wno-restrict;-Wno-stringop-overflow>)
    endif()
    # Each of the 150 test programs contains the core, and this linker is several times as fast.
    find_program(MOLD mold)
    if(MOLD)
        target_link_options(velmora_settings INTERFACE -fuse-ld=mold)
    endif()
endif()
if(VELMORA_COVERAGE)
    # The counters are atomic because the operation runs on a thread of its own.
    target_compile_options(velmora_settings INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(velmora_settings INTERFACE --coverage)
endif()
