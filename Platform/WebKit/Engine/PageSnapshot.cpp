// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/PageSnapshot.h"

#include "Platform/Foundation/UnicodeText.h"

#include <optional>

namespace {

using View = std::u16string_view;

// More than the engine lets a page have.
constexpr size_t kMostFrames = 4096;
constexpr size_t kDeepestFrame = 64;

std::optional<size_t> numberOf(View digits) {
    if (digits.empty() || digits.size() > 9) return std::nullopt;
    size_t number = 0;
    for (char16_t digit : digits) {
        if (digit < u'0' || digit > u'9') return std::nullopt;
        number = number * 10 + (digit - u'0');
    }
    return number;
}

class Fields {
public:
    explicit Fields(View text) : rest_(text) {}

    bool isAtEnd() const { return rest_.empty(); }

    // False at the end and for what is no field; then there are no more.
    bool next(View& field) {
        const size_t colon = rest_.substr(0, 10).find(u':');
        const auto length = colon == View::npos ? std::nullopt : numberOf(rest_.substr(0, colon));
        if (!length || *length > rest_.size() - colon - 1) {
            rest_ = {};
            return false;
        }
        field = rest_.substr(colon + 1, *length);
        rest_.remove_prefix(colon + 1 + *length);
        return true;
    }

private:
    View rest_;
};

class SnapshotReader {
public:
    explicit SnapshotReader(View fields) : fields_(fields) {}

    PageSnapshot::Frame read() {
        PageSnapshot::Frame main;
        while (!fields_.isAtEnd() && readFrame(main)) {
        }
        return main;
    }

private:
    // The frame at a path below the main one; null for a path that is none.
    PageSnapshot::Frame* frameAt(PageSnapshot::Frame& main, View path) {
        PageSnapshot::Frame* frame = &main;
        for (size_t depth = 0; !path.empty(); ++depth) {
            const size_t slash = path.find(u'/');
            const auto place = slash == View::npos ? std::nullopt : numberOf(path.substr(0, slash));
            if (!place || depth == kDeepestFrame || !makeChildren(*frame, *place + 1)) return nullptr;
            frame = &frame->children[*place];
            path.remove_prefix(slash + 1);
        }
        return frame;
    }

    // Frames that never said a word have their places too.
    bool makeChildren(PageSnapshot::Frame& frame, size_t count) {
        if (count <= frame.children.size()) return true;
        frames_ += count - frame.children.size();
        if (count > kMostFrames || frames_ > kMostFrames) return false;
        frame.children.resize(count);
        return true;
    }

    bool readFrame(PageSnapshot::Frame& main) {
        View path, count, url, title, text;
        if (!fields_.next(path) || !fields_.next(count) || !fields_.next(url) || !fields_.next(title) ||
            !fields_.next(text)) {
            return false;
        }
        PageSnapshot::Frame unreachable; // a frame that left the page while it was read
        PageSnapshot::Frame* frame = path == u"gone" ? &unreachable : frameAt(main, path);
        const auto children = numberOf(count);
        if (!frame || !children || !makeChildren(*frame, *children) || text.empty()) return false;
        frame->isKnown = true;
        frame->hasDocument = text[0] == u't';
        frame->url = NSString(url);
        if (!title.empty()) frame->title = NSString(title);
        frame->text = NSString(text.substr(1));
        return readNodes(*frame);
    }

    bool readNodes(PageSnapshot::Frame& frame) {
        DOMTreeBuilder builder;
        bool isWhole = false;
        for (View node; !isWhole && fields_.next(node) && !node.empty();) {
            isWhole = node == u".";
            if (!isWhole && !addNode(builder, node)) break;
        }
        if (frame.hasDocument) frame.document = builder.finish();
        return isWhole;
    }

    bool addNode(DOMTreeBuilder& builder, View node) {
        switch (node[0]) {
        case u't': builder.addText(std::u16string(node.substr(1))); return true;
        case u'o': builder.addOther(); return true;
        case u')': builder.closeElement(); return true;
        case u'e':
        case u'E': return addElement(builder, DOMNode::Kind::element, node[0] == u'E');
        case u'h':
        case u'H': return addElement(builder, DOMNode::Kind::htmlElement, node[0] == u'H');
        case u'i':
        case u'I': return addElement(builder, DOMNode::Kind::htmlImageElement, node[0] == u'I');
        default: return false;
        }
    }

    bool addElement(DOMTreeBuilder& builder, DOMNode::Kind kind, bool hasAttributes) {
        View display, alt, title;
        if (hasAttributes && !(fields_.next(display) && fields_.next(alt) && fields_.next(title)))
            return false;
        builder.openElement({kind, std::u16string(display), std::u16string(alt), std::u16string(title)});
        return true;
    }

    Fields fields_;
    size_t frames_ = 0;
};

} // namespace

PageSnapshot PageSnapshot::withFields(std::string_view fields) {
    const std::u16string text = fromUTF8(fields);
    return {SnapshotReader(text).read()};
}
