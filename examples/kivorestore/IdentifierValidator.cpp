#include "IdentifierValidator.h"

#include <configuration/Memory.h>

#include <string>

IdentifierValidator::IdentifierValidator() : ParameterValidator("identifier") {}

char* IdentifierValidator::validate(char const* text) const {
    constexpr char const* DIGITS = "0123456789";
    constexpr char const* ALLOWED = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_0123456789";
    std::string const name = text;
    if (!name.empty() && name.find_first_not_of(ALLOWED) == std::string::npos && name.find_first_of(DIGITS) != 0) {
        return nullptr;
    }
    return kivo::configuration::cloneString(('"' + name + "\" is not an identifier").c_str());
}
