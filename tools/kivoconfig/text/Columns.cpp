#include "text/Columns.h"

#include "text/Characters.h"
#include "text/CodePage.h"

#include <algorithm>

namespace kivoconfig {

namespace {

constexpr std::size_t WIDEST = 60; // what is wider does not count for its column

} // namespace

void Columns::addRow(std::vector<std::string> texts) { mRows.push_back(std::move(texts)); }

void Columns::write(std::ostream& out) const {
    std::vector<std::size_t> widths;
    for (auto const& row : mRows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            auto const width = countCharacters(row[i]);
            widths[i] = width > WIDEST ? widths[i] : std::max(widths[i], width);
        }
    }
    for (auto const& row : mRows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            auto const width = countCharacters(row[i]);
            auto const padding = i + 1 == row.size() ? 0 : std::max(widths[i], width) - width + 2;
            out << toLocal(row[i]) << std::string(padding, ' ');
        }
        out << '\n';
    }
}

} // namespace kivoconfig
