// Says what is wrong with registry files, or doubtful.

#include "Commands.h"
#include "Findings.h"

#include <configuration/RegistryInspection.h>

#include <memory>

using namespace kivo::configuration;

namespace kivoconfig {

Work prepareLint(CommandOptions& options, Call& call) {
    auto const files = std::make_shared<std::vector<std::string>>();
    options.addTexts("FILE", *files, "A registry file, in the place of the installation's of its name, or added");
    addFatalWarnings(options, call);
    addJson(options, call);
    return [&call, files] {
        RegistryInspection const inspection(*files);
        reportFindings(inspection.getFindings(), call);
        return statusOf(inspection.getFindings(), call);
    };
}

} // namespace kivoconfig
