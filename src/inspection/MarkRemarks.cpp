#include "kernel/kvProcessInit.h"

#include "inspection/MarkRemarks.h"

#include <configuration/Parameter.h>

#include "inspection/InspectionPipeline.h"

#include <sys/stat.h>

#include <map>
#include <utility>

namespace kivo::configuration {

namespace {

/// Looks at each file once, however many texts it gives.
class ReadableFiles {
public:
    /// Whether those who are neither the owner nor of the group of a file may read it. @param path lives on
    bool contains(char const* path) {
        auto const [known, isNew] = mFiles.try_emplace(path, false);
        struct stat status;
        if (isNew && stat(path, &status) == 0) {
            known->second = (status.st_mode & S_IROTH) != 0;
        }
        return known->second;
    }

private:
    std::map<std::string, bool, std::less<>> mFiles;
};

/// Who could see a secret text; empty where nobody could.
std::string composeExposure(StoredOrigin const& origin, ReadableFiles& readableFiles) {
    if (origin.source() == Origin::COMMAND_LINE_SOURCE) {
        return "the main log records the command line";
    }
    bool const isReadable = origin.source() == Origin::FILE_SOURCE && readableFiles.contains(origin.name());
    return isReadable ? "other users can read this file" : "";
}

} // namespace

void FormerNameRemarks::hear(SettingRemark const& remark) {
    if (remark.rule == Rule::FORMER_NAME) {
        mHeard.push_back({remark.parameter, remark.message, remark.origin, remark.section});
    }
}

void FormerNameRemarks::report(InspectionPipeline& pipeline) {
    for (auto const& [parameter, message, origin, section] : std::exchange(mHeard, {})) {
        auto const* const item = pipeline.getItems().find(origin);
        auto const& prefix = item && item->section ? item->section->getPrefix() : section;
        pipeline.getFindings().add(Finding::WARNING_SEVERITY, Rule::FORMER_NAME, message, origin,
                                   prefix + parameter.getId());
    }
}

void remarkOnMarks(InspectionPipeline& pipeline) {
    auto& findings = pipeline.getFindings();
    ReadableFiles readableFiles;
    for (auto const& item : pipeline.getItems().get()) {
        auto const* const parameter = item.parameter;
        if (parameter && parameter->getDeprecation()) {
            auto const remark = makeDeprecationRemark(*parameter, item.origin);
            findings.add(Finding::WARNING_SEVERITY, remark.rule, remark.message, remark.origin);
        }
        if (parameter && parameter->isSensitive() && item.isPresent) {
            if (auto const exposure = composeExposure(item.origin, readableFiles); !exposure.empty()) {
                findings.add(Finding::WARNING_SEVERITY, Rule::EXPOSED_SECRET,
                             '"' + std::string(parameter->getName()) + "\" is secret, but " + exposure, item.origin);
            }
        }
    }
}

} // namespace kivo::configuration
