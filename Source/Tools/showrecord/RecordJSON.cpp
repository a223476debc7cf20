// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/showrecord/RecordJSON.h"

#include "Platform/Foundation/Base64.h"
#include "Platform/Foundation/CalendarDate.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"
#include "Source/Tools/showrecord/VisibleText.h"

#include <charconv>
#include <cmath>

namespace {

std::string realText(double value) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

// Writes one value after another, nested ones indented.
class JSONWriter {
public:
    void beginObject() { begin('{'); }
    void endObject() { end('}'); }

    void name(std::u16string_view text) {
        separate();
        appendJSONString(out_, text);
        out_ += ": ";
    }
    void text(const NSString& text) { appendJSONString(out_, text.text()); }
    void raw(std::string_view json) { out_ += json; }

    void value(const NSObject& value);
    void dictionary(const NSDictionary& entries);
    void error(const NSError& error, const NSString& description);

    std::string finish() && { return std::move(out_) + "\n"; }

private:
    void begin(char bracket) {
        out_.push_back(bracket);
        ++depth_;
        first_ = true;
    }
    void end(char bracket) {
        --depth_;
        if (!first_) startLine();
        first_ = false;
        out_.push_back(bracket);
    }
    void separate() {
        if (!first_) out_.push_back(',');
        first_ = false;
        startLine();
    }
    void startLine() {
        out_.push_back('\n');
        out_.append(depth_ * 2, ' ');
    }

    void number(const NSNumber& number);
    void array(const NSArray& array);
    void tagged(const char16_t* tag, const std::string& text) {
        out_ += "{";
        appendJSONString(out_, tag);
        out_ += ": ";
        appendJSONString(out_, NSString::fromUTF8(text).text());
        out_ += "}";
    }

    std::string out_;
    size_t depth_ = 0;
    bool first_ = true;
};

void JSONWriter::number(const NSNumber& number) {
    if (number.isBoolean()) {
        raw(number.boolValue() ? "true" : "false");
    } else if (!number.isFloating()) {
        raw(number.isUnsigned() ? std::to_string(uint64_t(number.integerValue()))
                                : std::to_string(number.integerValue()));
    } else if (std::isfinite(number.doubleValue())) {
        raw(realText(number.doubleValue()));
    } else {
        tagged(u"$number", realText(number.doubleValue()));
    }
}

void JSONWriter::array(const NSArray& array) {
    begin('[');
    for (const NSObject& element : array) {
        separate();
        value(element);
    }
    end(']');
}

void JSONWriter::dictionary(const NSDictionary& entries) {
    beginObject();
    for (const auto& [key, entry] : entries) {
        name(key.description().text());
        value(entry);
    }
    endObject();
}

void JSONWriter::value(const NSObject& value) {
    if (is<NSString>(value)) {
        text(as<NSString>(value));
    } else if (is<NSNumber>(value)) {
        number(as<NSNumber>(value));
    } else if (is<NSArray>(value)) {
        array(as<NSArray>(value));
    } else if (is<NSDictionary>(value)) {
        dictionary(as<NSDictionary>(value));
    } else if (is<NSDate>(value)) {
        tagged(u"$date", dateText(as<NSDate>(value).timeIntervalSinceReferenceDate()));
    } else if (is<NSData>(value)) {
        std::string digits;
        appendBase64(digits, as<NSData>(value).bytes());
        tagged(u"$data", digits);
    } else if (is<NSURL>(value)) {
        tagged(u"$url", as<NSURL>(value).absoluteString().utf8());
    } else if (NSError nested = as<NSError>(value)) {
        beginObject();
        name(u"$error");
        error(nested, nested.localizedDescription());
        endObject();
    } else if (value.isKindOf(NSKind::null)) {
        raw("null");
    } else {
        text(value.description());
    }
}

void JSONWriter::error(const NSError& error, const NSString& description) {
    beginObject();
    name(u"domain");
    text(error.domain());
    name(u"code");
    raw(std::to_string(error.code()));
    name(u"description");
    text(description);
    name(u"userInfo");
    dictionary(error.userInfo());
    endObject();
}

void writeSuccess(JSONWriter& out, const ZORResultRecord& record) {
    out.raw("\"success\"");
    const std::pair<const char16_t*, NSString> texts[] = {
        {u"string", record.string}, {u"title", record.title}, {u"author", record.author}};
    for (const auto& [name, text] : texts) {
        out.name(name);
        out.text(text);
    }
    out.name(u"partsCount");
    out.raw(std::to_string(record.partsCount));
    out.name(u"url");
    out.text(record.url);
    out.name(u"otherAttributes");
    out.dictionary(record.otherAttributes);
}

void writeError(JSONWriter& out, const ZORResultRecord& record) {
    out.raw("\"error\"");
    out.name(u"errorString");
    out.text(record.errorString);
    out.name(u"error");
    if (record.error) {
        out.error(record.error, record.error.localizedDescription());
    } else {
        out.raw("null");
    }
}

void writeFallback(JSONWriter& out, const ZORResultRecord& record) {
    out.raw("\"fallback\"");
    out.name(u"error");
    out.text(record.fallbackText);
}

} // namespace

std::string jsonOfRecord(const ZORResultRecord& record) {
    JSONWriter out;
    out.beginObject();
    out.name(u"record");
    switch (record.kind) {
    case ZORResultRecord::Kind::success: writeSuccess(out, record); break;
    case ZORResultRecord::Kind::error: writeError(out, record); break;
    case ZORResultRecord::Kind::fallback: writeFallback(out, record); break;
    }
    out.endObject();
    return std::move(out).finish();
}
