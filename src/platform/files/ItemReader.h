#pragma once

#include "platform/files/FileFailure.h"
#include "platform/files/FileProgress.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace plenair {

// What a double quote inside a quoted item is. Closes: the item ends there. Doubled: two of them stand for
// one, so that any text survives being quoted.
enum class Quotes { Closes, Doubled };

// Reads a text file item by item. Items are separated by commas or line ends; CR LF, a lone CR and a lone LF
// are line ends alike; blanks are spaces and tabs. The file is read in pieces, never whole. An item of more
// than 131,072 bytes is no item of any file of this program and fails, so that a gigabyte of zeros costs
// nothing. After a failure nothing more can be read.
class ItemReader {
  public:
    // Opens `path`; throws FileFailure if that fails or if it is no regular file (a pipe could keep the
    // program waiting).
    explicit ItemReader(const std::string& path, Quotes quotes = Quotes::Closes, FileProgress progress = {});
    ~ItemReader();
    ItemReader(const ItemReader&) = delete;
    ItemReader& operator=(const ItemReader&) = delete;

    // Whether nothing at all is left to read.
    bool AtEnd();

    // How many bytes have been taken so far.
    std::uint64_t Position() const;

    // The next text item, without the blanks around it. In double quotes it ends at the closing quote and may
    // hold commas and line ends; otherwise at a comma or a line end. A quote that is never closed ends with
    // the file. An empty line is an empty item. Throws ContentFailure at the end of the file.
    std::string ReadText();

    // The next number item as text: without the blanks before it, up to a comma, a blank or a line end. An
    // empty line gives empty text. Throws ContentFailure at the end of the file.
    std::string ReadNumberText();

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

// `text` in double quotes, each double quote in it doubled: the counterpart of Quotes::Doubled.
std::string Quoted(std::string_view text);

} // namespace plenair
