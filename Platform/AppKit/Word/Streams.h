// SPDX-License-Identifier: Apache-2.0
//
// The streams of a Word document.
#pragma once

#include "Platform/AppKit/CompoundFile/CompoundFile.h"
#include "Platform/AppKit/Word/FileInformation.h"

#include <optional>
#include <string_view>

namespace Word {

class Streams {
public:
    // Those of a document that is nothing but its main stream.
    explicit Streams(std::string_view main) : main_(main), table_(main) {}

    // `file` must outlive the streams.
    Streams(CompoundFile& file, const FileInformation& information, std::string_view main)
        : file_(&file), main_(main), table_(information.isOld ? main : tableOf(file, information)) {}

    std::string_view main() const { return main_; }
    std::string_view table() const { return table_; } // in old documents the main stream

    // Pictures mostly, and few documents keep there what matters for the text: looked up when asked for.
    std::string_view data() {
        if (!data_) data_ = file_ ? file_->stream("Data") : std::string_view();
        return *data_;
    }

private:
    static std::string_view tableOf(CompoundFile& file, const FileInformation& information) {
        std::string_view said = information.usesTable1 ? "1Table" : "0Table";
        std::string_view other = information.usesTable1 ? "0Table" : "1Table";
        return file.stream(file.contains(said) ? said : other);
    }

    CompoundFile* file_ = nullptr;
    std::string_view main_, table_;
    std::optional<std::string_view> data_;
};

} // namespace Word
