#include "fuzz/Fuzz.h"
#include "platform/text/DateText.h"
#include "support/Test.h"

// The files of the corpus, and each with some bytes changed, lost or doubled.
void TryCorpus(const std::string& name, void (*run)(std::string_view input)) {
    const ProgramEnvironment environment;
    const ScopedDesktop desktop;
    std::mt19937 random(1);
    for (const auto& entry : fs::directory_iterator(PLENAIR_CORPUS + name + "/corpus")) {
        const std::string whole = ReadFile(entry.path());
        std::string input = whole;
        for (int variant = 0; variant < 8; ++variant) {
            try {
                run(input);
            } catch (const std::logic_error& finding) {
                ADD_FAILURE() << finding.what() << "\nfor " << testing::PrintToString(input);
                return;
            }
            input = variant % 4 == 0 ? whole : input;
            const std::size_t at = random() % (input.size() + 1);
            input.replace(at, random() % 3, random() % 3, static_cast<char>(random()));
        }
    }
    SetDateLocale({});
}
