#pragma once

#include <configuration/Export.h>

#include <memory>
#include <string>

namespace kivo::configuration {

/// Where something comes from: the text of a value, what a fault is about, a declaration.
///
/// An origin is a value. It is small, cheap to copy, and refers to nothing that could go away. Origins may be read and
/// copied by any number of threads.
class KIVO_CONFIGURATION_API Origin {
public:
    /// The kinds of sources.
    enum Source {
        UNKNOWN_SOURCE = 0,      ///< nobody said
        DEFAULT_SOURCE = 1,      ///< the default of a parameter; with a place when a registry file gives it
        APPLICATION_SOURCE = 2,  ///< the code of the tool
        COMMAND_LINE_SOURCE = 3, ///< an argument of the tool
        FILE_SOURCE = 4,         ///< a values file or a registry file
        ENVIRONMENT_SOURCE = 5,  ///< an environment variable
        PROVIDER_SOURCE = 6      ///< a provider of the caller's own that said nothing more precise
    };

    /// An origin of UNKNOWN_SOURCE.
    Origin() noexcept;
    /// @param source the kind of source; one of the enumerators
    /// @param name   path of the file, name of the variable or of the provider, copied; null counts as empty
    /// @param line   line of the file, counted from 1; 0 when it is not known, and for a source without lines
    /// @param column column in the line, in characters, counted from 1; 0 when it is not known
    /// Lines and columns beyond 4,294,967,295 count as not known.
    explicit Origin(Source source, char const* name = nullptr, unsigned long line = 0, unsigned long column = 0);
    /// An origin of COMMAND_LINE_SOURCE.
    /// @param argument index in the argument vector of the tool, whose name is argument 0; a value is where its flag is
    static Origin ofArgument(unsigned long argument);

    /// The same origin.
    Origin(Origin const& other) noexcept;
    /// Makes this the same origin.
    Origin& operator=(Origin const& other) noexcept;
    ~Origin();

    /// The kind of source.
    Source getSource() const noexcept;
    /// Whether the source is known.
    bool isKnown() const noexcept;
    /// The path, the variable or the provider; empty for a source without a name. Lives as long as this object.
    char const* getName() const noexcept;
    /// The line, counted from 1, or 0.
    unsigned long getLine() const noexcept;
    /// The column, in characters, counted from 1, or 0.
    unsigned long getColumn() const noexcept;
    /// The index in the argument vector for COMMAND_LINE_SOURCE; else 0.
    unsigned long getArgument() const noexcept;

    /// The origin as users read it: "etc/backup.xml:3:9", "etc/backup.xml:3" without a column, "command line,
    /// argument 4", "application", "default", "default, etc/kivobackup.crg:12:57", "environment, KIVORESTORE_STREAMS",
    /// the name of a provider. Empty for UNKNOWN_SOURCE. A name stands as it is, control characters included.
    std::string toString() const;

    /// Whether both name the same place of the same source.
    friend KIVO_CONFIGURATION_API bool operator==(Origin const& a, Origin const& b) noexcept;
    /// Whether they do not.
    friend KIVO_CONFIGURATION_API bool operator!=(Origin const& a, Origin const& b) noexcept;

private:
    friend class StoredOrigin;
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::shared_ptr<Impl const> mImpl; // null: unknown
};

} // namespace kivo::configuration
