// Keys, clicks, drags, answers and closings at random, in all windows. A row of actions that ends badly is
// made as short as it can be, and told as it was done.
#include "desktop/DesktopTest.h"

#include <QDeadlineTimer>

#include <X11/Xlib.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <random>
#include <sstream>

namespace plenair {
namespace {

// An action is a number, the seed of all that it does, so that it means something in whatever state it is
// done.
using Actions = std::vector<unsigned>;

constexpr int kLongestWork = 1000; // ms
constexpr int kMostMemory = 600;   // MB, of which the sanitizers need most

// Chords and texts, divided by '|'.
constexpr char kKeys[] =
    "Return|Tab|Shift+Tab|Escape|Up|Down|Left|Right|Home|End|Prior|Next|space|Delete|BackSpace|F1|F10|"
    "Control+z|Control+z|Control+y|Control+a|Control+c|Control+x|Control+v|Control+Shift+c|Control+Right|"
    "Control+Up|Alt_L|Alt+f p|Alt+f|Alt+e o|Alt+a|Alt+p|Alt+c|Alt+m|Alt+l|Alt+h|Alt+1|Alt+5|Alt+y|Alt+n|"
    "Alt+o|Shift+q|Alt+Tab|Alt+F4";
constexpr char kTexts[] =
    "100|300|5|0.8|250|200|400|4|0.9|10|12.5|600|0|-1|1e9|1e300|1e-9|0.01|32768|x| |4999|1,2,3|1234567890";
constexpr char kPaths[] = "1,2,3|1 2 3 4|4|1,99|x|r1, c4";
constexpr char kAnswers[] = "Return|Return|Return|Return|Alt+y|Alt+y|Alt+o|Alt+n|Alt+c|Escape";
constexpr char kTitles[] = "Plenair Lite|Plenair|Duct Parameters|About Plenair|Options";
// No name that anyone's file may have, should a dialog ever stand in another folder.
constexpr char kFiles[] =
    "monkey1.gsp|monkey1.gsp|monkey1.gsp|monkey2.gsp|monkey2|monkey1.Gus|monkey3|monkey.pnl";
// Where more can go wrong than elsewhere.
constexpr char kControls[] =
    "picGrid|picGrid|picGrid|picGrid|cmdGus|cmdGus|cmdGus|cmdLoadGsp|scrDuctNo|scrDuctNo|txtParam(1)|"
    "txtParam(3)|txtParam(4)|txtParam(5)|txtParam(6)|txtParam(8)|cmdCalcPressure|cmdCalcPressure|"
    "cmdLessDuct(2)|optDuct(1)";

struct Outcome {
    std::string Wrong; // empty if nothing is
    std::string Steps; // as they were done
    Actions Done;
};

class Monkey : public DesktopTest {
  public:
    // What is wrong may be right a moment later, as long as the window manager is at it: it is asked as
    // often.
    explicit Monkey(int patience) : m_patience(patience) {}

    // Does these after a fresh start, as far as nothing goes wrong.
    Outcome Do(const Actions& actions) {
        Outcome outcome;
        std::filesystem::current_path(File("")); // for what is saved without a folder
        try {
            Start();
            for (auto action = actions.begin(); action != actions.end() && outcome.Wrong.empty(); ++action) {
                outcome.Done.push_back(*action);
                outcome.Wrong = DoOne(*action);
            }
        } catch (const std::exception& failure) {
            outcome.Wrong = failure.what();
        }
        if (!outcome.Wrong.empty() && !HasEnded()) {
            outcome.Wrong += "\nthe windows, lowest first: " + TheScreen().Windows();
        }
        outcome.Steps = m_steps;
        std::cout << outcome.Done.size() << " actions, at most " << m_mostMemory << " MB and "
                  << m_longestWork << " ms. " << outcome.Wrong << std::endl;
        return outcome;
    }

  private:
    void TestBody() override {}

    std::string DoOne(unsigned action) {
        if (HasEnded()) {
            m_steps += "start\n";
            Start();
        }
        const std::string modal = Ask("modal");
        const int pressesBefore = Presses();
        m_sent = 0;
        m_random.seed(action);
        Act(modal);
        // Until it is there, or was meant for nobody in the program.
        int asked = 0;
        Until([&] {
            return HasEnded() || Presses() >= pressesBefore + m_sent ||
                   (++asked > 20 && (asked > 200 || TheScreen().IsPointerFree()));
        });
        std::string wrong;
        asked = 0;
        Until([&] { return (wrong = Wrong()).empty() || wrong == "ended" || ++asked > m_patience; });
        if (wrong == "ended") {
            Until([this] { return HasEnded(); });
            return HasEndedWell() ? "" : "it crashed: " + ReadFile(File("output"));
        }
        // Its own work in ms, which no other program makes longer, and its memory in MB.
        int work = 0;
        int memory = 0;
        std::istringstream(Ask("effort")) >> work >> memory;
        m_mostMemory = std::max(m_mostMemory, memory);
        if (modal != "frmAbout" && Ask("modal") != "frmAbout") { // its show takes its time
            m_longestWork = std::max(m_longestWork, work - m_work);
        }
        m_work = work;
        return !wrong.empty()                 ? wrong
               : m_longestWork > kLongestWork ? "too much work: " + std::to_string(m_longestWork) + " ms"
               : m_mostMemory > kMostMemory   ? "too much memory: " + std::to_string(m_mostMemory) + " MB"
                                              : "";
    }

    // What must not be, whatever a user does; empty if nothing of it is.
    std::string Wrong() {
        for (const Window window : TheScreen().Stack()) {
            const auto parents = TheScreen().Numbers(window, "WM_TRANSIENT_FOR");
            if (TheScreen().Holds(window, "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DIALOG") &&
                (parents.empty() ||
                 (TheScreen().Client(parents[0]).isEmpty() &&
                  // Of a window that a click on its frame rolled up, the frame is there.
                  !TheScreen().Holds(parents[0], "_NET_WM_STATE", "_NET_WM_STATE_SHADED")))) {
                return "a dialog without a parent";
            }
        }
        return Ask("wrong");
    }

    // A number from 0 on.
    int RandomBelow(qsizetype end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }

    std::string OneOf(const char* items) {
        const QStringList all = QString(items).split('|');
        return all[RandomBelow(all.size())].toStdString();
    }

    void Act(const std::string& modal) {
        const int kind = RandomBelow(100);
        // In a dialog of files anything else could go to other folders, and remove what is there.
        if (modal == "QFileDialog" || (modal != "none" && kind < 70)) {
            return Reply(modal);
        }
        if (kind < 20) {
            return Press(OneOf(kKeys));
        }
        if (kind < 38) {
            return Write(OneOf(kTexts), RandomBelow(2) == 0 ? "Return" : "Tab");
        }
        if (kind < 40) {
            Close(OneOf(kTitles));
            return RandomBelow(3) == 0 ? Close(OneOf(kTitles)) : void();
        }
        if (kind < 80) {
            const std::string control = OneOf(kControls);
            const std::string name = Place(control).isEmpty() ? "chkParam" : control;
            return modal == "none" && Ask("visible picGrid") != "true" ? Press("Alt+f p")
                                                                       : PointAndClick(Place(name), name);
        }
        const std::string target = Ask("target " + std::to_string(RandomBelow(10000)));
        PointAndClick(OnScreen(target), target.substr(target.rfind(' ') + 1));
    }

    // To a question, as a user would.
    void Reply(const std::string& modal) {
        if (modal == "QFileDialog" && RandomBelow(8) != 0) {
            // For whoever opens it: a project that can be solved.
            std::filesystem::copy_file(PLENAIR_SAMPLE, "monkey1.gsp",
                                       std::filesystem::copy_options::overwrite_existing);
            return Write(OneOf(kFiles), "Return");
        }
        if (modal == "QInputDialog") {
            return Write(OneOf(kPaths), "Return");
        }
        if (modal == "frmAbout") {
            return Close("About Plenair");
        }
        const std::string asked = modal == "QMessageBox" ? Ask("text QMessageBox") : "";
        // It mostly keeps what it has, to come further with it.
        const bool isRefused =
            asked.find("delete") != std::string::npos ||
            (RandomBelow(4) != 0 && (asked.starts_with("Clear") || asked.starts_with("Do you")));
        const bool isAnswered = modal == "QMessageBox" || modal == "frmInputs";
        if (asked.find("already exists") != std::string::npos && !isRefused) {
            return Press("Alt+y");
        }
        Press(isAnswered && !isRefused ? OneOf(kAnswers) : "Escape");
    }

    // At a random place of it.
    void PointAndClick(const QRect& place, const std::string& name) {
        if (place.isEmpty()) {
            return;
        }
        const auto move = [&] {
            const int x = RandomBelow(place.width());
            const int y = RandomBelow(place.height());
            TheScreen().MoveTo(place.left() + x, place.top() + y);
            m_steps += " " + std::to_string(x) + "," + std::to_string(y);
        };
        constexpr int kButtons[] = {1, 1, 1, 1, 1, 1, 3, 2, 4, 5}; // the last two are the wheel
        const int button = kButtons[RandomBelow(std::size(kButtons))];
        m_steps += "button " + std::to_string(button) + " on " + name;
        move();
        const int kind = RandomBelow(20);
        for (int times = kind == 0 ? 2 : 1; times > 0; --times, ++m_sent) {
            TheScreen().Button(button, true);
            if (kind == 1) { // a drag
                move();
            }
            TheScreen().Button(button, false);
        }
        m_steps += "\n";
    }

    void Press(const std::string& chords) {
        m_steps += "keys " + chords + "\n";
        std::istringstream words(chords);
        for (std::string chord; words >> chord;) {
            m_sent += TheScreen().Chord(chord);
        }
    }

    void Write(const std::string& text, const std::string& end) {
        m_steps += "type " + text + " " + end + "\n";
        for (const char character : text) {
            m_sent += TheScreen().Chord(XKeysymToString(static_cast<KeySym>(character)));
        }
        m_sent += TheScreen().Chord(end);
    }

    void Close(const std::string& title) {
        m_steps += "close " + title + "\n";
        TheScreen().Close(title);
    }

    int m_patience;
    std::minstd_rand m_random;
    std::string m_steps;
    int m_sent = 0; // keys and buttons, by one action
    int m_work = 0; // up to the last action
    int m_mostMemory = 0;
    int m_longestWork = 0;
};

// The shortest row found that ends in the same.
Outcome Shrunk(Outcome shortest) {
    const std::string kind = shortest.Wrong.substr(0, shortest.Wrong.find(':'));
    const auto endsAlike = [&](const Actions& fewer) {
        const Outcome other = Monkey(300).Do(fewer);
        const bool isAlike = other.Wrong.starts_with(kind);
        shortest = isAlike ? other : shortest;
        return isAlike;
    };
    const auto count = [&] { return static_cast<std::ptrdiff_t>(shortest.Done.size()); };
    for (std::ptrdiff_t last = 8;
         last < count() && !endsAlike({shortest.Done.end() - last, shortest.Done.end()}); last *= 4) {
    }
    std::ptrdiff_t before = 0;
    for (std::ptrdiff_t size = count() / 2; size > 0; size = size > 1 ? size / 2 : before - count()) {
        before = count();
        for (std::ptrdiff_t from = 0; from < count();) {
            Actions fewer = shortest.Done;
            fewer.erase(fewer.begin() + from, fewer.begin() + std::min(from + size, count()));
            from += endsAlike(fewer) ? 0 : size;
        }
    }
    return shortest;
}

// tools/monkey sets the variables.
TEST(Monkey, NothingItDoesBreaksWhatMustHold) {
    const QDeadlineTimer end(std::lround(qEnvironmentVariable("MONKEY_HOURS").toDouble() * 3'600'000));
    unsigned seed = qEnvironmentVariable("MONKEY_SEED", "1").toUInt();
    std::istringstream row(qgetenv("MONKEY_ROW").toStdString());
    const Actions again{std::istream_iterator<unsigned>(row), {}};
    do {
        std::cout << "seed " << seed << ": " << std::flush;
        Actions actions(2000);
        std::generate(actions.begin(), actions.end(), std::mt19937(seed));
        const Outcome outcome = Monkey(3000).Do(again.empty() ? actions : again);
        if (!outcome.Wrong.empty()) {
            const Outcome shortest = again.empty() ? Shrunk(outcome) : outcome;
            std::ostringstream numbers;
            std::copy(shortest.Done.begin(), shortest.Done.end(),
                      std::ostream_iterator<unsigned>(numbers, " "));
            FAIL() << shortest.Wrong << "\nafter these actions:\n"
                   << shortest.Steps << "once more: tools/monkey again '" << numbers.str() << "'";
        }
        ++seed;
    } while (!end.hasExpired());
}

} // namespace
} // namespace plenair
