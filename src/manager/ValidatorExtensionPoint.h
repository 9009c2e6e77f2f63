#pragma once

#include "kernel/kvExtensionPoint.h"

#include <memory>

namespace kivo::configuration {

/// The kernel's extension point at which plug-ins offer validators, in storage of the kernel's.
class ValidatorExtensionPoint {
public:
    ValidatorExtensionPoint();

    /// The number of plug-ins.
    unsigned long getNumberOfPlugins() const;
    /// A new object of a plug-in's, or null when the plug-in makes none.
    void* createImplementation(unsigned long index) const;

private:
    struct Release {
        void operator()(kvExtensionPoint* point) const;
    };
    std::unique_ptr<kvExtensionPoint, Release> mPoint;
};

} // namespace kivo::configuration
