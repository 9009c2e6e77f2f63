#pragma once

namespace kivo::configuration {

class ParameterValueGroup;
class StoredOrigin;
class XmlDocument;

/// Reads a values file: each element becomes a group named by its tag, each attribute a value. Warnings are recorded in
/// the kernel's main log.
/// @return the tree of the document element, owned by the caller
/// @throws ConfigurationParameterException "XML ERROR: …", one line for each fault of the file
ParameterValueGroup* loadFromXmlFile(char const* fileName);

/// The tree of a document.
/// @param file what the places of values and groups are in
/// @return owned by the caller
ParameterValueGroup* getGroupFromXmlDocument(XmlDocument const& document, StoredOrigin const& file);

} // namespace kivo::configuration
