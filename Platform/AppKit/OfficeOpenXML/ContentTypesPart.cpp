// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/ContentTypesPart.h"

#include "Platform/Foundation/ASCII.h"

namespace OfficeOpenXML {

class ContentTypesPart::Handler : public PartHandler {
public:
    explicit Handler(ContentTypesPart& part) : part_(part) {}

protected:
    bool start(Element element, const XMLAttributes& attributes) override {
        if (element == Element::defaultContentType)
            add(part_.byExtension_, attributes.value(0, "Extension"), attributes);
        if (element == Element::overridingContentType) {
            std::string_view name = attributes.value(0, "PartName");
            if (name.starts_with('/')) name.remove_prefix(1);
            add(part_.byPart_, name, attributes);
        }
        return true;
    }

private:
    static void add(Types& types, std::string_view key, const XMLAttributes& attributes) {
        std::string_view type = attributes.value(0, "ContentType");
        type = trimmed(type.substr(0, type.find(';')), isXMLSpace);
        if (types.size() < kMostDefinitions) types.try_emplace(lowered(key), lowered(type));
    }

    ContentTypesPart& part_;
};

ContentTypesPart::ContentTypesPart(const ZipPackage& package, Deadline& deadline) {
    Handler handler(*this);
    readPart(package, "[Content_Types].xml", deadline, handler);
}

std::string ContentTypesPart::typeOf(std::string_view part) const {
    const std::string name = lowered(part);
    if (auto found = byPart_.find(name); found != byPart_.end()) return found->second;
    const size_t dot = name.rfind('.');
    if (dot == name.npos) return {};
    auto found = byExtension_.find(name.substr(dot + 1));
    return found != byExtension_.end() ? found->second : std::string();
}

} // namespace OfficeOpenXML
