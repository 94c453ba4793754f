# SPDX-FileCopyrightText: 2026 The Quillbar developers
# SPDX-License-Identifier: MIT
#
# Every test program runs three times: in the C locale and UTC; shuffled, in German and in
# Shanghai (decimal commas, a day that begins eight hours early); and in Santiago (a midnight that
# does not exist). Nothing else of the machine reaches it: tests/support/TestEnvironment.h.

# The German locale is compiled here because a bare Debian has none.
set(QUILLBAR_LOCALES "${CMAKE_BINARY_DIR}/locales")
add_custom_command(
    OUTPUT "${QUILLBAR_LOCALES}/de_DE.UTF-8/LC_NUMERIC"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${QUILLBAR_LOCALES}"
    COMMAND localedef -i de_DE -f UTF-8 "${QUILLBAR_LOCALES}/de_DE.UTF-8"
    DEPENDS /usr/share/i18n/locales/de_DE
    COMMENT "Compiling the German locale that the tests run under"
    VERBATIM)
add_custom_target(quillbar-test-locales ALL
    DEPENDS "${QUILLBAR_LOCALES}/de_DE.UTF-8/LC_NUMERIC")

set(QUILLBAR_PLAIN "QUILLBAR_TEST_LOCALE=C.UTF-8" "QUILLBAR_TEST_ZONE=UTC")
set(QUILLBAR_GERMAN_SHANGHAI
    "QUILLBAR_TEST_LOCALE=de_DE.UTF-8" "QUILLBAR_TEST_ZONE=Asia/Shanghai")
set(QUILLBAR_SANTIAGO "QUILLBAR_TEST_LOCALE=C.UTF-8" "QUILLBAR_TEST_ZONE=America/Santiago")

# What a sanitizer must find beyond what it looks for by itself, for every test program.
set(QUILLBAR_TEST_ENVIRONMENT "")
set(QUILLBAR_TEST_PATIENCE 1)
if(QUILLBAR_SANITIZERS)
    find_program(QUILLBAR_SYMBOLIZER REQUIRED NAMES "llvm-symbolizer${QUILLBAR_LLVM_SUFFIX}")
    string(JOIN ":" asan_options
        detect_leaks=1 strict_string_checks=1 detect_stack_use_after_return=1
        check_initialization_order=1 strict_init_order=1)
    # Qt is built without it, so what Qt's own threads do with Qt's own locks looks like races.
    string(JOIN ":" tsan_options
        halt_on_error=1 second_deadlock_stack=1 ignore_noninstrumented_modules=1)
    set(QUILLBAR_TEST_ENVIRONMENT
        "ASAN_OPTIONS=${asan_options}"
        "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/../tests/leaks.supp:print_suppressions=0"
        "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1"
        "TSAN_OPTIONS=${tsan_options}"
        "ASAN_SYMBOLIZER_PATH=${QUILLBAR_SYMBOLIZER}"
        "TSAN_SYMBOLIZER_PATH=${QUILLBAR_SYMBOLIZER}")
    set(QUILLBAR_TEST_PATIENCE 10)
endif()

# The order of a shuffled run. Not a new one each time: a run must not depend on the moment.
set(QUILLBAR_SHUFFLE_SEED 4658 CACHE STRING "In which order shuffled tests run: 1 to 99999")

# Registers one run of a test program. ARGUMENTS go to the program; TIMEOUT is in seconds. SECONDS,
# for one that takes long, tells about how long, so that it begins first and nothing waits for it
# alone at the end.
function(quillbar_add_test_run name program)
    cmake_parse_arguments(RUN "" "TIMEOUT;SECONDS" "ARGUMENTS;ENVIRONMENT" ${ARGN})
    if(NOT "${RUN_ENVIRONMENT}" MATCHES "QUILLBAR_TEST_ZONE=")
        list(PREPEND RUN_ENVIRONMENT ${QUILLBAR_PLAIN})
    endif()
    if(NOT RUN_TIMEOUT)
        set(RUN_TIMEOUT 60)
    endif()
    math(EXPR patience "${RUN_TIMEOUT} * ${QUILLBAR_TEST_PATIENCE}")
    list(APPEND RUN_ENVIRONMENT ${QUILLBAR_TEST_ENVIRONMENT})
    add_test(NAME ${name} COMMAND ${program} ${RUN_ARGUMENTS})
    # A filter that nothing passes through would pass.
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "${RUN_ENVIRONMENT}"
        FAIL_REGULAR_EXPRESSION "Running 0 tests"
        TIMEOUT ${patience})
    if(RUN_SECONDS)
        set_tests_properties(${name} PROPERTIES COST ${RUN_SECONDS})
    endif()
endfunction()

# Runs a test program under ctest, in each of the three ways. TIMEOUT is in seconds, 60 when not
# given, and longer under a sanitizer. The second and the third way have the label "elsewhere".
# THREADS is for a program in which code of ours runs in more than one thread: its first way has the
# label "threads", and the target threaded-tests builds all such programs, for ThreadSanitizer.
add_custom_target(threaded-tests DEPENDS quillbar-test-locales)
function(quillbar_add_test name program)
    cmake_parse_arguments(TEST "THREADS" "" "" ${ARGN})
    set(shared ${TEST_UNPARSED_ARGUMENTS})
    quillbar_add_test_run(${name} ${program} ${shared})
    quillbar_add_test_run(${name}:shuffled-german-shanghai ${program} ${shared}
        ARGUMENTS --gtest_shuffle --gtest_random_seed=${QUILLBAR_SHUFFLE_SEED}
        ENVIRONMENT ${QUILLBAR_GERMAN_SHANGHAI})
    quillbar_add_test_run(${name}:santiago ${program} ${shared}
        ENVIRONMENT ${QUILLBAR_SANTIAGO})
    set_tests_properties(${name}:shuffled-german-shanghai ${name}:santiago
        PROPERTIES LABELS elsewhere)
    if(TEST_THREADS)
        set_tests_properties(${name} PROPERTIES LABELS threads)
        add_dependencies(threaded-tests ${program})
    endif()
endfunction()

# Registers a test in Python. ARGUMENTS go to the script; ENVIRONMENT is all that it sees beside
# the few fixed variables; TIMEOUT is in seconds.
function(quillbar_add_python_test name script)
    cmake_parse_arguments(RUN "" "TIMEOUT" "ARGUMENTS;ENVIRONMENT" ${ARGN})
    # Started in the background of a shell, it would ignore what interrupts a program.
    add_test(NAME ${name} COMMAND /usr/bin/env -i --default-signal
        PATH=/usr/bin:/bin:/usr/sbin:/sbin LC_ALL=C.UTF-8 TZ=UTC HOME=/nonexistent
        ${RUN_ENVIRONMENT}
        "${Python3_EXECUTABLE}" -B -s "${script}" ${RUN_ARGUMENTS})
    set_tests_properties(${name} PROPERTIES TIMEOUT ${RUN_TIMEOUT})
endfunction()
