# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# The icon in the sizes that desktops look for before they draw the scalable one. What is drawn
# small has fewer parts.
find_program(QUILLBAR_RSVG REQUIRED NAMES rsvg-convert)

set(made "")
foreach(size IN ITEMS 16 22 24 32 48 64 128 256 512)
    set(drawing "${CMAKE_CURRENT_SOURCE_DIR}/icons/${application}.svg")
    if(size LESS 48)
        set(drawing "${CMAKE_CURRENT_SOURCE_DIR}/icons/${application}-small.svg")
    endif()
    set(path "${CMAKE_CURRENT_BINARY_DIR}/icons/${size}/${application}.png")
    file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/icons/${size}")
    add_custom_command(
        OUTPUT "${path}"
        COMMAND "${QUILLBAR_RSVG}" --width ${size} --height ${size} --output "${path}" "${drawing}"
        DEPENDS "${drawing}"
        VERBATIM)
    list(APPEND made "${path}")
    install(FILES "${path}"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps")
endforeach()

add_custom_target(quillbar-icons ALL DEPENDS ${made})
