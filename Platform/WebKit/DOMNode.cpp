// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/DOMNode.h"

#include <utility>

class DOMTree {
public:
    struct Node {
        DOMNode::Kind kind;
        uint32_t end = 0; // one past the last descendant, in document order
        uint32_t detail = 0;
        std::vector<uint32_t> children;
    };

    std::vector<Node> nodes; // in document order
    std::vector<DOMTreeBuilder::Element> elements;
    std::vector<std::u16string> texts;

    const DOMTreeBuilder::Element& element(uint32_t node) const { return elements[nodes[node].detail]; }
};

DOMNode::Kind DOMNode::kind() const { return tree_ ? tree_->nodes[index_].kind : Kind::other; }

NSString DOMNode::inlineStyle(const NSString& property) const {
    if (!isDOMElement()) return nullptr;
    return property.isEqualToString(u"display") ? NSString(tree_->element(index_).display) : NSString(u"");
}

NSString DOMNode::alt() const {
    return isDOMHTMLImageElement() ? NSString(tree_->element(index_).alt) : nullptr;
}

NSString DOMNode::title() const {
    return isDOMHTMLElement() ? NSString(tree_->element(index_).title) : nullptr;
}

NSString DOMNode::textContent() const {
    if (!tree_) return nullptr;
    std::u16string text;
    for (uint32_t i = index_; i < tree_->nodes[index_].end; ++i) {
        if (tree_->nodes[i].kind == Kind::text) text += tree_->texts[tree_->nodes[i].detail];
    }
    return NSString(std::move(text));
}

uint32_t DOMNode::childNodesLength() const {
    return tree_ ? uint32_t(tree_->nodes[index_].children.size()) : 0;
}

DOMNode DOMNode::childNode(uint32_t index) const {
    return index < childNodesLength() ? DOMNode(tree_, tree_->nodes[index_].children[index]) : DOMNode();
}

NSString DOMNode::description() const {
    if (!tree_) return nullptr;
    switch (kind()) {
    case Kind::text: return u"<DOMText>";
    case Kind::document: return u"<DOMDocument>";
    case Kind::element: return u"<DOMElement>";
    case Kind::htmlElement: return u"<DOMHTMLElement>";
    case Kind::htmlImageElement: return u"<DOMHTMLImageElement>";
    default: return u"<DOMNode>";
    }
}

DOMTreeBuilder::DOMTreeBuilder() : tree_(std::make_shared<DOMTree>()) {
    tree_->nodes.push_back({DOMNode::Kind::document, 0, 0, {}});
    open_.push_back(0);
}

DOMTreeBuilder::~DOMTreeBuilder() = default;

uint32_t DOMTreeBuilder::add(DOMNode::Kind kind) {
    const auto index = uint32_t(tree_->nodes.size());
    tree_->nodes.push_back({kind, index + 1, 0, {}});
    tree_->nodes[open_.back()].children.push_back(index);
    return index;
}

void DOMTreeBuilder::openElement(Element element) {
    const uint32_t index = add(element.kind);
    tree_->nodes[index].detail = uint32_t(tree_->elements.size());
    tree_->elements.push_back(std::move(element));
    open_.push_back(index);
}

void DOMTreeBuilder::closeElement() {
    if (open_.size() < 2) return;
    tree_->nodes[open_.back()].end = uint32_t(tree_->nodes.size());
    open_.pop_back();
}

void DOMTreeBuilder::addText(std::u16string text) {
    const uint32_t index = add(DOMNode::Kind::text);
    tree_->nodes[index].detail = uint32_t(tree_->texts.size());
    tree_->texts.push_back(std::move(text));
}

void DOMTreeBuilder::addOther() { add(DOMNode::Kind::other); }

DOMNode DOMTreeBuilder::finish() {
    while (open_.size() > 1) closeElement();
    tree_->nodes[0].end = uint32_t(tree_->nodes.size());
    return DOMNode(std::exchange(tree_, nullptr), 0);
}
