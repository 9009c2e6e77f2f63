#pragma once

namespace kivo::configuration {

/// The scope in which the XML library can be used. Scopes nest: the outermost one opens the library, which takes some
/// milliseconds; XmlScope keeps it open for several files. What the library made must be gone when the scope ends. One
/// thread at a time opens or ends a scope.
class XercesLibraryInit {
public:
    /// @throws std::bad_alloc memory has run out. Then the library is half open, and cannot be closed: nobody may use
    /// it before it has been unloaded and loaded again.
    XercesLibraryInit();
    ~XercesLibraryInit();

    XercesLibraryInit(XercesLibraryInit const&) = delete;
    XercesLibraryInit& operator=(XercesLibraryInit const&) = delete;
};

} // namespace kivo::configuration
