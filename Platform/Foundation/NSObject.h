// SPDX-License-Identifier: Apache-2.0
//
// Values: what a property list or an error's user information can hold, and the few other objects that travel
// with them. Values are immutable and cheap to copy: a handle counts references to a shared body, and the
// count is safe across threads. The empty handle is nil; asking nil is safe and answers the empty or zero
// answer.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

enum class NSKind : uint8_t {
    string,
    number,
    data,
    date,
    array,
    dictionary,
    null,
    url,
    geometry,
    classObject,
    error,
    uid,
    other // objects of the storeys above, which say their class's name themselves
};

// The shared part of a value. Derived classes are immutable once a handle holds them.
class ObjectBody {
public:
    explicit ObjectBody(NSKind kind) : kind_(kind) {}
    virtual ~ObjectBody() = default;
    ObjectBody(const ObjectBody&) = delete;
    ObjectBody& operator=(const ObjectBody&) = delete;

    NSKind kind() const { return kind_; }

    // The public class's name, for example "NSString".
    virtual std::string_view className() const = 0;

    // `other` is of the same kind. Identity unless a class knows better.
    virtual bool isEqual(const ObjectBody& other) const { return this == &other; }
    virtual size_t hash() const { return size_t(kind_); }

    // The text for people, as a part of a container's text at nesting `level` (0 when it stands alone).
    virtual std::u16string description(unsigned level) const = 0;

private:
    friend class NSObject;
    mutable std::atomic<uint32_t> references_{0};
    const NSKind kind_;
};

class NSString;

// Any object, or nil.
class NSObject {
public:
    NSObject() = default;
    NSObject(std::nullptr_t) {}
    explicit NSObject(const ObjectBody* body) : body_(body) { retain(); }
    NSObject(const NSObject& other) : body_(other.body_) { retain(); }
    NSObject(NSObject&& other) noexcept : body_(std::exchange(other.body_, nullptr)) {}
    NSObject& operator=(NSObject other) noexcept {
        std::swap(body_, other.body_);
        return *this;
    }
    ~NSObject() {
        if (body_ && body_->references_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete body_;
    }

    explicit operator bool() const { return body_ != nullptr; }
    const ObjectBody* body() const { return body_; }

    bool isKindOf(NSKind kind) const { return body_ && body_->kind() == kind; }
    // "" for nil.
    std::string_view className() const { return body_ ? body_->className() : std::string_view(); }
    // nil for nil.
    NSString description() const;
    size_t hash() const { return body_ ? body_->hash() : 0; }

    // Equal values, or both nil.
    friend bool operator==(const NSObject& a, const NSObject& b);

private:
    void retain() const {
        if (body_) body_->references_.fetch_add(1, std::memory_order_relaxed);
    }

    const ObjectBody* body_ = nullptr;
};

// The object as a value of class T, or nil when it is nil or of another class.
template <class T>
T as(const NSObject& object) {
    return object.isKindOf(T::kKind) ? T(object.body()) : T();
}

template <class T>
bool is(const NSObject& object) {
    return object.isKindOf(T::kKind);
}

// What `%@` prints of an object: its description, "(null)" for nil.
std::u16string printed(const NSObject& object);
