// SPDX-License-Identifier: Apache-2.0
//
// Finds the tags of an HTML source without building anything: for the search for the declared encoding and
// for the guard in front of the parser. Works on the bytes of any encoding that has ASCII as its lower half.
// Comments, declarations and processing instructions are stepped over. Views point into the source. Each byte
// is looked at a bounded number of times.
#pragma once

#include <cstddef>
#include <string_view>

struct HTMLTag {
    bool isEnd = false;    // </name>
    std::string_view name; // as written
    size_t begin = 0;      // the position of '<'
};

struct HTMLTagAttribute {
    std::string_view name, value; // as written, without quotes; character references stay
    size_t begin = 0;             // the position of the name
};

class HTMLTagScanner {
public:
    explicit HTMLTagScanner(std::string_view source, size_t position = 0)
        : source_(source), position_(position) {}

    // Goes to the next tag and stops behind its name; false at the end. Attributes of the tag before that
    // were not read are stepped over.
    bool nextTag(HTMLTag& tag);

    // Reads the next attribute of the tag; false when there are no more, which takes the closing '>' too.
    bool nextAttribute(HTMLTagAttribute& attribute);

    // What the tag found last says, once its attributes are read: whether it ends in "/>", and whether it
    // ends at all. A parser knows nothing of a tag that the end of the source cuts off.
    bool isSelfClosing() const { return selfClosing_; }
    bool isWhole() const { return whole_; }

    // Goes behind the text of an element whose text holds no tags, and in front of its end tag, which is the
    // next tag then; to the end of the source when there is none.
    void skipRawText(std::string_view elementName);

    // With `sections`, <![CDATA[ ... ]]> is stepped over as a whole, as it is inside SVG and MathML.
    void stepOverSections(bool sections) { sections_ = sections; }

    // The first position that was not read.
    size_t position() const { return position_; }

    void moveToEnd() {
        position_ = source_.size();
        inTag_ = false;
    }

private:
    bool atEnd() const { return position_ >= source_.size(); }
    char current() const { return source_[position_]; }
    void stepOver(std::string_view closing, size_t from);
    void stepOverMarkup();
    std::string_view attributeValue();

    std::string_view source_;
    size_t position_;
    bool inTag_ = false, selfClosing_ = false, whole_ = false, sections_ = false;
};
