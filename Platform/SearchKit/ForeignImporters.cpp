// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/ForeignImporters.h"

#include "Platform/AppKit/DocumentKinds.h"
#include "Platform/AppKit/NSDocumentAttributes.h"
#include "Platform/Foundation/Containment.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/TemporaryFolder.h"
#include "Platform/Sandbox/Sandbox.h"
#include "Platform/SearchKit/ImporterModule.h"
#include "Platform/SearchKit/ProgramOutput.h"

#include <dlfcn.h>
#include <unistd.h>

namespace {

std::vector<std::string> commandFor(const ImporterDescriptor& importer, const std::string& path) {
    std::vector<std::string> command = importer.command;
    for (std::string& argument : command) {
        for (size_t at = 0; (at = argument.find(ImporterDescriptor::kDocument, at)) != argument.npos;
             at += path.size())
            argument.replace(at, 1, path);
    }
    return command;
}

// Made for one program, and gone with all that it left there.
class Workspace {
public:
    Workspace() : folder_(makeTemporaryFolder(fileSystemRepresentation(NSTemporaryDirectory()))) {}
    ~Workspace() {
        if (!folder_.empty()) removeFolder(folder_);
    }
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    // "" when there is none to be had.
    const std::string& folder() const { return folder_; }

private:
    std::string folder_;
};

bool runProgram(const ImporterDescriptor& importer, const std::string& path, std::string& output,
                std::string& why) {
    const Workspace workspace;
    if (workspace.folder().empty()) {
        why = "there is no folder for its temporary files";
        return false;
    }
    ProgramLimits limits;
    limits.time = importer.timeout;
    limits.folder = workspace.folder();
    return readProgramOutput(commandFor(importer, path), limits, output, why);
}

// In a child: a mark of success and the text, or why there is none.
std::string callLibrary(const std::string& file, const std::string& path) {
    void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    const auto import =
        library ? reinterpret_cast<texttool_import>(dlsym(library, TEXTTOOL_IMPORT_FUNCTION)) : nullptr;
    if (!import) {
        const char* reason = dlerror();
        return std::string("!") + (reason ? reason : "it has no function to call");
    }
    std::string answer = "+";
    const auto append = [](void* context, const char* bytes, size_t length) {
        static_cast<std::string*>(context)->append(bytes, length);
    };
    return import(path.c_str(), append, &answer) == 0 ? answer : "!it could not read the document";
}

bool runLibrary(const ImporterDescriptor& importer, const std::string& path, std::string& output,
                std::string& why) {
    if (!renounceOtherPrograms()) {
        why = "its sandbox cannot be entered";
        return false;
    }
    ContainmentLimits limits;
    limits.processorTime = limits.wallTime = importer.timeout;
    if (!runContained([&] { return callLibrary(importer.module, path); }, output, limits)) {
        why = "it crashed, or took more time or memory than it may";
        return false;
    }
    const bool isText = output.substr(0, 1) == "+";
    output.erase(0, 1);
    if (!isText) why = output;
    return isText;
}

ImportStatus appendOutput(const ImporterDescriptor& importer, const std::string& output, std::u16string& text,
                          NSString& why) {
    if (importer.writesHTML) return importData(NSHTMLTextDocumentType, NSData(output), text, why);
    appendDecoded(text, output, importer.charset);
    return ImportStatus::read;
}

} // namespace

bool isInstalled(const ImporterDescriptor& importer) {
    if (!importer.needed.empty() && programFile(importer.needed).empty()) return false;
    switch (importer.type) {
    case ImporterDescriptor::Type::exec: return !programFile(importer.command[0]).empty();
    case ImporterDescriptor::Type::module: return access(importer.module.c_str(), R_OK) == 0;
    default: return true;
    }
}

ImportStatus runForeignImporter(const ImporterDescriptor& importer, const ImportedFile& file,
                                std::u16string& text, NSString& why) {
    const std::string path = fileSystemRepresentation(file.path());
    std::string output, reason;
    const auto run = importer.type == ImporterDescriptor::Type::exec ? runProgram : runLibrary;
    if (run(importer, path, output, reason)) return appendOutput(importer, output, text, why);
    why = stringWithFormat("the importer “%@” failed: %@", NSString::fromUTF8(importer.name),
                           NSString::fromUTF8(reason));
    return ImportStatus::failed;
}
