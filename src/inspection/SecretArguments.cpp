#include "kernel/kvProcessInit.h"

#include "inspection/SecretArguments.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterVisitor.h>

#include "providers/GnuArguments.h"
#include "schema/NameSuggestion.h"
#include "schema/SecretMask.h"

#include <algorithm>

namespace kivo::configuration {

namespace {

/// With so many secret names, at most, an unknown one is compared.
constexpr std::size_t MOST_COMPARED = 1000;

/// Visits the secret settings.
template <class OnSetting>
class SecretSettings final : public ParameterVisitor {
public:
    explicit SecretSettings(OnSetting onSetting) : mOnSetting(onSetting) {}

    bool visitParameter(Parameter const& parameter) override {
        if (parameter.isSensitive()) {
            mOnSetting(parameter);
        }
        return true;
    }

private:
    OnSetting mOnSetting;
};

/// A text up to its equals sign, and the mask; nothing for a text without one.
std::optional<std::string> maskValue(std::string_view text) {
    auto const sign = text.find('=');
    return sign == std::string_view::npos ? std::nullopt
                                          : std::optional(std::string(text.substr(0, sign + 1)).append(SECRET_MASK));
}

} // namespace

SecretArguments::SecretArguments(ParameterGroup const& root, bool resolvesNames) : mResolvesNames(resolvesNames) {
    SecretSettings settings([this](Parameter const& parameter) {
        bool const isSwitch = parameter.isOptional() && parameter.getValueType() == Parameter::BOOLEAN_PARAMETER;
        auto const expected = isSwitch ? Expected::REST_OF_SECRET : Expected::SECRET;
        for (auto const* name : {parameter.getId(), parameter.getName(), parameter.getFormerName()}) {
            if (name) {
                auto& known = mNames[name];
                known = std::max(known, expected);
            }
        }
    });
    root.accept(settings);
}

void SecretArguments::add(std::string_view argument, unsigned long index) {
    bool const isEndOfFlags = argument == END_OF_FLAGS && mExpected == Expected::SECRET;
    if (mNames.empty() || argument == "-" || isEndOfFlags) {
        return; // a secret that has to follow may stand after it
    }
    argument.starts_with('-') ? addFlag(argument, index) : addWord(argument, index);
}

/// A word may be meant as a flag, and the plain style takes it for one: "pin=1234", "pin 1234".
void SecretArguments::addWord(std::string_view argument, unsigned long index) {
    auto const sign = argument.find('=');
    if (mExpected != Expected::NOTHING) {
        mSecrets.insert({index, {std::string(argument), true}});
    } else if (expectedAfter(argument.substr(0, sign)) == Expected::NOTHING) {
        return;
    } else if (sign != std::string_view::npos) {
        mSecrets.insert({index, {std::string(argument), false}});
    }
    mExpected = Expected::REST_OF_SECRET;
}

/// What begins with a dash is taken for a secret only where one has to follow: after one, it is the next flag.
void SecretArguments::addFlag(std::string_view argument, unsigned long index) {
    auto const dashes = std::min(argument.find_first_not_of('-'), argument.size());
    auto const sign = argument.find('=');
    bool const hasValue = sign != std::string_view::npos;
    auto const name = argument.substr(dashes, hasValue ? sign - dashes : sign);
    auto const expected = expectedAfter(name);
    if (expected != Expected::NOTHING) {
        if (hasValue) {
            mSecrets.insert({index, {std::string(argument), false}});
        }
        mExpected = hasValue ? Expected::REST_OF_SECRET : expected;
        return;
    }
    bool const isAll = mExpected == Expected::SECRET;
    if (isAll || (hasValue && isNearlySecret(name))) {
        mSecrets.insert({index, {std::string(argument), isAll}});
    }
    mExpected = isAll ? Expected::REST_OF_SECRET : Expected::NOTHING;
}

/// Whether a name that is not known was probably meant as that of a secret setting.
bool SecretArguments::isNearlySecret(std::string_view name) const {
    if (mNames.size() > MOST_COMPARED) {
        return true; // nobody should wait for a comparison with all
    }
    ClosestName closest(name);
    for (auto const& each : mNames) {
        closest.offer(each.first.c_str());
    }
    auto const next = mNames.lower_bound(name);
    return closest.get() || (next != mNames.end() && !name.empty() && beginsIgnoringCase(next->first, name));
}

/// A flag may name the sections, too: "--login.pin". A name may have dots of its own, so each may be the last of these.
SecretArguments::Expected SecretArguments::expectedAfter(std::string_view flag) const {
    auto expected = Expected::NOTHING;
    while (!flag.empty()) {
        auto const isMeant = [&](std::string const& name) {
            return mResolvesNames ? beginsIgnoringCase(name, flag) : equalIgnoringCase(name, flag);
        };
        for (auto each = mNames.lower_bound(flag);
             each != mNames.end() && isMeant(each->first) && expected != Expected::SECRET; ++each) {
            expected = std::max(expected, each->second);
        }
        auto const dot = flag.find('.');
        flag.remove_prefix(dot == std::string_view::npos ? flag.size() : dot + 1);
    }
    return expected;
}

SecretArguments::Secret const* SecretArguments::find(StoredOrigin const& origin) const {
    bool const isArgument = origin.source() == Origin::COMMAND_LINE_SOURCE;
    auto const found = isArgument ? mSecrets.find(origin.line()) : mSecrets.end();
    return found == mSecrets.end() ? nullptr : &found->second;
}

std::optional<std::string> SecretArguments::maskedArgument(StoredOrigin const& origin) const {
    auto const* const secret = find(origin);
    return secret ? maskedName(origin, secret->argument) : std::nullopt;
}

std::optional<std::string> SecretArguments::maskedName(StoredOrigin const& origin, std::string_view name) const {
    auto const* const secret = find(origin);
    if (!secret) {
        return std::nullopt;
    }
    return secret->isAll ? std::optional<std::string>(SECRET_MASK) : maskValue(name);
}

} // namespace kivo::configuration
