# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT

# A floor of the core: a static library of every source in its folder, named quillbar_NAME.
# PUBLIC and PRIVATE name what it links to; lower floors go under PUBLIC.
function(quillbar_floor name)
    cmake_parse_arguments(FLOOR "" "" "PUBLIC;PRIVATE" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(quillbar_${name} STATIC ${sources})
    set_target_properties(quillbar_${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(quillbar_${name}
        PUBLIC quillbar_flags ${FLOOR_PUBLIC}
        PRIVATE ${FLOOR_PRIVATE})
    quillbar_precompile(quillbar_${name} core)
endfunction()

# A room of the application: a static library of every source in its folder but main.cpp, named
# quillbar_NAME. PUBLIC and PRIVATE name what it links to. AUTOMOC is for a room with classes that
# have signals, slots or properties of their own.
function(quillbar_room name)
    cmake_parse_arguments(ROOM "AUTOMOC" "" "PUBLIC;PRIVATE" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(quillbar_${name} STATIC ${sources})
    set_target_properties(quillbar_${name} PROPERTIES AUTOMOC ${ROOM_AUTOMOC} LINKER_LANGUAGE CXX)
    target_link_libraries(quillbar_${name}
        PUBLIC quillbar_flags ${ROOM_PUBLIC}
        PRIVATE ${ROOM_PRIVATE})
    quillbar_precompile(quillbar_${name} qt)
endfunction()

# A test program of every *Test.cpp in its folder, named quillbar-tests-NAME and run by ctest as
# NAME. LIBRARIES names what it links to beside GoogleTest; what else is given goes to
# quillbar_add_test.
function(quillbar_tests name)
    cmake_parse_arguments(TESTS "" "" "LIBRARIES" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_executable(quillbar-tests-${name} ${sources})
    target_link_libraries(quillbar-tests-${name}
        PRIVATE quillbar_flags quillbar_test_support ${TESTS_LIBRARIES} GTest::gmock GTest::gtest)
    set(precompiled test)
    if(TESTS_LIBRARIES MATCHES "quillbar_(qt|widget)_test_main")
        set(precompiled qt_test)
    endif()
    quillbar_precompile(quillbar-tests-${name} ${precompiled})
    quillbar_add_test(${name} quillbar-tests-${name} ${TESTS_UNPARSED_ARGUMENTS})
endfunction()
