#pragma once

#include <QProcess>
#include <QRect>
#include <QTemporaryDir>
#include <QTest>

#include <string>
#include <vector>

using Display = struct _XDisplay;

namespace plenair {

// How long anything that must come may take, in ms, on a machine with other work; nothing takes that long
// unless it has failed.
constexpr int kPatience = 30'000;

// Waits until `isTrue`; false if it doesn't come.
template <typename Predicate>
bool Until(const Predicate& isTrue) {
    return QTest::qWaitFor(isTrue, kPatience);
}

// Another program. Ends with the object.
struct Child : QProcess {
    ~Child() override {
        terminate();
        waitForFinished(kPatience);
    }
    // Waits for a whole line of what it writes.
    bool HasLine() {
        while (!canReadLine() && waitForReadyRead(kPatience)) {
        }
        return canReadLine();
    }
};

// An X server of our own without a monitor, with a window manager, and the hands of a user: what they do
// reaches programs through the server, as the real ones do.
class Screen {
  public:
    // `windowManager` with its options, as in "mutter --x11".
    explicit Screen(const QString& windowManager);
    ~Screen();

    // The keyboard. A chord is keys by their X names, held together: Alt+Shift+Tab. Gives how many keys went
    // down.
    int Chord(const std::string& chord);
    void Key(const std::string& name, bool down);

    // The mouse, in pixels of the whole screen.
    void MoveTo(int x, int y);
    void Button(int button, bool down);

    // What another program gets when it pastes in that form, such as "text/html"; empty if it isn't offered.
    std::string Pasted(const std::string& form) const;

    // What a program needs to reach this server, and no other that this machine may have; and the bus of its
    // session, which only some are told of.
    QStringList Environment() const;
    const QString& Bus() const { return m_busAddress; }

    // The windows that the window manager knows, from the lowest up.
    std::vector<unsigned long> Stack() const;
    // The same in words; the one with the keyboard has a star.
    std::string Windows() const;

    // The managed window of that title; 0 if there is none.
    unsigned long Find(const std::string& title) const;

    // Where a window's client area is; empty as long as it isn't on the screen, or the window manager isn't
    // done with it.
    QRect Client(unsigned long window) const;

    // Waits until the window manager has dealt with all that has happened so far.
    void AwaitManager();

    // Whether no program, and no window manager that still looks at a click, holds the mouse.
    bool IsPointerFree();

    // Whether the window manager knows that this window has the keyboard. The server, and the toolkit, know
    // it earlier.
    bool HasKeyboard(unsigned long window) const;

    // The same, and that it knows of every window that has gone: it may swallow clicks until then.
    bool IsUpToDate(unsigned long active) const;

    // Asks the window of this title to close, as a window manager does.
    void Close(const std::string& title);

    // A property of a window, as a list of numbers; empty if it isn't there.
    std::vector<unsigned long> Numbers(unsigned long window, const char* property) const;
    // Whether that is one of a list of names.
    bool Holds(unsigned long window, const char* property, const char* name) const;
    unsigned long Root() const;

    // Sends a window, or the window manager about it, a message.
    void Tell(unsigned long receiver, unsigned long window, const char* message,
              const std::vector<long>& values) const;

    // Runs a program to its end.
    void Run(const QString& command) const;

    Display* Connection() const { return m_display; }

  private:
    QTemporaryDir m_home;
    QString m_name;
    QString m_busAddress;
    Child m_server;
    Child m_bus;
    Child m_manager;
    Display* m_display = nullptr;
};

// The screen that the scenarios share; main starts it.
Screen& TheScreen();

// A window of another program.
class OtherWindow {
  public:
    explicit OtherWindow(const QRect& place = {0, 0, 1, 1});
    ~OtherWindow();
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;

    unsigned long Id() const { return m_id; }
    // A property that is a list of atoms, or of other numbers.
    void Set(const char* property, unsigned long type, const std::vector<long>& values) const;
    void Show() const;

  private:
    unsigned long m_id;
};

} // namespace plenair
