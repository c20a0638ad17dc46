#include "Table.h"

#include <algorithm>
#include <utility>

#include "Text.h"

namespace orders {

TABLE::TABLE(std::initializer_list<COLUMN> columns) : mWidths(columns.size()) {
    std::vector<std::string> titles;
    for (const COLUMN& column : columns) {
        mAligns.push_back(column.align);
        titles.push_back(column.title);
    }
    AddRow(std::move(titles));
}

void TABLE::AddRow(std::vector<std::string> cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        mWidths[i] = std::max(mWidths[i], CountCharacters(cells[i]));
    }
    mRows.push_back(std::move(cells));
}

void TABLE::Write(std::ostream& out) const {
    WriteRow(out, mRows.front());
    std::vector<std::string> line;
    for (const std::size_t width : mWidths) {
        line.emplace_back(width, '-');
    }
    WriteRow(out, line);
    for (auto row = mRows.begin() + 1; row != mRows.end(); ++row) {
        WriteRow(out, *row);
    }
}

void TABLE::WriteRow(std::ostream& out, const std::vector<std::string>& cells) const {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string padding(mWidths[i] - CountCharacters(cells[i]), ' ');
        line += "  ";
        line += mAligns[i] == ALIGN::Left ? cells[i] + padding : padding + cells[i];
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
}

}  // namespace orders
