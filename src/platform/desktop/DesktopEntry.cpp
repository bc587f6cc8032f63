#include "platform/desktop/DesktopEntry.h"

#include <algorithm>

namespace plenair {

namespace {

std::string_view WithoutBlanksAround(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t\r"), text.size());
    return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

// Value of a key in the group "Desktop Entry", as it stands in the file; empty where there is none.
std::string_view ValueOf(std::string_view entry, std::string_view key) {
    bool inGroup = false;
    while (!entry.empty()) {
        const std::size_t end = std::min(entry.find('\n'), entry.size());
        const std::string_view line = WithoutBlanksAround(entry.substr(0, end));
        entry.remove_prefix(std::min(end + 1, entry.size()));
        const std::size_t sign = line.find('=');
        if (line.starts_with('[')) {
            inGroup = line == "[Desktop Entry]";
        } else if (inGroup && sign != std::string_view::npos &&
                   WithoutBlanksAround(line.substr(0, sign)) == key) {
            return WithoutBlanksAround(line.substr(sign + 1));
        }
    }
    return {};
}

// Undoes the escapes that every text value of an entry may have.
std::string Unescaped(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] != '\\' || i + 1 == value.size()) {
            text.push_back(value[i]);
            continue;
        }
        const char letter = value[++i];
        text.push_back(letter == 's' ? ' ' : (letter == 't' ? '\t' : (letter == 'n' ? '\n' : letter)));
    }
    return text;
}

// Reads a command line with its quoting and its field codes, "%f" for the file among them.
class CommandReader {
  public:
    CommandReader(std::string_view line, const std::string& path) : m_rest(line), m_path(path) {}

    std::vector<std::string> Read();

  private:
    std::string ReadArgument(bool& quoted);
    std::string ReadQuoted();
    std::string ReadFieldCode();

    char Take() {
        const char next = m_rest.front();
        m_rest.remove_prefix(1);
        return next;
    }

    std::string_view m_rest;
    const std::string& m_path;
    bool m_pathPlaced = false;
};

std::vector<std::string> CommandReader::Read() {
    std::vector<std::string> arguments;
    while (!m_rest.empty()) {
        bool quoted = false;
        const std::string argument = ReadArgument(quoted);
        if (!argument.empty() || quoted) {
            arguments.push_back(argument);
        }
    }
    if (!arguments.empty() && !m_pathPlaced) {
        arguments.push_back(m_path);
    }
    return arguments;
}

std::string CommandReader::ReadArgument(bool& quoted) {
    std::string argument;
    while (!m_rest.empty()) {
        const char next = Take();
        if (next == ' ') {
            break;
        }
        if (next == '"') {
            quoted = true;
            argument += ReadQuoted();
        } else if (next == '%') {
            argument += ReadFieldCode();
        } else {
            argument += next;
        }
    }
    return argument;
}

std::string CommandReader::ReadQuoted() {
    std::string text;
    while (!m_rest.empty()) {
        const char next = Take();
        if (next == '"') {
            break;
        }
        text += next == '\\' && !m_rest.empty() ? Take() : next;
    }
    return text;
}

std::string CommandReader::ReadFieldCode() {
    const char code = m_rest.empty() ? '%' : Take();
    if (code == '%') {
        return "%";
    }
    if (std::string_view("fFuU").find(code) == std::string_view::npos) {
        return {}; // the icon, the translated name and the like, which no editor needs
    }
    m_pathPlaced = true;
    return m_path;
}

} // namespace

std::optional<EntryCommand> CommandOn(std::string_view entry, const std::string& path) {
    const std::string line = Unescaped(ValueOf(entry, "Exec"));
    EntryCommand command{CommandReader(line, path).Read(), ValueOf(entry, "Terminal") == "true"};
    if (command.Arguments.empty() || command.Arguments.front().empty()) {
        return std::nullopt;
    }
    return command;
}

} // namespace plenair
