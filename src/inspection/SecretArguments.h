#pragma once

#include "schema/NameComparison.h"
#include "schema/StoredOrigin.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace kivo::configuration {

class ParameterGroup;

/// Arguments that are no value of a setting, but show a secret all the same: "-pin=1234" in plain style, "pin=1234",
/// "-1234" after "-pin", and what stands after a blank in a secret text that was not quoted.
class SecretArguments {
public:
    /// @param root          of the specification
    /// @param resolvesNames whether flags may be shortened
    SecretArguments(ParameterGroup const& root, bool resolvesNames);

    /// Looks at the next argument. @param index as origins count it
    void add(std::string_view argument, unsigned long index);

    /// An argument as it was added, with the mask in place of what is secret; nothing if nothing is.
    std::optional<std::string> maskedArgument(StoredOrigin const& origin) const;
    /// The same for the name that was made of an argument.
    std::optional<std::string> maskedName(StoredOrigin const& origin, std::string_view name) const;

private:
    /// What the arguments before leave open. After an optional bool there need not be a value.
    enum class Expected { NOTHING, REST_OF_SECRET, SECRET };

    struct Secret {
        std::string argument;
        bool isAll; ///< otherwise what stands after the equals sign
    };

    Expected expectedAfter(std::string_view flag) const;
    bool isNearlySecret(std::string_view name) const;
    void addFlag(std::string_view argument, unsigned long index);
    void addWord(std::string_view argument, unsigned long index);
    Secret const* find(StoredOrigin const& origin) const;

    /// What is expected after the names of the secret settings, and after their ids and former names.
    std::map<std::string, Expected, CaseInsensitiveLess> mNames;
    bool mResolvesNames;
    Expected mExpected = Expected::NOTHING;
    std::map<unsigned long, Secret> mSecrets; ///< by index
};

} // namespace kivo::configuration
