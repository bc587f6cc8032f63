#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <string_view>

// The items of a file one by one, read in the plainest way.
class PlainReader {
  public:
    explicit PlainReader(std::string_view text, bool quotesAreDoubled = false)
        : m_rest(text), m_quotesAreDoubled(quotesAreDoubled) {}

    bool AtEnd() const { return m_rest.empty(); }

    std::string Text() {
        SkipBlanks();
        std::string item;
        if (m_rest.starts_with('"')) {
            Take(1);
            item = Take(m_rest.find('"'));
            while (m_quotesAreDoubled && m_rest.starts_with("\"\"")) {
                Take(2);
                item += '"' + std::string(Take(m_rest.find('"')));
            }
            Take(1);
        } else {
            item = Take(m_rest.find_first_of(",\r\n"));
            item = item.substr(0, item.find_last_not_of(" \t") + 1);
        }
        SkipSeparator();
        return item;
    }

    // What is no number is 0. False where it is too large for its field.
    bool Number(bool isSingle, double& value) {
        SkipBlanks();
        const std::string item(Take(m_rest.find_first_of(", \t\r\n")));
        SkipSeparator();
        char* end = nullptr;
        const double read =
            isSingle ? static_cast<double>(std::strtof(item.c_str(), &end)) : std::strtod(item.c_str(), &end);
        if (!item.empty() && item.find_first_not_of("0123456789.eE+-") == item.npos && *end == '\0') {
            value = std::isfinite(read) ? read : 0;
            return std::isfinite(read);
        }
        return true;
    }

  private:
    std::string_view Take(std::size_t count) {
        const std::string_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    void SkipBlanks() { Take(std::min(m_rest.find_first_not_of(" \t"), m_rest.size())); }

    void SkipSeparator() {
        SkipBlanks();
        Take(m_rest.starts_with("\r\n") ? 2 : m_rest.find_first_of(",\r\n") == 0 ? 1 : 0);
    }

    std::string_view m_rest;
    bool m_quotesAreDoubled;
};
