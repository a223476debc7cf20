// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/CompressedRTF.h"

#include "Platform/Foundation/LittleEndian.h"

namespace {

constexpr uint32_t kCompressed = 0x75465A4C, kStored = 0x414C454D; // "LZFu", "MELA"
constexpr size_t kHeaderSize = 16, kWindow = 4096;

// What stands in the window at the start.
constexpr std::string_view kUsualText =
    "{\\rtf1\\ansi\\mac\\deff0\\deftab720{\\fonttbl;}{\\f0\\fnil \\froman \\fswiss \\fmodern \\fscript "
    "\\fdecor MS Sans SerifSymbolArialTimes New RomanCourier{\\colortbl\\red0\\green0\\blue0\r\n\\par "
    "\\pard\\plain\\f0\\fs20\\b\\i\\u\\tab\\tx";

class Expander {
public:
    explicit Expander(std::string_view bytes) : rest_(bytes), text_(kUsualText) {}

    // Eight items behind each byte that tells their kinds: a byte, or a place in the window and a length.
    std::string expand() {
        while (!rest_.empty()) {
            const unsigned kinds = takeByte();
            for (unsigned item = 0; item < 8 && !rest_.empty(); ++item) {
                if ((kinds >> item & 1) == 0) {
                    text_ += char(takeByte());
                } else if (!copy()) {
                    return written();
                }
            }
        }
        return written();
    }

private:
    unsigned takeByte() {
        const unsigned byte = uint8At(rest_, 0);
        rest_.remove_prefix(1);
        return byte;
    }

    // False at the end, which is a reference to the place that is written next.
    bool copy() {
        if (rest_.size() < 2) return false;
        const unsigned high = takeByte(), low = takeByte();
        const size_t place = high << 4 | low >> 4, length = (low & 0xF) + 2;
        const size_t distance = (text_.size() - place) % kWindow;
        if (distance == 0) return false;
        for (size_t i = 0; i < length; ++i)
            text_ += distance > text_.size() ? ' ' : text_[text_.size() - distance];
        return true;
    }

    std::string written() const { return text_.substr(kUsualText.size()); }

    std::string_view rest_;
    std::string text_; // the usual text, then what was written
};

} // namespace

std::string decompressedRTF(std::string_view bytes) {
    const uint32_t form = uint32At(bytes, 8), size = uint32At(bytes, 4);
    const std::string_view contents = slice(bytes, kHeaderSize);
    if (form == kStored) return std::string(contents.substr(0, size));
    return form == kCompressed ? Expander(contents).expand().substr(0, size) : "";
}
