// SPDX-License-Identifier: Apache-2.0
//
// Opens any bytes as a package and reads all of its entries.
#include "Platform/AppKit/Package/ZipPackage.h"

#include <cstdlib>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    auto package = ZipPackage::open(bytes);
    if (!package) return 0;
    std::vector<std::string> names;
    package->findName([&](std::string_view name) {
        names.emplace_back(name);
        return names.size() >= 64;
    });
    Deadline deadline;
    uint64_t total = 0;
    for (const std::string& name : names) {
        if (!package->contains(name)) std::abort();
        package->read(name, deadline, [&](std::string_view piece) {
            if (piece.empty() || piece.size() > ZipPackage::kPieceSize) std::abort();
            total += piece.size();
            return true;
        });
        if (package->contents(name, deadline, 100).size() > 100) std::abort();
    }
    if (total > size * ZipPackage::kRatioLimit) std::abort();
    return 0;
}
