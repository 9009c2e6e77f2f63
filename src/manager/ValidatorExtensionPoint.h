#pragma once

#include "kernel/kvExtensionPoint.h"

#include <memory>

namespace kivo::configuration {

/// The kernel's extension point at which plug-ins offer validators. Its memory comes from the kernel.
class ValidatorExtensionPoint {
public:
    ValidatorExtensionPoint();

    /// The number of plug-ins.
    unsigned long getNumberOfPlugins() const;
    /// A new object, made by the plug-in at `index`; null when the plug-in makes none.
    void* createImplementation(unsigned long index) const;

private:
    struct Release {
        void operator()(kvExtensionPoint* point) const;
    };
    std::unique_ptr<kvExtensionPoint, Release> mPoint;
};

} // namespace kivo::configuration
