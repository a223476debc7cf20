// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLSourceGuard.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"
#include "Platform/AppKit/HTML/HTMLOpenElements.h"
#include "Platform/AppKit/HTML/HTMLTagScanner.h"
#include "Platform/AppKit/HTML/HTMLTagTraits.h"

#include <vector>

namespace {

// Elements that the parser may open anew by itself: some, and more in a longer source.
constexpr size_t kReopenBase = 10000;
constexpr size_t kBytesPerReopened = 16;

// Of addresses the reader asks only whether they are there and how they begin; pictures may be written into
// them.
constexpr size_t kAddressLength = 32;

// Leaves no text. With nothing in a tag's place, what stood around it could come together as a new tag.
constexpr std::string_view kNothing = "<!---->";

// What ends SVG and MathML in the place of a tag that would have done so.
constexpr std::string_view kLeavesPicture = "<span></span>";

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    for (std::string_view other : names) {
        if (equalIgnoringCase(name, other)) return true;
    }
    return false;
}

bool isAddress(std::string_view name) { return isOneOf(name, {"src", "data"}); }

// The attributes that the parser and the reader ask for.
bool isRead(std::string_view name) {
    return isOneOf(name, {"class", "id", "style", "type", "name", "content", "value", "hidden", "open",
                          "start", "media", "color", "face", "size", "encoding", "srcdoc"}) ||
           isAddress(name);
}

class SourceGuard {
public:
    SourceGuard(std::string_view source, std::string& rewritten)
        : source_(source), out_(rewritten), scanner_(source),
          elements_(kReopenBase + source.size() / kBytesPerReopened) {}

    bool run() {
        HTMLTag tag;
        size_t textBegin = 0;
        while (scanner_.nextTag(tag)) {
            if (tag.begin > textBegin) readText(tag);
            const bool whole = readTag(tag);
            textBegin = scanner_.position();
            if (!whole) break;
        }
        if (copied_ == 0) return false;
        out_.append(source_, copied_);
        return true;
    }

private:
    struct Range {
        size_t begin, end;
    };

    // The parser takes markup that means nothing, such as "</>", for the beginning of the tag behind it, and
    // does not know the end tags of SVG and MathML then. A comment keeps them apart.
    void readText(const HTMLTag& next) {
        elements_.text();
        const bool endsMarkup = source_[next.begin - 1] == '>';
        if (next.isEnd && endsMarkup && elements_.inForeignContent())
            replace({next.begin, next.begin}, kNothing);
    }

    // False when the source ends inside the tag, which the parser ignores then.
    bool readTag(const HTMLTag& tag) {
        const GumboTag id = gumbo_tagn_enum(tag.name.data(), unsigned(tag.name.size()));
        HTMLStartTag start;
        start.tag = id;
        start.name = tag.name;
        readAttributes(tag.isEnd, start);
        if (!scanner_.isWhole()) return false;

        start.source = source_.substr(tag.begin, scanner_.position() - tag.begin);
        start.isSelfClosing = scanner_.isSelfClosing();
        const bool foreign = elements_.inForeignContent();
        const bool passes = tag.isEnd ? elements_.end(id, tag.name) : elements_.start(start);
        if (passes) {
            for (const Range& range : unread_) replace(range, "");
        } else {
            const Range whole = {tag.begin, scanner_.position()};
            if (foreign && !elements_.inForeignContent())
                replace(whole, kLeavesPicture);
            else
                replace(whole, hasTrait(id, kTagIsSpecial) ? " " : kNothing);
        }

        scanner_.stepOverSections(elements_.inForeignContent());
        const bool hasText = !tag.isEnd && !foreign && hasTrait(id, kTagHasRawText);
        if (hasText && (id == GUMBO_TAG_SCRIPT || !elements_.inSelect())) {
            readRawText(tag, id);
        } else if (!tag.isEnd && !foreign && id == GUMBO_TAG_PLAINTEXT) {
            scanner_.moveToEnd();
        } else {
            closeSurplusFormatting();
        }
        return true;
    }

    // Finds the parts of a tag that nobody reads.
    void readAttributes(bool isEnd, HTMLStartTag& start) {
        unread_.clear();
        HTMLTagAttribute attribute;
        while (scanner_.nextAttribute(attribute)) {
            if (isEnd || !isRead(attribute.name)) {
                unread_.push_back({attribute.begin, scanner_.position()});
            } else if (attribute.value.size() > kAddressLength && isAddress(attribute.name)) {
                const auto begin = size_t(attribute.value.data() - source_.data());
                unread_.push_back({begin + kAddressLength, begin + attribute.value.size()});
            } else if (start.tag == GUMBO_TAG_FONT) {
                start.hasFontStyle |= isOneOf(attribute.name, {"color", "face", "size"});
            } else if (start.tag == GUMBO_TAG_ANNOTATION_XML &&
                       equalIgnoringCase(attribute.name, "encoding")) {
                start.hasHTMLEncoding = isOneOf(attribute.value, {"text/html", "application/xhtml+xml"});
            }
        }
    }

    void readRawText(const HTMLTag& tag, GumboTag id) {
        const size_t begin = scanner_.position();
        scanner_.skipRawText(tag.name);
        const Range text = {begin, scanner_.position()};
        if (id != GUMBO_TAG_SCRIPT || text.end == source_.size()) return;
        // Behind "<!--" the first end tag may not be the script's.
        if (source_.substr(text.begin, text.end - text.begin).find("<!--") == std::string_view::npos)
            replace(text, "");
    }

    void closeSurplusFormatting() {
        while (const auto tag = elements_.takeSurplusFormatting()) {
            replace({scanner_.position(), scanner_.position()}, "</");
            out_.append(gumbo_normalized_tagname(*tag)).append(">");
        }
    }

    // Puts `text` in the place of a range behind all those before.
    void replace(const Range& range, std::string_view text) {
        if (copied_ == 0) out_.reserve(source_.size());
        out_.append(source_, copied_, range.begin - copied_).append(text);
        copied_ = range.end;
    }

    std::string_view source_;
    std::string& out_;
    HTMLTagScanner scanner_;
    HTMLOpenElements elements_;
    std::vector<Range> unread_; // parts of the current tag
    size_t copied_ = 0;         // how much of the source is in `out_` or was left out of it
};

} // namespace

std::string_view guardedSource(std::string_view source, std::string& rewritten) {
    return SourceGuard(source, rewritten).run() ? std::string_view(rewritten) : source;
}
