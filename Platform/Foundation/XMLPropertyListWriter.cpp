// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Base64.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NumberText.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr std::string_view kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                   "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                   "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                   "<plist version=\"1.0\">\n";
constexpr std::string_view kFoot = "</plist>\n";

constexpr size_t kDataIndentLimit = 8; // tabs
constexpr size_t kDataLineLength = 76; // a tab counts for eight

class XMLWriter {
public:
    std::string write(const NSObject& list) {
        out_ += kHead;
        object(list, 0);
        out_ += kFoot;
        return std::move(out_);
    }

private:
    void object(const NSObject& object, size_t level);
    void array(const NSArray& array, size_t level);
    void dictionary(const NSDictionary& dictionary, size_t level);
    void number(const NSNumber& number, size_t level);
    void data(std::string_view bytes, size_t level);
    void uid(const CFKeyedArchiverUID& uid, size_t level);

    void indent(size_t level) { out_.append(level, '\t'); }
    void line(size_t level, std::string_view text);
    void element(size_t level, std::string_view name, std::string_view content);
    void textElement(size_t level, std::string_view name, const NSObject& string);

    std::string out_;
};

void XMLWriter::line(size_t level, std::string_view text) {
    indent(level);
    out_.append(text).push_back('\n');
}

void XMLWriter::element(size_t level, std::string_view name, std::string_view content) {
    indent(level);
    out_.append("<").append(name).append(">").append(content).append("</").append(name).append(">\n");
}

void XMLWriter::textElement(size_t level, std::string_view name, const NSObject& string) {
    const std::string text = as<NSString>(string).utf8();
    std::string_view rest = text;
    indent(level);
    out_.append("<").append(name).append(">");
    while (!rest.empty()) {
        const size_t run = std::min(rest.find_first_of("&<>"), rest.size());
        out_ += rest.substr(0, run);
        if (run == rest.size()) break;
        out_ += rest[run] == '&' ? "&amp;" : rest[run] == '<' ? "&lt;" : "&gt;";
        rest.remove_prefix(run + 1);
    }
    out_.append("</").append(name).append(">\n");
}

void XMLWriter::array(const NSArray& array, size_t level) {
    if (array.count() == 0) return line(level, "<array/>");
    line(level, "<array>");
    for (const NSObject& element : array) object(element, level + 1);
    line(level, "</array>");
}

void XMLWriter::dictionary(const NSDictionary& dictionary, size_t level) {
    if (dictionary.count() == 0) return line(level, "<dict/>");
    std::vector<const NSDictionary::Entry*> sorted;
    sorted.reserve(dictionary.count());
    for (const NSDictionary::Entry& entry : dictionary) sorted.push_back(&entry);
    std::sort(sorted.begin(), sorted.end(),
              [](auto* a, auto* b) { return as<NSString>(a->first).text() < as<NSString>(b->first).text(); });
    line(level, "<dict>");
    for (const NSDictionary::Entry* entry : sorted) {
        textElement(level + 1, "key", entry->first);
        object(entry->second, level + 1);
    }
    line(level, "</dict>");
}

void XMLWriter::number(const NSNumber& number, size_t level) {
    if (number.isBoolean()) return line(level, number.boolValue() ? "<true/>" : "<false/>");
    if (!number.isFloating()) {
        const int64_t value = number.integerValue();
        return element(level, "integer",
                       number.isUnsigned() ? std::to_string(uint64_t(value)) : std::to_string(value));
    }
    const double value = number.doubleValue();
    if (std::isnan(value)) return element(level, "real", "nan");
    if (std::isinf(value)) return element(level, "real", value > 0 ? "+infinity" : "-infinity");
    element(level, "real", value == 0 ? "0.0" : toUTF8(generalNumberText(value, 17)));
}

void XMLWriter::data(std::string_view bytes, size_t level) {
    const size_t tabs = std::min(level, kDataIndentLimit);
    const size_t bytesPerLine = (kDataLineLength - 8 * tabs) / 4 * 3;
    line(level, "<data>");
    for (; !bytes.empty(); bytes.remove_prefix(std::min(bytesPerLine, bytes.size()))) {
        indent(tabs);
        appendBase64(out_, bytes.substr(0, bytesPerLine));
        out_.push_back('\n');
    }
    line(level, "</data>");
}

void XMLWriter::uid(const CFKeyedArchiverUID& uid, size_t level) {
    line(level, "<dict>");
    textElement(level + 1, "key", NSString(kUIDKey));
    element(level + 1, "integer", std::to_string(uid.value()));
    line(level, "</dict>");
}

void XMLWriter::object(const NSObject& object, size_t level) {
    switch (object.body()->kind()) {
    case NSKind::string: return textElement(level, "string", object);
    case NSKind::number: return number(as<NSNumber>(object), level);
    case NSKind::data: return data(as<NSData>(object).bytes(), level);
    case NSKind::date:
        return element(level, "date", dateText(as<NSDate>(object).timeIntervalSinceReferenceDate()));
    case NSKind::array: return array(as<NSArray>(object), level);
    case NSKind::dictionary: return dictionary(as<NSDictionary>(object), level);
    case NSKind::uid: return uid(as<CFKeyedArchiverUID>(object), level);
    default: return; // no valid list holds others
    }
}

} // namespace

std::string XMLPropertyList(const NSObject& list) { return XMLWriter().write(list); }
