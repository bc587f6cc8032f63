#include "windows/WindowTest.h"

#include "platform/qt/Twips.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <stdexcept>

namespace plenair {
namespace {

// The contracts of the controls that the windows lean on, in a window of its own.
class Controls : public testing::Test {
  protected:
    Controls() {
        m_form.SetClientSize(6000, 3000);
        Form::Place(m_first, 100, 100, 1500, 300);
        Form::Place(m_second, 100, 500, 1500, 300);
        Form::Place(m_options[0], 2000, 100, 1500, 300);
        Form::Place(m_options[1], 2000, 500, 1500, 300);
        Form::Place(m_options[2], 2000, 900, 1500, 300);
        Form::Place(m_button, 4000, 100, 1500, 300);
        Watch(*m_first, "first");
        Watch(*m_second, "second");
        m_first->KeyPress = [this](int code) { m_events += "press " + std::to_string(code) + " "; };
        m_first->KeyDown = [this](int code) { m_events += "down " + std::to_string(code) + " "; };
        m_first->KeyUp = [this](int code) { m_events += "up " + std::to_string(code) + " "; };
        m_first->Change = [this] { m_events += "change to " + m_first->Text() + " "; };
        for (int i = 0; i < 3; ++i) {
            m_options[i]->Click = [this, i] { m_events += "option " + std::to_string(i) + " "; };
        }
        m_button->Click = [this] { m_events += "click "; };
    }

    void SetUp() override {
        m_first->setFocus();
        m_form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_form));
        Events();
    }

    void Watch(TextBox& box, const std::string& name) {
        box.GotFocus = [this, name] { m_events += name + " got "; };
        box.LostFocus = [this, name] { m_events += name + " lost "; };
    }

    // What happened since the last call.
    std::string Events() {
        QCoreApplication::processEvents();
        std::string events = std::exchange(m_events, "");
        if (!events.empty()) {
            events.pop_back();
        }
        return events;
    }

    Form m_form{"frmTest", "Test", Qt::Window};
    TextBox* m_first = new TextBox("first", m_form.Client());
    TextBox* m_second = new TextBox("second", m_form.Client());
    Option* m_options[3] = {new Option("a", "&Same one", m_form.Client()),
                            new Option("b", "&Other", m_form.Client()),
                            new Option("c", "&Same two", m_form.Client())};
    Button* m_button = new Button("button", "&Go", m_form.Client());
    std::string m_events;
};

TEST_F(Controls, KeysOfATextBox) {
    const struct {
        const char* name;
        int key;
        Qt::KeyboardModifiers modifiers;
        const char* events;
    } rows[] = {
        {"letter", Qt::Key_Q, Qt::NoModifier, "down 81 press 113 change to q up 81"},
        {"Backspace", Qt::Key_Backspace, Qt::NoModifier, "down 8 press 8 change to  up 8"},
        {"Backspace in an empty box", Qt::Key_Backspace, Qt::NoModifier, "down 8 press 8 up 8"},
        {"Enter", Qt::Key_Return, Qt::NoModifier, "down 13 press 13 up 13"},
        {"Enter of the keypad", Qt::Key_Enter, Qt::KeypadModifier, "down 13 press 13 up 13"},
        {"Escape", Qt::Key_Escape, Qt::NoModifier, "down 27 press 27 up 27"},
        {"Ctrl+A", Qt::Key_A, Qt::ControlModifier, "down 0 down 65 press 1 up 65 up 0"},
        {"Delete", Qt::Key_Delete, Qt::NoModifier, "down 46 up 46"},
        {"Left", Qt::Key_Left, Qt::NoModifier, "down 37 up 37"},
        {"Up", Qt::Key_Up, Qt::NoModifier, "down 38 up 38"},
        {"Right", Qt::Key_Right, Qt::NoModifier, "down 39 up 39"},
        {"Down", Qt::Key_Down, Qt::NoModifier, "down 40 up 40"},
        {"Home", Qt::Key_Home, Qt::NoModifier, "down 36 up 36"},
        {"End", Qt::Key_End, Qt::NoModifier, "down 35 up 35"},
        {"Alt+Z", Qt::Key_Z, Qt::AltModifier, "down 0 down 90 up 90 up 0"},
        {"F8", Qt::Key_F8, Qt::NoModifier, "down 0 up 0"},
    };
    for (const auto& row : rows) {
        Press(row.key, row.modifiers);
        EXPECT_EQ(Events(), row.events) << row.name;
    }
}

TEST_F(Controls, AutoRepeatPressesAgainAndReleasesOnce) {
    const auto send = [this](QEvent::Type type, bool repeated) {
        QKeyEvent event(type, Qt::Key_X, Qt::NoModifier, "x", repeated);
        QApplication::sendEvent(m_first, &event);
    };
    send(QEvent::KeyPress, false);
    for (int i = 0; i < 2; ++i) {
        send(QEvent::KeyRelease, true);
        send(QEvent::KeyPress, true);
    }
    send(QEvent::KeyRelease, false);
    EXPECT_EQ(Events(), "down 88 press 120 change to x down 88 press 120 change to xx down 88 press 120 "
                        "change to xxx up 88");
}

TEST_F(Controls, TextOfAnInputMethodIsTyped) {
    QInputMethodEvent event;
    event.setCommitString("12");
    QApplication::sendEvent(m_first, &event);
    EXPECT_EQ(Events(), "press 49 press 50 change to 12");
}

TEST_F(Controls, SettingATextTellsAtOnceAndOnlyIfItDiffers) {
    std::string order;
    m_first->Change = [&] { order += "change, "; };
    m_first->SetText("5");
    order += "set, ";
    m_first->SetText("5");
    order += "set, ";
    m_first->SetText("");
    EXPECT_EQ(order, "change, set, set, change, ");
}

TEST_F(Controls, FocusIsLostBeforeItIsGained) {
    EXPECT_EQ(Focused(), "first");
    ClickOn(m_second);
    EXPECT_EQ(Events(), "first lost second got");
    GiveFocus(m_first);
    m_events += "| ";
    GiveFocus(m_first);
    EXPECT_EQ(Events(), "second lost first got |") << "before the next statement, and once";
    Press(Qt::Key_Tab);
    EXPECT_EQ(Events(), "first lost second got");
    ClickOn(m_button);
    EXPECT_EQ(Events(), "click") << "a button takes no focus";

    m_second->setEnabled(false);
    Events();
    GiveFocus(m_second);
    EXPECT_EQ(Events(), "") << "disabled";
    m_second->setEnabled(true);
    m_second->hide();
    GiveFocus(m_second);
    EXPECT_EQ(Events(), "") << "not shown";
}

TEST_F(Controls, AHandlerMayMoveTheFocusOn) {
    m_first->LostFocus = [this] {
        m_events += "first lost ";
        GiveFocus(m_first);
    };
    ClickOn(m_second);
    const std::string events = Events();
    EXPECT_EQ(events.find("second got"), std::string::npos) << events;
    EXPECT_EQ(Focused(), "first");
}

TEST_F(Controls, OtherWindowsOfTheProgramCount) {
    Form other("frmOther", "Other", Qt::Window);
    auto* box = new TextBox("box", other.Client());
    other.SetClientSize(3000, 1000);
    Form::Place(box, 100, 100, 1500, 300);
    Watch(*box, "box");
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Events();
    GiveFocus(m_first);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_form));
    Events();
    GiveFocus(box);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(Events(), "first lost box got");

    // A window of the desktop that is none of the program's forms takes the keyboard for a while.
    QWidget foreign;
    foreign.setFocusPolicy(Qt::StrongFocus);
    foreign.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&foreign));
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(Events(), "");
}

TEST_F(Controls, AnOptionClicksOnlyWhenItGoesOn) {
    m_options[1]->SetOn();
    EXPECT_EQ(Events(), "option 1");
    m_options[1]->SetOn();
    ClickOn(m_options[1]);
    EXPECT_EQ(Events(), "");
    ClickOn(m_options[0]);
    EXPECT_EQ(Events(), "option 0");
    EXPECT_EQ(Focused(), "first") << "it takes no focus";
}

TEST_F(Controls, SharedAccessKeysGoRound) {
    GiveFocus(m_second);
    Events();
    const std::pair<int, const char*> rows[] = {
        {Qt::Key_S, "option 0"}, {Qt::Key_S, "option 2"}, {Qt::Key_S, "option 0"}, {Qt::Key_O, "option 1"},
        {Qt::Key_O, ""},         {Qt::Key_S, "option 0"}, {Qt::Key_G, "click"},    {Qt::Key_G, "click"}};
    for (const auto& [key, events] : rows) {
        Press(key, Qt::AltModifier);
        EXPECT_EQ(Events(), events);
    }
}

TEST_F(Controls, ALabelSwitchesItsBackground) {
    Label label("label", "text", m_form.Client());
    Form::Place(&label, 4000, 2000, 300, 300);
    label.show();
    const QColor behind = m_form.palette().color(QPalette::Window);
    const auto corner = [&] { return ColourAt(label, QPoint(18, 18)); };
    label.SetBackColour(QColor(255, 174, 0));
    EXPECT_EQ(corner(), behind);
    label.SetOpaque(true);
    EXPECT_EQ(corner(), QColor(255, 174, 0));
    label.SetOpaque(false);
    EXPECT_EQ(corner(), behind);
}

TEST_F(Controls, AGridKeepsTextsAndACurrentCell) {
    MSFlexGrid grid("grid", 5, 4, m_form.Client());
    EXPECT_EQ(grid.Text(), "");
    grid.SetTextMatrix(0, 0, "first");
    grid.SetTextMatrix(4, 3, "last");
    EXPECT_EQ(grid.Text(), "first");
    grid.SetRow(4);
    grid.SetCol(3);
    EXPECT_EQ(grid.Text(), "last");
    grid.SetColWidth(3, 754);
    grid.SetColAlignment(3, 4);
    grid.Clear();
    EXPECT_EQ(grid.TextMatrix(0, 0) + grid.TextMatrix(4, 3), "");
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.Col(), 3);
    EXPECT_EQ(grid.ColWidth(3), 754);
    EXPECT_EQ(grid.ColAlignment(3), 4);
    for (const auto& [row, column] : {std::pair(5, 0), std::pair(0, 4), std::pair(-1, 0), std::pair(0, -1)}) {
        EXPECT_THROW(grid.SetTextMatrix(row, column, "x"), std::out_of_range);
        EXPECT_THROW(grid.TextMatrix(row, column), std::out_of_range);
    }
}

} // namespace
} // namespace plenair
