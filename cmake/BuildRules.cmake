# SPDX-License-Identifier: Apache-2.0
# How everything here is compiled and linked.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported()

# A program that runs for milliseconds gains more from small code than from unrolled loops.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
# Fast enough to run every test, quick to compile, and reports name their lines.
set(CMAKE_CXX_FLAGS_SANITIZE "-O1 -g1")

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wno-sign-conversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # -Wrestrict of g++ 12 takes string concatenations for overlapping copies.
    add_compile_options(-Wshadow=local -Wno-restrict)
else()
    add_compile_options(-Wshadow)
endif()
include_directories(${CMAKE_SOURCE_DIR})

if(TEXTTOOL_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(_GLIBCXX_ASSERTIONS TEXTTOOL_SANITIZED)
else()
    add_compile_options(-fstack-protector-strong $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
    add_link_options(-Wl,-z,relro,-z,now,-z,pack-relative-relocs -Wl,--as-needed -Wl,--hash-style=gnu)
endif()
# What steers the fuzzer is of no use where the compiler's own counters only measure.
if(TEXTTOOL_FUZZ AND TEXTTOOL_SANITIZE)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(TEXTTOOL_STATIC_RUNTIME)
    add_link_options(-static-libstdc++ -static-libgcc)
endif()

# What is installed belongs to the program, unless it says otherwise: cmake/Packages.cmake tells of the others.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME texttool)
set(TEXTTOOL_MODULE_COMPONENT_KFileMetaData kfilemetadata)
set(TEXTTOOL_MODULE_COMPONENT_PDF pdf)
set(TEXTTOOL_MODULE_COMPONENT_WebKit web)

# What modules are made of, as a library that tests link too. Nothing of it is seen from outside of a module.
function(add_texttool_reader name)
    add_library(${name} STATIC ${ARGN})
    set_target_properties(${name} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# A module: one entry goes out; values and library are resolved from the program that loads it.
function(add_texttool_module name)
    add_library(${name}Module MODULE ${ARGN})
    set_target_properties(${name}Module PROPERTIES
        OUTPUT_NAME ${name} PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${TEXTTOOL_MODULE_FOLDER}
        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    target_link_options(${name}Module PRIVATE -Wl,--exclude-libs,ALL)
    set_property(GLOBAL APPEND PROPERTY TEXTTOOL_MODULES ${name}Module)
    set(component ${TEXTTOOL_MODULE_COMPONENT_${name}})
    if(NOT component)
        set(component ${CMAKE_INSTALL_DEFAULT_COMPONENT_NAME})
    endif()
    install(TARGETS ${name}Module LIBRARY DESTINATION ${TEXTTOOL_INSTALLED_MODULES} COMPONENT ${component})
endfunction()

# For a module whose library is C++ itself and brings the C++ runtime as a shared library: one copy of the runtime
# must throw and catch the library's exceptions.
function(use_shared_runtime target)
    get_target_property(options ${target} LINK_OPTIONS)
    list(REMOVE_ITEM options -static-libstdc++ -static-libgcc)
    set_target_properties(${target} PROPERTIES LINK_OPTIONS "${options}")
endfunction()
