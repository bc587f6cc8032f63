#include "desktop/DesktopTest.h"

#include "core/Settings.h"
#include "core/SettingsFile.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/RegistryStore.h"
#include "support/Script.h"

#include <X11/Xlib.h>

#include <filesystem>
#include <sstream>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace plenair {

namespace {

const std::string kAnAnswer = "an answer to ";

} // namespace

DesktopTest::DesktopTest() {
    Desktop().Clock = {}; // the program has the real one
    SetRegistryFile(File("config/plenair/registry"));
    std::filesystem::create_directories(File("config/plenair"));
    m_environment.NoteReminder();
    SaveSettings();
}

DesktopTest::~DesktopTest() {
    close(m_socket);
    m_program.reset();
}

void DesktopTest::Start(const std::vector<std::string>& more) {
    // The program's folder is where its file lies, and no player or editor of this machine is in reach.
    std::filesystem::copy_file(PLENAIR_PROGRAM, File("plenair"),
                               std::filesystem::copy_options::skip_existing);
    std::vector<std::string> environment = TheScreen().Environment();
    int ends[2] = {};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    std::vector<std::string> settings = {"HOME=" + File(""),
                                         "XDG_CONFIG_HOME=" + File("config"),
                                         "XDG_DATA_HOME=" + File("data"),
                                         "XDG_STATE_HOME=" + File("state"),
                                         "PATH=" + File(""),
                                         "QT_QPA_GENERIC_PLUGINS=plenairprobe",
                                         std::string("QT_PLUGIN_PATH=") + PLENAIR_PROBE_PLUGINS,
                                         "PLENAIR_PROBE=" + std::to_string(ends[1])};
    settings.insert(settings.end(), more.begin(), more.end());
    for (const std::string& setting : settings) {
        const std::string name = setting.substr(0, setting.find('=') + 1);
        std::erase_if(environment, [&](const std::string& other) { return other.starts_with(name); });
        environment.push_back(setting);
    }
    TheScreen().MoveTo(0, 0);
    m_program = std::make_unique<Child>(std::vector<std::string>{File("plenair")}, environment, ends[1],
                                        File("output"));
    close(ends[1]);
    m_socket = ends[0];
    Await("active", "frmMinorCalc");
}

void DesktopTest::Kill() {
    Note("SIGKILL");
    m_program->Kill();
    close(m_socket);
}

int DesktopTest::Disconnect() {
    XKillClient(TheScreen().Connection(), std::stoul(Ask("activeId")));
    XFlush(TheScreen().Connection());
    AwaitThat("the program has ended", [this] { return HasEnded(); });
    close(m_socket);
    return m_program->ExitStatus();
}

std::string DesktopTest::Ask(const std::string& question) {
    const std::string line = question + "\n";
    std::string answer;
    if (send(m_socket, line.data(), line.size(), MSG_NOSIGNAL) < 0) {
        return "ended";
    }
    while (!answer.ends_with('\n')) {
        pollfd ready = {m_socket, POLLIN, 0};
        char buffer[4096];
        if (poll(&ready, 1, PatienceSeconds * 1000) == 0) {
            GiveUp(kAnAnswer + question);
        }
        const auto count = read(m_socket, buffer, sizeof buffer);
        if (count <= 0) {
            return "ended";
        }
        answer.append(buffer, static_cast<std::size_t>(count));
    }
    answer.pop_back();
    return answer;
}

void DesktopTest::Await(const std::string& question, const std::string& answer) {
    Note("await " + question + ": " + answer);
    std::string last;
    if (!Until([&] { return (last = Ask(question)) == answer; })) {
        GiveUp(question + ": " + answer + ", but it is: " + last);
    }
}

void DesktopTest::AwaitThat(const std::string& what, const std::function<bool()>& isTrue) {
    Note("await that " + what);
    if (!Until(isTrue)) {
        GiveUp(what);
    }
}

void DesktopTest::Play(const std::string& script) {
    const auto act = [this](const std::string& step) {
        const std::size_t colon = step.rfind(':');
        const std::size_t angle = step.find('>');
        int x = 8;
        int y = 6;
        if (step[0] == '@') {
            const bool isPlace =
                std::sscanf(step.c_str() + std::min(colon, step.size()), ":%d,%d", &x, &y) == 2;
            ClickAt(step.substr(1, isPlace ? colon - 1 : step.npos), x, y);
        } else if (angle != step.npos) {
            Choose(step.substr(0, angle), step.substr(angle + 1));
        } else if (step.find('+') != step.npos || (step.size() > 1 && std::isupper(step[0]) != 0)) {
            Keys(step);
        } else {
            Type(step);
        }
    };
    PlayScript(script, act,
               [this](const std::string& asked, const std::string& answer) { Await(asked, answer); });
}

bool DesktopTest::IsSettled() {
    return HasEnded() || TheScreen().IsUpToDate(std::stoul("0" + Ask("activeId")));
}

int DesktopTest::Presses() {
    return std::atoi(Ask("presses").c_str());
}

void DesktopTest::AwaitPresses(int count) {
    if (!Until([&] { return Presses() >= count || HasEnded(); })) {
        GiveUp("the key at the program");
    }
}

void DesktopTest::Keys(const std::string& chords) {
    std::istringstream words(chords);
    for (std::string chord; words >> chord;) {
        Note("key " + chord);
        // What is typed before the window manager has passed on the keyboard goes to the window that had it.
        if (!Until([this] { return IsSettled(); })) {
            GiveUp("the keyboard at the program");
        }
        const int before = Presses();
        AwaitPresses(before + TheScreen().Chord(chord));
    }
}

void DesktopTest::SwitchTo(const std::string& window) {
    int asked = 0;
    AwaitThat("Alt+Tab leads to " + window, [&] {
        // Once more where the window manager took so quick a hand for a slip.
        if (asked++ % 100 == 0) {
            TheScreen().Key("Alt_L", true);
            TheScreen().Key("Tab", true);
            TheScreen().AwaitManager();
            TheScreen().Key("Tab", false);
            TheScreen().Key("Alt_L", false);
            TheScreen().AwaitManager();
        }
        return Ask("active") == window;
    });
}

void DesktopTest::Type(const std::string& text) {
    for (const char character : text) {
        Keys(XKeysymToString(static_cast<KeySym>(character)));
    }
}

void DesktopTest::Point(const std::string& name, int x, int y) {
    std::string place;
    const bool isThere = Until([&] {
        // Again if the window moves under the mouse.
        if (const std::string now = Ask("place " + name); now != place) {
            place = now;
            int left = 0;
            int top = 0;
            int width = 0;
            int height = 0;
            if (std::istringstream(place) >> left >> top >> width >> height) {
                TheScreen().MoveTo(left + (x < 0 ? width + x : x), top + (y < 0 ? height + y : y));
            }
            return false;
        }
        return Ask("hovered " + name) == "yes" && IsSettled();
    });
    if (!isThere) {
        GiveUp(name + " under the mouse; its place: " + place + "; over it: " + Ask("hovered " + name) +
               (IsSettled() ? "" : "; the keyboard is on its way"));
    }
}

void DesktopTest::ClickAt(const std::string& name, int x, int y, int button) {
    Note("click " + name);
    Point(name, x, y);
    const int before = Presses();
    int askedInVain = 0;
    const bool hasCome = Until([&] {
        // A window manager swallows one now and then while it is busy with another window: a user clicks
        // again.
        if (askedInVain % 50 == 0 && (askedInVain == 0 || TheScreen().IsPointerFree())) {
            TheScreen().Button(button, true);
            TheScreen().Button(button, false);
        }
        ++askedInVain;
        return Presses() > before || HasEnded();
    });
    if (!hasCome) {
        GiveUp("the click at the program");
    }
}

void DesktopTest::Click(const std::string& name, int button) {
    ClickAt(name, 8, 6, button);
}

void DesktopTest::Choose(const std::string& menu, const std::string& entry) {
    Click(menu);
    Await("focus", menu);
    Click(entry);
}

void DesktopTest::GiveUp(const std::string& missed) {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    const char* picture = "/plenair-desktop-";
    const std::string path = std::filesystem::temp_directory_path().string() + picture +
                             test->test_suite_name() + "-" + test->name() + ".png";
    throw std::runtime_error(
        "waited in vain for " + missed + "\n  " + m_steps +
        "\nwindows, lowest first: " + TheScreen().Windows() +
        "\nas the program has them: " + (missed.starts_with(kAnAnswer) ? "unknown" : Ask("windows")) +
        "\npicture: " + TheScreen().SavePicture(path) + "\nthe program said: " + ReadFile(File("output")));
}

} // namespace plenair
