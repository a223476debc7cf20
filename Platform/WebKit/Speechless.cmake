# SPDX-License-Identifier: Apache-2.0
# The engine is linked with voices for reading pages aloud. Relocating them takes a third of the start of each of its
# processes, and nobody here listens. Libraries of the same names that do nothing take their places: they have every
# symbol of those that are installed, whose number and names this looks up.
set(SPEECHLESS_FOLDER ${TEXTTOOL_MODULE_FOLDER}/WebKit/Speechless)
find_library(WEBKITGTK_FILE NAMES webkit2gtk-4.1 HINTS ${WEBKITGTK_LIBRARY_DIRS} REQUIRED)
get_filename_component(WEBKITGTK_FILE ${WEBKITGTK_FILE} REALPATH)
get_filename_component(LIBRARIES_FOLDER ${WEBKITGTK_FILE} DIRECTORY)

execute_process(COMMAND ${CMAKE_OBJDUMP} -p ${WEBKITGTK_FILE} OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "libflite[A-Za-z0-9_.]*" voices "${headers}")

foreach(voice ${voices})
    execute_process(COMMAND ${CMAKE_NM} -D --defined-only --format=posix ${LIBRARIES_FOLDER}/${voice}
        OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "([A-Za-z0-9_]+) [^\n]*\n" "void *\\1(void) { return 0; }\n" functions "${symbols}")
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/Speechless/${voice}.c CONTENT "${functions}" @ONLY)
    string(MAKE_C_IDENTIFIER speechless_${voice} target)
    add_library(${target} SHARED ${CMAKE_CURRENT_BINARY_DIR}/Speechless/${voice}.c)
    set_target_properties(${target} PROPERTIES
        PREFIX "" SUFFIX "" OUTPUT_NAME ${voice} LIBRARY_OUTPUT_DIRECTORY ${SPEECHLESS_FOLDER})
    target_compile_options(${target} PRIVATE -w -ffreestanding -fno-sanitize=all)
    target_link_options(${target} PRIVATE -nostdlib -fno-sanitize=all)
    install(TARGETS ${target} LIBRARY DESTINATION ${TEXTTOOL_INSTALLED_MODULES}/WebKit/Speechless COMPONENT web)
    add_dependencies(WebKitModule ${target})
endforeach()

# Found by the module, and so by what it is linked with, before the others.
target_link_options(WebKitModule PRIVATE -Wl,--disable-new-dtags)
set_target_properties(WebKitModule PROPERTIES
    BUILD_WITH_INSTALL_RPATH ON INSTALL_RPATH "\$ORIGIN/WebKit/Speechless")
