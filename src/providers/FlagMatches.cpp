#include "kernel/kvProcessInit.h"

#include "providers/FlagMatches.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterValueGroup.h>

#include "schema/FormerNames.h"

namespace kivo::configuration {

FlagMatches::FlagMatches(ParameterValueGroup const& flags) : mSeeksFormerNames(areThereFormerNames()) {
    for (unsigned long i = 0; i < flags.getNumberOfItems(); ++i) {
        if (char const* flag = flags.getItem(i)->getParameterItemId()) {
            auto const& added = mMatches.try_emplace(flag).first->first;
            mSizes.insert(added.size());
        }
    }
}

bool FlagMatches::visitParameter(Parameter const& parameter) {
    if (char const* former = mSeeksFormerNames ? parameter.getFormerName() : nullptr) {
        if (auto const found = mMatches.find(std::string_view(former)); found != mMatches.end()) {
            found->second.isFormerName = true;
        }
    }
    if (parameter.isHidden()) {
        return true;
    }
    std::string_view const name = parameter.getName();
    for (auto const size : mSizes) {
        if (size > name.size()) {
            break;
        }
        if (auto const found = mMatches.find(name.substr(0, size)); found != mMatches.end()) {
            auto& match = found->second;
            match.first = match.first ? match.first : &parameter;
            ++match.count;
        }
    }
    return true;
}

} // namespace kivo::configuration
