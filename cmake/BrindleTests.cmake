# One ctest run has every test. A test program is there twice: case by case under the label "case", for ctest -R, and whole,
# in a few parts that run side by side, under the label "program", for ./test: starting it for each of two thousand cases
# takes longer than they do. What a part or a pytest run did, case by case, is in reports/<entry>.xml.

find_package(GTest 1.12 REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
include(GoogleTest)

# Preferences are those of a user who never set any.
set(test_environment QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 XDG_CONFIG_HOME=${CMAKE_BINARY_DIR}/config)
set(python_environment ${test_environment} PYTHONPATH=${CMAKE_BINARY_DIR}/python PYTHONDONTWRITEBYTECODE=1)
if("address" IN_LIST BRINDLE_SANITIZE)
    set(runtimes libasan.so libubsan.so libstdc++.so)
    # The interpreter keeps memory until the process ends, which isn't ours to report.
    set(interpreter_options ASAN_OPTIONS=detect_leaks=0)
    list(APPEND python_environment PYTHONMALLOC=malloc ${interpreter_options})
elseif("thread" IN_LIST BRINDLE_SANITIZE)
    set(runtimes libtsan.so libstdc++.so)
    list(APPEND python_environment TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/tsan.suppressions)
endif()
if(BRINDLE_SANITIZE)
    # The interpreter isn't sanitized, so the runtimes are loaded before it.
    set(preload)
    foreach(runtime IN LISTS runtimes)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${runtime}
            OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
        file(REAL_PATH ${file} file)
        list(APPEND preload ${file})
    endforeach()
    list(JOIN preload ":" preload)
    list(APPEND python_environment LD_PRELOAD=${preload})
endif()
if("thread" IN_LIST BRINDLE_SANITIZE)
    list(APPEND test_environment TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/tsan.suppressions)
endif()
if(BRINDLE_SANITIZE)
    list(APPEND test_environment UBSAN_OPTIONS=print_stacktrace=1)
    list(APPEND python_environment UBSAN_OPTIONS=print_stacktrace=1)
endif()

# A test program runs for seconds and is compiled far more often: optimising it doesn't pay. What it tests is optimised.
set(test_optimisation -Og)
brindle_precompiled(brindle_test_headers LIBRARIES Qt6::Core GTest::gmock GTest::gtest
    OPTIONS ${test_optimisation} HEADERS ${BRINDLE_COMMON_HEADERS} <gtest/gtest.h>)

function(brindle_test_code target sources)
    brindle_compile_flags(${target})
    target_compile_options(${target} PRIVATE ${test_optimisation})
    target_precompile_headers(${target} REUSE_FROM brindle_test_headers)
    brindle_compile_together(${target} 12 "${sources}")
endfunction()

# brindle_gtest(<target> <folder> PARTS <number>|SLOW [ENVIRONMENT <name=value>...] LIBRARIES <library>...): nothing while it
# has no test.
function(brindle_gtest target folder)
    cmake_parse_arguments(arg "SLOW" "PARTS" "LIBRARIES;ENVIRONMENT" ${ARGN})
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
    if(NOT found)
        return()
    endif()
    brindle_sources(sources ${folder})
    add_executable(${target} ${sources})
    brindle_test_code(${target} "${sources}")
    # Tests declare what a class should not: moc needn't warn of it.
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOMOC_MOC_OPTIONS --no-warnings)
    target_link_libraries(${target} PRIVATE ${arg_LIBRARIES} GTest::gmock GTest::gtest)
    # A folder's tests bring their own main() when they need one.
    set(mains ${sources})
    list(FILTER mains INCLUDE REGEX "/main\\.cpp$")
    if(NOT mains)
        target_link_libraries(${target} PRIVATE GTest::gtest_main)
    endif()
    # A test property can't hold a list here, so the environment is set by what starts the tests.
    set_target_properties(${target} PROPERTIES
        CROSSCOMPILING_EMULATOR "/usr/bin/env;${test_environment};${arg_ENVIRONMENT}")
    if(arg_SLOW)
        set(label slow)
    else()
        set(label case)
        brindle_gtest_parts(${target} ${arg_PARTS})
    endif()
    gtest_discover_tests(${target} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 NO_PRETTY_VALUES
        PROPERTIES TIMEOUT 300 LABELS ${label})
endfunction()

# <target>.1 to <target>.<parts>: GoogleTest deals the cases out.
function(brindle_gtest_parts target parts)
    foreach(part RANGE 1 ${parts})
        set(name ${target}.${part})
        math(EXPR index "${part} - 1")
        add_test(NAME ${name} COMMAND ${target})
        set_tests_properties(${name} PROPERTIES LABELS program TIMEOUT 900 ENVIRONMENT
            "GTEST_TOTAL_SHARDS=${parts};GTEST_SHARD_INDEX=${index};GTEST_OUTPUT=xml:${CMAKE_BINARY_DIR}/reports/${name}.xml")
    endforeach()
endfunction()

brindle_gtest(engine_tests tests/engine PARTS 2 LIBRARIES BrindleEngineObjects PkgConfig::Geom2d)
set_source_files_properties(tests/engine/graph/nodepage_test.cpp PROPERTIES
    COMPILE_DEFINITIONS "BRINDLE_NODE_PAGE=\"${PROJECT_SOURCE_DIR}/docs/nodes.md\"")
brindle_gtest(render_tests tests/render PARTS 1
    LIBRARIES BrindleRenderObjects $<LINK_ONLY:${BRINDLE_ENGINE_TARGET}> ${CMAKE_DL_LIBS})
add_dependencies(render_tests BrindleImageIO)
brindle_gtest(qtscript_tests tests/qtscript PARTS 1 LIBRARIES BrindleQtScript)
brindle_gtest(core_tests tests/core PARTS 2
    LIBRARIES BrindleObjectModelCore $<LINK_ONLY:${BRINDLE_ENGINE_TARGET}>)
# Service libraries in the place of ours, each in a folder of its own: what the object model makes of them.
foreach(kind IN ITEMS telling refusing silent broken)
    add_library(service_${kind} MODULE ${PROJECT_SOURCE_DIR}/tests/servicelibraries/${kind}.cpp)
    brindle_own_code(service_${kind})
    set_target_properties(service_${kind} PROPERTIES
        OUTPUT_NAME BrindleObjectModelServiceLib LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/${kind})
    target_link_libraries(service_${kind} PRIVATE BrindleObjectModelCore)
    add_dependencies(core_tests service_${kind})
endforeach()
target_compile_definitions(core_tests PRIVATE BRINDLE_TEST_LIBRARIES="${CMAKE_BINARY_DIR}/tests")
brindle_gtest(service_tests tests/service PARTS 2
    LIBRARIES BrindleObjectModelServiceLib $<LINK_ONLY:${BRINDLE_ENGINE_TARGET}> Python3::Python
    ENVIRONMENT PYTHONPATH=${CMAKE_BINARY_DIR}/python ${interpreter_options})
brindle_gtest(desk_tests tests/app/desk PARTS 1
    LIBRARIES BrindleDesk Qt6::Test ENVIRONMENT PYTHONPATH=${CMAKE_BINARY_DIR}/python ${interpreter_options})
add_dependencies(desk_tests BrindleObjectModelServiceLib)

# What takes long by its nature, with the label "slow": waiting with the clock as it is, and the stress of threads for a
# minute.
brindle_gtest(slow_tests tests/slow SLOW
    LIBRARIES BrindleObjectModelCore $<LINK_ONLY:${BRINDLE_ENGINE_TARGET}>)
target_sources(slow_tests PRIVATE
    ${PROJECT_SOURCE_DIR}/tests/core/main.cpp ${PROJECT_SOURCE_DIR}/tests/core/support/python.cpp)
add_test(NAME ThreadStressForAMinute COMMAND service_tests --gtest_filter=ThreadStressTest.*)
set_tests_properties(ThreadStressForAMinute PROPERTIES LABELS slow TIMEOUT 300 COST 60
    ENVIRONMENT "${test_environment};PYTHONPATH=${CMAKE_BINARY_DIR}/python;${interpreter_options};BRINDLE_STRESS_SECONDS=60")

# brindle_pytest(<name> [LABEL <label>] [ENVIRONMENT <name=value>...] FILES <file>...)
function(brindle_pytest name)
    cmake_parse_arguments(arg "" "LABEL" "FILES;ENVIRONMENT" ${ARGN})
    add_test(NAME ${name}
        COMMAND ${Python3_EXECUTABLE} -m pytest -q -p no:cacheprovider
            --junitxml=${CMAKE_BINARY_DIR}/reports/${name}.xml ${arg_FILES}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    # The longest begin first, so that none is left alone at the end.
    set_tests_properties(${name} PROPERTIES
        LABELS "${arg_LABEL}" ENVIRONMENT "${arg_ENVIRONMENT}" TIMEOUT 1800 COST 30)
endfunction()

# Several entries for one folder, so that they run side by side.
function(brindle_pytest_parts name parts folder)
    file(GLOB found CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/${folder}/test_*.py)
    set(index 0)
    foreach(file IN LISTS found)
        math(EXPR part "${index} % ${parts} + 1")
        list(APPEND part_${part} ${file})
        math(EXPR index "${index} + 1")
    endforeach()
    foreach(part RANGE 1 ${parts})
        brindle_pytest(${name}.${part} FILES ${part_${part}} ${ARGN})
    endforeach()
endfunction()

list(APPEND python_environment BRINDLE_BIN=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/brindle)
brindle_pytest_parts(python 4 tests/python LABEL quick ENVIRONMENT ${python_environment})
# In its place with --slow: more examples of all that is tried with random ones.
brindle_pytest_parts(python_deep 4 tests/python LABEL slow ENVIRONMENT ${python_environment} BRINDLE_TEST_DEEP=1)
if("thread" IN_LIST BRINDLE_SANITIZE)
    brindle_pytest(python_threads ENVIRONMENT ${python_environment}
        FILES tests/python/test_threads.py tests/python/test_batch_threads.py tests/python/test_run_on_main.py
            tests/python/test_render.py)
endif()
brindle_pytest(build_checks FILES tests/build ENVIRONMENT ${test_environment} PYTHONDONTWRITEBYTECODE=1)
