#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kivoconfig {

/// Rows of texts, the columns aligned and two blanks apart. A text that is much longer than usual moves what follows it
/// in its row only.
class Columns {
public:
    /// @param texts UTF-8, printable
    void addRow(std::vector<std::string> texts);
    /// Writes all rows, each a line, in the local character set.
    void write(std::ostream& out) const;

private:
    std::vector<std::vector<std::string>> mRows;
};

} // namespace kivoconfig
