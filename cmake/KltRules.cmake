# How everything here is compiled, and one function for each kind of target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE)
    # It would leave out whatever is compiled with a precompiled header, and read every file twice.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_DEPEND=1 CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()

# There are some hundred programs to link, which the default linker takes three times as long for.
find_program(FAST_LINKER NAMES ld.lld ld.gold)
if(FAST_LINKER)
    string(REGEX REPLACE ".*ld\\.(lld|gold)$" "\\1" linker ${FAST_LINKER})
    add_link_options(-fuse-ld=${linker})
endif()

add_library(klt_warnings INTERFACE)
target_compile_options(klt_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

# klt_folder(NAME SOURCES... USES TARGET...)
# One library for one folder of src/. Its headers are found as "NAME/Header.h", by itself and by whoever
# links it, and by nobody else: a folder that looks at one above it does not build.
function(klt_folder name)
    cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
    set(door ${CMAKE_BINARY_DIR}/include/${name})
    file(MAKE_DIRECTORY ${door})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/src/${name} ${door}/${name} SYMBOLIC)
    add_library(klt_${name} STATIC ${ARG_SOURCES})
    target_include_directories(klt_${name} PUBLIC ${door})
    target_link_libraries(klt_${name} PUBLIC ${ARG_USES} PRIVATE klt_warnings)
endfunction()

# What is tested is optimised; optimising the tests takes longer than running them.
set(KLT_TEST_OPTIONS -O0 -g1)

# klt_test(FOLDER/NAME USES TARGET... [WINDOW] [PATHS])
# One test program from tests/FOLDER/NAME.cpp, labelled with its folder. WINDOW gives it an offscreen Qt, PATHS
# tells it where the sources, the test data and the programs are. The others are the same wherever they are
# built, so that a compiler cache serves several checkouts.
function(klt_test path)
    cmake_parse_arguments(ARG "WINDOW;PATHS" "TIMEOUT" "USES" ${ARGN})
    get_filename_component(folder ${path} DIRECTORY)
    get_filename_component(name ${path} NAME)
    add_executable(${name} ${CMAKE_SOURCE_DIR}/tests/${path}.cpp)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests AUTOMOC OFF)
    target_link_libraries(${name} PRIVATE klt_warnings klt_test_support ${ARG_USES})
    if(ARG_WINDOW)
        target_link_libraries(${name} PRIVATE klt_test_window)
        target_precompile_headers(${name} REUSE_FROM klt_test_window)
    else()
        target_link_libraries(${name} PRIVATE klt_test_main)
        target_precompile_headers(${name} REUSE_FROM klt_test_main)
    endif()
    target_compile_options(${name} PRIVATE ${KLT_TEST_OPTIONS})
    if(ARG_PATHS)
        target_compile_definitions(${name} PRIVATE
            KLT_TEST_DATA="${CMAKE_SOURCE_DIR}/tests/data" KLT_SOURCE="${CMAKE_SOURCE_DIR}"
            KLT_BIN="${CMAKE_BINARY_DIR}/bin")
    endif()
    add_test(NAME ${path} COMMAND ${name})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set_tests_properties(${path} PROPERTIES LABELS "${folder}" TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()
