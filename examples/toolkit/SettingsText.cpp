#include "toolkit/SettingsText.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ValueGroup.h>
#include <configuration/ValueGroupIterator.h>

#include <iomanip>
#include <sstream>

using namespace kivo::configuration;

namespace toolkit {

namespace {

constexpr int NAME_WIDTH = 12;

std::string quoted(char const* text) { return text ? '"' + std::string(text) + '"' : "nothing"; }

// The text that `value` stands on, read by the accessor of its type.
void writeText(std::ostream& out, Parameter::ValueType type, ValueIterator const& value) {
    switch (type) {
    case Parameter::BOOLEAN_PARAMETER: out << (value.asBoolean() ? "yes" : "no"); break;
    case Parameter::STRING_PARAMETER: out << quoted(value.asString()); break;
    case Parameter::INT_PARAMETER: out << value.asInteger(); break;
    case Parameter::UINT_PARAMETER: out << value.asUnsignedInteger(); break;
    case Parameter::DOUBLE_PARAMETER: out << value.asDouble(); break;
    case Parameter::LONG_PARAMETER: out << value.asLong(); break;
    case Parameter::ULONG_PARAMETER: out << value.asUnsignedLong(); break;
    case Parameter::SIZE_PARAMETER: out << value.asUnsignedLong() << " bytes"; break;
    case Parameter::DURATION_PARAMETER: out << value.asLong() << " ms"; break;
    case Parameter::OID_PARAMETER: // has no accessor of its own
        out << quoted(value.getParameterValue()->getValue(value.getCurrentValueIndex(), false));
        break;
    case Parameter::ENUM_PARAMETER: {
        int const number = value.asInteger(); // throws unless the text is one of the labels
        out << value.getParameterValue()->getValue(value.getCurrentValueIndex(), false) << " (" << number << ')';
        break;
    }
    }
}

class SettingsText {
public:
    void addItems(ParameterGroup const& group, ValueGroup const& values) {
        for (unsigned long i = 0; i < group.getNumberOfItems(); ++i) {
            ParameterItem const& item = *group.getItem(i);
            if (item.getItemType() == ParameterItem::PARAMETER) {
                addParameter(static_cast<Parameter const&>(item), values);
            } else {
                addGroup(static_cast<ParameterGroup const&>(item), values);
            }
        }
    }

    std::string text() const { return mOut.str(); }

private:
    void addParameter(Parameter const& parameter, ValueGroup const& values) {
        mOut << mIndent << std::left << std::setw(NAME_WIDTH) << parameter.getName() << ' ';
        ValueIterator value = values.getValueIterator(parameter.getName());
        if (value.isNull()) {
            mOut << '-';
        }
        for (char const* separator = ""; value.next(); separator = ", ") {
            mOut << separator;
            writeText(mOut, parameter.getValueType(), value);
        }
        mOut << (value.isDefaultValue() ? "  [default]\n" : "\n");
    }

    void addGroup(ParameterGroup const& group, ValueGroup const& values) {
        if (group.getGroupType() == ParameterGroup::CONSTRAINT) {
            addItems(group, values); // a constraint adds no level to the values
            return;
        }
        // A container that does not repeat occurs once.
        ValueGroupIterator occurrence = values.getValueGroupIterator(group.getId());
        while (occurrence.next()) {
            mOut << mIndent << group.getName() << '\n';
            mIndent += "    ";
            addItems(group, occurrence);
            mIndent.resize(mIndent.size() - 4);
        }
    }

    std::ostringstream mOut;
    std::string mIndent;
};

} // namespace

std::string describeSettings(ParameterGroup const& group, ValueGroup const& values) {
    SettingsText text;
    text.addItems(group, values);
    return text.text();
}

} // namespace toolkit
