# What an operation costs: brindle_bench for the C++ side, and the floors that the Python side is measured against.
# bench/run.py runs both and prints one table. Not part of a plain build: ./run bench builds them.
file(GLOB_RECURSE bench_found CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/bench/*.cpp)
if(bench_found)
    find_package(benchmark REQUIRED)
    brindle_sources(bench_sources bench EXCLUDE bench/floors/cpython bench/peers)
    add_executable(brindle_bench EXCLUDE_FROM_ALL ${bench_sources})
    brindle_own_code(brindle_bench)
    set_target_properties(brindle_bench PROPERTIES AUTOMOC ON)
    target_link_libraries(brindle_bench PRIVATE
        BrindleObjectModelCore $<LINK_ONLY:${BRINDLE_ENGINE_TARGET}> benchmark::benchmark
        BrindleRenderObjects PkgConfig::Imath PkgConfig::Geom2d)

    # An extension module on CPython's own API and nothing else, importable from <build>/bench. A module isn't linked with
    # libpython, as the product isn't.
    brindle_sources(floor_sources bench/floors/cpython)
    add_library(brindle_cpython_floors MODULE EXCLUDE_FROM_ALL ${floor_sources})
    target_compile_options(brindle_cpython_floors PRIVATE -Wall -Wextra -Wpedantic -Werror)
    target_include_directories(brindle_cpython_floors SYSTEM PRIVATE ${Python3_INCLUDE_DIRS})
    set_target_properties(brindle_cpython_floors PROPERTIES
        PREFIX "" OUTPUT_NAME cpython_floors LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bench)
    add_dependencies(brindle_bench brindle_cpython_floors)

    # What pictures are compared with beside other programs: Qt's painter alone, and pictures of many samples a pixel.
    brindle_sources(peers_sources bench/peers)
    add_executable(brindle_peers EXCLUDE_FROM_ALL ${peers_sources})
    brindle_compile_flags(brindle_peers)
    target_include_directories(brindle_peers PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(brindle_peers PRIVATE Qt6::Gui)
endif()
