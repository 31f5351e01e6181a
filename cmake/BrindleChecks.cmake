# Checks of the build itself: who includes whom, and what the object model exports.

file(GLOB_RECURSE layered CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/core/*.h ${PROJECT_SOURCE_DIR}/core/*.cpp
    ${PROJECT_SOURCE_DIR}/engine/*.h ${PROJECT_SOURCE_DIR}/engine/*.cpp
    ${PROJECT_SOURCE_DIR}/service/*.h ${PROJECT_SOURCE_DIR}/service/*.cpp
    ${PROJECT_SOURCE_DIR}/qtscript/*.h ${PROJECT_SOURCE_DIR}/qtscript/*.cpp
    ${PROJECT_SOURCE_DIR}/render/*.h ${PROJECT_SOURCE_DIR}/render/*.cpp
    ${PROJECT_SOURCE_DIR}/app/*.h ${PROJECT_SOURCE_DIR}/app/*.cpp)
set(check_layers ${PROJECT_SOURCE_DIR}/cmake/check_layers.py)
set(layers_stamp ${CMAKE_BINARY_DIR}/layers.stamp)
add_custom_command(OUTPUT ${layers_stamp}
    COMMAND ${Python3_EXECUTABLE} ${check_layers} ${PROJECT_SOURCE_DIR}
    COMMAND ${CMAKE_COMMAND} -E touch ${layers_stamp}
    DEPENDS ${check_layers} ${layered}
    COMMENT "Checking who includes whom" VERBATIM)
add_custom_target(check_layers ALL DEPENDS ${layers_stamp})

if(BRINDLE_TESTS)
    add_test(NAME layers COMMAND ${Python3_EXECUTABLE} ${check_layers} ${PROJECT_SOURCE_DIR})
endif()
# A sanitizer marks the library's variables with symbols of its own.
if(BRINDLE_TESTS AND NOT BRINDLE_SANITIZE)
    add_test(NAME core_exports COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/cmake/check_exports.py
        $<TARGET_FILE:BrindleObjectModelCore> ${PROJECT_SOURCE_DIR}/core/host)
endif()
