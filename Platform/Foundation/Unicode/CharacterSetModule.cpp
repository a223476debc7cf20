// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/CharacterSet.h"
#include "Platform/Foundation/Module.h"

#include <memory>
#include <new>
#include <unicode/ucsdet.h>

namespace {

struct CloseDetector {
    void operator()(UCharsetDetector* detector) const { ucsdet_close(detector); }
};

} // namespace

extern "C" __attribute__((visibility("default"))) bool MODULE_ENTRY(std::string_view bytes, std::string& name,
                                                                    int& confidence) noexcept {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, CloseDetector> detector(ucsdet_open(&status));
    ucsdet_setText(detector.get(), bytes.data(), int32_t(bytes.size()), &status);
    const UCharsetMatch* match = ucsdet_detect(detector.get(), &status);
    if (U_FAILURE(status) || !match) return false;
    confidence = ucsdet_getConfidence(match, &status);
    const char* found = ucsdet_getName(match, &status);
    if (U_FAILURE(status) || !found) return false;
    try {
        name = found;
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}
