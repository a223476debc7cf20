// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/StylesPart.h"

namespace OfficeOpenXML {

class StylesPart::Handler : public PartHandler {
public:
    explicit Handler(StylesPart& part) : part_(part) {}

protected:
    bool start(Element element, const XMLAttributes& attributes) override {
        switch (element) {
        case Element::style: return startStyle(attributes);
        case Element::basedOn: style_.basedOn = nameValue(attributes); break;
        case Element::vanish: setVanish(isOn(attributes)); break;
        case Element::numberingID:
            style_.numberingID = numberValue(value(attributes));
            style_.numberingStyle = id_;
            break;
        case Element::pageBreakBefore:
            if (outer() == Element::paragraphProperties && outer(2) == Element::style)
                style_.breaksPage = isOn(attributes);
            break;
        case Element::numberingLevel: style_.level = numberValue(value(attributes)); break;
        default: break;
        }
        return true;
    }

    void end(Element element) override {
        if (element != Element::style || part_.styles_.size() >= kMostDefinitions) return;
        part_.styles_.insert_or_assign(id_, style_);
    }

private:
    bool startStyle(const XMLAttributes& attributes) {
        id_ = attributes.value(kWord, "styleId").substr(0, kLongestName);
        style_ = Style();
        std::string_view isDefault = attributes.value(kWord, "default");
        if (attributes.value(kWord, "type") == "paragraph" && (isDefault == "1" || isDefault == "true"))
            part_.defaultParagraphStyle_ = id_;
        return true;
    }

    // The properties of a style itself, not those of the parts of a table that it also has.
    void setVanish(bool isHidden) {
        if (outer() != Element::runProperties) return;
        if (outer(2) == Element::style) style_.vanish = isHidden;
        if (outer(3) == Element::defaults) part_.isHiddenByDefault_ = isHidden;
    }

    StylesPart& part_;
    std::string id_;
    Style style_;
};

StylesPart::StylesPart(const ZipPackage& package, std::string_view name, Deadline& deadline) {
    Handler handler(*this);
    readPart(package, name, deadline, handler);
    inherit();
}

// Chains are short where programs wrote them; a longer one, or a cycle, counts as far as it is followed.
void StylesPart::inherit() {
    constexpr int kLongestChain = 64;
    const auto own = styles_;
    for (auto& [id, style] : styles_) {
        std::string_view next = style.basedOn;
        for (int i = 0; i < kLongestChain && !next.empty(); ++i) {
            auto base = own.find(next);
            if (base == own.end()) break;
            if (!style.vanish) style.vanish = base->second.vanish;
            if (!style.breaksPage) style.breaksPage = base->second.breaksPage;
            if (!style.level) style.level = base->second.level;
            if (!style.numberingID) {
                style.numberingID = base->second.numberingID;
                style.numberingStyle = base->second.numberingStyle;
            }
            next = base->second.basedOn;
        }
    }
}

const Style* StylesPart::find(std::string_view id) const {
    auto found = styles_.find(id);
    return found == styles_.end() ? nullptr : &found->second;
}

bool StylesPart::isHidden(const Style* table, const Style* paragraph, const Style* run) const {
    bool isHidden = false;
    for (const Style* style : {table, paragraph, run})
        isHidden ^= style != nullptr && style->vanish.value_or(false);
    return isHiddenByDefault_ || isHidden;
}

} // namespace OfficeOpenXML
