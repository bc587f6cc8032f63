#include "platform/text/TableText.h"

#include "platform/text/NumberText.h"

#include <optional>

namespace plenair {

std::string EscapedForMarkup(const std::string& text) {
    std::string html;
    for (const char character : text) {
        switch (character) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        default:
            html += character;
        }
    }
    return html;
}

std::string TabSeparated(const TableRows& table) {
    std::string text;
    for (const auto& row : table) {
        const char* separator = "";
        for (const std::string& cell : row) {
            text.append(separator).append(cell);
            separator = "\t";
        }
        text += '\n';
    }
    return text;
}

std::string HtmlTable(const TableRows& table) {
    std::string html = "<html><head><meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">"
                       "</head><body><table border=\"1\" cellspacing=\"0\">\n";
    std::string tag = "th";
    for (const auto& row : table) {
        html += "<tr>";
        for (const std::string& cell : row) {
            html.append("<").append(tag).append(NumberFromText(cell) ? " align=\"right\">" : ">");
            html.append(EscapedForMarkup(cell)).append("</").append(tag).append(">");
        }
        html += "</tr>\n";
        tag = "td";
    }
    return html + "</table></body></html>\n";
}

} // namespace plenair
