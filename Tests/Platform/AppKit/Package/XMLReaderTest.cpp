// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Package/XMLReader.h"

#include <chrono>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace {

constexpr int kFirst = 1, kSecond = 2;
constexpr XMLNamespace kNamespaces[] = {
    {"urn:first", kFirst}, {"urn:first:variant", kFirst}, {"urn:second", kSecond}};

// Writes down what it is told; asks every element for its attribute "a".
class Recorder : public XMLHandler {
public:
    void startElement(int space, std::string_view name, const XMLAttributes& attributes) override {
        ++starts;
        if (!recording) return;
        log += "<" + std::to_string(space) + ":" + std::string(name);
        for (int s : {0, kFirst, kSecond}) {
            if (!attributes.has(s, "a")) continue;
            log += " " + std::to_string(s) + "=" + std::string(attributes.value(s, "a"));
        }
        log += ">";
        if (name == "stop") reader->stop();
        if (name == "throw") throw std::runtime_error("from the handler");
    }
    void endElement(int space, std::string_view name) override {
        ++ends;
        if (recording) log += "</" + std::to_string(space) + ":" + std::string(name) + ">";
    }
    void characters(std::string_view utf8) override {
        if (recording) log += utf8;
    }

    XMLReader* reader = nullptr;
    bool recording = true;
    size_t starts = 0, ends = 0;
    std::string log;
};

struct Reading {
    Recorder recorder;
    bool complete = false;
};

Reading read(std::string_view xml, size_t piece = std::string_view::npos) {
    Reading reading;
    XMLReader reader(kNamespaces, reading.recorder);
    reading.recorder.reader = &reader;
    bool fed = true;
    for (size_t at = 0; fed && at < xml.size(); at += std::min(piece, xml.size()))
        fed = reader.feed(xml.substr(at, piece));
    reading.complete = reader.finish() && fed;
    return reading;
}

TEST(XMLReader, mapsNamespacesOfElementsAndAttributesToTheirNumbers) {
    Reading r =
        read("<f:r xmlns:f='urn:first' xmlns:v='urn:first:variant' xmlns:s='urn:second' xmlns:o='urn:other'"
             " a='0' f:a='1' s:a='2'><v:x/><s:x/><o:x o:a='3'/><x v:a='4'/></f:r>");
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.recorder.log, "<1:r 0=0 1=1 2=2><1:x></1:x><2:x></2:x><0:x 0=3></0:x><0:x 1=4></0:x></1:r>");
}

TEST(XMLReader, takesPrefixesOnlyAsTheDocumentDeclaresThem) {
    Reading r = read("<r xmlns='urn:second'><x xmlns='urn:first'/><x/></r>");
    EXPECT_EQ(r.recorder.log, "<2:r><1:x></1:x><2:x></2:x></2:r>");
}

TEST(XMLReader, tellsAnEmptyAttributeFromAnAbsentOne) {
    EXPECT_EQ(read("<r a=''><x/></r>").recorder.log, "<0:r 0=><0:x></0:x></0:r>");
}

TEST(XMLReader, readsPiecesOfAnySize) {
    std::string xml = "<r a='\xC3\xA9'>t\xE2\x82\xACxt &amp; &#x41;<![CDATA[<raw>]]></r>";
    Reading whole = read(xml);
    EXPECT_EQ(whole.recorder.log, "<0:r 0=\xC3\xA9>t\xE2\x82\xACxt & A<raw></0:r>");
    for (size_t piece = 1; piece < xml.size(); ++piece) {
        Reading r = read(xml, piece);
        EXPECT_TRUE(r.complete);
        EXPECT_EQ(r.recorder.log, whole.recorder.log) << "in pieces of " << piece;
    }
}

TEST(XMLReader, readsTextLongerThanItsOwnPieces) {
    std::string text(5 << 20, 'x');
    Reading r = read("<r>" + text + "</r>");
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.recorder.log.size(), text.size() + 11);
}

TEST(XMLReader, givesUTF8OfUTF16) {
    std::string xml = "\xFF\xFE";
    for (char c : std::string_view("<r>\xE9</r>")) xml += {c, '\0'};
    EXPECT_EQ(read(xml).recorder.log, "<0:r>\xC3\xA9</0:r>");
}

TEST(XMLReader, saysWhenTheDocumentIsNotComplete) {
    for (const char* xml : {"", "text", "<r>", "<r></s>", "<r/><r/>", "<r a=1/>", "<r>&other;</r>", "<p:r/>",
                            "<r a='' a=''/>"}) {
        EXPECT_FALSE(read(xml).complete) << xml;
    }
}

TEST(XMLReader, givesWhatStandsBeforeTheDamage) {
    EXPECT_EQ(read("<r>one<x>two</y>three</r>").recorder.log, "<0:r>one<0:x>two");
    EXPECT_EQ(read("<r>one<x>two").recorder.log, "<0:r>one<0:x>two");
}

TEST(XMLReader, refusesDeclarations) {
    for (const char* xml :
         {"<!DOCTYPE r [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;&a;'>]><r>&b;</r>",
          "<!DOCTYPE r [<!ENTITY a SYSTEM 'file:///etc/passwd'>]><r>&a;</r>",
          "<!DOCTYPE r SYSTEM 'r.dtd' [<!ATTLIST r a CDATA 'v'>]><r/>", "<!DOCTYPE r []><r/>"}) {
        Reading r = read(xml);
        EXPECT_FALSE(r.complete) << xml;
        EXPECT_EQ(r.recorder.log, "") << xml;
    }
}

TEST(XMLReader, passesOverTheNameOfADocumentType) {
    for (const char* xml :
         {"<!DOCTYPE r><r>text</r>", "<!DOCTYPE r SYSTEM '/etc/passwd'><r>text&unknown;</r>",
          "<!DOCTYPE r PUBLIC '-//Example//DTD R//EN' 'http://example.invalid/r.dtd'><r>text</r>"}) {
        Reading r = read(xml);
        EXPECT_TRUE(r.complete) << xml;
        EXPECT_EQ(r.recorder.log, "<0:r>text</0:r>") << xml;
    }
}

TEST(XMLReader, passesOverElementsThatLieTooDeepAndReadsOn) {
    std::string open, close;
    for (int i = 0; i < 100'000; ++i) {
        open += "<x>";
        close += "</x>";
    }
    Reading r = read("<r>before" + open + "deep" + close + "<y/>behind</r>");
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.recorder.starts, XMLReader::kDepthLimit + 1);
    EXPECT_EQ(r.recorder.ends, XMLReader::kDepthLimit + 1);
    EXPECT_TRUE(r.recorder.log.starts_with("<0:r>before<0:x>"));
    EXPECT_TRUE(r.recorder.log.ends_with("</0:x><0:y></0:y>behind</0:r>"));
    EXPECT_EQ(r.recorder.log.find("deep"), std::string::npos);

    constexpr size_t kAllowed = XMLReader::kDepthLimit;
    r = read(open.substr(0, 3 * kAllowed) + close.substr(0, 4 * kAllowed));
    EXPECT_TRUE(r.complete);
    EXPECT_EQ(r.recorder.ends, kAllowed);
}

TEST(XMLReader, refusesNamespacesThatWouldMultiplyTheDocument) {
    std::string xml = "<r xmlns:p='urn:" + std::string(1 << 20, 'u') + "'";
    for (int i = 0; i < 100'000; ++i) xml += " p:a" + std::to_string(i) + "=''";
    auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(read(xml + "/>").complete);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST(XMLReader, refusesTagsPastTheMemoryLimit) {
    std::string value(XMLReader::kMemoryLimit, 'v');
    Reading r = read("<r>one<x a='" + value + "'/></r>");
    EXPECT_FALSE(r.complete);
    EXPECT_EQ(r.recorder.log, "<0:r>one");
}

TEST(XMLReader, readsInsideOfAnotherReadersHandler) {
    struct Outer : Recorder {
        void startElement(int space, std::string_view name, const XMLAttributes& attributes) override {
            Recorder::startElement(space, name, attributes);
            inner += read("<inner/>").recorder.log;
        }
        std::string inner;
    } outer;
    XMLReader reader(kNamespaces, outer);
    EXPECT_TRUE(reader.feed("<r><x a='1'/></r>") && reader.finish());
    EXPECT_EQ(outer.log, "<0:r><0:x 0=1></0:x></0:r>");
    EXPECT_EQ(outer.inner, "<0:inner></0:inner><0:inner></0:inner>");
}

TEST(XMLReader, callsNothingAfterStop) {
    Reading r = read("<r>one<stop/>two<x/></r>");
    EXPECT_FALSE(r.complete);
    EXPECT_EQ(r.recorder.log, "<0:r>one<0:stop>");
}

TEST(XMLReader, passesOnWhatTheHandlerThrows) {
    Recorder recorder;
    XMLReader reader(kNamespaces, recorder);
    EXPECT_THROW(reader.feed("<r>one<throw/>two</r>"), std::runtime_error);
    EXPECT_FALSE(reader.feed("<x/>"));
    EXPECT_FALSE(reader.finish());
    EXPECT_EQ(recorder.log, "<0:r>one<0:throw>");
}

TEST(XMLReader, readsManyElementsAndAttributesInLinearTime) {
    std::string xml = "<r";
    for (int i = 0; i < 50'000; ++i) xml += " a" + std::to_string(i) + "='v'";
    xml += ">";
    for (int i = 0; i < 100'000; ++i) xml += "<x a='1'/>";
    xml += "</r>";
    Recorder recorder;
    recorder.recording = false;
    XMLReader reader(kNamespaces, recorder);
    EXPECT_TRUE(reader.feed(xml));
    EXPECT_TRUE(reader.finish());
    EXPECT_EQ(recorder.ends, 100'001u);
}

} // namespace
