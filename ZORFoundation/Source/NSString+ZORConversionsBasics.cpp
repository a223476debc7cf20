// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORConversionsBasics.h"

#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSStringCompare.h"
#include "Platform/Foundation/PercentEscapes.h"
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORCreation.h"

#include <algorithm>
#include <vector>

namespace {

using View = std::u16string_view;

// Key and value of "KEY=VALUE", decoded; nil when it is something else.
std::pair<NSString, NSString> queryPair(View piece) {
    const size_t equals = piece.find(u'=');
    if (equals == View::npos || piece.find(u'=', equals + 1) != View::npos) return {};
    return {zorDecodePercentEscapes(piece.substr(0, equals)),
            zorDecodePercentEscapes(piece.substr(equals + 1))};
}

} // namespace

NSData zorDataUsingEncoding(const NSString& text, NSStringEncoding encoding, NSError* error) {
    if (!text) return NSData();
    std::string bytes;
    if (appendEncoded(bytes, text.text(), encoding)) return NSData(std::move(bytes));
    fail(error, ZORError1(ZORStringEncodingError,
                          {{NSString(ZORString), text},
                           {NSString(ZORStringEncoding), NSNumber::withUnsignedInteger(encoding)}}));
    return NSData();
}

NSURL zorFileURL(const NSString& path) { return path ? NSURL::fileURLWithPath(path) : NSURL(); }

NSURL zorFastFileURL(const NSString& path) {
    return path ? NSURL::fileURLWithFileSystemRepresentation(fileSystemRepresentation(path), false) : NSURL();
}

NSString zorDecodePercentEscapes(const NSString& text) {
    return CFURLCreateStringByReplacingPercentEscapes(text, u"");
}

NSString zorDecodePercentEscapesKeepingEscaped(const NSString& text, const NSString& kept) {
    return CFURLCreateStringByReplacingPercentEscapes(text, kept);
}

NSString zorEncodeForQueryString(const NSString& text) {
    return CFURLCreateStringByAddingPercentEscapes(text, nullptr, u"&=");
}

NSString zorEncodeURLKeepingUnescaped(const NSString& text, const NSString& kept) {
    return CFURLCreateStringByAddingPercentEscapes(text, kept, nullptr);
}

NSDictionary zorQueryStringDictionary(const NSString& query) {
    NSMutableDictionary values;
    const View text = query.text();
    for (size_t start = 0; start <= text.size();) {
        const size_t end = std::min(text.find(u'&', start), text.size());
        const auto [key, value] = queryPair(text.substr(start, end - start));
        if (key && value) values.setObject(value, key);
        start = end + 1;
    }
    return std::move(values).copy();
}

NSString zorQueryStringWithDictionary(const NSDictionary& values) {
    std::vector<NSDictionary::Entry> entries = values.entries();
    std::stable_sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return caseInsensitiveCompare(as<NSString>(a.first), as<NSString>(b.first)) == NSOrderedAscending;
    });
    std::u16string query;
    for (const auto& [key, value] : entries) {
        if (!query.empty()) query.push_back(u'&');
        query += stringWithFormat("%@=%@", zorEncodeForQueryString(as<NSString>(key)),
                                  zorEncodeForQueryString(as<NSString>(value)))
                     .text();
    }
    return query;
}
