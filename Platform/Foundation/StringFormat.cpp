// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/StringFormat.h"

#include "Platform/Foundation/UnicodeText.h"

#include <cstdio>
#include <cstring>

class Formatter {
public:
    Formatter(std::string_view format, std::initializer_list<FormatArgument> arguments)
        : rest_(format), next_(arguments.begin()), end_(arguments.end()) {}

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

    void conversion() {
        size_t end = rest_.find_first_not_of("0123456789.-+ #", 1);
        std::string flags(rest_.substr(0, std::min(end, rest_.size())));
        size_t letter = end == std::string_view::npos ? end : rest_.find_first_not_of("hlqLzjt", end);
        if (letter == std::string_view::npos) {
            appendUTF8(out_, rest_); // an unfinished conversion is text
            rest_ = {};
            return;
        }
        std::string_view length = rest_.substr(end, letter - end);
        char kind = rest_[letter];
        rest_.remove_prefix(letter + 1);
        print(kind, flags, length);
    }

    void print(char kind, const std::string& flags, std::string_view length) {
        switch (kind) {
        case '%': out_.push_back(u'%'); break;
        case '@': object(); break;
        case 's': text(flags); break;
        case 'd':
        case 'i': number(flags + "lld", cut(integer(), length, true)); break;
        case 'u':
        case 'x':
        case 'X':
        case 'o': number(flags + "ll" + kind, cut(integer(), length, false)); break;
        case 'c': number(flags + "c", int(integer())); break;
        case 'f':
        case 'g':
        case 'e': number(flags + "L" + kind, floating()); break;
        case 'p': number(flags + "p", pointer()); break;
        default: out_ += fromUTF8(flags + std::string(length) + kind); break;
        }
    }

    // As C does: the conversion's length says how much of the integer is looked at; a plain one is an int.
    static long long cut(long long value, std::string_view length, bool isSigned) {
        if (length.empty()) return isSigned ? (long long)int(value) : (long long)(unsigned(value));
        if (length == "h") return isSigned ? (long long)short(value) : (long long)(unsigned short)(value);
        if (length == "hh")
            return isSigned ? (long long)(signed char)(value) : (long long)(unsigned char)(value);
        return value;
    }

    const Value* take() { return next_ == end_ ? nullptr : &(next_++)->value_; }

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

    std::string_view rest_;
    const FormatArgument *next_, *end_;
    std::u16string out_;
};

NSString formatString(std::string_view format, std::initializer_list<FormatArgument> arguments) {
    return Formatter(format, arguments).run();
}
