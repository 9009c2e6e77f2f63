#pragma once

// What a call throws, as a text to compare:
//
//     EXPECT_EQ(whatOf([&] { errors.getError(0); }), contractText("index < getNumberOfErrors()"));
//     EXPECT_EQ(whatOf<ConfigurationException>([&] { group.getValue("g"); }), "\"g\" is not a parameter value");

#include <exception>
#include <string>

namespace kivo::test {

/// A call that throws nothing, or another type, yields a text in angle brackets, which no message looks like.
template <class Exception = std::exception, class Call>
std::string whatOf(Call&& call) {
    try {
        call();
    } catch (Exception const& thrown) {
        return thrown.what() ? thrown.what() : "<null>";
    } catch (...) {
        return "<another type>";
    }
    return "<nothing>";
}

inline std::string contractText(std::string const& condition) { return "Contract violation: \"" + condition + "\""; }

} // namespace kivo::test
