#pragma once

namespace kivo::configuration {

class FindingList;
class InspectionPipeline;

/// Says what the library passes over in silence: faults of texts that it does not check, because they lost or stand in
/// the wrong place, and texts that it reads as something that nobody meant.
/// @param pipeline completed, its items marked by SettingLister::list()
void remarkOnValues(InspectionPipeline& pipeline);

} // namespace kivo::configuration
