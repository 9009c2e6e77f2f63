#pragma once

#include <configuration/Export.h>

#include <memory>

namespace kivo::configuration {

class ParameterValueGroup;
class Specification;

/// One source of values. The Manager owns the providers registered with it and asks the enabled ones in order of
/// priority, the lowest number first.
///
/// A provider keeps what it was given in its data cache, unmatched, so that it can serve any number of specifications.
/// Not synchronized.
class KIVO_CONFIGURATION_API ValueProvider {
public:
    /// A disabled provider with an empty cache.
    /// @param priority position among the providers: of two sources for one setting, the lower number wins
    explicit ValueProvider(int priority);
    virtual ~ValueProvider();

    /// The name of the kind of provider. Lives as long as the process.
    virtual char const* getName() const = 0;
    /// Adds this provider's values for a specification to those of the providers asked before it: the cache is matched,
    /// split under its constraints, checked for values given twice, and merged. The cache does not change; an override
    /// may prepare it for the specification first.
    /// @param specification the specification asked for
    /// @param result        receives the values; may hold those of earlier providers, which win where only one can
    ///                      stand
    /// @param flags         RESOLVE_FLAG_NAMES, STRICT_RECOGNITION
    /// @return false when help was asked for, and no further provider is to be asked
    /// @throws kivo::ContractViolationException "specification != 0"
    /// @throws ConfigurationParameterException all faults of the first phase that found any
    /// @throws ConfigurationException a value where a group belongs or the other way round; a specification without its
    ///         root group
    virtual bool getValues(Specification const* specification, ParameterValueGroup& result, int flags);
    /// The help text of a specification: a name column and a description column, word-wrapped.
    /// @param specification         the specification to describe
    /// @param screenWidth           width of the whole, in characters; lines are padded to one less, but no column
    ///                              beyond 65,535
    /// @param maxParameterNameWidth upper limit of the name column, in characters
    /// @return a text that lives until the next call of this operation on this provider
    /// @throws kivo::ContractViolationException "specification != 0", "screenWidth > 0",
    ///         "maxParameterNameWidth < screenWidth"
    virtual char const* composeHelpMessage(Specification const* specification, unsigned long screenWidth,
                                           unsigned long maxParameterNameWidth) const;
    /// The usage text of a specification: one line for each of its top-level items.
    /// @return a text that lives until the next call of this operation on this provider
    /// @throws kivo::ContractViolationException "specification != 0"
    virtual char const* composeUsageMessage(Specification const* specification) const;
    /// Disables the provider and empties its cache and texts.
    virtual void reset();
    /// Takes over a tree of values; a kind of provider that does so overrides this.
    /// @throws ConfigurationException "setArguments(const ParameterValueGroup&) is not supported"
    virtual void setArguments(ParameterValueGroup const& values, int flags);
    /// Takes over one text, such as a file name; a kind of provider that does so overrides this.
    /// @throws ConfigurationException "setArguments(const char*) is not supported"
    virtual void setArguments(char const* argument, int flags);
    /// Takes over an argument vector; a kind of provider that does so overrides this.
    /// @throws ConfigurationException "setArguments(int, const char*) is not supported"
    virtual void setArguments(int argc, char const* const* argv, int flags);

    /// The number given at construction.
    int getPriority() const;
    /// Whether the Manager asks this provider.
    bool getEnabled() const;
    /// Gives the provider its input and enables it. When the input is refused, the exception passes to the caller, and
    /// the provider stays as it was, enabled or not.
    void enableProvider(ParameterValueGroup const& values, int flags);
    /// As above, for one text.
    void enableProvider(char const* argument, int flags);
    /// As above, for an argument vector. @param argv argc texts, of which argv[0] names the program
    void enableProvider(int argc, char const* const* argv, int flags);

    /// The raw values.
    ParameterValueGroup& getDataCache();
    /// The raw values.
    ParameterValueGroup const& getDataCache() const;
    /// Replaces the raw values by a copy of the given ones.
    void setDataCache(ParameterValueGroup const& values);

    ValueProvider(ValueProvider const&) = delete;
    ValueProvider& operator=(ValueProvider const&) = delete;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace kivo::configuration
