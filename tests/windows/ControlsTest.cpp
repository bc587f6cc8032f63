#include "platform/desktop/Progress.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/WindowPos.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QScreen>
#include <QToolTip>
#include <QWindow>

namespace {

// The contracts of the controls that the windows lean on, in windows of their own.
class Controls : public WindowTest {
  protected:
    Controls() {
        Add(m_form, m_first, 1500);
        Add(m_form, m_second, 500);
        Add(m_form, m_button, 1000);
        Add(m_other, m_box, 500);
        m_foreign.setFocusPolicy(Qt::StrongFocus);
        m_first->KeyPress = [this](int code) { m_events += " press " + std::to_string(code); };
        m_first->KeyDown = [this](int code) { m_events += " down " + std::to_string(code); };
        m_first->KeyUp = [this](int code) { m_events += " up " + std::to_string(code); };
        m_first->Change = [this] { m_events += " change to " + m_first->Text(); };
        m_button->Click = [this] { m_events += " click"; };
        m_button->KeyPress = [this](int code) { m_events += code == 13 ? " enter" : ""; };
        for (TextBox* box : {m_first, m_second, m_box}) {
            box->GotFocus = [this, box] { m_events += " got " + box->objectName().toStdString(); };
            box->LostFocus = [this, box] { m_events += " lost " + box->objectName().toStdString(); };
        }
        questions["events"] = [this] { // since they were asked for the last time
            QCoreApplication::processEvents();
            return std::exchange(m_events, "");
        };
        actions["first"] = [this] {
            GiveFocus(m_first);
            m_events += " |";
        };
        actions["second"] = [this] { GiveFocus(m_second); };
        actions["disable"] = [this] { m_second->setEnabled(false); };
        actions["5"] = [this] {
            m_first->SetText("5");
            m_events += " |";
        };
    }

    void SetUp() override {
        m_first->setFocus();
        m_form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_form));
        Play("| events: \n!first | events:  got first |"); // being shown enters no box
    }

    static void Activate(QWidget& window) {
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    static void Add(Form& form, QWidget* control, double top) {
        form.SetClientSize(6000, 3000);
        Form::Place(control, 100, top, 1500, 300);
    }

    Form m_form{"frmTest", "Test", Qt::Window};
    Form m_other{"frmOther", "Other", Qt::Window};
    TextBox* m_first = new TextBox("first", m_form.Client());
    TextBox* m_second = new TextBox("second", m_form.Client());
    TextBox* m_box = new TextBox("box", m_other.Client());
    Button* m_button = new Button("button", "&Go", m_form.Client());
    QWidget m_foreign; // of the desktop, none of the program's forms
    std::string m_events;
};

TEST_F(Controls, KeysOfATextBox) {
    Play(R"(q | events:  down 81 press 113 change to q up 81
        Backspace Backspace | events:  down 8 press 8 change to  up 8 down 8 press 8 up 8
        Return Escape Delete | events:  down 13 press 13 up 13 down 27 press 27 up 27 down 46 up 46
        Up Down Home F8 | events:  down 38 up 38 down 40 up 40 down 36 up 36 down 0 up 0
        Ctrl+A Alt+Z | events:  down 0 down 65 press 1 up 65 up 0 down 0 down 90 up 90 up 0
        !5 Ctrl+Z | events:  change to 5 | down 0 down 90 press 26 up 90 up 0
        Ctrl+Tab ~ | events:  down 0 down 9 up 9 up 0 down 126 press 126 change to ~5 up 126
        Space | events:  down 32 press 32 change to ~ 5 up 32
        Ctrl+A Delete | events:  down 0 down 65 press 1 up 65 up 0 down 46 change to  up 46)");
    for (const char what : std::string("pRPrr")) { // presses and releases, a capital by auto-repeat
        const auto type = std::tolower(what) == 'p' ? QEvent::KeyPress : QEvent::KeyRelease;
        QKeyEvent event(type, Qt::Key_X, Qt::NoModifier, "x", std::isupper(what) != 0);
        QApplication::sendEvent(m_first, &event);
        QKeyEvent enter(type, Qt::Key_Return, Qt::NoModifier, "\r", std::isupper(what) != 0);
        QApplication::sendEvent(m_button, &enter);
    }
    Play("| events:  down 88 press 120 change to x enter click down 88 press 120 change to xx enter up 88\n"
         "!5 !5 | events:  change to 5 | |"); // at once, and only if it differs
}

// A line edit of the toolkit's shows the same of a text that fits.
TEST_F(Controls, TextsTooWideForTheirBox) {
    QLineEdit plain(m_form.Client());
    int width = 200;
    const auto look = [&width](QLineEdit* edit, const QString& text, int caret = 0) { // inside its frame
        edit->resize(width, 20);
        edit->setText(text);
        edit->setCursorPosition(caret);
        return edit->grab().toImage().copy(1, 2, width - 2, 16);
    };
    const auto tip = [this] {
        QHelpEvent event(QEvent::ToolTip, {}, {});
        EXPECT_TRUE(QApplication::sendEvent(m_first, &event));
        return QToolTip::text();
    };
    const QFontMetricsF font(m_first->font());
    const QString text = "<b>12345678";
    while (look(m_first, text), tip().isEmpty()) {
        --width;
    }
    EXPECT_EQ(tip(), "<p>&lt;b&gt;12345678</p>");
    EXPECT_EQ(width, std::lround(font.horizontalAdvance(text)) + 5) << "a pixel less than it needs";
    if (plain.devicePixelRatio() != 1) {
        return; // its edges lie within pixels of the screen
    }
    // While it is typed in there are ellipses at the ends (< and >) that are out of sight.
    width = static_cast<int>(font.horizontalAdvance(QChar(0x2026))) + 6;
    const QImage ellipsis = look(&plain, QChar(0x2026));
    const QSize size = ellipsis.size();
    std::string marks;
    width = 44;
    for (const int caret : {0, 1, 2, 3, 4, 5, 6, 7, 8, 7, 6, 5, 4, 3, 2, 1, 0}) {
        const QImage seen = look(m_first, "12345678", caret);
        marks += seen.copy(QRect({0, 0}, size)) == ellipsis ? "<" : "";
        marks += seen.copy(QRect({42 - size.width(), 0}, size)) == ellipsis ? "> " : " ";
    }
    EXPECT_EQ(marks, "> > > > >   < < < < <    > > ");
    for (m_second->setFocus(); width < 80; ++width) {
        EXPECT_EQ(look(m_first, text), look(&plain, font.elidedText(text, Qt::ElideRight, width - 6)))
            << width;
    }
}

TEST_F(Controls, FocusIsLostBeforeItIsGained) {
    Play(R"(@second | events:  lost first got second
        !first !first | events:  lost second got first | |
        @button | events:  click
        !disable !second | events: )");
    m_second->setEnabled(true);
    m_first->LostFocus = [this] { GiveFocus(m_first); }; // a handler may move it on
    Play("@second | focus: first; events:  got first");
}

TEST_F(Controls, OtherWindowsOfTheProgramCount) {
    Activate(m_other);
    GiveFocus(m_first);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_form));
    Play("!5 Ctrl+A @first | selected: first ");
    m_events.clear();
    GiveFocus(m_box);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_other));
    Play("| events:  lost first got box");
    Activate(m_foreign);
    Activate(m_other);
    Play("| events: ");
    Activate(m_form);
    // No modifier enters a box that got the keyboard by waking; the first character does.
    for (const Qt::Key modifier : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_ScrollLock,
                                   Qt::Key_AltGr, Qt::Key_Super_L, Qt::Key_Hyper_R}) {
        QKeyEvent press(QEvent::KeyPress, modifier, Qt::NoModifier);
        QApplication::sendEvent(m_first, &press);
        Play("| events:  down 0");
    }
    QInputMethodEvent event;
    event.setCommitString("12"); // as if typed
    QApplication::sendEvent(m_first, &event);
    Play("| events:  lost box got first press 49 press 50 change to 512");
    Play("Ctrl+A @first | selected: first ; events:  down 0 down 65 press 1 up 65 up 0");
    GiveFocus(m_box);
    Activate(m_foreign);
    m_foreign.clearFocus(); // a key may come before the desktop tells which window is active
    QTest::keyClick(m_first, Qt::Key_Delete);
    Play("| events:  lost first got box lost box got first down 46 up 46");
    m_form.hide(); // what was typed ahead is for nobody then
    QTest::keyClick(m_form.windowHandle(), 'x');
    Play("| events: ");
    m_second->setFocus();
    Activate(m_form);
    m_other.AddKeys({QKeySequence("Ctrl+K")}, [this] { m_events += " key"; });
    Play("| focus: first; events: ");
    Activate(m_other);
    Play("Ctrl+K | events:  lost first key");
}

TEST_F(Controls, TheClickThatWakesLeavesTheWholeTextSelected) {
    m_first->SetText("55");
    m_first->SelectAll();
    for (const bool byTheClick : {true, false}) {
        Activate(m_foreign);
        byTheClick ? void() : Activate(m_form);
        Play("@first | selected: first 55");
    }
    Play("@first | selected: first \nCtrl+A !second | selectedText first: ");
    for (const char* dragged : {"", "55"}) { // nor does the press that enters drag the caret along
        const QPoint start = m_first->mapTo(&m_form, QPoint(2, 9));
        QTest::mousePress(m_form.windowHandle(), Qt::LeftButton, {}, start + QPoint(60, 0));
        QTest::mouseMove(m_form.windowHandle(), start);
        QTest::mouseRelease(m_form.windowHandle(), Qt::LeftButton, {}, start);
        Play("| selected: first " + std::string(dragged));
    }
    Play("!second");
    m_first->SelectAll();
    Play("!first @first | selected: first "); // it had the keyboard before the click
    // Backwards, and none.
    const std::pair<const char*, std::string> rows[] = {{"End Shift+Home", "first 55"},
                                                        {"Home Right", "first "}};
    for (const auto& [keys, selected] : rows) {
        Play(keys);
        const int caret = m_first->cursorPosition();
        Activate(m_foreign);
        Activate(m_form);
        Play("| selected: " + selected);
        EXPECT_EQ(m_first->cursorPosition(), caret) << keys;
    }
}

// A dialog stands on the sheet or the like, the keyboard goes back past that, and from another program the
// user comes back to it through the window that it belongs to.
TEST_F(Controls, TheSmallWindowOfAnother) {
    dialogsExpected = true;
    Form tool("frmTool", "Tool", Qt::Tool);
    auto* small = new TextBox("small", tool.Client());
    Add(tool, small, 500);
    Activate(tool);
    tool.windowHandle()->setTransientParent(m_form.windowHandle());
    for (const auto state : {Qt::ApplicationActive, Qt::ApplicationInactive}) {
        GiveFocus(small);
        Activate(m_foreign);
        emit qApp->applicationStateChanged(state);
        m_form.activateWindow();
        QWidget* const expected = state == Qt::ApplicationActive ? &m_form : &tool;
        EXPECT_TRUE(QTest::qWaitFor([=] { return QApplication::activeWindow() == expected; })) << state;
    }
    QDialog dialog(&m_form);
    for (Form* below : {&tool, &tool, &m_form}) {
        tool.setVisible(below == &tool);
        WorkOn([&] { dialog.exec(); }, {[&](QWidget&) {
                   EXPECT_EQ(dialog.windowHandle()->transientParent(), below->windowHandle());
                   dialog.hide();
               }});
        EXPECT_EQ(dialog.windowHandle()->transientParent(), m_form.windowHandle());
    }
}

TEST_F(Controls, AWindowIsPlacedAndShownWithoutTheKeyboard) {
    SetWindowPos(m_other, HWND_TOPMOST, 0, 50, 0, 0, SWP_NOACTIVATE);
    EXPECT_FALSE(m_other.isVisible());
    SetWindowPos(m_other, HWND_TOPMOST, 40, 50, 0, 0, SWP_NOACTIVATE | SWP_SHOWWINDOW);
    EXPECT_TRUE(m_other.isVisible() && m_other.testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_EQ(m_other.geometry().topLeft() - m_other.screen()->geometry().topLeft(), QPoint(40, 50));
}

// It appears by itself where the work lasts, and its button ends the work.
TEST_F(Controls, LongWorkShowsItselfAndCanBeCancelled) {
    dialogsExpected = true;
    Progress progress({"Working...", "Test", 1'000'000'000});
    const auto dialog = [&] { return m_form.findChild<QProgressDialog*>(); };
    ASSERT_TRUE(dialog() != nullptr && dialog()->minimum() == 0 && dialog()->value() == 0);
    int done = 0;
    EXPECT_TRUE(QTest::qWaitFor([&] { return progress.GoOn(++done) && dialog()->isVisible(); }));
    auto* const button = dialog()->findChild<QPushButton*>();
    EXPECT_EQ(dialog()->windowTitle() + "|" + dialog()->labelText() + "|" + button->text(),
              "Test|Working...|Cancel");
    EXPECT_TRUE(dialog()->font() == FormFont() && dialog()->minimumDuration() == 500 && dialog()->isModal() &&
                !dialog()->autoReset());
    const QLabel& text = *dialog()->findChild<QLabel*>();
    EXPECT_TRUE(text.alignment() == Qt::AlignCenter && text.textFormat() == Qt::PlainText);
    QElapsedTimer longStep;
    for (longStep.start(); !longStep.hasExpired(21);) {
    }
    EXPECT_TRUE(progress.GoOn(++done) && dialog()->value() == done);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_FALSE(progress.GoOn(done));
}

// A calculation takes no input but Escape; what is typed meanwhile comes after it.
TEST_F(Controls, LongCalculationsAreToldByThePointer) {
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
        bool goesOn = false; // all else
        QMetaObject::invokeMethod(
            m_form.windowHandle(), [&] { goesOn = true; }, Qt::QueuedConnection);
        while (waiting.GoOn()) {
        }
        EXPECT_TRUE(goesOn);
        EXPECT_EQ(m_first->Text(), "");
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_first->Text(), "12");
}

} // namespace
