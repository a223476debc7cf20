// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for PDF. The module is linked with MuPDF, which is licensed under the GNU Affero
// General Public License, version 3 or later: so is the module as a whole when it is given out.
#include "Platform/Foundation/Module.h"
#include "Platform/PDFKit/MuPDF/MuPDFEngine.h"

#include <new>

extern "C" __attribute__((visibility("default"))) PDFEngine* MODULE_ENTRY(std::string_view bytes) {
    try {
        return MuPDFEngine::open(bytes).release();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
