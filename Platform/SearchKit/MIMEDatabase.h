// SPDX-License-Identifier: Apache-2.0
//
// The system's database of kinds of files, shared by all programs: a kind is told by a file's name, or by its
// first bytes where the name does not decide, and kinds have aliases and parents. The database's text files
// are searched as they are: for one document that costs less than to build tables of them.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class MIMEDatabase {
public:
    // The folders "mime" of these data folders, the most important one first. What is missing or damaged
    // there counts as empty.
    explicit MIMEDatabase(const std::vector<std::string>& dataFolders);

    // The contents of the database's files in one folder: globs2, magic, aliases, subclasses.
    struct Folder {
        std::string names, magic, aliases, parents;
    };
    explicit MIMEDatabase(std::vector<Folder> folders) : folders_(std::move(folders)) {}

    static constexpr size_t kLongestLineage = 64; // types; further ones are left out

    // The kind of a file by its name, without a path, and its first bytes; "" when nothing is known of it.
    std::string typeOf(std::string_view name, std::string_view start) const;

    // The type, its other names, then those of its parents, nearest first. Every kind of text has text/plain
    // for its last.
    std::vector<std::string> lineage(std::string_view type) const;

private:
    std::vector<std::string> typesOfName(std::string_view name) const;
    std::string typeOfBytes(std::string_view start) const;
    // The second words of lines by their first, or the other way round.
    void addRelated(std::string_view type, std::string Folder::*lists, bool backwards,
                    std::vector<std::string>& types) const;

    std::vector<Folder> folders_;
};
