#include "kernel/kvProcessInit.h"

#include <configuration/Origin.h>

#include "schema/StoredOrigin.h"

#include <cstring>
#include <limits>

namespace kivo::configuration {

class Origin::Impl {
public:
    StoredOrigin origin;
};

namespace {

std::uint32_t narrowed(unsigned long number) {
    return number <= std::numeric_limits<std::uint32_t>::max() ? static_cast<std::uint32_t>(number) : 0;
}

std::string composePlace(char const* name, unsigned long line, unsigned long column) {
    std::string text = name;
    for (auto const number : {line, column}) {
        if (number == 0) {
            break;
        }
        text.append(":").append(std::to_string(number));
    }
    return text;
}

} // namespace

StoredOrigin::StoredOrigin(Origin const& origin) : StoredOrigin(origin.mImpl ? origin.mImpl->origin : StoredOrigin()) {}

StoredOrigin const& StoredOrigin::ofDefault() {
    static StoredOrigin const origin(Origin::DEFAULT_SOURCE, {});
    return origin;
}

StoredOrigin const& StoredOrigin::ofApplication() {
    static StoredOrigin const origin(Origin::APPLICATION_SOURCE, {});
    return origin;
}

StoredOrigin const& StoredOrigin::ofCommandLine() {
    static StoredOrigin const origin(Origin::COMMAND_LINE_SOURCE, {});
    return origin;
}

StoredOrigin StoredOrigin::at(unsigned long line, unsigned long column) const noexcept {
    auto place = *this;
    place.mLine = narrowed(line);
    place.mColumn = narrowed(column);
    return place;
}

bool StoredOrigin::isBeforeInSource(StoredOrigin const& other) const noexcept {
    bool const isSameSource =
        mSource == other.mSource || (source() == other.source() && std::strcmp(name(), other.name()) == 0);
    return isSameSource && (mLine < other.mLine || (mLine == other.mLine && mColumn < other.mColumn));
}

Origin StoredOrigin::toOrigin() const {
    Origin origin;
    if (isKnown()) {
        origin.mImpl = std::make_shared<Origin::Impl const>(Origin::Impl{*this});
    }
    return origin;
}

Origin::Origin() noexcept = default;

Origin::Origin(Source source, char const* name, unsigned long line, unsigned long column) {
    if (source != UNKNOWN_SOURCE) {
        mImpl = std::make_shared<Impl const>(Impl{StoredOrigin(source, name ? name : "").at(line, column)});
    }
}

Origin Origin::ofArgument(unsigned long argument) { return StoredOrigin::ofCommandLine().at(argument).toOrigin(); }

Origin::Origin(Origin const&) noexcept = default;

Origin& Origin::operator=(Origin const&) noexcept = default;

Origin::~Origin() = default;

Origin::Source Origin::getSource() const noexcept { return mImpl ? mImpl->origin.source() : UNKNOWN_SOURCE; }

bool Origin::isKnown() const noexcept { return getSource() != UNKNOWN_SOURCE; }

char const* Origin::getName() const noexcept { return mImpl ? mImpl->origin.name() : ""; }

unsigned long Origin::getLine() const noexcept {
    return mImpl && getSource() != COMMAND_LINE_SOURCE ? mImpl->origin.line() : 0;
}

unsigned long Origin::getColumn() const noexcept { return mImpl ? mImpl->origin.column() : 0; }

unsigned long Origin::getArgument() const noexcept {
    return getSource() == COMMAND_LINE_SOURCE ? mImpl->origin.line() : 0;
}

std::string Origin::toString() const {
    auto const place = composePlace(getName(), getLine(), getColumn());
    switch (getSource()) {
    case UNKNOWN_SOURCE: return {};
    case DEFAULT_SOURCE: return place.empty() ? "default" : "default, " + place;
    case APPLICATION_SOURCE: return place.empty() ? "application" : "application, " + place;
    case COMMAND_LINE_SOURCE: return "command line, argument " + std::to_string(getArgument());
    case FILE_SOURCE:
    case PROVIDER_SOURCE: return place;
    case ENVIRONMENT_SOURCE: return "environment, " + place;
    }
    return place;
}

bool operator==(Origin const& a, Origin const& b) noexcept {
    return a.getSource() == b.getSource() && std::strcmp(a.getName(), b.getName()) == 0 && a.getLine() == b.getLine() &&
           a.getColumn() == b.getColumn() && a.getArgument() == b.getArgument();
}

bool operator!=(Origin const& a, Origin const& b) noexcept { return !(a == b); }

} // namespace kivo::configuration
