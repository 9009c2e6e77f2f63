// Writes an XML Schema: of a specification's values files, or of registry files.

#include "Commands.h"
#include "Faults.h"
#include "Installation.h"
#include "RegistrySchema.h"
#include "settings/SettingTexts.h"
#include "settings/TypeTable.h"
#include "settings/ValuesFileNames.h"
#include "text/CodePage.h"
#include "text/Xml.h"
#include "text/XmlWriter.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/Specification.h>

#include <algorithm>
#include <memory>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

char const* const LIMITS =
    "For editors, and for checks before a file is used. Nothing is required here, since other sources may give it. "
    "What XML Schema 1.0 cannot say is not checked: that the alternatives of an exclusive choice exclude each other; "
    "that a setting which takes one value, or a section, is given once; the bounds of fractions, sizes and durations; "
    "what a validator refuses. Names have to be spelled as here, although tools take upper and lower case to be the "
    "same. Settings and sections whose ids are no XML names are missing: a values file cannot give them.";

/// A whole number without the white space that the library allows before it.
std::string withoutSpace(std::string_view number) {
    return std::string(number.substr(number.find_first_not_of(" \t\n\v\f\r")));
}

/// What stands between two tags: sections hold elements first, then attributes.
class SchemaWriter final : public SettingsWalk {
public:
    explicit SchemaWriter(std::ostream& out) : mXml(out) {}

    void write(Specification const& specification) {
        auto const id = toUtf8(specification.getId());
        mXml.comment("Values files of " + id + ": " + descriptionOf(*specification.getParameterGroup()));
        mXml.comment(LIMITS);
        mXml.open("xs:schema",
                  {{"xmlns:xs", "http://www.w3.org/2001/XMLSchema"}, {"elementFormDefault", "unqualified"}});
        walk(specification);
        mXml.close();
    }

private:
    /// An attribute of a section that is open.
    struct Attribute {
        std::string id;
        Parameter const* parameter;
        std::vector<std::string> documentation;
    };
    struct Section {
        bool hasElements = false;
        std::vector<Attribute> attributes;
    };

    bool onSectionStart(ParameterGroup const& section) override {
        auto const id = toUtf8(section.getId());
        if (!isXmlName(id)) {
            return false;
        }
        openElement(id, {descriptionOf(section)});
        mSections.emplace_back();
        return true;
    }

    void onSectionEnd(ParameterGroup const&) override {
        if (mSections.back().hasElements) {
            mXml.close();
        }
        for (auto const& attribute : mSections.back().attributes) {
            mXml.open("xs:attribute", {{"name", attribute.id}});
            writeDocumentation(attribute.documentation);
            writeType(*attribute.parameter);
            mXml.close();
        }
        mSections.pop_back();
        closeElement();
    }

    void onSetting(Setting const& setting) override {
        auto const id = toUtf8(setting.parameter.getId());
        if (!isXmlName(id)) {
            return;
        }
        std::vector<std::string> const documentation{descriptionOf(setting.parameter), factsOf(setting)};
        mSections.back().attributes.push_back({id, &setting.parameter, documentation});
        if (setting.isDirect) {
            openElement(id, documentation);
            writeValue(setting.parameter);
            closeElement();
        }
    }

    void openElement(std::string const& id, std::vector<std::string> const& documentation) {
        if (!mSections.empty() && !mSections.back().hasElements) {
            mXml.open("xs:choice", {{"minOccurs", "0"}, {"maxOccurs", "unbounded"}});
            mSections.back().hasElements = true;
        }
        mXml.open("xs:element", {{"name", id}});
        writeDocumentation(documentation);
        mXml.open("xs:complexType", {{"mixed", "true"}});
    }

    void closeElement() {
        mXml.close();
        mXml.close();
    }

    /// Whatever else stands in the element of a setting is ignored.
    void writeValue(Parameter const& parameter) {
        mXml.open("xs:sequence");
        mXml.empty("xs:any", {{"minOccurs", "0"}, {"maxOccurs", "unbounded"}, {"processContents", "skip"}});
        mXml.close();
        mXml.open("xs:attribute", {{"name", "value"}, {"use", "required"}});
        writeType(parameter);
        mXml.close();
        mXml.empty("xs:anyAttribute", {{"processContents", "skip"}});
    }

    void writeDocumentation(std::vector<std::string> const& paragraphs) {
        mXml.open("xs:annotation");
        mXml.text("xs:documentation", paragraphs);
        mXml.close();
    }

    void writeType(Parameter const& parameter) {
        auto const labels = labelsOf(parameter);
        auto const& row = rowOf(parameter.getValueType());
        bool const canSayLabels = std::ranges::all_of(labels, isXmlText);
        bool const isAnyText = !row.base && (labels.empty() || !canSayLabels);
        mXml.open("xs:simpleType");
        if (isAnyText) {
            mXml.empty("xs:restriction", {{"base", "xs:string"}});
        } else {
            mXml.open("xs:restriction", {{"base", row.base ? row.base : "xs:string"}});
            for (auto const& label : labels) {
                mXml.empty("xs:enumeration", {{"value", label}});
            }
            writeRange(parameter, row.range);
            std::ranges::for_each(row.facets, [this](char const* facet) { facet ? mXml.markup(facet) : void(); });
            mXml.close();
        }
        mXml.close();
    }

    /// XML Schema compares only whole numbers as the library does.
    void writeRange(Parameter const& parameter, WholeNumbers const& range) {
        if (range.least) {
            char const* const minimum = parameter.getMinimum();
            char const* const maximum = parameter.getMaximum();
            mXml.empty("xs:minInclusive", {{"value", withoutSpace(minimum ? minimum : range.least)}});
            mXml.empty("xs:maxInclusive", {{"value", withoutSpace(maximum ? maximum : range.most)}});
        }
    }

    XmlWriter mXml;
    std::vector<Section> mSections;
};

ExitStatus writeSchema(Call& call) {
    auto const& specification = findSpecification(call.specification);
    requireValuesFiles(specification);
    SchemaWriter(call.out).write(specification);
    return NO_ERROR_FOUND;
}

} // namespace

Work prepareSchema(CommandOptions& options, Call& call) {
    auto const ofRegistry = std::make_shared<bool>(false);
    addSpecification(options, call).require(false);
    options.addFlag("--registry", *ofRegistry, "Write the schema of registry files instead");
    return [&call, ofRegistry] {
        if (*ofRegistry == !call.specification.empty()) {
            throw CallFault("either SPEC or --registry is required");
        }
        if (*ofRegistry) {
            call.out << REGISTRY_SCHEMA;
            return NO_ERROR_FOUND;
        }
        return writeSchema(call);
    };
}

} // namespace kivoconfig
