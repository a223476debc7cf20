// SPDX-License-Identifier: Apache-2.0
//
// A model of what the parser keeps while it reads tags: the stack of open elements, and the list of
// formatting elements (B, FONT, A ...) that it opens anew in every block until their end tags come. The model
// follows the standard's rules closely enough to know how deep the next element would lie and how many
// elements the parser would make by itself; it builds nothing. Every operation takes time bounded by the
// limits below.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <gumbo.h>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

// A start tag as the parser's rules see it.
struct HTMLStartTag {
    GumboTag tag = GUMBO_TAG_UNKNOWN;
    std::string_view name, source; // as written; the whole tag
    bool isSelfClosing = false;
    bool hasFontStyle = false;    // an attribute "color", "face" or "size"
    bool hasHTMLEncoding = false; // an attribute "encoding" that names HTML
};

class HTMLOpenElements {
public:
    // How deep elements may lie, those of SVG and MathML among them, and how many formatting elements may
    // wait for their end tags. Browsers let elements lie 512 deep.
    static constexpr size_t kDepthLimit = 400;
    static constexpr size_t kForeignDepthLimit = 128;
    static constexpr size_t kFormattingLimit = 48;

    // `reopenLimit` is the number of elements that the parser may open anew by itself. Past it no more
    // formatting elements are taken.
    explicit HTMLOpenElements(size_t reopenLimit) : reopenLimit_(reopenLimit) {}

    // False when the tag would go past a limit: it must not reach the parser then, and the end tag that
    // belongs to it will be refused too.
    bool start(const HTMLStartTag& start);
    bool end(GumboTag tag, std::string_view name);

    // Text between tags, white space too.
    void text();

    // Past the limit of reopening, the formatting elements that the parser would open anew next, one in each
    // call: to be closed before the parser sees what comes next.
    std::optional<GumboTag> takeSurplusFormatting();

    // Whether tags follow the rules of SVG and MathML here, by which no element has raw text.
    bool inForeignContent() const;
    bool inSelect() const;

private:
    // The first tag in a TEMPLATE tells what it is for, and the others must fit.
    enum class TemplateContent : uint8_t { unknown, table, other };

    struct Element {
        explicit Element(GumboTag its) : tag(its) {}

        GumboTag tag;
        uint32_t identity =
            0; // tells elements of one tag apart: unknown and foreign ones, formatting elements
        bool foreign = false; // of SVG or MathML
        bool math = false;
        bool holdsHTML = false; // foreign, and HTML's rules hold inside
        TemplateContent content = TemplateContent::unknown;
    };

    // An entry in the list of formatting elements; a marker stands for the start of a table cell or its like.
    struct Formatting {
        Element element;
        bool marker = false, open = false;
    };

    static uint32_t identityOf(std::string_view text);
    static bool holdsTableParts(const Element& element);
    bool inForeign() const { return !open_.empty() && open_.back().foreign; }
    bool hasRoom() const { return open_.size() < kDepthLimit; }
    bool isInScope(GumboTag tag) const;
    bool isTop(std::initializer_list<GumboTag> tags) const;

    bool push(const Element& element);
    void pop();
    void popTo(size_t size);
    bool popThrough(GumboTag tag, GumboTag border1 = GUMBO_TAG_LAST, GumboTag border2 = GUMBO_TAG_LAST);
    bool popThroughInTable(GumboTag tag);
    void remove(size_t index);

    bool breaksOut(const HTMLStartTag& start) const;
    bool startForeign(const HTMLStartTag& start);
    bool startFormatting(GumboTag tag, std::string_view source);
    bool startInSelect(GumboTag tag);
    bool startTablePart(GumboTag tag);
    size_t afterTableHolder() const;
    bool inTableRows() const;
    void fillTemplate(GumboTag tag);
    void closeItem(GumboTag tag, GumboTag other);
    void closeImplied(GumboTag tag);

    bool endForeign(std::string_view name);
    void endFormatting(GumboTag tag);
    void endHeading();
    void endForm();
    void endOther(GumboTag tag, std::string_view name);

    size_t afterMarker() const;
    void eraseFormatting(size_t index);
    void keepThreeAlike(uint32_t identity);

    std::vector<Element> open_;
    std::vector<Formatting> formatting_;
    std::array<uint32_t, GUMBO_TAG_LAST + 1> count_{};   // of open HTML elements
    std::array<uint32_t, GUMBO_TAG_LAST + 1> refused_{}; // start tags whose end tags are still to come
    size_t reopenLimit_, reopened_ = 0, foreignCount_ = 0;
    bool formOpen_ = false;
};
