#include "kernel/kvProcessInit.h"

#include <configuration/InspectionReport.h>

#include "inspection/EscapedText.h"
#include "schema/ContractChecks.h"
#include "text/ColumnText.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <unordered_set>

namespace kivo::configuration {

namespace {

/// A file with a place comes first, then the arguments, then what has no place.
int rankOf(Origin const& origin) {
    if (origin.getLine() > 0 || origin.getSource() == Origin::FILE_SOURCE) {
        return 0;
    }
    return origin.getSource() == Origin::COMMAND_LINE_SOURCE ? 1 : 2;
}

/// A message without the line ends at its end: those of validators have some.
std::string_view withoutLineEnd(std::string_view message) {
    auto const last = message.find_last_not_of("\r\n");
    return message.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

std::string composeLine(Finding const& finding) {
    auto line = escape(finding.getOrigin().toString());
    line.append(line.empty() ? "" : ": ");
    line.append(finding.getSeverity() == Finding::ERROR_SEVERITY ? "error: " : "warning: ");
    line.append(escape(withoutLineEnd(finding.getMessage())))
        .append(" [")
        .append(escape(finding.getRule()))
        .append("]");
    if (char const* suggestion = finding.getSuggestion()) {
        line.append("; did you mean \"").append(escape(suggestion)).append("\"?");
    }
    return line.append("\n");
}

/// A finding with what it is sorted by.
struct Row {
    Finding finding;
    Origin origin;
    std::string file; // empty where the place is not in a file
    std::string line; // that shows it

    explicit Row(Finding const& each)
        : finding(each),
          origin(each.getOrigin()),
          file(rankOf(origin) == 0 ? origin.getName() : ""),
          line(composeLine(each)) {}

    auto place() const {
        return std::make_tuple(rankOf(origin), std::string_view(file), origin.getLine(), origin.getColumn(),
                               origin.getArgument());
    }
};

/// The findings in their order, each once.
std::vector<Row> sortedRows(std::vector<Finding> const& findings) {
    std::vector<Row> rows(findings.begin(), findings.end());
    std::ranges::stable_sort(rows, [](Row const& a, Row const& b) { return a.place() < b.place(); });
    std::unordered_set<std::string> lines;
    std::erase_if(rows, [&](Row const& row) { return !lines.insert(row.line).second; });
    return rows;
}

std::ptrdiff_t count(std::vector<Row> const& rows, Finding::Severity severity) {
    return std::ranges::count_if(rows, [=](Row const& row) { return row.finding.getSeverity() == severity; });
}

std::string composeCount(std::ptrdiff_t count, std::string const& noun) {
    return count == 0 ? std::string() : std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// Stands for an entry without a text.
constexpr char const* NO_TEXT = "(no text)";

/// A line of a setting's chain.
struct ChainLine {
    std::string origin;
    std::string text;
    char const* verdict;

    explicit ChainLine(InspectedText const& each)
        : origin(escape(each.getOrigin().toString())),
          text(each.getText() ? escape(each.getText()) : NO_TEXT),
          verdict(InspectedText::getVerdictName(each.getVerdict())) {}
};

/// What is wider than this does not widen its column: one long text would make all other lines as long.
constexpr std::size_t MAX_COLUMN_WIDTH = 120;

std::size_t columnWidth(std::vector<ChainLine> const& lines, std::string ChainLine::*column) {
    std::size_t width = 0;
    for (auto const& line : lines) {
        auto const own = columnsOf(line.*column);
        width = own <= MAX_COLUMN_WIDTH ? std::max(width, own) : width;
    }
    return width;
}

std::string padded(std::string const& text, std::size_t width) {
    auto const own = columnsOf(text);
    return text + std::string(own < width ? width - own : 0, ' ');
}

std::vector<ChainLine> chainOf(InspectedSetting const& setting) {
    std::vector<ChainLine> chain;
    for (unsigned long i = 0; i < setting.getNumberOfValues(); ++i) {
        chain.emplace_back(setting.getValue(i));
    }
    for (unsigned long i = 0; i < setting.getNumberOfAlternatives(); ++i) {
        chain.emplace_back(setting.getAlternative(i));
    }
    return chain;
}

/// The texts that a tool reads, one after the other. @param absent stands for an entry without a text
std::string joinValues(InspectedSetting const& setting, char const* separator, char const* absent) {
    std::string text;
    for (unsigned long i = 0; i < setting.getNumberOfValues(); ++i) {
        auto const value = setting.getValue(i);
        text.append(i > 0 ? separator : "").append(value.getText() ? escape(value.getText()) : absent);
    }
    return text;
}

} // namespace

std::string composeExplanation(InspectedSetting const& setting) {
    auto text = escape(setting.getName());
    if (setting.getNumberOfValues() > 0) {
        text.append(" = ").append(joinValues(setting, ", ", NO_TEXT));
    }
    text.append("\n");
    auto const chain = chainOf(setting);
    auto const originWidth = columnWidth(chain, &ChainLine::origin);
    auto const textWidth = columnWidth(chain, &ChainLine::text);
    for (auto const& line : chain) {
        text.append("    ").append(padded(line.origin, originWidth)).append("  ");
        text.append(padded(line.text, textWidth)).append("  ").append(line.verdict).append("\n");
    }
    return text;
}

std::string composeExplanation(Inspection const& inspection, bool onlyChanged) {
    std::string text;
    for (auto const& setting : inspection.getSettings()) {
        if (!onlyChanged || setting.isGiven()) {
            text.append(composeExplanation(setting));
        }
    }
    return text.append(composeFindings(inspection.getFindings()));
}

std::string composeValues(InspectedSetting const& setting) {
    auto text = joinValues(setting, "\n", "");
    return setting.getNumberOfValues() > 0 ? text.append("\n") : text;
}

std::string escapeText(char const* text) {
    KIVO_REQUIRE(text != 0);
    return escape(text);
}

std::vector<Finding> sortFindings(std::vector<Finding> const& findings) {
    std::vector<Finding> sorted;
    for (auto const& row : sortedRows(findings)) {
        sorted.push_back(row.finding);
    }
    return sorted;
}

std::string composeFindings(std::vector<Finding> const& findings) {
    std::string text;
    auto const rows = sortedRows(findings);
    for (auto const& row : rows) {
        text.append(row.line);
    }
    auto const errors = composeCount(count(rows, Finding::ERROR_SEVERITY), "error");
    auto const warnings = composeCount(count(rows, Finding::WARNING_SEVERITY), "warning");
    if (!text.empty()) {
        text.append(errors).append(errors.empty() || warnings.empty() ? "" : ", ").append(warnings).append("\n");
    }
    return text;
}

int getExitStatus(std::vector<Finding> const& findings, bool warningsAreFatal) {
    bool const hasError = std::ranges::find(findings, Finding::ERROR_SEVERITY, &Finding::getSeverity) != findings.end();
    return hasError || (warningsAreFatal && !findings.empty()) ? 1 : 0;
}

} // namespace kivo::configuration
