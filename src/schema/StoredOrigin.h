#pragma once

#include <configuration/Origin.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace kivo::configuration {

/// An Origin in 16 bytes: every text keeps one. The origins of one source share what is the same for all of them.
///
/// Copies may be made and dropped by any number of threads.
class StoredOrigin {
public:
    /// An unknown origin.
    StoredOrigin() noexcept = default;
    StoredOrigin(Origin::Source source, std::string_view name) : mSource(new SharedSource(source, name)) {}
    explicit StoredOrigin(Origin const& origin);

    StoredOrigin(StoredOrigin const& other) noexcept
        : mSource(other.mSource), mLine(other.mLine), mColumn(other.mColumn) {
        if (mSource) {
            mSource->users.fetch_add(1, std::memory_order_relaxed);
        }
    }
    StoredOrigin(StoredOrigin&& other) noexcept
        : mSource(std::exchange(other.mSource, nullptr)), mLine(other.mLine), mColumn(other.mColumn) {}
    StoredOrigin& operator=(StoredOrigin other) noexcept {
        std::swap(mSource, other.mSource);
        mLine = other.mLine;
        mColumn = other.mColumn;
        return *this;
    }
    ~StoredOrigin() {
        if (mSource && mSource->users.fetch_sub(1, std::memory_order_acq_rel) == 1) {
            delete mSource;
        }
    }

    static StoredOrigin const& ofDefault();
    static StoredOrigin const& ofApplication();
    static StoredOrigin const& ofCommandLine();

    /// A place in the same source. @param line of a command line: the index of the argument
    StoredOrigin at(unsigned long line, unsigned long column = 0) const noexcept;

    bool isKnown() const noexcept { return mSource; }
    Origin::Source source() const noexcept { return mSource ? mSource->kind : Origin::UNKNOWN_SOURCE; }
    char const* name() const noexcept { return mSource ? mSource->name.c_str() : ""; }
    std::uint32_t line() const noexcept { return mLine; }
    std::uint32_t column() const noexcept { return mColumn; }

    /// Whether this is a place before another one of the same source.
    bool isBeforeInSource(StoredOrigin const& other) const noexcept;

    Origin toOrigin() const;

private:
    struct SharedSource {
        SharedSource(Origin::Source sourceKind, std::string_view sourceName) : kind(sourceKind), name(sourceName) {}

        Origin::Source const kind;
        std::atomic<std::uint32_t> users{1};
        std::string const name;
    };

    SharedSource* mSource = nullptr; // counted, since a smart pointer of the standard takes 16 bytes itself
    std::uint32_t mLine = 0;         // of a command line: the index of the argument
    std::uint32_t mColumn = 0;
};

static_assert(sizeof(StoredOrigin) == 16);

/// The origin of a declaration. @param origin unknown: it stands in the code of the application
inline Origin declarationOrigin(StoredOrigin const& origin) {
    return (origin.isKnown() ? origin : StoredOrigin::ofApplication()).toOrigin();
}

} // namespace kivo::configuration
