#include "kernel/kvProcessInit.h"

#include <configuration/InspectionInputs.h>

#include "inspection/InspectionInputsImpl.h"
#include "manager/VectorWrapper.h"

namespace kivo::configuration {

InspectionInputs::InspectionInputs() : mImpl(std::make_unique<Impl>()) {}

InspectionInputs::InspectionInputs(InspectionInputs const& other) : mImpl(std::make_unique<Impl>(*other.mImpl)) {}

InspectionInputs& InspectionInputs::operator=(InspectionInputs const& other) {
    *mImpl = Impl(*other.mImpl);
    return *this;
}

InspectionInputs::~InspectionInputs() = default;

InspectionInputs& InspectionInputs::setMachineConfig(bool allowed) {
    return setMachineConfig(allowed ? MACHINE_CONFIG_TAKEN : MACHINE_CONFIG_LEFT_OUT);
}

InspectionInputs& InspectionInputs::setMachineConfig(MachineConfig machineConfig) {
    mImpl->machineConfig = machineConfig;
    return *this;
}

InspectionInputs& InspectionInputs::setApplicationFile(char const* path) {
    mImpl->applicationFile = path ? path : "";
    return *this;
}

InspectionInputs& InspectionInputs::setArguments(unsigned int argc, char const* const* argv) {
    mImpl->arguments = VectorWrapper::toVector(argv ? argc : 0, argv);
    return *this;
}

InspectionInputs& InspectionInputs::setCommandLineStyle(CommandLineStyle style) {
    mImpl->style = style;
    return *this;
}

InspectionInputs& InspectionInputs::setEnvironment(char const* prefix) {
    mImpl->environment = prefix && *prefix != '\0' ? std::optional(readEnvironment(prefix)) : std::nullopt;
    return *this;
}

InspectionInputs& InspectionInputs::setOpenCommandLine(bool open) {
    mImpl->isCommandLineOpen = open;
    return *this;
}

InspectionInputs& InspectionInputs::setFlags(int flags) {
    mImpl->flags = flags;
    return *this;
}

InspectionInputs& InspectionInputs::setRequired(bool required) {
    mImpl->isRequired = required;
    return *this;
}

} // namespace kivo::configuration
