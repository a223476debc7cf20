// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/RelationshipsPart.h"

#include "Platform/Foundation/ASCII.h"

#include <algorithm>

namespace OfficeOpenXML {

namespace {

// The folder of a part, "" or ending in a slash.
std::string_view folderOf(std::string_view part) { return part.substr(0, part.rfind('/') + 1); }

// A target as it stands seen from a folder, without "." and "..".
std::string resolve(std::string_view folder, std::string_view target) {
    std::string path(target.starts_with('/') || target.starts_with('\\') ? "" : folder);
    path += target;
    std::replace(path.begin(), path.end(), '\\', '/');
    std::string resolved;
    for (size_t at = 0; at < path.size();) {
        size_t end = std::min(path.find('/', at), path.size());
        std::string_view step(path.data() + at, end - at);
        if (step == "..") {
            resolved.resize(resolved.rfind('/') == std::string::npos ? 0 : resolved.rfind('/'));
        } else if (!step.empty() && step != ".") {
            if (!resolved.empty()) resolved += '/';
            resolved += step;
        }
        at = end + 1;
    }
    return resolved;
}

} // namespace

class RelationshipsPart::Handler : public PartHandler {
public:
    Handler(ByID& relationships, std::string_view folder) : relationships_(relationships), folder_(folder) {}

protected:
    bool start(Element element, const XMLAttributes& attributes) override {
        if (element != Element::relationship || relationships_.size() >= kMostDefinitions ||
            attributes.value(0, "TargetMode") == "External")
            return true;
        std::string_view type = attributes.value(0, "Type");
        relationships_.emplace(attributes.value(0, "Id"),
                               Relationship{lowered(type.substr(type.rfind('/') + 1)),
                                            resolve(folder_, attributes.value(0, "Target"))});
        return true;
    }

private:
    ByID& relationships_;
    std::string_view folder_;
};

RelationshipsPart::RelationshipsPart(const ZipPackage& package, std::string_view source, Deadline& deadline) {
    std::string_view folder = folderOf(source);
    Handler handler(relationships_, folder);
    std::string name(folder);
    name.append("_rels/").append(source.substr(folder.size())).append(".rels");
    readPart(package, name, deadline, handler);
}

std::string RelationshipsPart::partOfKind(std::string_view kind) const {
    auto found = std::find_if(
        relationships_.begin(), relationships_.end(),
        [wanted = lowered(kind)](const auto& relationship) { return relationship.second.type == wanted; });
    return found == relationships_.end() ? std::string() : found->second.part;
}

std::string RelationshipsPart::partWithID(std::string_view id) const {
    auto found = relationships_.find(id);
    return found == relationships_.end() ? std::string() : found->second.part;
}

} // namespace OfficeOpenXML
