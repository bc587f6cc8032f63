#pragma once

#include "support/TemporaryFolder.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

using Display = struct _XDisplay;

namespace plenair {

// How long anything that must come may take on a machine with other work; nothing takes that long unless it
// has failed.
constexpr int PatienceSeconds = 30;

// Another program. Ends with the object.
class Child {
  public:
    // Starts `words` with nothing but `environment`, and with `handle` of ours as its own, unless it is -1.
    Child(const std::vector<std::string>& words, const std::vector<std::string>& environment, int handle = -1,
          const std::string& log = "/dev/null");
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    bool HasEnded();
    void Kill();                                // at once, without a word to it
    int ExitStatus() const { return m_status; } // as waitpid gives it, once it has ended

  private:
    pid_t m_id;
    int m_status = 0;
};

// An X server of our own without a monitor, with a window manager, and the hands of a user: what they do
// reaches programs through the server, as the real ones do.
class Screen {
  public:
    // `windowManager` with its options, as in "mutter --x11"; `size` as in "1280x1024".
    Screen(const std::string& windowManager, const std::string& size);
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

    // What a program other than the one under test needs to reach this server.
    std::vector<std::string> Environment() const;

    // The managed windows from the lowest to the highest, with the place of their client areas: "Plenair Lite
    // 10,20 240x300"; the one with the keyboard with a star.
    std::string Windows() const;

    // Puts a window of another program at the left edge, which has the keyboard then, and takes it away.
    void OpenOther();
    void CloseOther();

    // Waits until the window manager has dealt with all that has happened so far.
    void AwaitManager();

    // Whether no program, and no window manager that still looks at a click, holds the mouse.
    bool IsPointerFree();

    // Whether the window manager knows of every window that has gone, and that this one has the keyboard: it
    // may swallow clicks until then.
    bool IsUpToDate(unsigned long active) const;

    // Asks the window of this title to close, as a window manager does.
    void Close(const std::string& title);

    // A property of a window, as a list of numbers; empty if it isn't there.
    std::vector<unsigned long> Numbers(unsigned long window, const char* property) const;
    unsigned long Root() const;

    // Sends a window, or the window manager about it, a message.
    void Tell(unsigned long receiver, unsigned long window, const char* message,
              const std::vector<long>& values) const;

    // Saves a picture of the screen; gives its path.
    std::string SavePicture(const std::string& path) const;

    Display* Connection() const { return m_display; }

  private:
    void StartServer(const std::string& size);

    TemporaryFolder m_home;
    std::string m_name;
    std::unique_ptr<Child> m_server;
    std::unique_ptr<Child> m_bus;
    std::unique_ptr<Child> m_manager;
    Display* m_display = nullptr;
    unsigned long m_other = 0;
};

// Waits until `isTrue`, without a limit of its own but patience; false if that came to its end.
bool Until(const std::function<bool()>& isTrue);

} // namespace plenair
