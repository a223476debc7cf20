// SPDX-License-Identifier: Apache-2.0
//
// Runs a fuzz target over files: each argument is an input or a folder of inputs. Standard output says how
// many ran.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

static int runFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    return 1;
}

int main(int count, char** arguments) {
    int ran = 0;
    for (int i = 1; i < count; ++i) {
        std::filesystem::path path = arguments[i];
        if (!std::filesystem::is_directory(path)) {
            ran += runFile(path);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(path)) ran += runFile(entry.path());
    }
    printf("%d seeds\n", ran);
    return ran > 0 ? 0 : 1;
}
