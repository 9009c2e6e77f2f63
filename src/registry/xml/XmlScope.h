#pragma once

namespace kivo::configuration {

struct XmlModule;

/// The scope in which files are read. Scopes nest, in threads too: what is costly to start is started by the first file
/// that needs it, and kept to the end of the outermost scope, so code that reads several files puts one around all of
/// them. Documents may outlive it.
///
/// The lock of all scopes is held while the module is opened and closed, that is, before the dynamic loader's own lock
/// is taken. So no file may be read where the loader's lock is held, such as in the constructors of static objects of a
/// library that is being opened, while another thread can read files: each could wait for the other.
class XmlScope {
public:
    XmlScope();
    ~XmlScope();

    XmlScope(XmlScope const&) = delete;
    XmlScope& operator=(XmlScope const&) = delete;

    /// The module of Xerces-C, or null when it cannot be opened.
    /// @throws std::bad_alloc memory has run out
    XmlModule const* getModule() const;
};

} // namespace kivo::configuration
