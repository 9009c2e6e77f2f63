#include "kernel/kvProcessInit.h"

#include "text/MaxParameterNameLengthVisitor.h"

#include <configuration/Parameter.h>

#include <algorithm>
#include <string_view>

namespace kivo::configuration {

bool MaxParameterNameLengthVisitor::visitParameter(Parameter const& parameter) {
    auto length = std::string_view(parameter.getName()).size();
    if (char const* valueName = parameter.getValueName()) {
        length += 1 + std::string_view(valueName).size();
    }
    mMaximum = std::max<unsigned long>(mMaximum, length);
    return true;
}

unsigned long MaxParameterNameLengthVisitor::getMaximum() const { return mMaximum; }

} // namespace kivo::configuration
