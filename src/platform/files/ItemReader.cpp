#include "platform/files/ItemReader.h"

#include "platform/files/Descriptor.h"
#include "platform/files/FileFailure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace plenair {

namespace {

constexpr std::size_t kLongestItem = 131'072; // more than any box of the program can hold

bool IsBlank(int byte) {
    return byte == ' ' || byte == '\t';
}

bool EndsLine(int byte) {
    return byte == '\r' || byte == '\n';
}

} // namespace

struct ItemReader::State {
    State(const std::string& name, Quotes innerQuotes, FileProgress told);

    static constexpr int kEnd = -1;

    int Peek() { // the next byte, or End
        if (m_next == m_filled) {
            Fill();
        }
        return m_next < m_filled ? static_cast<unsigned char>(m_buffer[m_next]) : kEnd;
    }
    void Skip() { ++m_next; }
    bool SkipIf(char byte);
    void SkipBlanks();
    void SkipSeparator();
    void FailAtEnd();

    // Moves the bytes up to the first that `ends` the item, or to the end of the file, into `item`.
    template <typename Ends>
    void AppendUntil(Ends ends, std::string& item) {
        bool ended = false;
        while (!ended && Peek() != kEnd) {
            const char* from = m_buffer.data() + m_next;
            const char* filled = m_buffer.data() + m_filled;
            const char* end = std::find_if(from, filled, ends);
            item.append(from, end);
            if (item.size() > kLongestItem) {
                throw ContentFailure();
            }
            m_next += static_cast<std::size_t>(end - from);
            ended = end != filled;
        }
    }

    std::uint64_t Position() const { return m_readSoFar - (m_filled - m_next); }

    const std::string Path;
    const Quotes Inner;

  private:
    void Fill();
    void TellProgress() const;

    const FileProgress m_progress;
    std::uint64_t m_size = 0; // of the file when it was opened
    Descriptor m_file;
    std::array<char, 8192> m_buffer;
    std::size_t m_next = 0;
    std::size_t m_filled = 0;
    std::uint64_t m_readSoFar = 0; // up to the end of the buffer
};

// Without O_NONBLOCK the opening of a pipe that nobody writes to would never return.
ItemReader::State::State(const std::string& name, Quotes innerQuotes, FileProgress told)
    : Path(name), Inner(innerQuotes), m_progress(std::move(told)),
      m_file(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    struct stat status {};
    if (!m_file.IsOpen() || ::fstat(m_file.Number(), &status) != 0) {
        Fail(Path, errno);
    }
    RequireRegularFile(Path, status);
    m_size = static_cast<std::uint64_t>(status.st_size);
    TellProgress();
}

void ItemReader::State::TellProgress() const {
    if (m_progress) {
        m_progress(m_readSoFar, m_size);
    }
}

void ItemReader::State::Fill() {
    m_filled = ReadPiece(m_file, Path, m_buffer.data(), m_buffer.size());
    m_next = 0;
    m_readSoFar += m_filled;
    TellProgress();
}

bool ItemReader::State::SkipIf(char byte) {
    const bool found = Peek() == byte;
    if (found) {
        Skip();
    }
    return found;
}

void ItemReader::State::SkipBlanks() {
    for (std::size_t count = 0; IsBlank(Peek()); ++count) {
        if (count == kLongestItem) {
            throw ContentFailure();
        }
        Skip();
    }
}

// Skips one comma or line end, with the blanks before it.
void ItemReader::State::SkipSeparator() {
    SkipBlanks();
    if (SkipIf(',')) {
        return;
    }
    SkipIf('\r');
    SkipIf('\n');
}

void ItemReader::State::FailAtEnd() {
    if (Peek() == kEnd) {
        throw ContentFailure();
    }
}

ItemReader::ItemReader(const std::string& path, Quotes quotes, FileProgress progress)
    : m_state(std::make_unique<State>(path, quotes, std::move(progress))) {}

ItemReader::~ItemReader() = default;

bool ItemReader::AtEnd() {
    return m_state->Peek() == State::kEnd;
}

std::uint64_t ItemReader::Position() const {
    return m_state->Position();
}

std::string ItemReader::ReadText() {
    State& state = *m_state;
    state.FailAtEnd();
    state.SkipBlanks();
    std::string item;
    if (state.SkipIf('"')) {
        const auto isQuote = [](char byte) { return byte == '"'; };
        state.AppendUntil(isQuote, item);
        while (state.SkipIf('"') && state.Inner == Quotes::Doubled && state.SkipIf('"')) {
            item += '"'; // two quotes stand for one
            state.AppendUntil(isQuote, item);
        }
    } else {
        state.AppendUntil([](char byte) { return byte == ',' || EndsLine(byte); }, item);
        item.erase(item.find_last_not_of(" \t") + 1);
    }
    state.SkipSeparator();
    return item;
}

std::string ItemReader::ReadNumberText() {
    State& state = *m_state;
    state.FailAtEnd();
    state.SkipBlanks();
    std::string item;
    state.AppendUntil([](char byte) { return byte == ',' || IsBlank(byte) || EndsLine(byte); }, item);
    state.SkipSeparator();
    return item;
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char byte : text) {
        quoted.append(byte == '"' ? 2 : 1, byte);
    }
    return quoted.append("\"");
}

} // namespace plenair
