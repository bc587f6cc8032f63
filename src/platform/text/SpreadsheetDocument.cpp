#include "platform/text/SpreadsheetDocument.h"

#include "platform/text/NumberText.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

namespace plenair {

namespace {

constexpr std::string_view kMimeType = "application/vnd.oasis.opendocument.spreadsheet";

constexpr std::array<std::uint32_t, 256> CheckTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t check = byte;
        for (int bit = 0; bit < 8; ++bit) {
            check = (check & 1) != 0 ? 0xEDB88320 ^ check >> 1 : check >> 1;
        }
        table[byte] = check;
    }
    return table;
}

std::uint32_t CheckOf(std::string_view bytes) {
    constexpr auto kTable = CheckTable();
    std::uint32_t check = 0xFFFFFFFF;
    for (const char byte : bytes) {
        check = kTable[(check ^ static_cast<unsigned char>(byte)) & 0xFF] ^ check >> 8;
    }
    return ~check;
}

struct Number {
    std::uint32_t Value;
    int Bytes;
};

// The lowest byte of each first.
void Append(std::string& bytes, std::initializer_list<Number> numbers) {
    for (const Number& number : numbers) {
        for (int byte = 0; byte < number.Bytes; ++byte) {
            bytes += static_cast<char>(number.Value >> 8 * byte);
        }
    }
}

std::uint32_t SizeOf(std::string_view bytes) {
    return static_cast<std::uint32_t>(bytes.size());
}

// The files of a ZIP archive, uncompressed, one after the other, with a directory at the end.
class Archive {
  public:
    void Add(std::string_view name, std::string_view content) {
        constexpr Number kVersion{20, 2};
        constexpr Number kPlain{0, 2};
        constexpr Number kNone{0, 2};
        constexpr Number kFirstDay{0x21, 2}; // the earliest there is; the time is no matter here
        std::string header;
        Append(header, {kVersion, kNone, kPlain, kNone, kFirstDay, {CheckOf(content), 4}});
        Append(header, {{SizeOf(content), 4}, {SizeOf(content), 4}, {SizeOf(name), 2}, kNone});
        Append(m_directory, {{0x02014B50, 4}, kVersion});
        m_directory += header;
        Append(m_directory, {kNone, kNone, kNone, {0, 4}, {SizeOf(m_files), 4}});
        m_directory += name;
        Append(m_files, {{0x04034B50, 4}});
        m_files.append(header).append(name).append(content);
        ++m_count;
    }

    std::string Bytes() const {
        std::string end;
        Append(end, {{0x06054B50, 4}, {0, 2}, {0, 2}, {m_count, 2}, {m_count, 2}});
        Append(end, {{SizeOf(m_directory), 4}, {SizeOf(m_files), 4}, {0, 2}});
        return m_files + m_directory + end;
    }

  private:
    std::string m_files;
    std::string m_directory;
    std::uint32_t m_count = 0;
};

std::string ContentOf(const TableRows& table) {
    std::string content =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><office:document-content "
        "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
        "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
        "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" office:version=\"1.2\">"
        "<office:body><office:spreadsheet><table:table table:name=\"Plenair\">";
    for (const auto& row : table) {
        content += "<table:table-row>";
        for (const std::string& cell : row) {
            if (const auto number = NumberFromText(cell)) {
                content += "<table:table-cell office:value-type=\"float\" office:value=\"" +
                           ShortestText(*number, Mark::Point) + "\">";
            } else {
                content += "<table:table-cell office:value-type=\"string\">";
            }
            content += "<text:p>" + EscapedForMarkup(cell) + "</text:p></table:table-cell>";
        }
        content += "</table:table-row>";
    }
    return content + "</table:table></office:spreadsheet></office:body></office:document-content>";
}

std::string Manifest() {
    const std::string entry = "<manifest:file-entry manifest:full-path=\"";
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><manifest:manifest "
           "xmlns:manifest=\"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0\" manifest:version=\"1.2\">" +
           entry + "/\" manifest:media-type=\"" + std::string(kMimeType) + "\"/>" + entry +
           "content.xml\" manifest:media-type=\"text/xml\"/></manifest:manifest>";
}

} // namespace

std::string SpreadsheetDocument(const TableRows& table) {
    Archive archive;
    archive.Add("mimetype", kMimeType); // the first, so that the kind of file is told by its beginning
    archive.Add("content.xml", ContentOf(table));
    archive.Add("META-INF/manifest.xml", Manifest());
    return archive.Bytes();
}

} // namespace plenair
