// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/showrecord/RecordText.h"

#include "Platform/Foundation/UnicodeText.h"
#include "Source/Tools/showrecord/VisibleText.h"

#include <algorithm>
#include <vector>

namespace {

constexpr const char *kNameColour = "\x1B[36m", *kSuccessColour = "\x1B[1;32m", *kErrorColour = "\x1B[1;31m",
                     *kFallbackColour = "\x1B[1;33m", *kNoColour = "\x1B[0m";

// Names and values that are set in two columns when all of them are known.
class Table {
public:
    void add(const NSString& name, const NSString& value) {
        std::string shown(indent_ * 2, ' ');
        appendVisible(shown, name.text());
        size_t width =
            size_t(std::count_if(shown.begin(), shown.end(), [](char c) { return (c & 0xC0) != 0x80; }));
        rows_.push_back({std::move(shown), width, value.text(), nullptr});
    }
    void addKind(const NSString& kind, const char* colour) {
        add(u"record", kind);
        rows_.back().colour = colour;
    }
    void addNumber(const char16_t* name, int64_t number) {
        add(name, NSString::fromUTF8(std::to_string(number)));
    }
    void addEntries(const NSString& name, const NSDictionary& entries);
    void addError(const NSError& error, const NSString& description);

    std::string text(bool coloured) const;

private:
    struct Row {
        std::string name;
        size_t width; // of the name with its indentation, in characters
        std::u16string value;
        const char* colour; // of the value, or null
    };

    std::vector<Row> rows_;
    size_t indent_ = 0;
};

void Table::addEntries(const NSString& name, const NSDictionary& entries) {
    add(name, nullptr);
    ++indent_;
    for (const auto& [key, value] : entries) {
        if (NSError error = as<NSError>(value)) {
            add(key.description(), nullptr);
            ++indent_;
            addError(error, error.localizedDescription());
            --indent_;
        } else {
            add(key.description(), value.description());
        }
    }
    --indent_;
}

void Table::addError(const NSError& error, const NSString& description) {
    add(u"domain", error.domain());
    addNumber(u"code", error.code());
    add(u"description", description);
    if (error.userInfo().count() > 0) addEntries(u"userInfo", error.userInfo());
}

std::string Table::text(bool coloured) const {
    size_t column = 0;
    for (const Row& row : rows_) column = std::max(column, row.width + 2);
    std::string out;
    for (const Row& row : rows_) {
        const char* colour = coloured ? row.colour : nullptr;
        if (coloured) out += kNameColour;
        out += row.name;
        if (coloured) out += kNoColour;
        size_t gap = column - row.width;
        for (std::u16string_view rest = row.value; !rest.empty(); gap = column) {
            std::u16string_view line = rest.substr(0, rest.find(u'\n'));
            out.append(line.empty() ? 0 : gap, ' ');
            if (colour) out += colour;
            appendVisible(out, line);
            if (colour) out += kNoColour;
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
            if (!rest.empty()) out.push_back('\n');
        }
        out.push_back('\n');
    }
    return out;
}

std::string textOfSuccess(const ZORResultRecord& record, bool coloured) {
    Table table;
    table.addKind(u"success", kSuccessColour);
    table.add(u"title", record.title);
    table.add(u"author", record.author);
    table.addNumber(u"partsCount", record.partsCount);
    table.add(u"url", record.url);
    table.addEntries(u"otherAttributes", record.otherAttributes);
    size_t length = record.string.length();
    table.add(u"string",
              NSString::fromUTF8(std::to_string(length) + (length == 1 ? " UTF-16 unit" : " UTF-16 units")));
    std::string out = table.text(coloured) + "\n";
    appendVisibleDocument(out, record.string.text());
    if (out.back() != '\n') out.push_back('\n');
    return out;
}

std::string textOfError(const ZORResultRecord& record, bool coloured) {
    Table table;
    table.addKind(u"error", kErrorColour);
    if (record.error) {
        table.addError(record.error, record.errorString);
    } else {
        table.add(u"description", record.errorString);
        table.add(u"error", record.errorProblem ? u"its archive cannot be read" : u"none was given");
    }
    if (record.errorProblem) table.add(u"reason", record.errorProblem.description());
    return table.text(coloured);
}

std::string textOfFallback(const ZORResultRecord& record, bool coloured) {
    Table table;
    table.addKind(u"fallback", kFallbackColour);
    table.add(u"error", record.fallbackText);
    return table.text(coloured);
}

} // namespace

std::string textOfRecord(const ZORResultRecord& record, bool coloured) {
    switch (record.kind) {
    case ZORResultRecord::Kind::success: return textOfSuccess(record, coloured);
    case ZORResultRecord::Kind::error: return textOfError(record, coloured);
    default: return textOfFallback(record, coloured);
    }
}
