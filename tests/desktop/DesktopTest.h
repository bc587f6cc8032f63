#pragma once

#include "desktop/Screen.h"
#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

namespace plenair {

// The screen that the scenarios share; main starts it.
Screen& TheScreen();

// The program itself in a process of its own, worked by keys and clicks through the X server. What it shows
// is asked of it from inside (Probe.cpp lists the questions) and of the server. A step that isn't taken
// within patience ends the scenario, and tells what was seen.
class DesktopTest : public testing::Test {
  protected:
    DesktopTest();
    ~DesktopTest() override;

    // Starts the program in a folder of its own, with settings of the defaults and no reminder due, and waits
    // for the Lite window. More of its environment may be given.
    void Start(const std::vector<std::string>& more = {});
    // Ends it as a crash does; Start may follow.
    void Kill();
    int Disconnect(); // as when the X server goes; gives how the program ended
    bool HasEnded() { return m_program->HasEnded(); }
    bool HasEndedWell() { return HasEnded() && m_program->ExitStatus() == 0; }

    // The answer to a question such as "text txtInputA", and waiting for an answer.
    std::string Ask(const std::string& question);
    void Await(const std::string& question, const std::string& answer);
    void AwaitThat(const std::string& what, const std::function<bool()>& isTrue);

    // Plays a script (see Script.h); what must be seen is waited for. A step is a chord by the X names of its
    // keys ("Tab", "Alt+h"), or a text; @name clicks a control, @name:5,-6 at a place in it; menu>entry.
    void Play(const std::string& script);

    // Chords with blanks between: "Tab Alt+h Down". Each is waited for until the program has it. A text is
    // typed likewise.
    void Keys(const std::string& chords);
    void Type(const std::string& text);

    // Alt+Tab, which the window manager keeps for itself, to where this window has the keyboard.
    void SwitchTo(const std::string& window);

    // A click in the middle of a control, menu entry or button of a message, by its name or caption; or at a
    // place in it, from its top left corner, from the far edges if negative.
    void Click(const std::string& name, int button = 1);
    void ClickAt(const std::string& name, int x, int y, int button = 1);
    void Point(const std::string& name, int x, int y);

    // Opens a menu of the Lite window by the mouse and clicks an entry.
    void Choose(const std::string& menu, const std::string& entry);

    // Whether the window manager knows by now what windows there are and which of them has the keyboard.
    bool IsSettled();

    // How many keys and buttons going down the program has heard of.
    int Presses();

    std::string File(const std::string& name) const { return m_environment.Folder().File(name); }

  private:
    void Note(const std::string& step) { m_steps += step + "\n  "; }
    void AwaitPresses(int count);
    [[noreturn]] void GiveUp(const std::string& missed);

    ProgramEnvironment m_environment;
    std::unique_ptr<Child> m_program;
    int m_socket = -1;
    std::string m_steps;
};

} // namespace plenair
