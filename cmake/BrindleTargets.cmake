# The few functions that the targets are made with.

# Sources and headers below a folder, new files included at the next build. A folder that has no source yet gives a
# library without content, so that a tree under construction configures.
function(brindle_sources result folder)
    cmake_parse_arguments(arg "" "" "EXCLUDE" ${ARGN})
    file(GLOB_RECURSE found CONFIGURE_DEPENDS
        ${PROJECT_SOURCE_DIR}/${folder}/*.cpp ${PROJECT_SOURCE_DIR}/${folder}/*.h)
    foreach(excluded IN LISTS arg_EXCLUDE)
        list(FILTER found EXCLUDE REGEX "^${PROJECT_SOURCE_DIR}/${excluded}/")
    endforeach()
    set(units ${found})
    list(FILTER units INCLUDE REGEX "\\.cpp$")
    if(NOT units)
        set(placeholder ${CMAKE_BINARY_DIR}/empty/${folder}.cpp)
        file(CONFIGURE OUTPUT ${placeholder} CONTENT "")
        list(APPEND found ${placeholder})
    endif()
    set(${result} ${found} PARENT_SCOPE)
endfunction()

# What every compiler call of our own code has in common; warnings are errors.
function(brindle_compile_flags target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror)
    target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII)
endfunction()

# brindle_precompiled(<name> [LIBRARIES <library>...] [OPTIONS <option>...] HEADERS <header>...): headers that are compiled
# once for all targets that reuse them. Their flags have to be the same as here: the compiler refuses a precompiled header
# that doesn't fit.
function(brindle_precompiled name)
    cmake_parse_arguments(arg "" "" "LIBRARIES;OPTIONS;HEADERS" ${ARGN})
    set(placeholder ${CMAKE_BINARY_DIR}/empty/${name}.cpp)
    file(CONFIGURE OUTPUT ${placeholder} CONTENT "")
    add_library(${name} OBJECT ${placeholder})
    brindle_compile_flags(${name})
    target_compile_options(${name} PRIVATE ${arg_OPTIONS})
    target_link_libraries(${name} PRIVATE ${arg_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

set(BRINDLE_COMMON_HEADERS
    <QByteArray> <QHash> <QList> <QMap> <QMetaObject> <QMetaProperty> <QMetaType> <QObject> <QString> <QStringList>
    <QVariant> <algorithm> <array> <cmath> <functional> <map> <memory> <optional> <string> <unordered_map> <utility>
    <vector>)

# A target of the product.
function(brindle_own_code target)
    brindle_compile_flags(${target})
    target_precompile_headers(${target} REUSE_FROM brindle_product_headers)
endfunction()

# brindle_compile_together(<target> <number> <sources>): compiles up to so many sources of a folder as one, because what they
# all include and instantiate takes as long as what they do themselves. The files of a folder therefore share their unnamed
# namespaces.
function(brindle_compile_together target number sources)
    if(NOT BRINDLE_TOGETHER)
        return()
    endif()
    foreach(source IN LISTS sources)
        file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${source})
        get_filename_component(folder ${folder} DIRECTORY)
        string(MAKE_C_IDENTIFIER ${folder} folder)
        if(source MATCHES "\\.cpp$")
            list(APPEND files_of_${folder} ${source})
            list(LENGTH files_of_${folder} count)
            math(EXPR part "(${count} - 1) / ${number}")
            set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${folder}_${part})
        endif()
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # An unnamed namespace belongs to one file here as well; the compiler only sees that it came with an #include.
    target_compile_options(${target} PRIVATE -Wno-subobject-linkage)
endfunction()

function(brindle_shared_library target export_name)
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${export_name} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN" LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    # A library's calls of its own functions go straight there, as Qt's do, not through the table that another library
    # could change: a tenth of what reading a property costs.
    target_link_options(${target} PRIVATE -Wl,--as-needed -Wl,-Bsymbolic-functions
        -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map)
    # An operation that a host header declares and the engine lacks is an error of the build, not of the first call.
    # Sanitizer runtimes, and the interpreter for the service library, come in with the process.
    if(NOT BRINDLE_SANITIZE AND NOT target STREQUAL "BrindleObjectModelServiceLib")
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    install(TARGETS ${target} EXPORT BrindleTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_COMPONENT Development)
endfunction()

# What the headers below the folders say about classes and members, as a source file: Python's texts come from there. A
# member of a class in Python that no header says a word about fails the build, where the module is first imported.
function(brindle_header_texts result)
    set(headers)
    foreach(folder IN LISTS ARGN)
        file(GLOB_RECURSE found CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
        list(APPEND headers ${found})
    endforeach()
    list(FILTER headers EXCLUDE REGEX "^${PROJECT_SOURCE_DIR}/core/host/")
    set(script ${PROJECT_SOURCE_DIR}/cmake/header_texts.py)
    set(output ${CMAKE_BINARY_DIR}/generated/headertexts.cpp)
    add_custom_command(OUTPUT ${output}.stamp BYPRODUCTS ${output}
        COMMAND ${Python3_EXECUTABLE} ${script} ${PROJECT_SOURCE_DIR} ${output} ${headers}
        COMMAND ${CMAKE_COMMAND} -E touch ${output}.stamp
        DEPENDS ${script} ${headers}
        COMMENT "Reading what the headers say" VERBATIM)
    set_source_files_properties(${output} PROPERTIES
        GENERATED ON SKIP_AUTOMOC ON SKIP_PRECOMPILE_HEADERS ON OBJECT_DEPENDS ${output}.stamp)
    set(${result} ${output} ${output}.stamp PARENT_SCOPE)
endfunction()

# The package directory of the build, importable with PYTHONPATH=<build>/python: links to the sources and the library.
function(brindle_python_package target)
    set(package ${CMAKE_BINARY_DIR}/python/brindle)
    file(MAKE_DIRECTORY ${package})
    file(GLOB files CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/service/python/brindle
        ${PROJECT_SOURCE_DIR}/service/python/brindle/*.py ${PROJECT_SOURCE_DIR}/service/python/brindle/*.pyi
        ${PROJECT_SOURCE_DIR}/service/python/brindle/py.typed)
    foreach(file IN LISTS files)
        file(CREATE_LINK ${PROJECT_SOURCE_DIR}/service/python/brindle/${file} ${package}/${file} SYMBOLIC)
    endforeach()
    add_custom_command(TARGET ${target} POST_BUILD VERBATIM
        COMMAND ${CMAKE_COMMAND} -E create_symlink $<TARGET_FILE:${target}> ${package}/_brindle.so)
    # A sanitizer's runtime has to be loaded ahead of the interpreter's libraries, which is the tests' to do.
    if(NOT BRINDLE_SANITIZE)
        add_custom_command(TARGET ${target} POST_BUILD VERBATIM
            COMMAND ${CMAKE_COMMAND} -E env PYTHONPATH=${CMAKE_BINARY_DIR}/python PYTHONDONTWRITEBYTECODE=1
                ${Python3_EXECUTABLE} -c "import brindle")
    endif()
endfunction()
