// SPDX-License-Identifier: Apache-2.0
//
// Property lists between this code and an independent library: the bytes are the recipe of a list, which is
// written, read by the library, written by the library, and read again, in both forms. Nothing changes on the
// way.
#include "Fuzz/ListRecipe.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/PropertyListFormats.h"

#include <cstdlib>
#include <memory>
#include <plist/plist.h>

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

struct FreePeerList {
    void operator()(plist_t list) const { plist_free(list); }
};
using PeerList = std::unique_ptr<void, FreePeerList>;

std::string_view stringOf(plist_t node) {
    uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return {text, size_t(length)};
}

bool isSameNumber(const NSNumber& number, plist_t node) {
    uint8_t truth = 0;
    uint64_t integer = 0;
    double real = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN:
        plist_get_bool_val(node, &truth);
        return number.isBoolean() && number.boolValue() == truth;
    case PLIST_REAL:
        plist_get_real_val(node, &real);
        return number.isFloating() && number.doubleValue() == real;
    case PLIST_UINT: plist_get_uint_val(node, &integer); break;
    default: return false;
    }
    return !number.isBoolean() && !number.isFloating() && uint64_t(number.integerValue()) == integer;
}

bool isSame(const NSObject& object, plist_t node);

bool isSameArray(const NSArray& array, plist_t node) {
    if (plist_get_node_type(node) != PLIST_ARRAY || plist_array_get_size(node) != array.count()) return false;
    uint32_t index = 0;
    for (const NSObject& element : array) {
        if (!isSame(element, plist_array_get_item(node, index++))) return false;
    }
    return true;
}

bool isSameDictionary(const NSDictionary& dictionary, plist_t node) {
    if (plist_get_node_type(node) != PLIST_DICT || plist_dict_get_size(node) != dictionary.count())
        return false;
    for (const auto& [key, value] : dictionary) {
        plist_t item = plist_dict_get_item(node, as<NSString>(key).utf8().c_str());
        if (!item || !isSame(value, item)) return false;
    }
    return true;
}

bool isSameIdentifier(const CFKeyedArchiverUID& uid, plist_t node) {
    uint64_t value = 0;
    if (plist_get_node_type(node) == PLIST_UID) {
        plist_get_uid_val(node, &value);
        return value == uid.value();
    }
    return isSameDictionary({{NSString(kUIDKey), NSNumber::withUnsignedInteger(uid.value())}}, node);
}

bool isSame(const NSObject& object, plist_t node) {
    if (is<NSArray>(object)) return isSameArray(as<NSArray>(object), node);
    if (is<NSDictionary>(object)) return isSameDictionary(as<NSDictionary>(object), node);
    if (is<CFKeyedArchiverUID>(object)) return isSameIdentifier(as<CFKeyedArchiverUID>(object), node);
    if (is<NSNumber>(object)) return isSameNumber(as<NSNumber>(object), node);
    const plist_type type = plist_get_node_type(node);
    if (is<NSString>(object)) return type == PLIST_STRING && stringOf(node) == as<NSString>(object).utf8();
    if (is<NSDate>(object)) {
        int32_t seconds = 0, microseconds = 0;
        if (type == PLIST_DATE) plist_get_date_val(node, &seconds, &microseconds);
        return type == PLIST_DATE && seconds == as<NSDate>(object).timeIntervalSinceReferenceDate();
    }
    uint64_t length = 0;
    const char* data = type == PLIST_DATA ? plist_get_data_ptr(node, &length) : nullptr;
    return type == PLIST_DATA && std::string_view(data, size_t(length)) == as<NSData>(object).bytes();
}

PeerList readByPeer(std::string_view bytes, NSPropertyListFormat format) {
    plist_t list = nullptr;
    const auto read = format == NSPropertyListXMLFormat_v1_0 ? plist_from_xml : plist_from_bin;
    read(bytes.data(), uint32_t(bytes.size()), &list);
    return PeerList(list);
}

std::string writtenByPeer(plist_t list, NSPropertyListFormat format) {
    char* bytes = nullptr;
    uint32_t length = 0;
    const auto write = format == NSPropertyListXMLFormat_v1_0 ? plist_to_xml : plist_to_bin;
    write(list, &bytes, &length);
    std::string written(bytes, length);
    std::free(bytes);
    return written;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ListRecipe recipe({reinterpret_cast<const char*>(data), size});
    const NSObject list = recipe.list();
    constexpr NSPropertyListFormat formats[] = {NSPropertyListXMLFormat_v1_0,
                                                NSPropertyListBinaryFormat_v1_0};
    for (const NSPropertyListFormat format : formats) {
        const NSData written = dataFromPropertyList(list, format, nullptr);
        const PeerList peer = readByPeer(written.bytes(), format);
        require(peer && isSame(list, peer.get()));
        for (const NSPropertyListFormat back : formats) {
            // The library keeps the dictionary that an identifier is in XML.
            if (recipe.hasIdentifiers() && format != back) continue;
            NSPropertyListFormat found{};
            const NSObject again = propertyListWithData(writtenByPeer(peer.get(), back), &found, nullptr);
            require(found == back && again == list);
        }
    }
    return 0;
}
