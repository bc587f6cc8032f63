#pragma once

#include <string>
#include <vector>

// A table as other programs take it from the clipboard. UTF-8 text; the first row is the heading.
namespace plenair {

using TableRows = std::vector<std::vector<std::string>>;

// Text with the signs of HTML and XML in it written so that they stand for themselves.
std::string EscapedForMarkup(const std::string& text);

// A line for each row, its cells divided by tabs, as a spreadsheet takes it cell by cell.
std::string TabSeparated(const TableRows& table);

// A page of HTML with the table; numbers stand at the right of their cells.
std::string HtmlTable(const TableRows& table);

} // namespace plenair
