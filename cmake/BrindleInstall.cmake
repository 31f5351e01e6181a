# cmake --install gives the libraries with their headers and find_package(Brindle), the Python package, the command line.
include(CMakePackageConfigHelpers)

install(TARGETS BrindleHost EXPORT BrindleTargets)
install(EXPORT BrindleTargets NAMESPACE Brindle:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Brindle)
configure_package_config_file(cmake/BrindleConfig.cmake.in ${CMAKE_BINARY_DIR}/BrindleConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Brindle)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/BrindleConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/BrindleConfig.cmake ${CMAKE_BINARY_DIR}/BrindleConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Brindle)

install(DIRECTORY core qtscript DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/brindle FILES_MATCHING PATTERN "*.h")
# What a program of its own needs to start the open engine.
install(FILES engine/engine.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/brindle/engine)

# Debian's interpreter looks here where the prefix is /usr or /usr/local.
set(BRINDLE_PYTHON_DIR lib/python${Python3_VERSION_MAJOR}.${Python3_VERSION_MINOR}/dist-packages CACHE STRING
    "Where the Python package goes, relative to the prefix")
file(GLOB python_package_files CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/service/python/brindle/*.py ${PROJECT_SOURCE_DIR}/service/python/brindle/*.pyi
    ${PROJECT_SOURCE_DIR}/service/python/brindle/py.typed)
install(FILES ${python_package_files} DESTINATION ${BRINDLE_PYTHON_DIR}/brindle)
# The package's module is the service library itself: a link, so that a process never has it twice. What it needs is
# found from either place.
file(RELATIVE_PATH package_to_libraries /${BRINDLE_PYTHON_DIR}/brindle /${CMAKE_INSTALL_LIBDIR})
string(REGEX REPLACE "/$" "" package_to_libraries ${package_to_libraries})
set_target_properties(BrindleObjectModelServiceLib PROPERTIES INSTALL_RPATH "$ORIGIN;$ORIGIN/${package_to_libraries}")
install(CODE "file(CREATE_LINK
    \"${package_to_libraries}/$<TARGET_FILE_NAME:BrindleObjectModelServiceLib>\"
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${BRINDLE_PYTHON_DIR}/brindle/_brindle.so\" SYMBOLIC)")
# The command line finds the package at the libraries, wherever they are: in a folder that holds nothing else
# (service/scriptengine.cpp looks there).
set(own_package_dir ${CMAKE_INSTALL_LIBDIR}/brindle/python)
file(RELATIVE_PATH own_to_package /${own_package_dir} /${BRINDLE_PYTHON_DIR}/brindle)
install(DIRECTORY DESTINATION ${own_package_dir})
install(CODE "file(CREATE_LINK \"${own_to_package}\"
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${own_package_dir}/brindle\" SYMBOLIC)")
