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
    # What nearly every test includes takes longer to compile than the test itself.
    target_precompile_headers(quillbar-tests-${name} PRIVATE
        <gmock/gmock.h> <gtest/gtest.h>
        <boost/signals2/signal_type.hpp>
        <chrono> <filesystem> <functional> <memory> <optional> <string> <vector>)
    quillbar_add_test(${name} quillbar-tests-${name} ${TESTS_UNPARSED_ARGUMENTS})
endfunction()
