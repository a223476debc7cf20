// SPDX-License-Identifier: Apache-2.0
//
// The least that a dynamically linked C++ program does: the start-up time of others is compared with its.
#include <cstdio>
#include <string>

int main(int count, char** arguments) {
    std::string text;
    for (int i = 0; i < count; ++i) text += std::string(arguments[i]) + "\n";
    return fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}
