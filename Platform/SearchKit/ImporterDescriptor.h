// SPDX-License-Identifier: Apache-2.0
//
// What an importer is, as a file tells that people and programs put where the tool looks for it:
//
//   [Importer]
//   Name=DjVu text
//   MimeTypes=image/vnd.djvu;image/vnd.djvu+multipage;
//   Type=exec
//   Exec=djvutxt %f
#pragma once

#include "Platform/Foundation/NSStringEncoding.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct ImporterDescriptor {
    enum class Type { builtin, module, exec };

    std::string name;
    std::vector<std::string> mimeTypes; // "image/*" is every kind of image
    Type type = Type::builtin;
    std::string reader;               // of a built-in importer: its name
    std::string module;               // a library; relative to the descriptor's folder
    std::vector<std::string> command; // a program and its arguments; kDocument in them is the document's path
    std::string needed;               // a program without which the importer does not work; "" for none
    bool writesHTML = false;          // else plain text
    NSStringEncoding charset = NSUTF8StringEncoding; // of the text
    int priority = 50;                               // 0 to 100; higher is asked first
    std::chrono::seconds timeout{30};                // 1 to 600

    // What stands in a command for the document; no argument can hold it.
    static constexpr char kDocument = '\0';
};

// nullopt and in `why` what is wrong with the file.
std::optional<ImporterDescriptor> importerDescriptor(std::string_view bytes, std::string& why);
