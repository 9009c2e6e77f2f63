#include "kernel/kvProcessInit.h"

#include "inspection/ValueRemarks.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueVisitor.h>

#include "inspection/InspectionPipeline.h"
#include "inspection/Masking.h"
#include "schema/FaultCollection.h"
#include "schema/NameSuggestion.h"
#include "schema/QuotedText.h"
#include "schema/SecretMask.h"
#include "values/ValueChecks.h"

#include <algorithm>
#include <limits>

namespace kivo::configuration {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// Digits only, and not too many.
bool isNumberUpTo(std::string_view text, unsigned long most) {
    return !text.empty() && text.size() <= 10 && std::ranges::all_of(text, isDigit) &&
           std::stoul(std::string(text)) <= most;
}

/// "true", "false", or a number that an int can hold.
bool isPlainBoolean(std::string_view text) {
    bool const hasSign = text.starts_with('-') || text.starts_with('+');
    return equalIgnoringCase(text, "true") || equalIgnoringCase(text, "false") ||
           isNumberUpTo(text.substr(hasSign ? 1 : 0), std::numeric_limits<int>::max());
}

/// Four unsigned numbers joined by hyphens, with or without "#" in front, and white space after them.
bool isPlainOid(std::string_view text) {
    text.remove_prefix(text.starts_with('#') ? 1 : 0);
    text = text.substr(0, text.find_last_not_of(" \t\n\v\f\r") + 1);
    for (int i = 0; i < 3; ++i) {
        auto const hyphen = text.find('-');
        if (hyphen == std::string_view::npos ||
            !isNumberUpTo(text.substr(0, hyphen), std::numeric_limits<unsigned int>::max())) {
            return false;
        }
        text.remove_prefix(hyphen + 1);
    }
    return isNumberUpTo(text, std::numeric_limits<unsigned int>::max());
}

std::string findLabel(ParameterEnumDefinition const& labels, std::string const& text) {
    ClosestName closest(text);
    for (unsigned long i = 0; i < labels.getNumberOfSymbols(); ++i) {
        closest.offer(labels.getSymbol(i));
    }
    return closest.get() ? closest.get() : "";
}

/// A text that is read, and where it was given.
struct Text {
    Parameter const& parameter;
    std::string const& text;
    StoredOrigin const& origin;
};

void remarkOnLabel(FindingList& findings, Text const& text, Finding::Severity severity) {
    auto const* labels =
        text.parameter.getValueType() == Parameter::ENUM_PARAMETER ? text.parameter.getEnumDefinition() : nullptr;
    if (!labels) {
        return;
    }
    try {
        labels->getValue(text.text.c_str());
    } catch (ConfigurationException const& exception) {
        bool const isSecret = text.parameter.isSensitive();
        findings.add(severity, Rule::UNKNOWN_LABEL, exception.what(), text.origin,
                     findings.wantsSuggestion() && !isSecret ? findLabel(*labels, text.text) : std::string(),
                     isSecret ? std::string("symbol \"") + SECRET_MASK + "\" was not found" : std::string());
    }
}

/// What a text is read as that is accepted, but not meant as anything; empty when there is nothing to say.
std::string composeRemark(Text const& text) {
    auto const type = text.parameter.getValueType();
    auto const shown = text.parameter.getName() + (": \"" + maskedText(text.parameter, text.text)) + "\"";
    switch (type) {
    case Parameter::INT_PARAMETER:
    case Parameter::UINT_PARAMETER:
    case Parameter::DOUBLE_PARAMETER: return text.text.empty() ? shown + " reads as 0" : "";
    case Parameter::BOOLEAN_PARAMETER:
        if (!isPlainBoolean(text.text)) {
            if (text.parameter.isSensitive()) {
                return shown + " is a boolean only by accident"; // how it reads is secret, too
            }
            bool const reading = ParameterValue(&text.parameter, text.text.c_str()).getBooleanValue(0);
            return shown + " reads as " + (reading ? "true" : "false");
        }
        return {};
    case Parameter::OID_PARAMETER: return isPlainOid(text.text) ? "" : shown + " is an OID only by accident";
    default: return {};
    }
}

void remarkOnMeaning(FindingList& findings, Text const& text) {
    if (auto const remark = composeRemark(text); !remark.empty()) {
        bool const isNumber = text.text.empty() && text.parameter.getValueType() != Parameter::BOOLEAN_PARAMETER;
        findings.add(Finding::WARNING_SEVERITY, isNumber ? Rule::EMPTY_NUMBER : Rule::DOUBTFUL_VALUE, remark,
                     text.origin);
    }
}

/// A request checks the texts that win, finding them by the name of their parameter.
bool isCheckedByRequest(GivenItem const& item) {
    return item.wins && equalIgnoringCase(item.parameter->getName(), item.parameter->getId());
}

/// @return whether the text passes
bool check(InspectionPipeline& pipeline, GivenItem const& item) {
    ParameterErrors faults;
    runOrCollect(&faults, Rule::REJECTED_VALUE, item.origin, [&] {
        ParameterValue value(item.parameter, item.isPresent ? item.text->c_str() : nullptr);
        value.setStoredOrigin(0, item.origin);
        checkValue(&value, item.parameter->getValueType(), faults, item.parameter->getValidator());
    });
    pipeline.takeWarnings(faults);
    return faults.getNumberOfErrors() == 0;
}

void remarkOnPlace(FindingList& findings, GivenItem const& item) {
    auto const section = item.meant.substr(0, item.meant.rfind('.'));
    findings.add(Finding::WARNING_SEVERITY, Rule::MISPLACED_SETTING,
                 quoted(item.id) + " belongs in the section " + quoted(section) +
                     "; given outside it, it has no effect",
                 item.origin, findings.wantsSuggestion() ? item.meant : std::string());
}

/// Looks at the defaults that are read.
class DefaultLabels final : public ParameterValueVisitor {
public:
    explicit DefaultLabels(FindingList& findings) : ParameterValueVisitor(false), mFindings(findings) {}

    bool visitParameterValue(ParameterValue& value) override {
        char const* const text = value.isUsingDefaultValue() ? value.getValue(0, true) : nullptr;
        if (auto const* parameter = value.getParameter(); text && parameter) {
            remarkOnLabel(mFindings, {*parameter, text, value.getStoredOrigin(0)}, Finding::ERROR_SEVERITY);
        }
        return true;
    }

private:
    FindingList& mFindings;
};

} // namespace

void remarkOnValues(InspectionPipeline& pipeline) {
    auto& findings = pipeline.getFindings();
    for (auto const& item : pipeline.getItems().get()) {
        if (!item.parameter || !item.section || pipeline.isFaulty(item.origin)) {
            continue;
        }
        if (!item.meant.empty()) {
            remarkOnPlace(findings, item);
        }
        if ((!isCheckedByRequest(item) && !check(pipeline, item)) || !item.text) {
            continue;
        }
        Text const text{*item.parameter, *item.text, item.origin};
        remarkOnLabel(findings, text, item.wins ? Finding::ERROR_SEVERITY : Finding::WARNING_SEVERITY);
        if (item.isPresent) {
            remarkOnMeaning(findings, text);
        }
    }
    DefaultLabels labels(findings);
    pipeline.getResult().accept(labels);
}

} // namespace kivo::configuration
