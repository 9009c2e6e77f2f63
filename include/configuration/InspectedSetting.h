#pragma once

#include <configuration/Export.h>
#include <configuration/InspectedText.h>

#include <memory>

namespace kivo::configuration {

class Parameter;

/// One setting of a specification, in one section, with all that was given for it.
///
/// A value: cheap to copy. It refers to the parameter, which the Manager owns, and to nothing else. Any number of
/// threads may read and copy it.
class KIVO_CONFIGURATION_API InspectedSetting {
public:
    /// The description of the setting. Lives until Manager::reset() or Manager::shutdown().
    Parameter const& getParameter() const noexcept;
    /// The path as one text, the parts joined by dots: "parallel", "retention.days", "mirror[2].location". Lives as
    /// long as this object, as all texts.
    char const* getName() const noexcept;
    /// The number of parts of the path, the setting's own id included.
    unsigned long getNumberOfPathParts() const noexcept;
    /// A part of the path, the outermost section first: an id; for a section that repeats with the number of its
    /// occurrence, counted from 1 ("mirror[2]"). The last part is the id of the parameter.
    /// @throws kivo::ContractViolationException "index < getNumberOfPathParts()"
    char const* getPathPart(unsigned long index) const;

    /// The number of texts that the tool reads; 0 when the setting has no value.
    unsigned long getNumberOfValues() const noexcept;
    /// A text that the tool reads; its verdict is InspectedText::WINS.
    /// @throws kivo::ContractViolationException "index < getNumberOfValues()"
    InspectedText getValue(unsigned long index) const;
    /// The number of the other texts.
    unsigned long getNumberOfAlternatives() const noexcept;
    /// A text that the tool does not read, the best one first: in the order in which the sources are asked, the default
    /// last.
    /// @throws kivo::ContractViolationException "index < getNumberOfAlternatives()"
    InspectedText getAlternative(unsigned long index) const;

    /// Whether a source gave anything for the setting, whatever became of it. If not, it has only its default, or
    /// nothing.
    bool isGiven() const noexcept;

    /// The same setting.
    InspectedSetting(InspectedSetting const& other) noexcept;
    /// Makes this the same setting.
    InspectedSetting& operator=(InspectedSetting const& other) noexcept;
    ~InspectedSetting();

private:
    friend class SettingLister;
    class KIVO_CONFIGURATION_LOCAL Impl;
    explicit InspectedSetting(std::shared_ptr<Impl const> impl) noexcept;
    std::shared_ptr<Impl const> mImpl;
};

} // namespace kivo::configuration
