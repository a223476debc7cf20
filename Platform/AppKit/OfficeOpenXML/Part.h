// SPDX-License-Identifier: Apache-2.0
//
// A part of a package: an XML document of its own, and what parts of this format share.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/Vocabulary.h"
#include "Platform/AppKit/Package/ZipPackage.h"

#include <optional>
#include <string_view>
#include <vector>

namespace OfficeOpenXML {

// How many styles, list definitions, relationships and the like are taken from a part; more than programs
// allow.
constexpr size_t kMostDefinitions = 1 << 16;
constexpr size_t kLongestName = 255; // of a style, in bytes; likewise

// Reads a part into the handler, as far as it can be read. An empty name is that of no part.
void readPart(const ZipPackage& package, std::string_view name, Deadline& deadline, XMLHandler& handler);

// Knows for each element those that are open around it, and passes over those that are to be ignored.
class PartHandler : public XMLHandler {
public:
    void startElement(int space, std::string_view name, const XMLAttributes& attributes) final;
    void endElement(int space, std::string_view name) final;
    void characters(std::string_view) override {}

protected:
    // False when the element and all in it is to be passed over; then no end follows.
    virtual bool start(Element element, const XMLAttributes& attributes) = 0;
    virtual void end(Element) {}

    // In start(), the element around the one that starts, and the one around that ...
    Element outer(size_t level = 1) const {
        return level <= open_.size() ? open_[open_.size() - level] : Element::other;
    }
    bool isPassingOver() const { return passedOver_ > 0; }

    // From end(), to pass over the rest of the element around the one that ends, whose own end does not come.
    void passOverRest();

private:
    std::vector<Element> open_;
    size_t passedOver_ = 0; // open elements from the one on that is passed over
};

// The w:val of an element; the data() is null when there is none.
inline std::string_view value(const XMLAttributes& attributes) { return attributes.value(kWord, "val"); }

inline std::string_view nameValue(const XMLAttributes& attributes) {
    return value(attributes).substr(0, kLongestName);
}

// A property that is on by being there, unless its value says otherwise.
bool isOn(const XMLAttributes& attributes);

// A whole number, if it is one and not negative.
std::optional<int> numberValue(std::string_view text);

// A measure in points. The text is in twentieths of a point, or has a unit.
std::optional<double> measureValue(std::string_view text);

} // namespace OfficeOpenXML
