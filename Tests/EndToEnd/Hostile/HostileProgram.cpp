// SPDX-License-Identifier: Apache-2.0
//
// An importer that is a program, the same.
#include "Tests/EndToEnd/Hostile/Attempts.h"

#include <fstream>
#include <iostream>

int main(int, const char** arguments) {
    std::ifstream lines(arguments[1]);
    for (std::string line; std::getline(lines, line);) std::cout << attempt(line) << std::endl;
}
