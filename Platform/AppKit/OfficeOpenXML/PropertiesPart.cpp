// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/PropertiesPart.h"

#include "Platform/AppKit/Keywords.h"
#include "Platform/AppKit/Package/XMLValues.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

#include <string>
#include <utility>

namespace OfficeOpenXML {

namespace {

class Handler : public PartHandler {
public:
    explicit Handler(DocumentInfo& info) : info_(info) {}

    void characters(std::string_view utf8) override {
        if (isInProperty_ && !isPassingOver()) text_ += utf8;
    }

protected:
    bool start(Element element, const XMLAttributes&) override {
        if (element != Element::other) {
            isInProperty_ = true;
            text_.clear();
        } else if (isInProperty_) {
            text_ += ';'; // keywords may stand in elements of their own, one for each language
        }
        return true;
    }

    void end(Element element) override {
        if (element == Element::other) return;
        isInProperty_ = false;
        std::string_view text = trimmed(text_, isXMLSpace);
        switch (element) {
        case Element::title: info_.title = fromUTF8(text); break;
        case Element::creator: info_.author = fromUTF8(text); break;
        case Element::subject: info_.subject = fromUTF8(text); break;
        case Element::description: info_.comment = fromUTF8(text); break;
        case Element::category: info_.category = fromUTF8(text); break;
        case Element::lastModifiedBy: info_.editor = fromUTF8(text); break;
        case Element::company: info_.company = fromUTF8(text); break;
        case Element::manager: info_.manager = fromUTF8(text); break;
        case Element::created: info_.creationTime = timeValue(text); break;
        case Element::modified: info_.modificationTime = timeValue(text); break;
        case Element::keywords: info_.keywords = splitKeywords(fromUTF8(text)); break;
        default: break;
        }
    }

private:
    DocumentInfo& info_;
    bool isInProperty_ = false;
    std::string text_;
};

} // namespace

void readProperties(const ZipPackage& package, std::string_view name, Deadline& deadline,
                    DocumentInfo& info) {
    Handler handler(info);
    readPart(package, name, deadline, handler);
}

} // namespace OfficeOpenXML
