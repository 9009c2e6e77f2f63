#include "kernel/kvProcessInit.h"

#include "schema/Rule.h"

#include <algorithm>
#include <iterator>

namespace kivo::configuration {

namespace {

struct RuleName {
    Rule rule;
    char const* name;
};

constexpr RuleName RULES[] = {
    {Rule::NONE, "other"},
    {Rule::AMBIGUOUS_FLAG, "ambiguous-flag"},           // a beginning of several names
    {Rule::DEPRECATED_SETTING, "deprecated"},           // a setting that should no longer be used
    {Rule::DOUBTFUL_VALUE, "doubtful-value"},           // only by accident a text for bool or oid
    {Rule::EMPTY_ARGUMENT, "empty-argument"},           // a lone dash, or nothing
    {Rule::EMPTY_NUMBER, "empty-number"},               // an empty text for a number
    {Rule::EXCLUSIVE_SETTINGS, "exclusive-settings"},   // several alternatives of an exclusive choice
    {Rule::EXPLICIT_CONSTRAINT, "explicit-constraint"}, // an element for a group that is not a section
    {Rule::EXPOSED_SECRET, "exposed-secret"},           // a secret text where others can read it
    {Rule::FAILED_PROVIDER, "failed-provider"},         // what a provider of the caller's own throws
    {Rule::FOREIGN_FILE, "foreign-file"},               // a file for another specification
    {Rule::FORMER_NAME, "former-name"},                 // what a setting was called before
    {Rule::HELP_IN_ENVIRONMENT, "help-in-environment"}, // help for every run of the tool
    {Rule::HELP_IN_FILE, "help-in-file"},               // help for every tool that reads the file
    {Rule::INVALID_VALUE, "invalid-value"},             // a text that does not fit its type
    {Rule::INVALID_XML, "invalid-xml"},                 // a file that cannot be read
    {Rule::MISPLACED_SETTING, "misplaced-setting"},     // a setting of a section, given elsewhere
    {Rule::MISSING_FILE, "missing-file"},               // a file that is not there
    {Rule::MISSING_GROUP, "missing-group"},             // nothing given at all
    {Rule::MISSING_SECTION, "missing-section"},         // a required section
    {Rule::MISSING_SETTING, "missing-setting"},         // a required setting
    {Rule::MISSING_VALUE, "missing-value"},             // a setting, a flag or an element without its text
    {Rule::OUT_OF_RANGE, "out-of-range"},               // a number that does not keep the bounds
    {Rule::REJECTED_VALUE, "rejected-value"},           // refused by a validator
    {Rule::REPEATED_SETTING, "repeated-setting"},       // given more than once
    {Rule::SUSPICIOUS_XML, "suspicious-xml"},           // what the XML parser warns of
    {Rule::UNEXPECTED_ARGUMENT, "unexpected-argument"}, // a word that is no flag's value
    {Rule::UNKNOWN_LABEL, "unknown-label"},             // not in the enumeration
    {Rule::UNKNOWN_SECTION, "unknown-section"},         // an element that nobody knows, and what is in it
    {Rule::UNKNOWN_SETTING, "unknown-setting"},         // a flag or an attribute that nobody knows
    {Rule::UNKNOWN_VARIABLE, "unknown-variable"},       // of no setting, but with the tool's prefix
    {Rule::UNNAMED_ITEM, "unnamed-item"},               // a value or a group without a name
    {Rule::WRONG_KIND, "wrong-kind"},                   // a setting where a section belongs, or the other way round

    {Rule::DIFFERENT_NAME, "different-name"},                   // an id and a name that differ
    {Rule::DOUBTFUL_BOOLEAN, "doubtful-boolean"},               // neither true nor false
    {Rule::INVALID_REGISTRY, "invalid-registry"},               // a declaration that is refused
    {Rule::LETTER_CASE, "letter-case"},                         // an id that is written in two ways
    {Rule::REPEATED_NAME, "repeated-name"},                     // two items of one name in a container
    {Rule::REQUIRED_DEPRECATED, "required-deprecated"},         // a setting that has to be given, but should not
    {Rule::REQUIRED_HIDDEN, "required-hidden"},                 // a setting that has to be given, but is not shown
    {Rule::SIGNED_NUMBER, "signed-number"},                     // negative values that the plain style cannot give
    {Rule::SLOW_FILE, "slow-file"},                             // a file that is not plain XML
    {Rule::UNCHECKED_SPECIFICATION, "unchecked-specification"}, // too large to look at
    {Rule::UNKNOWN_ATTRIBUTE, "unknown-attribute"},             // not read
    {Rule::UNREAD_ELEMENT, "unread-element"},                   // what stands where nothing is read
    {Rule::UNREAD_FILE, "unread-file"},                         // a file that is not loaded
    {Rule::UNUSABLE_FLAG, "unusable-flag"},                     // the beginning of another setting's name
    {Rule::UNUSED_PARAMETER, "unused-parameter"},               // in no specification
    {Rule::UNWRITABLE_NAME, "unwritable-name"},                 // no XML name
};

} // namespace

char const* nameOf(Rule rule) noexcept {
    auto const* const found = std::ranges::find(RULES, rule, &RuleName::rule);
    return found == std::end(RULES) ? RULES[0].name : found->name;
}

} // namespace kivo::configuration
