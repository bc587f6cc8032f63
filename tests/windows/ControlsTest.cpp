#include "platform/desktop/Progress.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QProgressDialog>

namespace {

// The contracts of the controls that the windows lean on, in a window of its own.
class Controls : public testing::Test {
  protected:
    Controls() {
        m_form.SetClientSize(6000, 3000);
        Form::Place(m_first, 100, 100, 1500, 300);
        Form::Place(m_second, 100, 500, 1500, 300);
        Form::Place(m_button, 4000, 100, 1500, 300);
        Watch(*m_first, "first");
        Watch(*m_second, "second");
        m_first->KeyPress = [this](int code) { m_events += "press " + std::to_string(code) + " "; };
        m_first->KeyDown = [this](int code) { m_events += "down " + std::to_string(code) + " "; };
        m_first->KeyUp = [this](int code) { m_events += "up " + std::to_string(code) + " "; };
        m_first->Change = [this] { m_events += "change to " + m_first->Text() + " "; };
        m_button->Click = [this] { m_events += "click "; };
    }

    void SetUp() override {
        m_first->setFocus();
        m_form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_form));
        EXPECT_EQ(Events(), "") << "being shown enters no box";
        GiveFocus(m_first);
        EXPECT_EQ(Events(), "first got ");
    }

    void Watch(TextBox& box, const std::string& name) {
        box.GotFocus = [this, name] { m_events += name + " got "; };
        box.LostFocus = [this, name] { m_events += name + " lost "; };
    }

    // What happened since the last call.
    std::string Events() {
        QCoreApplication::processEvents();
        return std::exchange(m_events, "");
    }

    Form m_form{"frmTest", "Test", Qt::Window};
    TextBox* m_first = new TextBox("first", m_form.Client());
    TextBox* m_second = new TextBox("second", m_form.Client());
    Button* m_button = new Button("button", "&Go", m_form.Client());
    std::string m_events;
};

TEST_F(Controls, KeysOfATextBox) {
    const std::pair<int, const char*> rows[] = {{Qt::Key_Q, "down 81 press 113 change to q up 81 "},
                                                {Qt::Key_Backspace, "down 8 press 8 change to  up 8 "},
                                                {Qt::Key_Backspace, "down 8 press 8 up 8 "},
                                                {Qt::Key_Return, "down 13 press 13 up 13 "},
                                                {Qt::Key_Escape, "down 27 press 27 up 27 "},
                                                {Qt::Key_Delete, "down 46 up 46 "},
                                                {Qt::Key_Up, "down 38 up 38 "},
                                                {Qt::Key_Down, "down 40 up 40 "},
                                                {Qt::Key_Home, "down 36 up 36 "},
                                                {Qt::Key_F8, "down 0 up 0 "}};
    for (const auto& [key, events] : rows) {
        Press(key);
        EXPECT_EQ(Events(), events);
    }
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Events(), "down 0 down 65 press 1 up 65 up 0 ");
    Press(Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(Events(), "down 0 down 90 up 90 up 0 ");

    // The key repeats.
    const std::tuple<QEvent::Type, bool> repeating[] = {{QEvent::KeyPress, false},
                                                        {QEvent::KeyRelease, true},
                                                        {QEvent::KeyPress, true},
                                                        {QEvent::KeyRelease, false}};
    for (const auto& [type, repeated] : repeating) {
        QKeyEvent event(type, Qt::Key_X, Qt::NoModifier, "x", repeated);
        QApplication::sendEvent(m_first, &event);
    }
    EXPECT_EQ(Events(), "down 88 press 120 change to x down 88 press 120 change to xx up 88 ");
    QInputMethodEvent event;
    event.setCommitString("12");
    QApplication::sendEvent(m_first, &event);
    EXPECT_EQ(Events(), "press 49 press 50 change to xx12 ") << "as if typed";
    m_first->SetText("5");
    m_events += "set ";
    m_first->SetText("5");
    EXPECT_EQ(Events(), "change to 5 set ") << "at once, and only if it differs";
}

TEST_F(Controls, FocusIsLostBeforeItIsGained) {
    ClickOn(m_second);
    EXPECT_EQ(Events(), "first lost second got ");
    GiveFocus(m_first);
    m_events += "| ";
    GiveFocus(m_first);
    EXPECT_EQ(Events(), "second lost first got | ") << "before the next statement, and once";
    ClickOn(m_button);
    EXPECT_EQ(Events(), "click ") << "a button takes no focus";
    m_second->setEnabled(false);
    GiveFocus(m_second);
    EXPECT_EQ(Events(), "") << "disabled";

    m_second->setEnabled(true);
    m_first->LostFocus = [this] { GiveFocus(m_first); }; // a handler may move it on
    ClickOn(m_second);
    EXPECT_EQ(Events().find("second got"), std::string::npos);
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
    GiveFocus(m_first);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_form));
    Events();
    GiveFocus(box);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(Events(), "first lost box got ");

    // A window of the desktop that is none of the program's forms takes the keyboard for a while.
    QWidget foreign;
    foreign.setFocusPolicy(Qt::StrongFocus);
    foreign.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&foreign));
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(Events(), "");
}

// It appears by itself where the work lasts, and its button ends the work.
TEST_F(Controls, LongWorkShowsItselfAndCanBeCancelled) {
    dialogsExpected = true;
    Progress progress({"Working...", "Test", 1'000'000'000});
    const auto dialog = [&] { return m_form.findChild<QProgressDialog*>(); };
    ASSERT_NE(dialog(), nullptr);
    int done = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] { return progress.GoOn(++done) && dialog()->isVisible(); }));
    EXPECT_EQ(dialog()->labelText(), "Working...");
    QTest::mouseClick(dialog()->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_FALSE(progress.GoOn(done));
    dialogsExpected = false;
}

// A calculation takes no input but Escape; what is typed meanwhile comes after it.
TEST_F(Controls, LongCalculationsAreToldByThePointer) {
    const std::string before = m_first->Text();
    {
        Waiting waiting;
        while (QApplication::overrideCursor() == nullptr) {
            ASSERT_TRUE(waiting.GoOn());
        }
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        const std::pair<int, const char*> keys[] = {
            {Qt::Key_1, "1"}, {Qt::Key_Escape, "\x1b"}, {Qt::Key_2, "2"}};
        for (const auto& [key, text] : keys) {
            QCoreApplication::postEvent(m_form.windowHandle(),
                                        new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
        }
        while (waiting.GoOn()) {
        }
        EXPECT_EQ(m_first->Text(), before);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_first->Text(), before + "12");
}

} // namespace
