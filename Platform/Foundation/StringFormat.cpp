// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/StringFormat.h"

#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <utility>

class Formatter {
public:
    Formatter(std::string_view format, std::initializer_list<FormatArgument> arguments)
        : rest_(format), arguments_(arguments.begin()), count_(arguments.size()) {}

    std::u16string run() {
        while (!rest_.empty()) {
            size_t literal = std::min(rest_.find('%'), rest_.size());
            appendUTF8(out_, rest_.substr(0, literal));
            rest_.remove_prefix(literal);
            if (!rest_.empty()) conversion();
        }
        return std::move(out_);
    }

private:
    using Value = decltype(FormatArgument::value_);

    // %, a position ("2$"), flags, a width, a precision, a length and a letter.
    void conversion() {
        const std::string_view whole = rest_;
        rest_.remove_prefix(1);
        chosen_ = position();
        std::string flags = "%" + std::string(run("-+ #0'"));
        flags += width();
        if (rest_.starts_with('.')) {
            rest_.remove_prefix(1);
            const std::string precision = width();
            if (!precision.starts_with('-')) flags += "." + precision;
        }
        const std::string_view length = run("hlqLzjt");
        const char kind = rest_.empty() ? '\0' : rest_[0];
        if (!rest_.empty()) rest_.remove_prefix(1);
        // What is no conversion is text.
        if (!print(kind, flags, length)) appendUTF8(out_, whole.substr(0, whole.size() - rest_.size()));
    }

    // Takes the characters of the set from the format's front.
    std::string_view run(std::string_view set) {
        const size_t length = std::min(rest_.find_first_not_of(set), rest_.size());
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    // Of the argument that is meant, from 1; 0 for the next one.
    size_t position() {
        const std::string_view before = rest_, digits = run(kDigits);
        size_t number = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (number != 0 && rest_.starts_with('$')) {
            rest_.remove_prefix(1);
            return number;
        }
        rest_ = before;
        return 0;
    }

    // A width or a precision, also one that stands among the arguments.
    std::string width() {
        if (!rest_.starts_with('*')) return std::string(run(kDigits));
        rest_.remove_prefix(1);
        const size_t chosen = std::exchange(chosen_, position());
        const long long value = std::clamp(integer(), -kLongestWidth, kLongestWidth);
        chosen_ = chosen;
        return std::to_string(value);
    }

    bool print(char kind, const std::string& flags, std::string_view length) {
        switch (kind) {
        case '%': out_.push_back(u'%'); break;
        case '@':
        case 'S': object(); break;
        case 's': text(flags); break;
        case 'd':
        case 'i': number(flags + "lld", cut(integer(), length, true)); break;
        case 'D': number(flags + "lld", integer()); break;
        case 'u':
        case 'x':
        case 'X':
        case 'o': number(flags + "ll" + kind, cut(integer(), length, false)); break;
        case 'U': number(flags + "llu", integer()); break;
        case 'O': number(flags + "llo", integer()); break;
        case 'c': number(flags + "c", int(integer())); break;
        case 'C': out_.push_back(char16_t(integer())); break;
        case 'a':
        case 'A':
        case 'e':
        case 'E':
        case 'f':
        case 'F':
        case 'g':
        case 'G': number(flags + "L" + kind, floating()); break;
        case 'p': number(flags + "p", pointer()); break;
        default: return false;
        }
        return true;
    }

    // As C does: the conversion's length says how much of the integer is looked at; a plain one is an int.
    static long long cut(long long value, std::string_view length, bool isSigned) {
        if (length.empty()) return isSigned ? (long long)int(value) : (long long)(unsigned(value));
        if (length == "h") return isSigned ? (long long)short(value) : (long long)(unsigned short)(value);
        if (length == "hh")
            return isSigned ? (long long)(signed char)(value) : (long long)(unsigned char)(value);
        return value;
    }

    const Value* take() {
        const size_t index = chosen_ ? chosen_ - 1 : next_++;
        return index < count_ ? &arguments_[index].value_ : nullptr;
    }

    long long integer() {
        const Value* value = take();
        if (!value) return 0;
        if (auto* n = std::get_if<long long>(value)) return *n;
        if (auto* n = std::get_if<unsigned long long>(value)) return (long long)(*n);
        return 0;
    }

    long double floating() {
        const Value* value = take();
        auto* n = value ? std::get_if<long double>(value) : nullptr;
        return n ? *n : 0;
    }

    const void* pointer() {
        const Value* value = take();
        auto* p = value ? std::get_if<const void*>(value) : nullptr;
        return p ? *p : nullptr;
    }

    void object() {
        const Value* value = take();
        auto* o = value ? std::get_if<NSObject>(value) : nullptr;
        out_ += printed(o ? *o : NSObject());
    }

    void text(const std::string& flags) {
        const Value* value = take();
        auto* s = value ? std::get_if<const char*>(value) : nullptr;
        const char* bytes = s && *s ? *s : "(null)";
        if (flags == "%") {
            appendUTF8(out_, bytes);
        } else {
            number(flags + "s", bytes);
        }
    }

    template <class T>
    void number(const std::string& format, T value) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        int length = snprintf(nullptr, 0, format.c_str(), value);
        if (length <= 0) return;
        std::string bytes(size_t(length) + 1, '\0');
        snprintf(bytes.data(), bytes.size(), format.c_str(), value);
#pragma GCC diagnostic pop
        bytes.pop_back();
        appendUTF8(out_, bytes);
    }

    static constexpr std::string_view kDigits = "0123456789";
    static constexpr long long kLongestWidth = 1'000'000;

    std::string_view rest_;
    const FormatArgument* arguments_;
    size_t count_, next_ = 0;
    size_t chosen_ = 0; // the conversion's own position
    std::u16string out_;
};

NSString formatString(std::string_view format, std::initializer_list<FormatArgument> arguments) {
    return Formatter(format, arguments).run();
}
