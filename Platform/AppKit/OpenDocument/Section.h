// SPDX-License-Identifier: Apache-2.0
//
// What reads one of the sections of an OpenDocument file: information, styles or the body. In a package these
// sections are spread over several parts, in a flat file they follow one another.
#pragma once

#include "Platform/AppKit/OpenDocument/Vocabulary.h"
#include "Platform/AppKit/Package/XMLReader.h"

#include <string_view>

namespace OpenDocument {

class Section {
public:
    virtual ~Section() = default;

    // False when the element and all in it is to be passed over; then no end follows.
    virtual bool start(Element element, const XMLAttributes& attributes) = 0;
    virtual void end(Element element) = 0;
    virtual void characters(std::string_view) {}
};

} // namespace OpenDocument
