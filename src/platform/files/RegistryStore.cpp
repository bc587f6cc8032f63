#include "platform/files/RegistryStore.h"

#include "platform/files/Descriptor.h"
#include "platform/files/FileFailure.h"
#include "platform/files/Folders.h"
#include "platform/files/ItemReader.h"
#include "platform/files/WholeFiles.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

// The file holds items, in rows of three kinds:
//
//     "key","Software\Company"                the path of a key, from the root down
//     "value","Month",1,313232303236          a value of the key above it: name, type, bytes as hex digits
//     "end"                                   without it the file is not whole
//
// It is read anew at each opening and at each change, so that two running programs see each other's values. A
// key that was opened keeps the values that it had then, up to its first change: reading one takes one look
// at the file.
namespace plenair {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestName = 4'096;  // of a value, or of a key with those above it
constexpr std::size_t kLongestData = 32'768; // twice as many digits are the longest item that can be read
constexpr std::size_t kLargestStore = 1'048'576;

struct Value {
    std::string Name;
    std::uint32_t Type = 0;
    std::string Data;
};

using Values = std::map<std::string, Value>; // by folded name

struct Key {
    std::string Path;
    plenair::Values Values;
};

// All keys by folded path. The root has the empty path and is always there; a key stands ahead of those
// below it.
using Store = std::map<std::string, Key>;

std::string& RegistryFile() {
    static std::string s_file;
    return s_file;
}

struct OpenKey {
    std::string Path;
    std::optional<Values> AsOpened;
};

// Numbers are never used twice.
std::map<RegistryKey, OpenKey>& OpenKeys() {
    static std::map<RegistryKey, OpenKey> s_keys;
    return s_keys;
}

// Names are the same whatever the case of their letters.
std::string Folded(std::string name) {
    for (char& byte : name) {
        if (byte >= 'A' && byte <= 'Z') {
            byte = static_cast<char>(byte - 'A' + 'a');
        }
    }
    return name;
}

std::string HexOf(const std::string& data) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    for (const char byte : data) {
        hex.push_back(kDigits[static_cast<unsigned char>(byte) >> 4U]);
        hex.push_back(kDigits[static_cast<unsigned char>(byte) & 15U]);
    }
    return hex;
}

void RequireWhole(bool isWhole) {
    if (!isWhole) {
        throw ContentFailure();
    }
}

std::uint32_t ParseNumber(std::string_view text, int base) {
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, number, base);
    RequireWhole(parsed.ec == std::errc() && parsed.ptr == end);
    return number;
}

std::string ParseHex(std::string_view hex) {
    RequireWhole(hex.size() % 2 == 0);
    std::string data;
    for (; !hex.empty(); hex.remove_prefix(2)) {
        data.push_back(static_cast<char>(ParseNumber(hex.substr(0, 2), 16)));
    }
    return data;
}

Store EmptyStore() {
    return {{"", Key{}}};
}

Store ParseStore(ItemReader& reader) {
    Store store = EmptyStore();
    Key* key = &store[""];
    for (std::string kind = reader.ReadText(); kind != "end"; kind = reader.ReadText()) {
        if (kind == "key") {
            const std::string path = reader.ReadText();
            key = &store[Folded(path)];
            key->Path = path;
        } else {
            RequireWhole(kind == "value");
            Value value;
            value.Name = reader.ReadText();
            value.Type = ParseNumber(reader.ReadNumberText(), 10);
            value.Data = ParseHex(reader.ReadNumberText());
            key->Values[Folded(value.Name)] = value;
        }
    }
    RequireWhole(reader.AtEnd());
    return store;
}

// What the file holds; a missing or damaged one is an empty store. Throws FileFailure if it can't be read:
// what it holds may be whole, and must not be lost at the next write.
Store LoadStore() {
    std::error_code error;
    if (fs::status(RegistryFile(), error).type() == fs::file_type::not_found) {
        return EmptyStore();
    }
    ItemReader reader(RegistryFile(), Quotes::Doubled);
    const std::uintmax_t size = fs::file_size(RegistryFile(), error);
    if (error) {
        Fail(RegistryFile(), error.value());
    }
    if (size > kLargestStore) {
        return EmptyStore();
    }
    try {
        return ParseStore(reader);
    } catch (const ContentFailure&) {
        return EmptyStore();
    }
}

// Throws FileFailure, also where the store would become too large to be read again.
void SaveStore(const Store& store) {
    std::string content;
    for (const auto& [foldedPath, key] : store) {
        content += Quoted("key") + "," + Quoted(key.Path) + "\r\n";
        for (const auto& [foldedName, value] : key.Values) {
            content += Quoted("value") + "," + Quoted(value.Name) + "," + std::to_string(value.Type) + "," +
                       HexOf(value.Data) + "\r\n";
        }
    }
    content += Quoted("end") + "\r\n";
    if (content.size() > kLargestStore) {
        throw FileFailure(RegistryFile() + ": Full");
    }
    WriteWholeFile(RegistryFile(), content);
}

// Keeps other programs from changing the store until the end of a scope, so that of two that read it, change
// it and write it, none overwrites what the other has set. The folder is locked, since each write makes a new
// file. A file system without locks is no reason not to write, nor is a program that was stopped while it
// held the lock.
class StoreLock {
  public:
    StoreLock() {
        const std::string folder = fs::path(RegistryFile()).parent_path().string();
        MakePrivateFolder(folder);
        m_folder = Descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        for (int tries = 0; tries < kPatience && IsTaken(); ++tries) {
            ::usleep(10'000);
        }
    }

  private:
    bool IsTaken() const {
        return ::flock(m_folder.Number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    }

    static constexpr int kPatience = 500; // hundredths of a second
    Descriptor m_folder;
};

// Runs an operation on the store; whatever the file's trouble is, the caller sees one code.
template <typename Operation>
RegistryStatus OnStore(Operation operation) {
    if (RegistryFile().empty()) {
        return ERROR_ACCESS_DENIED;
    }
    try {
        return operation();
    } catch (const FileFailure&) {
        return ERROR_ACCESS_DENIED;
    }
}

// The path of a root or of an open key; null if it is neither.
const std::string* PathOf(RegistryKey key) {
    static const std::string kRoot;
    if (key == HKEY_CURRENT_USER) {
        return &kRoot;
    }
    const auto found = OpenKeys().find(key);
    return found == OpenKeys().end() ? nullptr : &found->second.Path;
}

// The paths of the keys on the way from `path` down to its sub-key, both included. Backslashes that stand at
// an end or side by side part nothing.
std::vector<std::string> PathsDown(const std::string& path, std::string_view subKey) {
    std::vector<std::string> paths{path};
    while (!subKey.empty()) {
        const std::string_view name = subKey.substr(0, subKey.find('\\'));
        subKey.remove_prefix(std::min(name.size() + 1, subKey.size()));
        if (!name.empty()) {
            const std::string& above = paths.back();
            paths.push_back((above.empty() ? "" : above + "\\").append(name));
        }
    }
    return paths;
}

void AddMissing(Store& store, const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        store.try_emplace(Folded(path), Key{path, {}});
    }
}

RegistryKey NewHandle(std::string path, std::optional<Values> asOpened) {
    static RegistryKey s_last = 0;
    OpenKeys()[++s_last] = {std::move(path), std::move(asOpened)};
    return s_last;
}

// The values of a root or of an open key; none where it is gone.
Values ValuesOf(RegistryKey key) {
    const auto open = OpenKeys().find(key);
    if (open != OpenKeys().end() && open->second.AsOpened) {
        return *open->second.AsOpened;
    }
    const Store store = LoadStore();
    const auto found = store.find(Folded(*PathOf(key)));
    return found == store.end() ? Values() : found->second.Values;
}

} // namespace

RegistryStatus RegOpenKeyExA(RegistryKey root, const std::string& subKey, std::uint32_t /*reserved*/,
                             std::uint32_t /*access*/, RegistryKey& result) {
    result = 0;
    const std::string* rootPath = PathOf(root);
    if (rootPath == nullptr) {
        return ERROR_INVALID_HANDLE;
    }
    return OnStore([&] {
        const Store store = LoadStore();
        const std::string path = PathsDown(*rootPath, subKey).back();
        const auto found = store.find(Folded(path));
        if (found == store.end()) {
            return ERROR_FILE_NOT_FOUND;
        }
        result = NewHandle(path, found->second.Values);
        return ERROR_SUCCESS;
    });
}

RegistryStatus RegCreateKeyExA(RegistryKey root, const std::string& subKey, std::uint32_t /*reserved*/,
                               std::uint32_t /*options*/, std::uint32_t /*access*/, RegistryKey& result) {
    result = 0;
    const std::string* rootPath = PathOf(root);
    if (rootPath == nullptr) {
        return ERROR_INVALID_HANDLE;
    }
    if (rootPath->size() + subKey.size() > kLongestName) {
        return ERROR_ACCESS_DENIED;
    }
    return OnStore([&] {
        const StoreLock lock;
        Store store = LoadStore();
        const std::size_t oldCount = store.size();
        const std::vector<std::string> paths = PathsDown(*rootPath, subKey);
        AddMissing(store, paths);
        if (store.size() > oldCount) {
            SaveStore(store);
        }
        result = NewHandle(paths.back(), std::nullopt);
        return ERROR_SUCCESS;
    });
}

RegistryStatus RegQueryValueExA(RegistryKey key, const std::string& valueName, std::uint32_t& type,
                                unsigned char* data, std::uint32_t& size) {
    if (PathOf(key) == nullptr) {
        return ERROR_INVALID_HANDLE;
    }
    return OnStore([&] {
        const Values values = ValuesOf(key);
        const auto found = values.find(Folded(valueName));
        if (found == values.end()) {
            return ERROR_FILE_NOT_FOUND;
        }
        const Value& value = found->second;
        const auto room = static_cast<std::size_t>(size);
        type = value.Type;
        size = static_cast<std::uint32_t>(value.Data.size());
        if (data == nullptr) {
            return ERROR_SUCCESS;
        }
        std::copy_n(value.Data.begin(), std::min(room, value.Data.size()), data);
        return room < value.Data.size() ? ERROR_MORE_DATA : ERROR_SUCCESS;
    });
}

RegistryStatus RegSetValueExA(RegistryKey key, const std::string& valueName, std::uint32_t type,
                              const unsigned char* data, std::uint32_t size) {
    const std::string* path = PathOf(key);
    if (path == nullptr) {
        return ERROR_INVALID_HANDLE;
    }
    if (valueName.size() > kLongestName || size > kLongestData) {
        return ERROR_ACCESS_DENIED;
    }
    return OnStore([&] {
        const StoreLock lock;
        Store store = LoadStore();
        if (key != HKEY_CURRENT_USER) {
            OpenKeys().at(key).AsOpened.reset();
        }
        // The key may have gone with a damaged file since it was opened.
        AddMissing(store, PathsDown("", *path));
        Value& value = store[Folded(*path)].Values[Folded(valueName)];
        value = {value.Name.empty() ? valueName : value.Name, type, std::string(data, data + size)};
        SaveStore(store);
        return ERROR_SUCCESS;
    });
}

RegistryStatus RegCloseKey(RegistryKey key) {
    return key == HKEY_CURRENT_USER || OpenKeys().erase(key) > 0 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

void SetRegistryFile(std::string path) {
    // An absolute path, since the current folder changes with every file dialog.
    std::error_code noCurrentFolder;
    const fs::path absolute = fs::absolute(path, noCurrentFolder);
    RegistryFile() = path.empty() || noCurrentFolder ? std::move(path) : absolute.string();
}

} // namespace plenair
