// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/HTML/HTMLTesting.h"

namespace {

using namespace HTMLTesting;

TEST(HTMLText, breaksParagraphsAtBlocks) {
    expectTexts({
        {"two paragraphs", "<p>a</p><p>b</p>", u"a\nb\n"},
        {"an empty paragraph", "<p></p>", u"\n"},
        {"empty ones between others", "<p>a</p><p></p><p> </p><p>b</p>", u"a\n\n\nb\n"},
        {"no break behind text in the body", "<body>a</body>", u"a"},
        {"nothing at all", "", u""},
        {"the body alone", "<html><body></body></html>", u""},
        {"text before and behind a block", "a<div>b</div>c", u"a\nb\nc"},
        {"blocks in blocks", "<div><div>a</div></div><div>b</div>", u"a\nb\n"},
        {"an empty block in a block", "<div><div></div></div>", u"\n"},
        {"headings", "<h1>a</h1><h6>b</h6>", u"a\nb\n"},
        {"unclosed paragraphs", "<p>a<p>b", u"a\nb\n"},
        {"all kinds of blocks",
         "<address>a</address><blockquote>b</blockquote><center>c</center><dl><dt>d<dd>e</"
         "dl><fieldset><legend>f"
         "</legend>g</fieldset><figure>h<figcaption>i</figcaption></figure><nav>j</nav><main>k</main>",
         u"a\nb\nc\nd\ne\nf\ng\nh\ni\nj\nk\n"},
        {"inline elements", "<p>caf&eacute; <b>b</b></p>", u"café b\n"},
        {"a horizontal rule is an empty block", "a<hr>b<p>c</p><hr>", u"a\n\nb\nc\n\n"},
    });
}

TEST(HTMLText, collapsesWhiteSpace) {
    expectTexts({
        {"runs of all kinds", "<p>a \t\r\n\f b", u"a b\n"},
        {"zero width spaces", "<p>a\u200Bb \u200B c", u"a b c\n"},
        {"at the start and the end of a block", "<p>  a  </p>  <p>b</p>", u"a\nb\n"},
        {"across elements", "<p>a <b> b </b> c", u"a b c\n"},
        {"of its own element", "<p>a<b> </b>b", u"a b\n"},
        {"before a block", "a <p>b", u"a\nb\n"},
        {"at the end of the body", "<body>a </body>", u"a"},
        {"behind a line break", "<p>a<br> b", u"a\u2028b\n"},
        {"no-break spaces stay", "<p>&nbsp;a&nbsp; b", u"\u00A0a\u00A0 b\n"},
        {"spaces behind a picture stay", "<p><img src=x> a", u"\uFFFC a\n"},
        {"between inline elements and a comment", "<p><i>a</i> <!-- x --> <i>b</i>", u"a b\n"},
    });
}

TEST(HTMLText, keepsSpaceInPreformattedText) {
    expectTexts({
        {"lines", "<pre>\n a\n\n  b\t c </pre>", u" a\n\n  b\t c \n"},
        {"elements inside", "<pre>a <b> b</b>\nc</pre>", u"a  b\nc\n"},
        {"a line feed at the end", "<pre>a\n</pre>b", u"a\nb"},
        {"carriage returns", "<pre>a\r\nb\rc</pre>", u"a\nb\nc\n"},
        {"old elements", "<listing>a  b</listing><xmp><i>  c</xmp>", u"a  b\n<i>  c\n"},
        {"plain text has no end", "<plaintext>a  </plaintext>", u"a  </plaintext>\n"},
        {"by style", "<div style='white-space: pre-wrap'>a  b\nc</div>", u"a  b\nc\n"},
        {"taken back by style", "<pre style='white-space:normal'>a  b\nc</pre>", u"a b c\n"},
        {"lines kept, spaces not", "<div style='white-space: pre-line'>a  b</div>", u"a b\n"},
    });
}

TEST(HTMLText, breaksLines) {
    expectTexts({
        {"in a paragraph", "<p>a<br>b</p>", u"a\u2028b\n"},
        {"in a heading", "<h3>a<br>b</h3>", u"a\u2028b\n"},
        {"in a list item", "<ul><li>a<br>b</ul>", u"\t•\ta\u2028b\n"},
        {"in an inline element of a paragraph", "<p><b>a<br>b</b></p>", u"a\u2028b\n"},
        {"in other blocks", "<div>a<br>b</div>", u"a\nb\n"},
        {"in the body", "a<br>b<br><br>c", u"a\nb\n\nc"},
        {"in a block inside of a paragraph's heading", "<h1><div>a<br>b</div></h1>", u"a\nb\n"},
        {"at the end of a paragraph", "<p>a<br></p>b", u"a\nb"},
        {"alone in a paragraph", "<p><br></p>b", u"\nb"},
        {"alone in a block", "<div><br></div>b", u"\nb"},
        {"the platform's own trailing one", "<p>a</p><br class='Apple-interchange-newline'>", u"a\n"},
        {"hidden", "a<br style=display:none>b", u"ab"},
    });
}

TEST(HTMLText, setsQuotationMarks) {
    expectTexts({
        {"one", "<p><q>a</q>", u"“a”\n"},
        {"nested", "<q>a<q>b<q>c</q></q></q><q>d</q>", u"“a‘b‘c’’”“d”"},
        {"left open", "<p><q>a<p>b", u"“a”\nb\n"},
    });
}

TEST(HTMLText, showsFormControls) {
    expectTexts({
        {"text fields", "<p>a<input value=b><input type=TEXT value='c  d'><input type=bogus value=e>",
         u"abc  de\n"},
        {"line feeds in a field", "<input value='a\nb'>", u"ab"},
        {"other inputs",
         "<p>a<input type=hidden value=b><input type=checkbox value=c><input type=submit value=d><input "
         "type=password value=e><input type=search value=f><input>",
         u"a\n"},
        {"text areas", "<p><textarea>\n a\n b</textarea>", u" a\n b\n"},
        {"buttons", "<p><button>a <b>b</b></button>", u"a b\n"},
        {"menus", "<p>x<select><option>a<optgroup label=l><option>b</optgroup></select>", u"x\na\nb\n"},
        {"labels and outputs", "<label>a <output>b</output></label>", u"a b"},
    });
}

TEST(HTMLText, putsAnAttachmentForAPicture) {
    expectTexts({
        {"inline", "<p>a<img src=x alt=b title=c>d", u"a\uFFFCd\n"},
        {"without an address", "<p>a<img alt=b>c", u"ac\n"},
        {"as a block", "a<img src=x style='display:block'>b", u"a\n\uFFFC\nb"},
        {"by its old name", "<image src=x>", u"\uFFFC"},
        {"objects that hold their data", "<object data='data:image/png;base64,AA'>a</object>", u"\uFFFC"},
        {"objects that cannot be loaded", "<object data=x>a<embed src=y></object>", u"a"},
        {"embedded data", "<embed src=' DATA:,x'>", u"\uFFFC"},
        {"film and sound", "<video src=x>a</video><audio>b</audio><canvas>c</canvas>d", u"d"},
        {"frames", "<iframe src=x srcdoc='<p>a'>b</iframe>c", u"a\nc"},
        {"frame sets", "<frameset><frame src=a><noframes>b</noframes></frameset>", u""},
    });
}

TEST(HTMLText, readsThePlatformsOwnSpaces) {
    expectTexts({
        {"converted spaces", "<p>a<span class=Apple-converted-space>&nbsp; </span>b", u"a  b\n"},
        {"converted tabs", "<p>a<span class='x Apple-converted-tab'>&nbsp; </span>b", u"a\tb\n"},
        {"other classes", "<p>a<span class=Apple-converted-spaces>&nbsp;</span>b", u"a\u00A0b\n"},
    });
}

TEST(HTMLText, readsCharacterReferencesAndOddCharacters) {
    expectTexts({
        {"references", "&lt;&amp;&#65;&#x1F600;&notin;", u"<&A\U0001F600∉"},
        {"Windows numbers", "&#128;&#150;", u"€–"},
        {"references to nothing", "&#0;&#xD800;&#x110000;&bogus;", u"\uFFFD\uFFFD\uFFFD&bogus;"},
        {"soft hyphens", "a&shy;b", u"a\u00ADb"},
        {"a NUL in text", std::string_view("a\0b", 3), u"ab"},
    });
}

TEST(HTMLText, ofAPageInAFrameStandsInItsPlace) {
    expectTexts({
        {"page", "<p>a</p><iframe srcdoc=\"<p>b</p>\"></iframe><p>c</p>", u"a\nb\nc\n"},
        {"within a line", "a <iframe srcdoc='b'></iframe> c", u"a\nb\nc"},
        {"escaped", "<iframe srcdoc='&lt;p&gt;b &amp;amp; c&lt;/p&gt;'></iframe>", u"b & c\n"},
        {"what stands inside is for others", "<iframe srcdoc='<p>b'>old</iframe>c", u"b\nc"},
        {"another document", "a<iframe src='b.html'>old</iframe>c", u"ac"},
        {"hidden", "a<iframe hidden srcdoc='b'></iframe>c", u"ac"},
        {"styles of its own",
         "<style>p {display: none}</style><iframe srcdoc='<style>b {display: none}</style><p>x<b>y</b>'>"
         "</iframe><p>c</p><b>d</b>",
         u"x\nd"},
    });
    EXPECT_EQ(read("<title>a</title><iframe srcdoc='<title>b</title>'></iframe>").info.title, u"a");
}

TEST(HTMLText, ofPagesInOneAnotherIsBounded) {
    std::string page = "innermost";
    std::u16string text;
    for (int depth = 8; depth > 0; --depth) {
        std::string escaped;
        for (char c : page) escaped += c == '&' ? "&amp;" : c == '"' ? "&quot;" : std::string(1, c);
        page = std::to_string(depth) + "<iframe srcdoc=\"" + escaped + "\"></iframe>";
    }
    EXPECT_EQ(textOf(page), u"1\n2\n3\n4\n5\n");
}

} // namespace
