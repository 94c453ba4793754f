# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# The manuals of the programs in English and Chinese, and what shells complete. make.py makes both
# from options.json.
find_package(Python3 3.11 REQUIRED COMPONENTS Interpreter)
find_program(QUILLBAR_SCDOC REQUIRED NAMES scdoc)

set(maker "${CMAKE_CURRENT_SOURCE_DIR}/make.py")
set(made "")

# quillbar_made(OUTPUT ARGUMENTS DEPENDS ...): the file that make.py writes with these arguments.
function(quillbar_made output)
    cmake_parse_arguments(MADE "" "" "ARGUMENTS;DEPENDS" ${ARGN})
    set(path "${CMAKE_CURRENT_BINARY_DIR}/${output}")
    get_filename_component(folder "${path}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    add_custom_command(
        OUTPUT "${path}"
        COMMAND Python3::Interpreter -B "${maker}" ${MADE_ARGUMENTS} > "${path}"
        DEPENDS "${maker}" options.json ${MADE_DEPENDS}
        VERBATIM)
    set(made ${made} "${path}" PARENT_SCOPE)
endfunction()

foreach(program IN ITEMS quillbar quillbar-label)
    foreach(language IN ITEMS en zh_CN)
        quillbar_made(manuals/${language}/${program}.1
            ARGUMENTS manual ${program} ${language} ${PROJECT_VERSION}
            DEPENDS manuals/${program}.${language}.scd)
    endforeach()
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/manuals/en/${program}.1"
        DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/manuals/zh_CN/${program}.1"
        DESTINATION "${CMAKE_INSTALL_MANDIR}/zh_CN/man1")

    # Each shell looks for a name of its own.
    set(bash ${program})
    set(zsh _${program})
    set(fish ${program}.fish)
    foreach(shell IN ITEMS bash zsh fish)
        quillbar_made(completions/${shell}/${${shell}} ARGUMENTS completion ${program} ${shell})
    endforeach()
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/completions/bash/${bash}"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/completions/zsh/${zsh}"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/completions/fish/${fish}"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
endforeach()

add_custom_target(quillbar-manuals ALL DEPENDS ${made})
