// SPDX-License-Identifier: Apache-2.0
//
// A streaming XML reader with namespaces for documents from strangers: no declarations of entities, nothing
// external, no recursion, bounded depth and memory. A document type declaration may name a document type, as
// older writers do, which is passed over; one that holds declarations is refused. Text comes out in UTF-8,
// whatever encoding the document has.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

// Readers know the few namespaces of their format by small numbers of their own (above 0), so that the
// variants of a namespace's name fall together. 0 is any other namespace, or none.
struct XMLNamespace {
    std::string_view uri;
    int space;
};

class XMLReader;

// The attributes of the element that is being started.
class XMLAttributes {
public:
    // The value, good until the handler returns, or a view whose data() is null when there is no such
    // attribute.
    std::string_view value(int space, std::string_view name) const;
    bool has(int space, std::string_view name) const { return value(space, name).data() != nullptr; }

private:
    friend class XMLReader;
    explicit XMLAttributes(const XMLReader& reader) : reader_(reader) {}
    const XMLReader& reader_;
};

// What it throws comes out of feed() or finish(). Text comes in pieces of any size.
class XMLHandler {
public:
    virtual ~XMLHandler() = default;
    virtual void startElement(int space, std::string_view name, const XMLAttributes& attributes) = 0;
    virtual void endElement(int space, std::string_view name) = 0;
    virtual void characters(std::string_view utf8) = 0;
};

class XMLReader {
public:
    // Elements that lie deeper are passed over with all in them; what stands behind them is read.
    static constexpr size_t kDepthLimit = 4096;

    // Past these bounds the document is refused, what stands before has gone to the handler. Wide enough for
    // what writers make, and for a hostile document cheap.
    static constexpr size_t kNamespaceLengthLimit = 512; // bytes, by which every name in it is longer inside
    static constexpr size_t kMemoryLimit = 64 << 20;     // bytes; what must be whole, as a start tag, counts

    // The namespaces and the handler must outlive the reader.
    XMLReader(std::span<const XMLNamespace> namespaces, XMLHandler& handler);
    ~XMLReader();
    XMLReader(const XMLReader&) = delete;
    XMLReader& operator=(const XMLReader&) = delete;

    // Reads on. False when the document is malformed or refused from here on, or the handler stopped the
    // reading.
    bool feed(std::string_view bytes);

    // Says that nothing follows; false when the document is not complete. Parts of what was fed may reach the
    // handler only here, so a reader that lives on truncated documents calls it of these, too.
    bool finish();

    // For handlers: nothing more is wanted. No handler function is called after it.
    void stop();

private:
    friend class XMLAttributes;
    struct Parser; // hides the library
    std::unique_ptr<Parser> parser_;
};
