#include "platform/desktop/DesktopEntry.h"

#include <algorithm>
#include <cstddef>

namespace plenair {

namespace {

std::string_view WithoutBlanksAround(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(" \t\r"), text.size());
    return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

// Takes the text up to the next `end`, or all of it, off the front.
std::string_view TakeUpTo(char end, std::string_view& text) {
    const std::string_view taken = text.substr(0, text.find(end));
    text.remove_prefix(std::min(taken.size() + 1, text.size()));
    return taken;
}

// Value of a key in a group ("[Desktop Entry]"), as it stands in the file; empty where there is none.
std::string_view ValueOf(std::string_view file, std::string_view group, std::string_view key) {
    bool inGroup = false;
    while (!file.empty()) {
        const std::string_view line = WithoutBlanksAround(TakeUpTo('\n', file));
        const std::size_t sign = line.find('=');
        if (line.starts_with('[')) {
            inGroup = line == group;
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
        if (m_pathPlaced && arguments.size() == 1) {
            return {}; // a file of the user's is no program
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
    constexpr std::string_view kGroup = "[Desktop Entry]";
    const std::string line = Unescaped(ValueOf(entry, kGroup, "Exec"));
    EntryCommand command{CommandReader(line, path).Read(), ValueOf(entry, kGroup, "Terminal") == "true"};
    if (command.Arguments.empty() || command.Arguments.front().empty() ||
        ValueOf(entry, kGroup, "Hidden") == "true") {
        return std::nullopt;
    }
    return command;
}

std::vector<std::string> ApplicationsFor(std::string_view mimeType, const std::vector<std::string>& lists) {
    std::vector<std::string> names;
    for (const char* group : {"[Default Applications]", "[Added Associations]", "[MIME Cache]"}) {
        for (const std::string& list : lists) {
            std::string_view value = ValueOf(list, group, mimeType);
            while (!value.empty()) {
                const std::string name(WithoutBlanksAround(TakeUpTo(';', value)));
                if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
                    names.push_back(name);
                }
            }
        }
    }
    return names;
}

} // namespace plenair
