// SPDX-License-Identifier: Apache-2.0
//
// showrecord reads one result record and prints it: for people, as JSON, or the text alone.
#include "Platform/Foundation/UnicodeText.h"
#include "Source/Tools/showrecord/RecordJSON.h"
#include "Source/Tools/showrecord/RecordText.h"
#include "Source/Tools/showrecord/Terminal.h"
#include "Source/Tools/showrecord/VisibleText.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <sysexits.h>

namespace {

constexpr const char* kUsage = "usage: showrecord [--json | --text] [--color=WHEN] [--no-pager] [FILE]\n";

constexpr const char* kHelp =
    "\n"
    "Reads a result record from FILE, or from standard input without FILE or when it\n"
    "is -, and prints its fields and then its text.\n"
    "\n"
    "  --json        print the record as JSON\n"
    "  --text        print only the document's text\n"
    "  --color=WHEN  colours for people: auto (on a terminal), always or never\n"
    "  --no-pager    what is longer than the terminal goes there all the same\n"
    "  --help        print this and end\n"
    "  --version     print the version and end\n"
    "\n"
    "Exit status: 0 the record holds a text, 1 it holds an error, 2 it is a fallback\n"
    "record, 3 there is no record that could be read, 64 wrong usage, 74 the output\n"
    "could not be written.\n";

enum ExitStatus { kSuccess = 0, kError = 1, kFallback = 2, kUnreadable = 3 };

enum class Form { people, json, text };

enum class Colours { automatic, always, never };

struct Options {
    Form form = Form::people;
    Colours colours = Colours::automatic;
    bool pager = true;
    const char* file = "-";
};

std::optional<Colours> coloursNamed(std::string_view word) {
    if (word == "auto") return Colours::automatic;
    if (word == "always") return Colours::always;
    if (word == "never") return Colours::never;
    return std::nullopt;
}

// Takes an option that says how a record is shown; false when it is none.
bool parsePresentation(std::string_view word, Options& options) {
    constexpr std::string_view colour = "--color=";
    if (word == "--no-pager") {
        options.pager = false;
        return true;
    }
    std::optional<Colours> colours =
        word.starts_with(colour) ? coloursNamed(word.substr(colour.size())) : std::nullopt;
    if (colours) options.colours = *colours;
    return colours.has_value();
}

std::optional<Options> parse(int count, char** arguments) {
    Options options;
    int files = 0, forms = 0;
    bool onlyFiles = false;
    for (int i = 1; i < count; ++i) {
        std::string_view word = arguments[i];
        if (!onlyFiles && word == "--") {
            onlyFiles = true;
        } else if (!onlyFiles && (word == "--json" || word == "--text")) {
            options.form = word == "--json" ? Form::json : Form::text;
            ++forms;
        } else if (!onlyFiles && word.size() > 1 && word[0] == '-') {
            if (!parsePresentation(word, options)) return std::nullopt;
        } else {
            options.file = arguments[i];
            ++files;
        }
    }
    return files <= 1 && forms <= 1 ? std::optional(options) : std::nullopt;
}

bool readBytes(const char* file, std::string& bytes) {
    bool isInput = std::string_view(file) == "-";
    FILE* stream = isInput ? stdin : fopen(file, "rbe");
    if (!stream) return false;
    char piece[65536];
    while (size_t count = fread(piece, 1, sizeof piece, stream)) bytes.append(piece, count);
    int failure = ferror(stream) ? errno : 0;
    if (!isInput) fclose(stream);
    errno = failure;
    return failure == 0;
}

void complain(const std::string& about, const std::string& why) {
    fprintf(stderr, "showrecord: %s: %s\n", about.c_str(), why.c_str());
}

int print(std::string_view bytes, int status) {
    bool written = fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() && fflush(stdout) == 0;
    if (written) return status;
    complain("standard output", strerror(errno));
    return EX_IOERR;
}

std::string visible(const NSString& text) {
    std::string out;
    appendVisible(out, text.text());
    return out;
}

// What the reader found, which says more to people than that the bytes are no record.
std::string reasonOf(const NSError& error) {
    NSString found = error.userInfo().get<NSString>(NSString(NSDebugDescriptionErrorKey));
    return "no record: " + visible(found ? found : error.localizedDescription());
}

// The text of a success; of another record nothing, and why on standard error.
std::string onlyText(const ZORResultRecord& record, const std::string& source) {
    if (record.kind == ZORResultRecord::Kind::success) return record.string.utf8();
    complain(source, visible(record.text()));
    return {};
}

std::string inForm(const ZORResultRecord& record, const Options& options, const std::string& source) {
    const bool coloured = options.colours == Colours::always ||
                          (options.colours == Colours::automatic && terminalTakesColours());
    switch (options.form) {
    case Form::json: return jsonOfRecord(record);
    case Form::text: return onlyText(record, source);
    default: return textOfRecord(record, coloured);
    }
}

int show(const Options& options) {
    std::string source = std::string_view(options.file) == "-" ? "standard input" : options.file;
    std::string bytes;
    if (!readBytes(options.file, bytes)) {
        complain(source, strerror(errno));
        return kUnreadable;
    }
    NSError error;
    std::optional<ZORResultRecord> record = ZORResultRecord::recordWithData(bytes, &error);
    if (!record) {
        complain(source, bytes.empty() ? "no record: there is nothing in it" : reasonOf(error));
        return kUnreadable;
    }
    int status = record->kind == ZORResultRecord::Kind::success ? kSuccess
                 : record->kind == ZORResultRecord::Kind::error ? kError
                                                                : kFallback;
    const std::string shown = inForm(*record, options, source);
    if (options.pager && showThroughPager(shown)) return status;
    return print(shown, status);
}

} // namespace

int main(int count, char** arguments) {
    std::string_view only = count == 2 ? arguments[1] : "";
    if (only == "--help") return print(std::string(kUsage) + kHelp, kSuccess);
    if (only == "--version") return print("showrecord " TEXTTOOL_VERSION "\n", kSuccess);
    std::optional<Options> options = parse(count, arguments);
    if (options) return show(*options);
    fputs(kUsage, stderr);
    return EX_USAGE;
}
