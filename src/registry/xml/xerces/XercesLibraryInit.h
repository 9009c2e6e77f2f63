#pragma once

namespace kivo::configuration {

/// The scope in which the XML library can be used. Scopes nest: the library is opened by the outermost one, which takes
/// some milliseconds, so whoever reads several files puts one around all of them. What the library made must be gone
/// when the scope ends.
class XercesLibraryInit {
public:
    XercesLibraryInit();
    ~XercesLibraryInit();

    /// Keeps the library open for the rest of the process: scopes that follow cost nothing. Opening it again would
    /// fail, too, when the process ends, since libraries that it uses are gone before the last static objects are.
    static void keepOpen();

    XercesLibraryInit(XercesLibraryInit const&) = delete;
    XercesLibraryInit& operator=(XercesLibraryInit const&) = delete;
};

} // namespace kivo::configuration
