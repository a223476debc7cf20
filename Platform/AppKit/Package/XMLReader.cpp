// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Package/XMLReader.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <expat.h>
#include <malloc.h>
#include <new>
#include <utility>
#include <vector>

namespace {

// Stands between a namespace and a local name; no XML document can hold it.
constexpr char kSeparator = '\x01';

// The memory of the parser that this thread is in. The library's memory functions have no other way to it.
thread_local size_t* usedMemory;

class MemoryScope {
public:
    explicit MemoryScope(size_t& used) : outer_(std::exchange(usedMemory, &used)) {}
    ~MemoryScope() { usedMemory = outer_; }
    MemoryScope(const MemoryScope&) = delete;
    MemoryScope& operator=(const MemoryScope&) = delete;

private:
    size_t* outer_;
};

bool isWithinLimit(size_t more) {
    return *usedMemory <= XMLReader::kMemoryLimit && more <= XMLReader::kMemoryLimit - *usedMemory;
}

void* allocate(size_t size) {
    void* memory = isWithinLimit(size) ? std::malloc(size) : nullptr;
    *usedMemory += malloc_usable_size(memory);
    return memory;
}

void* reallocate(void* memory, size_t size) {
    if (!isWithinLimit(size)) return nullptr;
    size_t before = malloc_usable_size(memory);
    void* moved = std::realloc(memory, size);
    if (moved != nullptr) *usedMemory += malloc_usable_size(moved) - before;
    return moved;
}

void release(void* memory) {
    *usedMemory -= malloc_usable_size(memory);
    std::free(memory);
}

XML_Parser makeParser() {
    const XML_Memory_Handling_Suite suite{allocate, reallocate, release};
    const char separator[] = {kSeparator, '\0'};
    XML_Parser parser = XML_ParserCreate_MM(nullptr, &suite, separator);
    if (parser == nullptr) throw std::bad_alloc();
    return parser;
}

} // namespace

struct XMLReader::Parser {
    struct Attribute {
        int space;
        std::string_view name, value;
    };

    Parser(std::span<const XMLNamespace> known, XMLHandler& target);
    ~Parser();
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    std::pair<int, std::string_view> split(const char* expandedName);
    void splitAttributes();
    bool parse(std::string_view bytes, bool isFinal);
    void stop();
    template <typename Call>
    void guarded(Call&& call);

    static void XMLCALL onStart(void* self, const char* name, const char** attributes);
    static void XMLCALL onEnd(void* self, const char* name);
    static void XMLCALL onCharacters(void* self, const char* text, int length);
    static void XMLCALL onDoctype(void* self, const char*, const char*, const char*, int);
    static void XMLCALL onNamespace(void* self, const char* prefix, const char* uri);

    size_t memory = 0;
    XML_Parser expat;
    std::span<const XMLNamespace> namespaces;
    XMLHandler& handler;
    const XMLReader* reader = nullptr;
    size_t lastHit = 0; // in `namespaces`; neighbouring names mostly share theirs
    size_t depth = 0;
    bool stopped = false, malformed = false;
    std::exception_ptr failure;

    const char** pairs = nullptr; // of the element being started: expanded name, value, ..., null
    bool attributesSplit = false; // most elements are never asked for attributes
    std::vector<Attribute> attributes;
};

XMLReader::Parser::Parser(std::span<const XMLNamespace> known, XMLHandler& target)
    : expat((MemoryScope(memory), makeParser())), namespaces(known), handler(target) {
    XML_SetUserData(expat, this);
    XML_SetElementHandler(expat, onStart, onEnd);
    XML_SetCharacterDataHandler(expat, onCharacters);
    XML_SetStartDoctypeDeclHandler(expat, onDoctype);
    XML_SetStartNamespaceDeclHandler(expat, onNamespace);
}

XMLReader::Parser::~Parser() {
    MemoryScope scope(memory);
    XML_ParserFree(expat);
}

std::pair<int, std::string_view> XMLReader::Parser::split(const char* expandedName) {
    const char* separator = std::strchr(expandedName, kSeparator);
    if (separator == nullptr) return {0, expandedName};
    std::string_view uri(expandedName, size_t(separator - expandedName)), local(separator + 1);
    if (lastHit < namespaces.size() && namespaces[lastHit].uri == uri)
        return {namespaces[lastHit].space, local};
    for (size_t i = 0; i < namespaces.size(); ++i) {
        if (namespaces[i].uri != uri) continue;
        lastHit = i;
        return {namespaces[i].space, local};
    }
    return {0, local};
}

void XMLReader::Parser::splitAttributes() {
    attributesSplit = true;
    attributes.clear();
    for (const char** pair = pairs; *pair != nullptr; pair += 2) {
        auto [space, name] = split(pair[0]);
        attributes.push_back({space, name, pair[1]});
    }
}

bool XMLReader::Parser::parse(std::string_view bytes, bool isFinal) {
    constexpr size_t kPiece = 1 << 20;
    MemoryScope scope(memory);
    while (!stopped && !malformed) {
        std::string_view piece = bytes.substr(0, kPiece);
        bytes.remove_prefix(piece.size());
        bool last = bytes.empty();
        malformed = XML_Parse(expat, piece.data(), int(piece.size()), isFinal && last) == XML_STATUS_ERROR;
        if (failure) std::rethrow_exception(std::exchange(failure, nullptr));
        if (last) break;
    }
    return !stopped && !malformed;
}

void XMLReader::Parser::stop() {
    stopped = true;
    XML_StopParser(expat, XML_FALSE);
}

// Calls the handler; what it throws must not pass through the library, which is C.
template <typename Call>
void XMLReader::Parser::guarded(Call&& call) {
    if (stopped) return;
    try {
        call();
    } catch (...) {
        failure = std::current_exception();
        stop();
    }
}

void XMLCALL XMLReader::Parser::onStart(void* self, const char* name, const char** attributes) {
    auto* parser = static_cast<Parser*>(self);
    parser->guarded([&] {
        if (++parser->depth > kDepthLimit) return;
        parser->pairs = attributes;
        parser->attributesSplit = false;
        auto [space, local] = parser->split(name);
        parser->handler.startElement(space, local, XMLAttributes(*parser->reader));
    });
}

void XMLCALL XMLReader::Parser::onEnd(void* self, const char* name) {
    auto* parser = static_cast<Parser*>(self);
    parser->guarded([&] {
        if (parser->depth-- > kDepthLimit) return;
        auto [space, local] = parser->split(name);
        parser->handler.endElement(space, local);
    });
}

void XMLCALL XMLReader::Parser::onCharacters(void* self, const char* text, int length) {
    auto* parser = static_cast<Parser*>(self);
    if (parser->depth > kDepthLimit) return;
    parser->guarded([&] { parser->handler.characters({text, size_t(length)}); });
}

void XMLCALL XMLReader::Parser::onDoctype(void* self, const char*, const char*, const char*,
                                          int holdsDeclarations) {
    if (holdsDeclarations) static_cast<Parser*>(self)->stop();
}

void XMLCALL XMLReader::Parser::onNamespace(void* self, const char*, const char* uri) {
    if (uri != nullptr && std::strlen(uri) > kNamespaceLengthLimit) static_cast<Parser*>(self)->stop();
}

std::string_view XMLAttributes::value(int space, std::string_view name) const {
    XMLReader::Parser& parser = *reader_.parser_;
    if (!parser.attributesSplit) parser.splitAttributes();
    auto found = std::find_if(parser.attributes.begin(), parser.attributes.end(),
                              [&](const auto& a) { return a.space == space && a.name == name; });
    return found == parser.attributes.end() ? std::string_view() : found->value;
}

XMLReader::XMLReader(std::span<const XMLNamespace> namespaces, XMLHandler& handler)
    : parser_(std::make_unique<Parser>(namespaces, handler)) {
    parser_->reader = this;
}

XMLReader::~XMLReader() = default;

bool XMLReader::feed(std::string_view bytes) { return parser_->parse(bytes, false); }

bool XMLReader::finish() { return parser_->parse({}, true); }

void XMLReader::stop() { parser_->stop(); }
