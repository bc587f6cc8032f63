#pragma once

#include "desktop/Screen.h"
#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

#include <functional>

namespace plenair {

// The program itself in a process of its own, worked by keys and clicks through the X server. What it shows
// is asked of it from inside (Probe.cpp lists the questions) and of the server. A step that isn't taken
// within patience ends the scenario, and tells what was seen.
class DesktopTest : public testing::Test {
  protected:
    DesktopTest();

    // Starts the program in a folder of its own, with settings of the defaults and no reminder due, and waits
    // for the Lite window. More of its environment may be given.
    void Start(const QStringList& more = {});
    // Ends it as a crash does; Start may follow.
    void Kill();
    // As when the X server goes; gives how the program ended.
    QProcess::ExitStatus Disconnect();
    bool HasEnded() { return m_program.state() == QProcess::NotRunning || m_program.waitForFinished(0); }
    bool HasEndedWell() {
        return HasEnded() && m_program.exitStatus() == QProcess::NormalExit && m_program.exitCode() == 0;
    }

    // The answer to a question such as "text txtInputA", and waiting for an answer.
    std::string Ask(const std::string& question);
    void Await(const std::string& question, const std::string& answer);
    void AwaitThat(const std::string& what, const std::function<bool()>& isTrue);

    // Where on the screen that is which the program tells as "WINDOW LEFT TOP WIDTH HEIGHT"; empty if it
    // can't be seen.
    static QRect OnScreen(const std::string& place);
    QRect Place(const std::string& name) { return OnScreen(Ask("place " + name)); }

    // Plays a script (see Script.h); what must be seen is waited for. A step is a chord by the X names of its
    // keys ("Tab", "Alt+h"), or a text; @name clicks a control, @name:5,-6 at a place in it; menu>entry.
    void Play(const std::string& script);

    // Keys one after the other, each waited for until the program has it.
    void Key(const std::string& chord);

    // Alt+Tab, which the window manager keeps for itself, to where this window has the keyboard.
    void SwitchTo(const std::string& window);

    // A click in a control, menu entry or button of a message, by its name or caption, at a place in it from
    // its top left corner, from the far edges if negative.
    void Click(const std::string& name, int x = 8, int y = 6, int button = 1);
    void Point(const std::string& name, int x = 8, int y = 6);

    // Whether the window manager knows by now what windows there are and which of them has the keyboard.
    bool IsSettled();

    // How many keys and buttons going down the program has heard of.
    int Presses() { return std::stoi("0" + Ask("presses")); }

    std::string File(const std::string& name) const { return m_environment.Folder().File(name); }

  private:
    void Note(const std::string& step) { m_steps += step + "\n  "; }
    [[noreturn]] void GiveUp(const std::string& missed);

    ProgramEnvironment m_environment;
    Child m_program;
    std::string m_steps;
};

} // namespace plenair
