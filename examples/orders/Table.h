/// Columns of text.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

namespace orders {

/// A table whose columns are as wide as their longest cell, counted in characters.
class TABLE {
public:
    enum class ALIGN { Left, Right };
    struct COLUMN {
        std::string title;
        ALIGN align;
    };

    TABLE(std::initializer_list<COLUMN> columns);

    /// As many cells as there are columns.
    void AddRow(std::vector<std::string> cells);
    /// Titles, a line, and the rows.
    void Write(std::ostream& out) const;

private:
    void WriteRow(std::ostream& out, const std::vector<std::string>& cells) const;

    std::vector<ALIGN> mAligns;
    std::vector<std::size_t> mWidths;
    std::vector<std::vector<std::string>> mRows;  // the first one holds the titles
};

}  // namespace orders
