#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

namespace plenair {

// A new empty folder that vanishes with the object.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        if (mkdtemp(m_path.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& Path() const { return m_path; }
    std::string File(const std::string& name) const { return m_path + "/" + name; }
    std::set<std::string> Names() const { // of what is in it
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
            names.insert(entry.path().filename());
        }
        return names;
    }

  private:
    std::string m_path = std::filesystem::temp_directory_path() / "plenair-XXXXXX";
};

inline std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline void WriteFile(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

} // namespace plenair
