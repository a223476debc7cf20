// SPDX-License-Identifier: Apache-2.0
//
// The tree of a document as it was when it was asked for: later changes of the page do not show in it. Nodes
// share the tree and keep it alive; the empty node is nil, and asking it is safe.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <cstdint>
#include <memory>
#include <vector>

class DOMTree;

class DOMNode {
public:
    enum class Kind : uint8_t {
        other, // comments, doctypes, processing instructions
        text,
        document,
        element,
        htmlElement,
        htmlImageElement,
    };

    DOMNode() = default;
    DOMNode(std::nullptr_t) {}

    explicit operator bool() const { return tree_ != nullptr; }

    // The kinds are nested: an image element is an HTML element, and that an element.
    bool isDOMElement() const { return kind() >= Kind::element; }
    bool isDOMHTMLElement() const { return kind() >= Kind::htmlElement; }
    bool isDOMHTMLImageElement() const { return kind() == Kind::htmlImageElement; }

    // What the element's own style attribute says of a property; "" when nothing. The tree holds "display"
    // only.
    NSString inlineStyle(const NSString& property) const;

    // Of image elements and of HTML elements; "" without the attribute, nil for other nodes.
    NSString alt() const;
    NSString title() const;

    // All text below the node in document order, comments and instructions left out.
    NSString textContent() const;

    uint32_t childNodesLength() const;
    // nil past the end.
    DOMNode childNode(uint32_t index) const;

    // The class's name, for logs: "<DOMHTMLElement>"; nil for nil.
    NSString description() const;

private:
    friend class DOMTreeBuilder;
    DOMNode(std::shared_ptr<const DOMTree> tree, uint32_t index) : tree_(std::move(tree)), index_(index) {}
    Kind kind() const;

    std::shared_ptr<const DOMTree> tree_;
    uint32_t index_ = 0;
};

// Builds a tree in document order, beginning with its document node.
class DOMTreeBuilder {
public:
    struct Element {
        DOMNode::Kind kind = DOMNode::Kind::element;
        std::u16string display, alt, title;
    };

    DOMTreeBuilder();
    ~DOMTreeBuilder();

    void openElement(Element element);
    // Closes the element that was opened last; nothing happens when none is open.
    void closeElement();
    void addText(std::u16string text);
    void addOther();

    // The document node. The builder is used up.
    DOMNode finish();

private:
    uint32_t add(DOMNode::Kind kind);

    std::shared_ptr<DOMTree> tree_;
    std::vector<uint32_t> open_;
};
