#pragma once

#include "visitors/SettingRemarks.h"

#include <string>
#include <vector>

namespace kivo::configuration {

class InspectionPipeline;

/// Hears of former names while an inspection takes values, and makes them findings. What would become a record in the
/// main log goes no further.
class FormerNameRemarks final : public RemarkListener {
public:
    /// Makes findings of what was heard since the last time.
    /// @param pipeline has noted the texts that were taken since
    void report(InspectionPipeline& pipeline);

private:
    void hear(SettingRemark const& remark) override;

    struct Heard {
        Parameter const& parameter;
        std::string message;
        StoredOrigin origin;
        std::string section;
    };
    std::vector<Heard> mHeard;
};

/// Says which texts were given for deprecated settings, and which secret texts others can read.
/// @param pipeline completed
void remarkOnMarks(InspectionPipeline& pipeline);

} // namespace kivo::configuration
