#include "extras/windows/frmAbout.h"
#include "platform/files/RegistryStore.h"
#include "platform/qt/QtText.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QPaintEvent>

namespace {

frmAbout* AboutBox() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* about = qobject_cast<frmAbout*>(window); about != nullptr && about->isVisible()) {
            return about;
        }
    }
    return nullptr;
}

// Follows the show from outside: counts what is painted while no control can be seen.
class Spectator : public QObject {
  public:
    int strokes = 0;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* canvas = qobject_cast<StrokeCanvas*>(watched);
        if (canvas != nullptr && event->type() == QEvent::Paint) {
            bool visible = false;
            for (const char* name : {"picGus", "lblPlenair", "lblCR", "lblStuff"}) {
                visible = visible || canvas->window()->findChild<QWidget*>(name)->isVisible();
            }
            strokes += visible ? 0 : 1;
        }
        return false;
    }
};

class About : public WindowTest {
  protected:
    About() { qApp->installEventFilter(&m_spectator); }
    ~About() override { qApp->removeEventFilter(&m_spectator); }
    void SetUp() override {
        Start();
        Desktop().PlaySound = [this](const std::string&, unsigned) {
            ++m_calls;
            m_seenAtCall = AboutBox() != nullptr && Get("picGus").isVisible() && Get("lblStuff").isVisible();
        };
    }

    static QWidget& Get(const char* name) { return *AboutBox()->findChild<QWidget*>(name); }

    // Opens the box from the menu, works on it when the show is over, and closes it.
    void WithAbout(const std::function<void()>& steps) {
        const auto work = [&](QWidget& about) {
            EXPECT_TRUE(QTest::qWaitFor([this] { return m_calls > 0; }, 60'000));
            steps();
            about.close();
        };
        WorkOn([this] { ChooseFromMenu("mnuHelp", "mnuHelpAbout"); }, {work});
        EXPECT_EQ(AboutBox(), nullptr);
    }

    Spectator m_spectator;
    int m_calls = 0;
    bool m_seenAtCall = false;
};

TEST_F(About, ControlsAndCallComeAfterTheShowWhichPlaysOnce) {
    WithAbout([this] {
        const int strokes = m_spectator.strokes;
        EXPECT_GE(strokes, 2000 + 512) << "each stroke is seen";
        EXPECT_EQ(m_calls, 1);
        EXPECT_TRUE(m_seenAtCall);
        EXPECT_EQ(QApplication::activeModalWidget(), AboutBox());

        // The panel is black but for its border, in which the scribble is left.
        const QImage shown = Get("canvas").grab().toImage();
        int coloured = 0;
        for (int x = 0; x < shown.width(); ++x) {
            coloured += shown.pixelColor(x, 4) != QColor(Qt::black) ? 1 : 0;
            EXPECT_TRUE(x < 10 || x > 347 || shown.pixelColor(x, 200) == QColor(Qt::black)) << x;
        }
        EXPECT_GT(coloured, 50);
        const QImage mascot = Get("picGus").grab().toImage();
        EXPECT_NE(mascot.pixelColor(35, 40), mascot.pixelColor(1, 1));
        for (const char* name : {"lblPlenair", "lblCR", "lblStuff"}) {
            const QSize needed = Get(name).sizeHint().expandedTo(Get(name).size());
            EXPECT_EQ(needed, Get(name).size()) << name << " holds its text";
        }

        // It says where to turn, and the whole of it where there is no room.
        const QString stuff = dynamic_cast<QLabel&>(Get("lblStuff")).text();
        const QString address = Get("lblStuff").toolTip();
        EXPECT_TRUE(address.isEmpty() ? stuff.endsWith(ToQt(m_environment.Folder().Path()))
                                      : address == ToQt(m_environment.Folder().Path()));

        ClickOn(&Get("picGus"));
        ClickOn(&Get("picGus"));
        QWidget other;
        other.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        other.hide();
        AboutBox()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(AboutBox()));
        QTest::qWait(10);
        EXPECT_EQ(m_calls, 3);
        EXPECT_EQ(m_spectator.strokes, strokes);
    });
    EXPECT_TRUE(Window().isActiveWindow());
}

TEST_F(About, AfterAReminderItStandsBesideTheWindow) {
    SetRegistryFile(m_environment.Folder().File("no store yet"));
    desktop.ExpectMessage(MessageAnswer::Yes);
    FillTable();
    ASSERT_NE(AboutBox(), nullptr);
    EXPECT_EQ(m_calls, 1) << "the show is over";
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    EXPECT_EQ(Ask("selected"), "txtInputA 500");
    Type("6");
    EXPECT_EQ(Text("txtInputA"), "6");

    ChooseFromMenu("mnuHelp", "mnuHelpAbout");
    EXPECT_TRUE(QTest::qWaitForWindowActive(AboutBox()));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(m_calls, 1) << "the same box comes to the front";
    AboutBox()->close();
    EXPECT_EQ(AboutBox(), nullptr);
}

} // namespace
