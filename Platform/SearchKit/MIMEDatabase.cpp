// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/MIMEDatabase.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/ByteSource.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/SearchKit/MagicRules.h"
#include "Platform/SearchKit/TextLines.h"

#include <algorithm>
#include <charconv>
#include <fnmatch.h>

namespace {

constexpr size_t kLargestFile = 16 << 20; // bytes

std::string contentsOf(const std::string& path) {
    const FileDescriptor file = openForReading(path);
    if (!file) return "";
    FileSource source(file.get());
    return source.bytes(0, std::min<uint64_t>(source.size(), kLargestFile));
}

// A line of the list of names: "50:text/x-csrc:*.c:cs".
struct NamePattern {
    int weight = 0;
    std::string_view type, pattern;
    bool heedsCase = false;

    explicit NamePattern(std::string_view line) {
        const std::string_view number = takePart(line, ':');
        std::from_chars(number.data(), number.data() + number.size(), weight);
        type = takePart(line, ':');
        pattern = takePart(line, ':');
        heedsCase = line.find("cs") != line.npos;
    }

    bool matches(const std::string& name, const std::string& lowerName) const {
        return !pattern.empty() && (fits(name) || (!heedsCase && fits(lowerName)));
    }

private:
    bool fits(const std::string& name) const {
        const std::string_view rest = pattern.substr(1);
        if (rest.find_first_of("*?[\\") != rest.npos || pattern[0] == '?' || pattern[0] == '[')
            return fnmatch(std::string(pattern).c_str(), name.c_str(), 0) == 0;
        if (pattern[0] != '*') return name == pattern;
        return name.size() >= rest.size() && std::string_view(name).substr(name.size() - rest.size()) == rest;
    }
};

bool contains(const std::vector<std::string>& all, std::string_view one) {
    return std::find(all.begin(), all.end(), one) != all.end();
}

} // namespace

MIMEDatabase::MIMEDatabase(const std::vector<std::string>& dataFolders) {
    for (const std::string& data : dataFolders) {
        const std::string folder = data + "/mime/";
        folders_.push_back({contentsOf(folder + "globs2"), contentsOf(folder + "magic"),
                            contentsOf(folder + "aliases"), contentsOf(folder + "subclasses")});
    }
}

// Those of the patterns with the greatest weight, and among these of the longest.
std::vector<std::string> MIMEDatabase::typesOfName(std::string_view name) const {
    const std::string exact(name), lower = lowered(name);
    std::vector<std::string> types, withdrawn;
    std::pair<int, size_t> best{-1, 0};
    for (const Folder& folder : folders_) {
        std::vector<std::string> withdrawnHere;
        for (std::string_view rest = folder.names; !rest.empty();) {
            const std::string_view line = takePart(rest, '\n');
            if (line.empty() || line[0] == '#') continue;
            const NamePattern known(line);
            // What a folder says so of, it defines anew: folders after it do not count.
            if (known.pattern == "__NOGLOBS__") withdrawnHere.emplace_back(known.type);
            if (!known.matches(exact, lower) || contains(withdrawn, known.type)) continue;
            const std::pair<int, size_t> rank{known.weight, known.pattern.size()};
            if (rank > best) types.clear();
            if (rank >= best && !contains(types, known.type)) types.emplace_back(known.type);
            best = std::max(best, rank);
        }
        withdrawn.insert(withdrawn.end(), withdrawnHere.begin(), withdrawnHere.end());
    }
    return types;
}

std::string MIMEDatabase::typeOfBytes(std::string_view start) const {
    MagicMatch best;
    for (const Folder& folder : folders_) {
        MagicMatch found = findMagic(folder.magic, start);
        if (found.priority > best.priority) best = std::move(found);
    }
    return best.type;
}

std::string MIMEDatabase::typeOf(std::string_view name, std::string_view start) const {
    const std::vector<std::string> named = typesOfName(name);
    if (named.size() == 1) return named[0];
    const std::string byBytes = typeOfBytes(start);
    if (named.empty()) return byBytes;
    for (const std::string& type : lineage(byBytes)) {
        if (contains(named, type)) return byBytes;
    }
    return named[0];
}

void MIMEDatabase::addRelated(std::string_view type, std::string Folder::*lists, bool backwards,
                              std::vector<std::string>& types) const {
    for (const Folder& folder : folders_) {
        for (std::string_view rest = folder.*lists; !rest.empty();) {
            std::string_view second = takePart(rest, '\n');
            const std::string_view first = takePart(second, ' ');
            const std::string_view key = backwards ? second : first, found = backwards ? first : second;
            if (key != type || found.empty() || contains(types, found)) continue;
            if (types.size() < kLongestLineage) types.emplace_back(found);
        }
    }
}

std::vector<std::string> MIMEDatabase::lineage(std::string_view type) const {
    std::vector<std::string> types;
    if (!type.empty()) types.emplace_back(type);
    for (size_t i = 0; i < types.size(); ++i) {
        const std::string each = types[i];
        addRelated(each, &Folder::aliases, false, types);
        addRelated(each, &Folder::aliases, true, types);
        addRelated(each, &Folder::parents, false, types);
    }
    if (std::any_of(types.begin(), types.end(),
                    [](const std::string& each) { return each.substr(0, 5) == "text/"; }) &&
        !contains(types, "text/plain"))
        types.emplace_back("text/plain");
    return types;
}
