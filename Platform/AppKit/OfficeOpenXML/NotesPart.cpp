// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/NotesPart.h"

#include "Platform/AppKit/OfficeOpenXML/StoryHandler.h"

#include <utility>

namespace OfficeOpenXML {

class NotesPart::Handler : public StoryHandler {
public:
    Handler(NotesPart& part, const StylesPart& styles, const NumberingPart& lists)
        : StoryHandler(styles, lists), part_(part) {}

    // Keeps the note that was being read when the part broke off.
    void finish() {
        std::u16string text = std::move(std::exchange(story_, StoryBuilder())).finish();
        // Behind the note's mark, which is not text, there mostly is a blank.
        text.erase(0, text.find_first_not_of(u" \t\u00A0"));
        if (!id_.empty() && !text.empty()) part_.texts_.try_emplace(std::move(id_), std::move(text));
        id_.clear();
    }

protected:
    bool start(Element element, const XMLAttributes& attributes) override {
        if (element != Element::footnote && element != Element::endnote)
            return StoryHandler::start(element, attributes);
        std::string_view type = attributes.value(kWord, "type");
        if (!type.empty() && type != "normal") return false; // separators
        id_ = attributes.value(kWord, "id").substr(0, kLongestName);
        return true;
    }

    void end(Element element) override {
        if (element == Element::footnote || element == Element::endnote) return finish();
        StoryHandler::end(element);
    }

private:
    NotesPart& part_;
    std::string id_;
};

NotesPart::NotesPart(const ZipPackage& package, std::string_view name, const StylesPart& styles,
                     const NumberingPart& lists, Deadline& deadline) {
    Handler handler(*this, styles, lists);
    readPart(package, name, deadline, handler);
    handler.finish();
}

std::u16string NotesPart::take(std::string_view id) {
    auto found = texts_.find(std::string(id));
    return found == texts_.end() ? std::u16string() : std::exchange(found->second, {});
}

} // namespace OfficeOpenXML
