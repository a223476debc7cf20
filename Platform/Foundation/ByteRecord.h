// SPDX-License-Identifier: Apache-2.0
//
// A row of numbers and strings as bytes, for processes of this one program.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

class ByteRecordWriter {
public:
    void add(uint64_t number) { bytes_.append(reinterpret_cast<const char*>(&number), sizeof number); }
    void add(std::string_view text) {
        add(uint64_t(text.size()));
        bytes_ += text;
    }
    void add(const std::u16string& text) {
        add(std::string_view(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)));
    }
    std::string take() { return std::move(bytes_); }

private:
    std::string bytes_;
};

// Reads in the order of writing; past the end, zeros and empty strings.
class ByteRecordReader {
public:
    explicit ByteRecordReader(std::string_view bytes) : rest_(bytes) {}

    bool atEnd() const { return rest_.empty(); }

    uint64_t number() {
        uint64_t value = 0;
        if (rest_.size() < sizeof value) {
            rest_ = {};
            return 0;
        }
        std::memcpy(&value, rest_.data(), sizeof value);
        rest_.remove_prefix(sizeof value);
        return value;
    }

    std::string string() {
        const uint64_t length = number();
        const std::string_view text = rest_.substr(0, size_t(length));
        rest_.remove_prefix(text.size());
        return std::string(text);
    }

    std::u16string wideString() {
        const std::string bytes = string();
        std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
        std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
        return text;
    }

private:
    std::string_view rest_;
};
