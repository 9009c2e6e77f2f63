#pragma once

namespace kivo::configuration {

/// The scope in which files are read. Scopes nest: what is costly to start is started by the first file that needs it,
/// and kept to the end of the outermost scope, so whoever reads several files puts one around all of them. Documents
/// may outlive it.
class XmlScope {
public:
    XmlScope();
    ~XmlScope();

    XmlScope(XmlScope const&) = delete;
    XmlScope& operator=(XmlScope const&) = delete;
};

} // namespace kivo::configuration
