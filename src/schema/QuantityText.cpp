#include "kernel/kvProcessInit.h"

#include "schema/QuantityText.h"

#include "schema/NameComparison.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <ranges>
#include <string>
#include <system_error>

namespace kivo::configuration {

namespace {

/// Powers of 1024, whatever the spelling; letter case does not matter.
struct SizeUnit {
    std::string_view names[3];
    unsigned int exponent; ///< of 2
};

constexpr SizeUnit SIZE_UNITS[] = {
    {{"k", "kB", "KiB"}, 10},
    {{"M", "MB", "MiB"}, 20},
    {{"G", "GB", "GiB"}, 30},
    {{"T", "TB", "TiB"}, 40},
};

struct DurationUnit {
    std::string_view name;
    std::int64_t milliseconds;
};

/// In the order in which they have to stand. Letter case matters: elsewhere "M" means months.
constexpr DurationUnit DURATION_UNITS[] = {
    {"d", 24 * 60 * 60 * 1000}, {"h", 60 * 60 * 1000}, {"m", 60 * 1000}, {"s", 1000}, {"ms", 1},
};

constexpr std::string_view DIGITS = "0123456789";

std::string_view takeFirst(std::string_view& rest, std::size_t length) {
    auto const taken = rest.substr(0, length);
    rest.remove_prefix(taken.size());
    return taken;
}

std::string_view takeDigits(std::string_view& rest) { return takeFirst(rest, rest.find_first_not_of(DIGITS)); }

/// Nothing unless there are digits, and their number fits.
template <class Number>
std::optional<Number> numberOf(std::string_view digits) {
    Number number = 0;
    auto const fault = std::from_chars(digits.data(), digits.data() + digits.size(), number).ec;
    return fault == std::errc{} ? std::optional(number) : std::nullopt;
}

std::optional<unsigned int> exponentOf(std::string_view unit) {
    for (auto const& [names, exponent] : SIZE_UNITS) {
        if (std::ranges::any_of(names, [unit](auto name) { return equalIgnoringCase(name, unit); })) {
            return exponent;
        }
    }
    return std::nullopt;
}

/// Doubles a decimal fraction. @return the digit that it then has before its point
unsigned int doubleFraction(std::string& digits) {
    int carry = 0;
    for (char& digit : std::views::reverse(digits)) {
        int const doubled = 2 * (digit - '0') + carry;
        digit = static_cast<char>('0' + doubled % 10);
        carry = doubled / 10;
    }
    return static_cast<unsigned int>(carry);
}

/// A decimal fraction times a power of 2; nothing unless this is whole.
std::optional<std::uint64_t> scaleFraction(std::string_view fraction, unsigned int exponent) {
    std::string digits(fraction.substr(0, fraction.find_last_not_of('0') + 1));
    if (digits.size() > exponent) { // doubling takes away one decimal place at most
        return std::nullopt;
    }
    std::uint64_t whole = 0;
    for (unsigned int i = 0; i < exponent; ++i) {
        whole = 2 * whole + doubleFraction(digits);
    }
    return digits.find_first_not_of('0') == std::string::npos ? std::optional(whole) : std::nullopt;
}

} // namespace

std::optional<std::uint64_t> parseSize(std::string_view text) {
    auto const whole = numberOf<std::uint64_t>(takeDigits(text));
    std::string_view fraction;
    if (text.starts_with('.')) {
        takeFirst(text, 1);
        fraction = takeDigits(text);
        if (fraction.empty()) {
            return std::nullopt;
        }
    }
    std::optional<unsigned int> exponent = 0;
    if (!text.empty()) {
        takeFirst(text, text.starts_with(' ') ? 1 : 0);
        exponent = exponentOf(text);
    }
    if (!whole || !exponent || *whole > std::numeric_limits<std::uint64_t>::max() >> *exponent) {
        return std::nullopt;
    }
    auto const rest = scaleFraction(fraction, *exponent);
    return rest ? std::optional((*whole << *exponent) + *rest) : std::nullopt;
}

std::optional<std::int64_t> parseDuration(std::string_view text) {
    if (!text.empty() && text.find_first_not_of('0') == std::string_view::npos) {
        return 0; // the only number that needs no unit
    }
    std::int64_t total = 0;
    auto const* unit = std::begin(DURATION_UNITS);
    do {
        auto const number = numberOf<std::int64_t>(takeDigits(text));
        auto const name = takeFirst(text, text.find_first_of(DIGITS));
        unit = std::ranges::find(unit, std::end(DURATION_UNITS), name, &DurationUnit::name);
        if (!number || unit == std::end(DURATION_UNITS) ||
            *number > (std::numeric_limits<std::int64_t>::max() - total) / unit->milliseconds) {
            return std::nullopt;
        }
        total += *number * unit->milliseconds;
        ++unit;
    } while (!text.empty());
    return total;
}

} // namespace kivo::configuration
