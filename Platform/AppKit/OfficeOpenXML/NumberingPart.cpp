// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/NumberingPart.h"

#include "Platform/AppKit/OfficeOpenXML/NumberFormatNames.h"
#include "Platform/AppKit/SymbolFont.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <utility>

namespace OfficeOpenXML {

namespace {

constexpr size_t kLongestText = 64; // of a marker; programs allow less
constexpr int kLargestStart = 32767;

const ListLevel* findLevel(const std::vector<ListLevel>& levels, int index) {
    auto found =
        std::find_if(levels.begin(), levels.end(), [index](const ListLevel& l) { return l.index == index; });
    return found == levels.end() ? nullptr : &*found;
}

template <typename Item>
Item& itemWithIndex(std::vector<Item>& items, int index) {
    auto found =
        std::find_if(items.begin(), items.end(), [index](const Item& item) { return item.index == index; });
    if (found != items.end()) return *found;
    items.emplace_back();
    items.back().index = index;
    return items.back();
}

bool isLevel(std::optional<int> index) { return index && *index < NumberingPart::kLevels; }

int startValue(const XMLAttributes& attributes) {
    return std::min(numberValue(value(attributes)).value_or(0), kLargestStart);
}

} // namespace

class NumberingPart::Handler : public PartHandler {
public:
    explicit Handler(NumberingPart& part) : part_(part) {}

protected:
    bool start(Element element, const XMLAttributes& attributes) override;
    void end(Element element) override;

private:
    bool startList(Element element, const XMLAttributes& attributes);
    bool startLevel(const XMLAttributes& attributes);
    void readLevelProperty(Element element, const XMLAttributes& attributes);

    NumberingPart& part_;
    AbstractList* abstract_ = nullptr; // what is being read, at most one of both
    List* list_ = nullptr;
    std::optional<int> overridden_; // the level that an override is of
    std::optional<ListLevel> level_;
    std::string font_; // of the level's marker
};

bool NumberingPart::Handler::start(Element element, const XMLAttributes& attributes) {
    switch (element) {
    case Element::abstractNumbering:
    case Element::numberingInstance: return startList(element, attributes);
    case Element::level: return startLevel(attributes);
    case Element::abstractNumberingID:
        if (list_ != nullptr) list_->abstractID = numberValue(value(attributes)).value_or(0);
        break;
    case Element::numberingStyleLink:
        if (abstract_ != nullptr) abstract_->styleLink = nameValue(attributes);
        break;
    case Element::levelOverride:
        overridden_ = numberValue(attributes.value(kWord, "ilvl"));
        return list_ != nullptr && isLevel(overridden_);
    case Element::startOverride:
        if (list_ != nullptr && overridden_)
            itemWithIndex(list_->overrides, *overridden_).start = startValue(attributes);
        break;
    default:
        if (level_) readLevelProperty(element, attributes);
    }
    return true;
}

bool NumberingPart::Handler::startList(Element element, const XMLAttributes& attributes) {
    bool isAbstract = element == Element::abstractNumbering;
    auto id = numberValue(attributes.value(kWord, isAbstract ? "abstractNumId" : "numId"));
    if (!id || part_.abstractLists_.size() + part_.lists_.size() >= kMostDefinitions) return false;
    abstract_ = isAbstract ? &part_.abstractLists_[*id] : nullptr;
    list_ = isAbstract ? nullptr : &part_.lists_[*id];
    overridden_.reset();
    return true;
}

bool NumberingPart::Handler::startLevel(const XMLAttributes& attributes) {
    std::optional<int> index = overridden_ ? overridden_ : numberValue(attributes.value(kWord, "ilvl"));
    if (!isLevel(index)) return false;
    level_.emplace();
    level_->index = *index;
    font_.clear();
    return true;
}

void NumberingPart::Handler::readLevelProperty(Element element, const XMLAttributes& attributes) {
    switch (element) {
    case Element::start: level_->start = startValue(attributes); break;
    case Element::numberFormat:
        level_->format = numberFormatNamed(value(attributes));
        level_->isBullet = value(attributes) == "bullet";
        break;
    case Element::levelText: level_->text = fromUTF8(value(attributes).substr(0, kLongestText)); break;
    case Element::levelRestart: level_->restartedBy = numberValue(value(attributes)); break;
    case Element::legalNumbering: level_->isLegal = isOn(attributes); break;
    case Element::paragraphStyle: level_->paragraphStyle = nameValue(attributes); break;
    case Element::fonts: font_ = attributes.value(kWord, "ascii").substr(0, kLongestName); break;
    default: break;
    }
}

void NumberingPart::Handler::end(Element element) {
    if (element == Element::levelOverride) overridden_.reset();
    if (element != Element::level || !level_) return;
    if (level_->isBullet) {
        const SymbolFont font = symbolFontNamed(fromUTF8(font_));
        for (char16_t& c : level_->text) c = signOf(font, c);
    }
    if (abstract_ != nullptr)
        itemWithIndex(abstract_->levels, level_->index) = std::move(*level_);
    else if (list_ != nullptr && overridden_)
        itemWithIndex(list_->overrides, *overridden_).level = std::move(level_);
    level_.reset();
}

NumberingPart::NumberingPart(const ZipPackage& package, std::string_view name, const StylesPart& styles,
                             Deadline& deadline) {
    Handler handler(*this);
    readPart(package, name, deadline, handler);
    followStyleLinks(styles);
}

void NumberingPart::followStyleLinks(const StylesPart& styles) {
    for (auto& [id, abstract] : abstractLists_) {
        if (abstract.styleLink.empty() || !abstract.levels.empty()) continue;
        const Style* style = styles.find(abstract.styleLink);
        const List* linked = style != nullptr && style->numberingID ? list(*style->numberingID) : nullptr;
        if (linked != nullptr) abstract.linkedID = linked->abstractID;
    }
}

const List* NumberingPart::list(int id) const {
    auto found = lists_.find(id);
    return found == lists_.end() ? nullptr : &found->second;
}

const ListLevel* NumberingPart::level(const List& list, int index) const {
    for (const List::Override& own : list.overrides) {
        if (own.index == index && own.level) return &*own.level;
    }
    auto abstract = abstractLists_.find(list.abstractID);
    if (abstract != abstractLists_.end() && abstract->second.linkedID)
        abstract = abstractLists_.find(*abstract->second.linkedID);
    return abstract == abstractLists_.end() ? nullptr : findLevel(abstract->second.levels, index);
}

std::optional<int> NumberingPart::levelOfStyle(int id, std::string_view style) const {
    const List* found = list(id);
    if (found == nullptr || style.empty()) return std::nullopt;
    for (int index = 0; index < kLevels; ++index) {
        const ListLevel* candidate = level(*found, index);
        if (candidate != nullptr && candidate->paragraphStyle == style) return index;
    }
    return std::nullopt;
}

} // namespace OfficeOpenXML
