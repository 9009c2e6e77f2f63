#pragma once

namespace kivo::configuration {

/// What a fault breaks, or what a finding is about: one value for each kind of message. nameOf() gives the word for it.
enum class Rule : unsigned char {
    NONE, ///< nobody said; whoever collected the fault knows
    AMBIGUOUS_FLAG,
    DEPRECATED_SETTING,
    DOUBTFUL_VALUE,
    EMPTY_ARGUMENT,
    EMPTY_NUMBER,
    EXCLUSIVE_SETTINGS,
    EXPLICIT_CONSTRAINT,
    EXPOSED_SECRET,
    FAILED_PROVIDER,
    FOREIGN_FILE,
    FORMER_NAME,
    HELP_IN_ENVIRONMENT,
    HELP_IN_FILE,
    INVALID_VALUE,
    INVALID_XML,
    MISPLACED_SETTING,
    MISSING_FILE,
    MISSING_GROUP,
    MISSING_SECTION,
    MISSING_SETTING,
    MISSING_VALUE,
    OUT_OF_RANGE,
    REJECTED_VALUE,
    REPEATED_SETTING,
    SUSPICIOUS_XML,
    UNEXPECTED_ARGUMENT,
    UNKNOWN_LABEL,
    UNKNOWN_SECTION,
    UNKNOWN_SETTING,
    UNKNOWN_VARIABLE,
    UNNAMED_ITEM,
    WRONG_KIND,

    // Of registry files.
    DIFFERENT_NAME,
    DOUBTFUL_BOOLEAN,
    INVALID_REGISTRY,
    LETTER_CASE,
    REPEATED_NAME,
    REQUIRED_DEPRECATED,
    REQUIRED_HIDDEN,
    SIGNED_NUMBER,
    SLOW_FILE,
    UNCHECKED_SPECIFICATION,
    UNKNOWN_ATTRIBUTE,
    UNREAD_ELEMENT,
    UNREAD_FILE,
    UNUSABLE_FLAG,
    UNUSED_PARAMETER,
    UNWRITABLE_NAME
};

/// The name of a rule as users read it, such as "unknown-setting".
char const* nameOf(Rule rule) noexcept;

} // namespace kivo::configuration
