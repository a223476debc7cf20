// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/DOMNode.h"

#include <gtest/gtest.h>

namespace {

using Kind = DOMNode::Kind;

TEST(DOMNode, HasItsChildrenInOrder) {
    DOMTreeBuilder builder;
    builder.addOther();
    builder.openElement({Kind::htmlElement, u"", u"", u""});
    builder.addText(u"a");
    builder.openElement({Kind::htmlImageElement, u"none", u"alternative", u"title"});
    builder.closeElement();
    builder.closeElement();
    const DOMNode document = builder.finish();
    ASSERT_EQ(document.childNodesLength(), 2u);
    EXPECT_FALSE(document.isDOMElement());
    EXPECT_FALSE(document.childNode(0).isDOMElement());
    const DOMNode html = document.childNode(1);
    EXPECT_TRUE(html.isDOMHTMLElement());
    EXPECT_FALSE(html.isDOMHTMLImageElement());
    ASSERT_EQ(html.childNodesLength(), 2u);
    const DOMNode image = html.childNode(1);
    EXPECT_TRUE(image.isDOMElement() && image.isDOMHTMLElement() && image.isDOMHTMLImageElement());
    EXPECT_EQ(image.inlineStyle(u"display"), NSString(u"none"));
    EXPECT_EQ(image.inlineStyle(u"color"), NSString(u""));
    EXPECT_EQ(image.alt(), NSString(u"alternative"));
    EXPECT_EQ(image.title(), NSString(u"title"));
    EXPECT_FALSE(html.childNode(2));
}

TEST(DOMNode, HasTheTextOfAllItsDescendantsAndOfNothingElse) {
    DOMTreeBuilder builder;
    builder.openElement({Kind::element, u"", u"", u""});
    builder.addText(u"a");
    builder.openElement({Kind::htmlElement, u"", u"", u""});
    builder.addText(u"b");
    builder.closeElement();
    builder.addOther();
    builder.addText(u"c");
    builder.closeElement();
    builder.addText(u"d");
    const DOMNode document = builder.finish();
    EXPECT_EQ(document.childNode(0).textContent(), NSString(u"abc"));
    EXPECT_EQ(document.childNode(0).childNode(1).textContent(), NSString(u"b"));
    EXPECT_EQ(document.childNode(1).textContent(), NSString(u"d"));
}

TEST(DOMNode, OfAnotherKindHasNoAttributes) {
    DOMTreeBuilder builder;
    builder.openElement({Kind::element, u"none", u"a", u"t"});
    builder.addText(u"x");
    const DOMNode element = builder.finish().childNode(0);
    EXPECT_FALSE(element.title());
    EXPECT_FALSE(element.alt());
    EXPECT_FALSE(element.childNode(0).inlineStyle(u"display"));
    EXPECT_EQ(element.description(), NSString(u"<DOMElement>"));
    EXPECT_EQ(element.childNode(0).description(), NSString(u"<DOMText>"));
}

TEST(DOMNode, ThatIsNilAnswersNothing) {
    const DOMNode nil;
    EXPECT_FALSE(nil);
    EXPECT_FALSE(nil.isDOMElement());
    EXPECT_FALSE(nil.textContent() || nil.alt() || nil.title() || nil.description());
    EXPECT_EQ(nil.childNodesLength(), 0u);
    EXPECT_FALSE(nil.childNode(0));
}

TEST(DOMTreeBuilder, ClosesNothingButWhatIsOpen) {
    DOMTreeBuilder builder;
    builder.closeElement();
    builder.addText(u"a");
    builder.openElement({Kind::htmlElement, u"", u"", u""});
    EXPECT_EQ(builder.finish().childNodesLength(), 2u);
}

} // namespace
