// SPDX-License-Identifier: Apache-2.0
#include "Tests/EndToEnd/ElfFile.h"

#include "Tests/Support/TemporaryFolder.h"

#include <cstring>
#include <elf.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>
#include <vector>

namespace {

template <class T>
std::vector<T> table(std::string_view bytes, size_t offset, size_t size) {
    std::vector<T> entries(size / sizeof(T));
    bytes.copy(reinterpret_cast<char*>(entries.data()), entries.size() * sizeof(T), offset);
    return entries;
}

Elf64_Ehdr headerOf(std::string_view bytes) { return table<Elf64_Ehdr>(bytes, 0, sizeof(Elf64_Ehdr)).at(0); }

std::vector<Elf64_Shdr> sectionsOf(std::string_view bytes) {
    Elf64_Ehdr header = headerOf(bytes);
    return table<Elf64_Shdr>(bytes, header.e_shoff, header.e_shnum * sizeof(Elf64_Shdr));
}

// Where the process has the start of the file, which is where the file's addresses count from.
uint64_t loadAddress(const std::string& path, pid_t process) {
    std::ifstream maps("/proc/" + std::to_string(process) + "/maps");
    for (std::string line; std::getline(maps, line);) {
        if (line.ends_with(path) && line.find(" 00000000 ") != std::string::npos)
            return std::stoull(line, nullptr, 16);
    }
    ADD_FAILURE() << path << " is not loaded in " << process;
    return 0;
}

std::string memoryOf(pid_t process, uint64_t address, size_t length) {
    int fd = open(("/proc/" + std::to_string(process) + "/mem").c_str(), O_RDONLY | O_CLOEXEC);
    std::string bytes(length, '\0');
    ssize_t count = pread(fd, bytes.data(), length, off_t(address));
    close(fd);
    bytes.resize(count > 0 ? size_t(count) : 0);
    return bytes;
}

} // namespace

ElfFile::ElfFile(const std::string& path) : path_(std::filesystem::canonical(path)), bytes_(readFile(path)) {
    EXPECT_EQ(headerOf(bytes_).e_ident[EI_CLASS], ELFCLASS64) << path;
}

std::optional<std::string> ElfFile::section(std::string_view name) const {
    std::vector<Elf64_Shdr> sections = sectionsOf(bytes_);
    const Elf64_Shdr& names = sections.at(headerOf(bytes_).e_shstrndx);
    for (const Elf64_Shdr& section : sections) {
        if (name == bytes_.c_str() + names.sh_offset + section.sh_name) {
            return bytes_.substr(section.sh_offset, section.sh_size);
        }
    }
    return std::nullopt;
}

uint64_t ElfFile::symbolAddress(std::string_view name) const {
    std::vector<Elf64_Shdr> sections = sectionsOf(bytes_);
    for (const Elf64_Shdr& section : sections) {
        if (section.sh_type != SHT_DYNSYM) continue;
        const char* names = bytes_.c_str() + sections.at(section.sh_link).sh_offset;
        for (const Elf64_Sym& symbol : table<Elf64_Sym>(bytes_, section.sh_offset, section.sh_size)) {
            if (name == names + symbol.st_name) return symbol.st_value;
        }
    }
    return 0;
}

std::optional<std::string> ElfFile::textOfPointer(std::string_view symbol, pid_t process) const {
    uint64_t address = symbolAddress(symbol);
    if (address == 0) return std::nullopt;
    std::string pointer = memoryOf(process, loadAddress(path_, process) + address, sizeof(uint64_t));
    uint64_t text = 0;
    memcpy(&text, pointer.data(), std::min(pointer.size(), sizeof text));
    if (text == 0) return std::nullopt;
    return std::string(memoryOf(process, text, 4096).c_str());
}
