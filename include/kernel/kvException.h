#pragma once

/// @file
/// The one kernel header that the library's own public headers need.

#include <exception>

/// Marks what the kernel exports; everything else of it is hidden.
#define KIVO_KERNEL_API __attribute__((visibility("default")))

class kvSession;

/// The kernel's exception class, base of every exception that may cross between the kernel and its plug-ins.
///
/// The order of the virtual operations is part of the binary interface. Thrown by value, so copyable.
class KIVO_KERNEL_API kvException : public std::exception {
public:
    /// An exception without a message of its own.
    kvException() = default;
    /// There is nothing to copy: a derived class has the message.
    kvException(kvException const&) = default;
    /// There is nothing to copy.
    kvException& operator=(kvException const&) = default;
    ~kvException() override;

    /// The message; lives as long as the exception. A derived class may return null for "no message".
    char const* what() const noexcept override;

    /// The same as what().
    virtual operator char const*() const;

    /// The number of the kind of fault; -1 when it has none, as here.
    virtual int get_kind() const;

    /// Hands the exception to the kernel: where reporting is enabled for the calling thread's session, the main log
    /// gets a record of category "Kernel" with `<context>: <message>`, or the message alone when `context` is null or
    /// empty.
    virtual void reportErrors(char const* context);

    /// Null unless the exception is one of the kernel's own; not owned by the caller.
    virtual kvException* asKernelException();

    /// Turns reporting on or off for one session (off at first); null is the calling thread's session.
    /// @return the setting before the call
    static bool setEnabled(kvSession* session, bool enabled);

    /// The setting for one session; null is the calling thread's session.
    static bool isEnabled(kvSession* session);
};
