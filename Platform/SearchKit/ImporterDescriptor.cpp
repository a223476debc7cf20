// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/ImporterDescriptor.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"
#include "Platform/SearchKit/TextLines.h"

#include <charconv>
#include <map>

namespace {

using Fields = std::map<std::string, std::string, std::less<>>;

// The fields of the group; those of other groups and comments are passed over.
bool readFields(std::string_view bytes, Fields& fields, std::string& why) {
    bool isInGroup = false, hasGroup = false;
    while (!bytes.empty()) {
        std::string_view line = trimmed(takePart(bytes, '\n'), isSpace);
        if (line.empty() || line[0] == '#') continue;
        if (line[0] == '[') {
            isInGroup = line == "[Importer]";
            hasGroup = hasGroup || isInGroup;
            continue;
        }
        if (!isInGroup) continue;
        if (line.find('=') == line.npos) {
            why = "“" + std::string(line) + "” is no key with a value";
            return false;
        }
        const std::string key(trimmed(takePart(line, '='), isSpace));
        fields[key] = trimmed(line, isSpace);
    }
    if (!hasGroup) why = "there is no group “[Importer]”";
    return hasGroup;
}

bool readNumber(std::string_view text, int least, int most, int& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number >= least && number <= most;
}

// Splits a command as desktop entries have it: at blanks, but not inside double quotes, where a backslash
// stands before a quote or a backslash that is meant.
class CommandReader {
public:
    explicit CommandReader(std::string_view text) : rest_(text) {}

    bool read(std::vector<std::string>& arguments, std::string& why) {
        while (!rest_.empty()) {
            const char c = rest_[0];
            rest_.remove_prefix(1);
            if (c == '"') {
                if (!readQuoted(why)) return false;
            } else if (c == '%') {
                if (!readCode(why)) return false;
            } else if (isSpace(char32_t(c))) {
                end(arguments);
            } else {
                append(c);
            }
        }
        end(arguments);
        if (arguments.empty() || !hasDocument_) why = "Exec needs a program and “%f”";
        return why.empty();
    }

private:
    void append(char c) {
        argument_ += c;
        isStarted_ = true;
    }
    void end(std::vector<std::string>& arguments) {
        if (isStarted_) arguments.push_back(std::move(argument_));
        argument_.clear();
        isStarted_ = false;
    }
    bool readQuoted(std::string& why) {
        for (isStarted_ = true; !rest_.empty();) {
            char c = rest_[0];
            rest_.remove_prefix(1);
            if (c == '"') return true;
            if (c == '\\' && !rest_.empty()) {
                c = rest_[0];
                rest_.remove_prefix(1);
            }
            append(c);
        }
        why = "a quote in Exec does not end";
        return false;
    }
    bool readCode(std::string& why) {
        const std::string_view code = rest_.substr(0, 1);
        rest_.remove_prefix(code.size());
        if (code == "%") append('%');
        if (code == "f") append(ImporterDescriptor::kDocument);
        hasDocument_ = hasDocument_ || code == "f";
        if (code != "%" && code != "f") why = "Exec knows only “%f” and “%%”";
        return why.empty();
    }

    std::string_view rest_;
    std::string argument_;
    bool isStarted_ = false, hasDocument_ = false;
};

class DescriptorReader {
public:
    DescriptorReader(const Fields& fields, std::string& why) : fields_(fields), why_(why) {}

    bool read(ImporterDescriptor& descriptor) {
        descriptor.name = field("Name");
        descriptor.needed = field("TryExec");
        readTypes(descriptor);
        readWork(descriptor);
        readOutput(descriptor);
        int timeout = int(descriptor.timeout.count());
        if (has("Priority") && !readNumber(field("Priority"), 0, 100, descriptor.priority))
            refuse("Priority is no number from 0 to 100");
        if (has("Timeout") && !readNumber(field("Timeout"), 1, 600, timeout))
            refuse("Timeout is no number of seconds from 1 to 600");
        descriptor.timeout = std::chrono::seconds(timeout);
        return why_.empty();
    }

private:
    bool has(std::string_view key) const { return fields_.find(key) != fields_.end(); }
    std::string_view field(std::string_view key) const {
        const auto found = fields_.find(key);
        return found == fields_.end() ? std::string_view() : std::string_view(found->second);
    }
    void refuse(const char* reason) {
        if (why_.empty()) why_ = reason;
    }

    void readTypes(ImporterDescriptor& descriptor) {
        for (std::string_view rest = field("MimeTypes"); !rest.empty();) {
            const std::string_view type = trimmed(takePart(rest, ';'), isSpace);
            if (!type.empty()) descriptor.mimeTypes.emplace_back(type);
        }
        if (descriptor.mimeTypes.empty()) refuse("MimeTypes names no kind");
    }

    void readWork(ImporterDescriptor& descriptor) {
        const std::string_view type = field("Type");
        if (type == "builtin") {
            descriptor.type = ImporterDescriptor::Type::builtin;
            descriptor.reader = field("Reader");
            if (descriptor.reader.empty()) refuse("Reader is missing");
        } else if (type == "module") {
            descriptor.type = ImporterDescriptor::Type::module;
            descriptor.module = field("Module");
            if (descriptor.module.empty()) refuse("Module is missing");
        } else if (type == "exec") {
            descriptor.type = ImporterDescriptor::Type::exec;
            if (why_.empty()) CommandReader(field("Exec")).read(descriptor.command, why_);
        } else {
            refuse("Type is none of “builtin”, “module” and “exec”");
        }
    }

    void readOutput(ImporterDescriptor& descriptor) {
        const std::string_view output = field("Output");
        descriptor.writesHTML = output == "text/html";
        if (has("Output") && !descriptor.writesHTML && output != "text/plain")
            refuse("Output is neither “text/plain” nor “text/html”");
        if (!has("Charset")) return;
        descriptor.charset = encodingForIANAName(field("Charset"));
        if (!isStringEncodingAvailable(descriptor.charset)) refuse("Charset is not known");
    }

    const Fields& fields_;
    std::string& why_;
};

} // namespace

std::optional<ImporterDescriptor> importerDescriptor(std::string_view bytes, std::string& why) {
    why.clear();
    if (!isUTF8(bytes) || bytes.find('\0') != bytes.npos) {
        why = "it is no text in UTF-8";
        return std::nullopt;
    }
    Fields fields;
    ImporterDescriptor descriptor;
    if (!readFields(bytes, fields, why) || !DescriptorReader(fields, why).read(descriptor))
        return std::nullopt;
    return descriptor;
}
