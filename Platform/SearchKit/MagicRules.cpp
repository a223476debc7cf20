// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/MagicRules.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/SearchKit/TextLines.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::string_view kHeader("MIME-Magic\0\n", 12);

// One line: at any offset of a range stands the value, where the mask has bits.
struct Rule {
    uint32_t indent = 0, offset = 0, range = 1, wordSize = 1;
    std::string value, mask;
};

class RuleReader {
public:
    explicit RuleReader(std::string_view rules) : rest_(rules) {}

    bool atEnd() const { return rest_.empty(); }
    bool atSection() const { return rest_.substr(0, 1) == "["; }

    // "[50:text/x-example]"
    bool readSection(MagicMatch& section) {
        rest_.remove_prefix(1);
        uint32_t priority = 0;
        if (!readNumber(priority) || priority > 100 || !take(':')) return false;
        section.priority = int(priority);
        std::string_view line = takePart(rest_, '\n');
        if (line.empty() || line.back() != ']') return false;
        section.type = line.substr(0, line.size() - 1);
        return true;
    }

    bool readRule(Rule& rule) {
        rule = {};
        if (rest_.substr(0, 1) != ">" && !readNumber(rule.indent)) return false;
        if (!take('>') || !readNumber(rule.offset) || !take('=') || rest_.size() < 2) return false;
        const size_t length =
            static_cast<unsigned char>(rest_[0]) * 256u + static_cast<unsigned char>(rest_[1]);
        rest_.remove_prefix(2);
        if (!readBytes(length, rule.value)) return false;
        if (take('&') && !readBytes(length, rule.mask)) return false;
        if (take('~') && !readNumber(rule.wordSize)) return false;
        if (take('+') && !readNumber(rule.range)) return false;
        // Later versions may put more behind: such a rule never matches.
        if (!take('\n')) {
            takePart(rest_, '\n');
            rule.value.clear();
        }
        return true;
    }

    // The indent of the next rule, 0 when there is none in this section.
    uint32_t nextIndent() const {
        RuleReader ahead(rest_);
        uint32_t indent = 0;
        return ahead.readNumber(indent) ? indent : 0;
    }

private:
    bool take(char c) {
        if (rest_.substr(0, 1) != std::string_view(&c, 1)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool readNumber(uint32_t& number) {
        size_t digits = 0;
        number = 0;
        for (; digits < rest_.size() && digits < 9 && isDigit(char32_t(rest_[digits])); ++digits)
            number = number * 10 + uint32_t(rest_[digits] - '0');
        rest_.remove_prefix(digits);
        return digits > 0;
    }

    bool readBytes(size_t length, std::string& bytes) {
        if (rest_.size() < length) return false;
        bytes = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return true;
    }

    std::string_view rest_;
};

// Words stand in the file with their most significant byte first, in documents as this machine has them.
void putInMachineOrder(std::string& bytes, size_t wordSize) {
    if (wordSize < 2 || wordSize > 8 || bytes.size() % wordSize != 0) return;
    for (size_t at = 0; at < bytes.size(); at += wordSize)
        std::reverse(bytes.begin() + ptrdiff_t(at), bytes.begin() + ptrdiff_t(at + wordSize));
}

bool standsAt(std::string_view start, size_t offset, const Rule& rule) {
    for (size_t i = 0; i < rule.value.size(); ++i) {
        const int mask = rule.mask.empty() ? 0xFF : rule.mask[i];
        if ((start[offset + i] & mask) != (rule.value[i] & mask)) return false;
    }
    return true;
}

bool matches(std::string_view start, Rule& rule) {
    if (rule.value.empty() || rule.value.size() > start.size()) return false;
    putInMachineOrder(rule.value, rule.wordSize);
    putInMachineOrder(rule.mask, rule.wordSize);
    const uint64_t last = std::min<uint64_t>(start.size() - rule.value.size(),
                                             uint64_t(rule.offset) + std::max(rule.range, 1u) - 1);
    for (uint64_t offset = rule.offset; offset <= last; ++offset) {
        if (standsAt(start, size_t(offset), rule)) return true;
    }
    return false;
}

// True when rules match from the outermost one to one that has none below it. Reads to the section's end.
bool readRules(RuleReader& reader, std::string_view start, bool& isDamaged) {
    bool found = false;
    uint32_t matched = 0; // how many rules around the next one match
    while (!reader.atEnd() && !reader.atSection()) {
        Rule rule;
        if (!reader.readRule(rule)) {
            isDamaged = true;
            return false;
        }
        if (found || rule.indent > matched) continue;
        const bool isMatch = matches(start, rule);
        matched = rule.indent + (isMatch ? 1 : 0);
        found = isMatch && reader.nextIndent() <= rule.indent;
    }
    return found;
}

} // namespace

MagicMatch findMagic(std::string_view rules, std::string_view start) {
    MagicMatch best;
    if (rules.substr(0, kHeader.size()) != kHeader) return best;
    RuleReader reader(rules.substr(kHeader.size()));
    for (bool isDamaged = false; reader.atSection() && !isDamaged;) {
        MagicMatch section;
        if (!reader.readSection(section)) break;
        if (readRules(reader, start, isDamaged) && section.priority > best.priority) best = section;
    }
    return best;
}
