// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLEncoding.h"
#include "Tests/Platform/AppKit/HTML/HTMLTesting.h"

namespace {

using namespace HTMLTesting;
using namespace std::string_view_literals;

TEST(HTMLEncoding, isFoundByMarkAndDeclaration) {
    struct Case {
        const char* what;
        std::string_view bytes;
        NSStringEncoding encoding;
    };
    const std::string late = "<meta name=x content=\"" + repeated("y", 9000) + "\">";
    const std::string lateMeta = late + "<meta charset=windows-1251>";
    const std::string cutMeta = repeated(" ", 1000) + "<meta charset=windows-1250";
    const std::string wholeMeta = cutMeta + ">";
    const std::string inScript = late + "<script>'<meta charset=koi8-r>'</script><meta charset=windows-1251>";
    for (const Case& c : {
             Case{"nothing", "<p>a", NSWindowsCP1252StringEncoding},
             {"empty", "", NSWindowsCP1252StringEncoding},
             {"UTF-8 mark", "\xEF\xBB\xBF<meta charset=koi8-r>", NSUTF8StringEncoding},
             {"UTF-16 mark, little", "\xFF\xFE<\0"sv, NSUTF16LittleEndianStringEncoding},
             {"UTF-16 mark, big", "\xFE\xFF\0<"sv, NSUTF16BigEndianStringEncoding},
             {"UTF-16 declaration, little", "<\0?\0x\0"sv, NSUTF16LittleEndianStringEncoding},
             {"UTF-16 declaration, big", "\0<\0?\0x"sv, NSUTF16BigEndianStringEncoding},
             {"charset", "<meta charset=utf-8>", NSUTF8StringEncoding},
             {"quoted, with blanks and case", "<META\n CharSet = ' UTF-8 ' />", NSUTF8StringEncoding},
             {"content", "<meta http-equiv=Content-Type content='text/html; charset=utf-8'>",
              NSUTF8StringEncoding},
             {"content before http-equiv",
              "<meta content='text/html; charset=utf-8' http-equiv=content-type>", NSUTF8StringEncoding},
             {"content in quotes", "<meta http-equiv=content-type content='x; charset = \"utf-8\" y'>",
              NSUTF8StringEncoding},
             {"content up to a semicolon", "<meta http-equiv=content-type content='charset=utf-8;x'>",
              NSUTF8StringEncoding},
             {"content that says charset twice",
              "<meta http-equiv=content-type content='charset charset=utf-8'>", NSUTF8StringEncoding},
             {"quotes left open", "<meta http-equiv=content-type content='charset=\"utf-8'>",
              NSWindowsCP1252StringEncoding},
             {"content of another thing", "<meta http-equiv=refresh content='0; charset=utf-8'>",
              NSWindowsCP1252StringEncoding},
             {"content alone", "<meta content='text/html; charset=utf-8'>", NSWindowsCP1252StringEncoding},
             {"noise around", "<meta content=text/html; charset = utf-8 http-equiv=Content-Type>",
              NSUTF8StringEncoding},
             {"the first attribute of a name counts", "<meta charset=utf-8 charset=koi8-r>",
              NSUTF8StringEncoding},
             {"an unknown name is passed over", "<meta charset=bogus><meta charset=utf-8>",
              NSUTF8StringEncoding},
             {"UTF-16 in a meta", "<meta charset=UTF-16>", NSUTF8StringEncoding},
             {"UTF-16LE in a meta", "<meta charset=utf-16le>", NSUTF8StringEncoding},
             {"Latin 1 on the Web", "<meta charset=iso-8859-1>", NSWindowsCP1252StringEncoding},
             {"ASCII on the Web", "<meta charset=us-ascii>", NSWindowsCP1252StringEncoding},
             {"Latin 5 on the Web", "<meta charset=iso-8859-9>", NSWindowsCP1254StringEncoding},
             {"user-defined", "<meta charset=x-user-defined>", NSWindowsCP1252StringEncoding},
             {"in a comment", "<!-- <meta charset=koi8-r> --><meta charset=utf-8>", NSUTF8StringEncoding},
             {"in an empty comment", "<!--><meta charset=utf-8>", NSUTF8StringEncoding},
             {"in another tag's attribute", "<p title='<meta charset=koi8-r>'><meta charset=utf-8>",
              NSUTF8StringEncoding},
             {"behind other markup", "<!DOCTYPE x><?y?></z><p/a=b><meta charset=utf-8>",
              NSUTF8StringEncoding},
             {"not a meta", "<metal charset=utf-8>", NSWindowsCP1252StringEncoding},
             {"an end tag", "</meta charset=utf-8>", NSWindowsCP1252StringEncoding},
             {"a tag that is cut off", "<meta charset=utf-8", NSWindowsCP1252StringEncoding},
             {"XML declaration", "<?xml version=\"1.0\" encoding='windows-1251'?><p>",
              NSWindowsCP1251StringEncoding},
             {"XML declaration without encoding", "<?xml version=\"1.0\"?><p encoding='utf-8'>",
              NSWindowsCP1252StringEncoding},
             {"a meta beats the XML declaration", "<?xml encoding='windows-1251'?><meta charset=utf-8>",
              NSUTF8StringEncoding},
             {"far behind the start", lateMeta, NSWindowsCP1251StringEncoding},
             {"far behind the start scripts are text", inScript, NSWindowsCP1251StringEncoding},
             {"a name cut by the first search", wholeMeta, NSWindowsCP1250StringEncoding},
             {"and again", cutMeta, NSWindowsCP1252StringEncoding},
         }) {
        EXPECT_EQ(sniffHTMLEncoding(c.bytes).encoding, c.encoding) << c.what;
    }
}

TEST(HTMLEncoding, decodesTheDocument) {
    struct Case {
        const char* what;
        std::string_view bytes;
        std::u16string_view text;
    };
    for (const Case& c : {
             Case{"undeclared", "a\xE9\x80\x93", u"aé€“"},
             {"UTF-8 undeclared", "\xC3\xA9", u"Ã©"},
             {"UTF-8", "<meta charset=utf-8>\xC3\xA9\xF0\x9F\x98\x80", u"é\U0001F600"},
             {"UTF-8 with a mark", "\xEF\xBB\xBF\xC3\xA9", u"é"},
             {"malformed UTF-8", "<meta charset=utf-8>a\xC3(\xED\xA0\x80", u"a\uFFFD(\uFFFD\uFFFD\uFFFD"},
             {"Cyrillic", "<meta charset=windows-1251>\xC0\xE1", u"Аб"},
             {"Arabic", "<meta charset=iso-8859-6>\xC7", u"\u0627"},
             {"Macintosh", "<meta charset=macintosh>\x8E", u"é"},
             {"Latin 1 as on the Web", "<meta charset=iso-8859-1>\x93\xA9", u"“©"},
             {"Japanese", "<meta charset=shift_jis>\x82\xB1", u"こ"},
             {"Chinese, the larger set", "<meta charset=gb2312>\xD6\xD0\x80", u"中€"},
             {"little-endian", "\xFF\xFE<\0p\0>\0\xE9\0=\xD8\0\xDE"sv, u"é\U0001F600\n"},
             {"big-endian", "\xFE\xFF\0<\0p\0>\0\xE9"sv, u"é\n"},
             {"a lone surrogate", "\xFF\xFE\0\xD8"sv, u"\uFFFD"},
             {"UTF-16 that nothing declares", "<\0p\0>\0a\0"sv, u"<p>a"},
         }) {
        EXPECT_EQ(toUTF8(read(c.bytes).text), toUTF8(c.text)) << c.what;
    }
}

TEST(HTMLEncoding, copiesOnlyWhatIsNotUTF8) {
    for (std::string_view bytes :
         {"plain"sv, "<meta charset=utf-8>\xC3\xA9"sv, "<meta charset=koi8-r>plain"sv}) {
        std::string converted;
        EXPECT_EQ(htmlAsUTF8(bytes, converted).data(), bytes.data()) << bytes;
    }
    std::string converted;
    EXPECT_EQ(htmlAsUTF8("\xE9", converted), "\xC3\xA9");
}

} // namespace
