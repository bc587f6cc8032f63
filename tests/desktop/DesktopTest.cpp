#include "desktop/DesktopTest.h"

#include "core/Settings.h"
#include "core/SettingsFile.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/RegistryStore.h"
#include "support/Script.h"

#include <X11/Xlib.h>

#include <filesystem>
#include <sstream>

namespace plenair {

DesktopTest::DesktopTest() {
    Desktop().Clock = {}; // the program has the real one
    SetRegistryFile(File("config/plenair/registry"));
    std::filesystem::create_directories(File("config/plenair"));
    m_environment.NoteReminder();
    SaveSettings();
}

void DesktopTest::Start(const QStringList& more) {
    // The program's folder is where its file lies, and no player or editor of this machine is in reach.
    std::filesystem::copy_file(PLENAIR_PROGRAM, File("plenair"),
                               std::filesystem::copy_options::skip_existing);
    const QString home = QString::fromStdString(File(""));
    m_program.setEnvironment(TheScreen().Environment()
                             << "HOME=" + home << "XDG_CONFIG_HOME=" + home + "config"
                             << "XDG_DATA_HOME=" + home + "data"
                             << "XDG_STATE_HOME=" + home + "state"
                             << "PATH=" + home << "QT_QPA_GENERIC_PLUGINS=plenairprobe"
                             << "QT_PLUGIN_PATH=" PLENAIR_PROBE_PLUGINS << more);
    m_program.setStandardErrorFile(home + "output", QIODevice::Append);
    TheScreen().MoveTo(0, 0);
    m_program.start(home + "plenair");
    Await("active", "frmMinorCalc");
}

void DesktopTest::Kill() {
    Note("SIGKILL");
    m_program.kill();
    m_program.waitForFinished(kPatience);
}

QProcess::ExitStatus DesktopTest::Disconnect() {
    XKillClient(TheScreen().Connection(), std::stoul(Ask("activeId")));
    XFlush(TheScreen().Connection());
    AwaitThat("the program has ended", [this] { return HasEnded(); });
    return m_program.exitStatus();
}

std::string DesktopTest::Ask(const std::string& question) {
    if (!HasEnded()) {
        m_program.write((question + "\n").c_str());
        if (m_program.HasLine()) {
            return m_program.readLine().chopped(1).toStdString();
        }
    }
    return HasEnded() ? "ended" : throw std::runtime_error("no answer to " + question);
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

QRect DesktopTest::OnScreen(const std::string& place) {
    unsigned long window = 0;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    std::istringstream(place) >> window >> left >> top >> width >> height;
    const QRect client = TheScreen().Client(window);
    return client.isEmpty() ? client : QRect(left, top, width, height).translated(client.topLeft());
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
            Click(step.substr(1, isPlace ? colon - 1 : step.npos), x, y);
        } else if (angle != step.npos) {
            const std::string menu = step.substr(0, angle);
            Click(menu);
            Await("focus", menu);
            Click(step.substr(angle + 1));
        } else if (step.find('+') != step.npos || (step.size() > 1 && std::isupper(step[0]) != 0)) {
            Key(step);
        } else {
            for (const char character : step) {
                Key(XKeysymToString(static_cast<KeySym>(character)));
            }
        }
    };
    PlayScript(script, act,
               [this](const std::string& asked, const std::string& answer) { Await(asked, answer); });
}

bool DesktopTest::IsSettled() {
    return HasEnded() || TheScreen().IsUpToDate(std::stoul("0" + Ask("activeId")));
}

void DesktopTest::Key(const std::string& chord) {
    // What is typed before the window manager has passed on the keyboard goes to the window that had it.
    AwaitThat("the window manager is ready for " + chord, [this] { return IsSettled(); });
    const int due = Presses() + TheScreen().Chord(chord);
    AwaitThat("it is at the program", [&] { return Presses() >= due || HasEnded(); });
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

void DesktopTest::Point(const std::string& name, int x, int y) {
    QRect place;
    AwaitThat("the mouse is over " + name, [&] {
        // Again if the window moves under the mouse.
        if (const QRect now = Place(name); now != place) {
            place = now;
            TheScreen().MoveTo(now.left() + (x < 0 ? now.width() + x : x),
                               now.top() + (y < 0 ? now.height() + y : y));
            return false;
        }
        return Ask("hovered " + name) == "true" && IsSettled();
    });
}

void DesktopTest::Click(const std::string& name, int x, int y, int button) {
    Point(name, x, y);
    const int before = Presses();
    int askedInVain = 0;
    AwaitThat("the click is at the program", [&] {
        // A window manager swallows one now and then while it is busy with another window: a user clicks
        // again.
        if (askedInVain % 50 == 0 && (askedInVain == 0 || TheScreen().IsPointerFree())) {
            TheScreen().Button(button, true);
            TheScreen().Button(button, false);
        }
        ++askedInVain;
        return Presses() > before || HasEnded();
    });
}

void DesktopTest::GiveUp(const std::string& missed) {
    const std::string picture = m_environment.Folder().Path() + ".png";
    TheScreen().Run(QString::fromStdString("import -window root " + picture));
    throw std::runtime_error("waited in vain for " + missed + "\n  " + m_steps +
                             "\nwindows, lowest first: " + TheScreen().Windows() + "\npicture: " + picture +
                             "\nthe program said: " + ReadFile(File("output")));
}

} // namespace plenair
