// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/Part.h"

#include "Platform/AppKit/Package/XMLValues.h"

#include <cmath>

namespace OfficeOpenXML {

void readPart(const ZipPackage& package, std::string_view name, Deadline& deadline, XMLHandler& handler) {
    if (name.empty()) return;
    XMLReader reader(namespaces(), handler);
    package.read(name, deadline, [&](std::string_view piece) { return reader.feed(piece); });
    reader.finish();
}

void PartHandler::startElement(int space, std::string_view name, const XMLAttributes& attributes) {
    if (passedOver_ > 0) {
        ++passedOver_;
        return;
    }
    Element element = elementNamed(space, name);
    if (element != Element::ignored && start(element, attributes)) {
        open_.push_back(element);
    } else {
        passedOver_ = 1;
    }
}

void PartHandler::endElement(int, std::string_view) {
    if (passedOver_ > 0) {
        --passedOver_;
        return;
    }
    Element element = open_.back();
    open_.pop_back();
    end(element);
}

void PartHandler::passOverRest() {
    open_.pop_back();
    passedOver_ = 1;
}

bool isOn(const XMLAttributes& attributes) {
    std::string_view text = value(attributes);
    return text != "0" && text != "false" && text != "off";
}

std::optional<int> numberValue(std::string_view text) {
    std::optional<int> number = integerValue(text);
    return number && *number >= 0 ? number : std::nullopt;
}

std::optional<double> measureValue(std::string_view text) {
    constexpr double kTwips = 20;
    if (auto twips = integerValue(text)) return *twips / kTwips;
    return lengthValue(text);
}

} // namespace OfficeOpenXML
