/* SPDX-License-Identifier: Apache-2.0 */
/*
 * What a library that is an importer exports, in C. It works in a process of its own, which ends afterwards:
 * it need not free anything, and may use as many libraries as it likes.
 */
#ifndef TEXTTOOL_IMPORTER_MODULE_H
#define TEXTTOOL_IMPORTER_MODULE_H

#include <stddef.h> /* NOLINT(modernize-deprecated-headers) */

#ifdef __cplusplus
extern "C" {
#endif

/* Appends a piece of the document's text, in the encoding and the form that the descriptor says. */
typedef void (*texttool_append)(void* context, const char* bytes, size_t length);

/* Reads the document at the path, in bytes and absolute. 0 for success, all else for failure. */
typedef int (*texttool_import)(const char* path, texttool_append append, void* context);

/* The name of the function that the library exports. */
#define TEXTTOOL_IMPORT_FUNCTION "texttool_import_text"

#ifdef __cplusplus
}
#endif

#endif
