#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Desktop entries: the files by which a desktop knows its applications.
namespace plenair {

struct EntryCommand {
    std::vector<std::string> Arguments; // the program first; never empty
    bool InTerminal = false;
};

// How the application of a desktop entry (`entry`, the content of its file) is started on the file `path`,
// which is one argument whatever characters it has. Nothing if the entry names no program, or not in the form
// that entries have, or stands for an application that was removed.
std::optional<EntryCommand> CommandOn(std::string_view entry, const std::string& path);

// The applications for files of a MIME type, best first, by the names of their entries ("notes.desktop"): the
// defaults, those that were added, those that say so themselves. `lists` are the contents of the files that
// tell of them (mimeapps.list, mimeinfo.cache), in the order in which they count.
std::vector<std::string> ApplicationsFor(std::string_view mimeType, const std::vector<std::string>& lists);

} // namespace plenair
