// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/Values.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/PDFKit/MuPDF/Guarded.h"
#include "Platform/PDFKit/PDFTextString.h"

namespace {

constexpr int kDeepest = 16;          // arrays and dictionaries within each other
constexpr int kMostValues = 65536;    // of one dictionary, all levels together
constexpr size_t kMostText = 1 << 22; // bytes of them, since many may be the same one

// What an object is, asked in one go: the engine may fail at each question, since the object may have to be
// loaded first.
struct Facts {
    enum Kind { none, text, name, boolean, integer, real, array, dictionary } kind = none;
    const char* bytes = "";
    size_t size = 0;
    int64_t number = 0;
    float fraction = 0;
};

Facts factsOf(fz_context* context, pdf_obj* object) {
    Facts facts;
    guarded(context, [&] {
        if (pdf_is_string(context, object)) {
            facts.bytes = pdf_to_string(context, object, &facts.size);
            facts.kind = Facts::text;
        } else if (pdf_is_name(context, object)) {
            facts.bytes = pdf_to_name(context, object);
            facts.size = std::char_traits<char>::length(facts.bytes);
            facts.kind = Facts::name;
        } else if (pdf_is_bool(context, object)) {
            facts.number = pdf_to_bool(context, object);
            facts.kind = Facts::boolean;
        } else if (pdf_is_int(context, object)) {
            facts.number = pdf_to_int64(context, object);
            facts.kind = Facts::integer;
        } else if (pdf_is_real(context, object)) {
            facts.fraction = pdf_to_real(context, object);
            facts.kind = Facts::real;
        } else if (pdf_is_array(context, object)) {
            facts.number = pdf_array_len(context, object);
            facts.kind = Facts::array;
        } else if (pdf_is_dict(context, object)) {
            facts.number = pdf_dict_len(context, object);
            facts.kind = Facts::dictionary;
        }
    });
    return facts;
}

class Converter {
public:
    explicit Converter(fz_context* context) : context_(context) {}

    // nil for null, for what lies too deep and for what is more than anybody says of a document.
    NSObject value(pdf_obj* object, int depth) {
        if (depth > kDeepest || ++values_ > kMostValues) return nullptr;
        Facts facts = factsOf(context_, object);
        std::string_view bytes(facts.bytes, facts.size);
        switch (facts.kind) {
        case Facts::text: return takeText(bytes) ? NSString(textOfPDFString(bytes)) : NSString();
        case Facts::name: return takeText(bytes) ? NSString(textOfPDFName(bytes)) : NSString();
        case Facts::boolean: return NSNumber::withBool(facts.number != 0);
        case Facts::integer: return NSNumber::withInteger(facts.number);
        case Facts::real: return NSNumber::withFloat(facts.fraction);
        case Facts::array: return array(object, int(facts.number), depth);
        case Facts::dictionary: return dictionary(object, int(facts.number), depth);
        case Facts::none: break;
        }
        return nullptr;
    }

    NSDictionary dictionary(pdf_obj* object, int count, int depth) {
        NSMutableDictionary entries;
        for (int i = 0; i < count && values_ <= kMostValues; ++i) {
            pdf_obj *key = nullptr, *entry = nullptr;
            if (!guarded(context_, [&] {
                    key = pdf_dict_get_key(context_, object, i);
                    entry = pdf_dict_get_val(context_, object, i);
                }))
                continue;
            NSString name(textOfPDFName(pdf_to_name(context_, key)));
            if (NSObject converted = value(entry, depth + 1))
                entries.setObject(depth == 0 ? dated(name, converted) : converted, name);
        }
        return std::move(entries).copy();
    }

private:
    NSArray array(pdf_obj* object, int count, int depth) {
        std::vector<NSObject> elements;
        for (int i = 0; i < count && values_ <= kMostValues; ++i) {
            pdf_obj* element = nullptr;
            if (!guarded(context_, [&] { element = pdf_array_get(context_, object, i); })) continue;
            if (NSObject converted = value(element, depth + 1)) elements.push_back(converted);
        }
        return NSArray(std::move(elements));
    }

    bool takeText(std::string_view bytes) {
        if (bytes.size() > kMostText - text_) return false;
        text_ += bytes.size();
        return true;
    }

    static NSObject dated(const NSString& key, const NSObject& value) {
        bool isDate = key.text() == u"CreationDate" || key.text() == u"ModDate";
        std::optional<double> time;
        if (isDate) time = timeOfPDFDate(as<NSString>(value).text());
        return time ? NSObject(NSDate(*time)) : value;
    }

    fz_context* context_;
    int values_ = 0;
    size_t text_ = 0;
};

} // namespace

NSDictionary informationOf(fz_context* context, pdf_obj* dictionary) {
    Facts facts = factsOf(context, dictionary);
    if (facts.kind != Facts::dictionary) return NSDictionary::dictionary();
    return Converter(context).dictionary(dictionary, int(facts.number), 0);
}

std::string_view stringBytesOf(fz_context* context, pdf_obj* object) {
    Facts facts = factsOf(context, object);
    return facts.kind == Facts::text ? std::string_view(facts.bytes, facts.size) : std::string_view();
}

std::optional<std::u16string> textStringOf(fz_context* context, pdf_obj* object) {
    Facts facts = factsOf(context, object);
    if (facts.kind != Facts::text) return {};
    return textOfPDFString({facts.bytes, facts.size});
}
