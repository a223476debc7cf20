// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OpenDocument/MetaSection.h"

#include "Platform/AppKit/Package/XMLValues.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

namespace OpenDocument {

namespace {

// The format has no elements for these; writers keep them under their names among the user's own.
struct UserDefined {
    std::string_view name;
    std::u16string DocumentInfo::*field;
};

constexpr UserDefined kUserDefined[] = {{"Company", &DocumentInfo::company},
                                        {"Manager", &DocumentInfo::manager},
                                        {"Category", &DocumentInfo::category},
                                        {"Copyright", &DocumentInfo::copyright}};

} // namespace

bool MetaSection::start(Element element, const XMLAttributes& attributes) {
    value_.clear();
    userDefined_ = nullptr;
    if (element != Element::userDefined) return true;
    std::string_view name = attributes.value(kMeta, "name");
    for (const UserDefined& known : kUserDefined) {
        if (equalIgnoringCase(name, known.name)) userDefined_ = &(info_.*known.field);
    }
    return userDefined_ != nullptr;
}

void MetaSection::end(Element element) {
    take(element, trimmed(value_, isXMLSpace));
    value_.clear();
}

void MetaSection::take(Element element, std::string_view value) {
    if (value.empty()) return;
    switch (element) {
    case Element::title: info_.title = fromUTF8(value); break;
    case Element::subject: info_.subject = fromUTF8(value); break;
    case Element::description: info_.comment = fromUTF8(value); break;
    case Element::keyword: info_.keywords.push_back(fromUTF8(value)); break;
    case Element::initialCreator:
        info_.author = fromUTF8(value);
        hasInitialCreator_ = true;
        break;
    case Element::creator:
        info_.editor = fromUTF8(value);
        if (!hasInitialCreator_) info_.author = info_.editor;
        break;
    case Element::creationDate: info_.creationTime = timeValue(value); break;
    case Element::date: info_.modificationTime = timeValue(value); break;
    case Element::userDefined:
        if (userDefined_ != nullptr) *userDefined_ = fromUTF8(value);
        break;
    default: break;
    }
}

} // namespace OpenDocument
