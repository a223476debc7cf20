# SPDX-License-Identifier: Apache-2.0
# Debian packages, one for each component of what is installed: the tool, its two heaviest readers each by itself, so
# that who reads neither PDF nor web archives has none of their libraries, the library for programmers, and the bridge to
# KFileMetaData where that was there to build it.
# Scripts/package makes them so that the same sources give the same bytes.
set(PACKAGING ${PROJECT_SOURCE_DIR}/Packaging)
set(DEBIAN_PACKAGES texttool texttool-pdf texttool-web libzorfoundation-dev)
set(COMPONENT_OF_texttool texttool)
set(COMPONENT_OF_texttool-pdf pdf)
set(COMPONENT_OF_texttool-web web)
set(COMPONENT_OF_libzorfoundation-dev development)
if(TARGET KFileMetaDataModule)
    list(APPEND DEBIAN_PACKAGES texttool-kfilemetadata)
    set(COMPONENT_OF_texttool-kfilemetadata kfilemetadata)
endif()

# What Debian wants beside each package's files. A licence that says more than the common one has a part of its own.
foreach(package ${DEBIAN_PACKAGES})
    set(folder ${CMAKE_INSTALL_DATADIR}/doc/${package})
    set(component ${COMPONENT_OF_${package}})
    file(READ ${PACKAGING}/copyright copyright)
    if(EXISTS ${PACKAGING}/copyright.${package})
        file(READ ${PACKAGING}/copyright.${package} more)
        string(APPEND copyright "\n${more}")
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PACKAGING}/copyright.${package})
    endif()
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/packaging/${package}/copyright CONTENT "${copyright}" @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/packaging/${package}/copyright ${PACKAGING}/changelog
        DESTINATION ${folder} COMPONENT ${component})
endforeach()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PACKAGING}/copyright)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME texttool)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL)
foreach(package ${DEBIAN_PACKAGES})
    list(APPEND CPACK_COMPONENTS_ALL ${COMPONENT_OF_${package}})
endforeach()
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/FinishPackages.cmake)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "texttool maintainers <maintainers@texttool.larkspur.org>")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Modules are no libraries for others. CPack would run ldconfig for them, but for packages with scripts of their own; that
# these are not there leaves the packages without any.
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA none/postinst none/postrm)

# debian_package(NAME SECTION SUMMARY DESCRIPTION [DEPENDS ...] [RECOMMENDS ...])
function(debian_package name section summary description)
    cmake_parse_arguments(PACKAGE "" "DEPENDS;RECOMMENDS;SUGGESTS" "" ${ARGN})
    string(TOUPPER ${COMPONENT_OF_${name}} component)
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${component}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_COMPONENT_${component}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
    foreach(field DEPENDS RECOMMENDS SUGGESTS)
        if(PACKAGE_${field})
            set(CPACK_DEBIAN_${component}_PACKAGE_${field} "${PACKAGE_${field}}" PARENT_SCOPE)
        endif()
    endforeach()
endfunction()

debian_package(texttool text "text and attributes of documents, as one record each"
"texttool reads one document and answers with one record: its plain text,
its title and author, and whatever else the document says of itself, or
the error that kept it from being read. It is made for programs that
start it once for each document, and for documents from strangers.
.
It reads RTF, Word, OpenDocument, HTML and plain text, the metadata of
sound, film and images, and the words of other files through importers.
The readers of PDF and of web archives are packages of their own."
    RECOMMENDS "shared-mime-info, texttool-pdf (= ${PROJECT_VERSION})"
    SUGGESTS "texttool-web (= ${PROJECT_VERSION}), catdoc, djvulibre-bin, ghostscript, mupdf-tools, recollcmd")
debian_package(texttool-pdf text "reader of PDF documents for texttool"
"The module with which texttool reads PDF documents: the text of their
pages, their annotations and what they say of themselves.
.
It contains MuPDF and comes under the GNU Affero General Public License."
    DEPENDS "texttool (= ${PROJECT_VERSION})")
debian_package(texttool-web text "reader of web archives for texttool"
"The module with which texttool reads web archives: it shows a saved page
in a web engine that nobody sees, in a sandbox, and takes its text."
    DEPENDS "texttool (= ${PROJECT_VERSION}), bubblewrap, xdg-dbus-proxy, xvfb")
debian_package(libzorfoundation-dev libdevel "library for programs that start texttool"
"A static library in C++20 that reads the records of texttool, with the
values, errors, settings and paths that they are made of, its headers and
the files for CMake and pkg-config."
    DEPENDS "libstdc++-12-dev | libstdc++-dev, libc6-dev" SUGGESTS "texttool (= ${PROJECT_VERSION})")
if(TARGET KFileMetaDataModule)
    debian_package(texttool-kfilemetadata text "importer of more kinds of files for texttool"
"The module through which texttool reads the words of kinds of files that
have a plug-in of KFileMetaData, such as Mobipocket books."
        DEPENDS "texttool (= ${PROJECT_VERSION}), libkf5filemetadata-bin")
endif()
include(CPack)
