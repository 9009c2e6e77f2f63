#pragma once

#include "schema/StoredOrigin.h"

#include <atomic>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kivo::configuration {

/// One entry of a ParameterValue: a text, or none, and where it was given.
///
/// An entry without a text may be read as the flag that it is; it then keeps the text "1". Any number of threads may do
/// so at once.
class ValueText {
public:
    explicit ValueText(char const* text, StoredOrigin const& textOrigin = {})
        : origin(textOrigin), mIsPresent(text != nullptr) {
        if (text) {
            mText = text;
        }
    }
    ValueText(ValueText const& other)
        : origin(other.origin),
          mIsPresent(other.mIsPresent),
          mIsFlag(other.mIsFlag.load(std::memory_order_relaxed)),
          mText(other.mText) {}
    ValueText(ValueText&& other) noexcept
        : origin(std::move(other.origin)),
          mIsPresent(other.mIsPresent),
          mIsFlag(other.mIsFlag.load(std::memory_order_relaxed)),
          mText(std::move(other.mText)) {}
    ValueText& operator=(ValueText other) noexcept {
        origin = std::move(other.origin);
        mText = std::move(other.mText);
        mIsPresent = other.mIsPresent;
        mIsFlag.store(other.mIsFlag.load(std::memory_order_relaxed), std::memory_order_relaxed);
        return *this;
    }
    ~ValueText() = default;

    /// The text, or null.
    char const* get() const {
        if (mIsPresent) {
            return mText.c_str();
        }
        return mIsFlag.load(std::memory_order_relaxed) ? FLAG_TEXT : nullptr;
    }

    /// Keeps the text "1" where there is none, and returns it.
    char const* readAsFlag() const {
        mIsFlag.store(true, std::memory_order_relaxed);
        return FLAG_TEXT;
    }

    StoredOrigin origin;

private:
    static constexpr char const* FLAG_TEXT = "1";

    bool mIsPresent;
    mutable std::atomic<bool> mIsFlag{false};
    std::string mText;
};

/// The entries of a ParameterValue. There is at least one, and mostly just one, which takes no memory of its own.
class ValueTexts {
public:
    ValueTexts(char const* first, StoredOrigin const& origin) : mFirst(first, origin) {}

    ValueTexts(ValueTexts const& other)
        : mOthers(other.mOthers ? std::make_unique<Others>(*other.mOthers) : nullptr), mFirst(other.mFirst) {}
    ValueTexts(ValueTexts&&) noexcept = default;
    ValueTexts& operator=(ValueTexts other) noexcept {
        mOthers = std::move(other.mOthers);
        mFirst = std::move(other.mFirst);
        return *this;
    }
    ~ValueTexts() = default;

    void add(char const* text, StoredOrigin const& origin) {
        if (!mOthers) {
            mOthers = std::make_unique<Others>();
        }
        mOthers->emplace_back(text, origin);
    }
    unsigned long size() const { return mOthers ? 1 + mOthers->size() : 1; }
    ValueText const& operator[](unsigned long index) const { return index == 0 ? mFirst : (*mOthers)[index - 1]; }
    ValueText& operator[](unsigned long index) { return index == 0 ? mFirst : (*mOthers)[index - 1]; }

private:
    using Others = std::vector<ValueText>;
    std::unique_ptr<Others> mOthers;
    ValueText mFirst;
};

} // namespace kivo::configuration
