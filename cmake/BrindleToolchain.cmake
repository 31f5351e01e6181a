# What holds for every target: the language, warnings, visibility, sanitizers, the compiler cache, and where things go.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_UNITY_BUILD OFF)
# moc reads headers alone: the sources of one library compile while another isn't linked yet.
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)

if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()
# Line tables are enough for a readable stack trace, and keep the objects a third of the size.
if(CMAKE_CXX_FLAGS_RELWITHDEBINFO STREQUAL "-O2 -g -DNDEBUG")
    set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")
endif()

if(BRINDLE_SANITIZE)
    list(JOIN BRINDLE_SANITIZE "," sanitizers)
    # GCC takes values for uninitialised that the sanitizers' own code reads.
    add_compile_options(-fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer
                        -Wno-maybe-uninitialized)
    add_link_options(-fsanitize=${sanitizers})
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Precompiled headers are cached only with these set; given here, every way to start the build has them.
    set(CMAKE_CXX_COMPILER_LAUNCHER env
        CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE_PROGRAM})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-fpch-preprocess)
    else()
        add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
    endif()
endif()
