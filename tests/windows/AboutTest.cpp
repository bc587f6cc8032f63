#include "extras/windows/frmAbout.h"
#include "platform/files/RegistryStore.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QPaintEvent>
#include <QScreen>

namespace {

// The fixture counts the strokes of the show, as they are painted while no control can be seen.
class About : public WindowTest, public QObject {
  protected:
    void SetUp() override {
        Start();
        qApp->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool isStroke =
            event->type() == QEvent::Paint && qobject_cast<StrokeCanvas*>(watched) != nullptr;
        if (isStroke && m_strokes == 0) { // letters that don't fit are made smaller
            for (const char* name : {"lblPlenair", "lblCR"}) {
                Find(name).setFont(QFont("Liberation Sans", 30));
            }
        }
        m_strokes += isStroke && !Find("picGus").isVisible() && !Find("lblStuff").isVisible() ? 1 : 0;
        return false;
    }

    int m_strokes = 0;
};

TEST_F(About, ControlsAndCallComeAfterTheShowWhichPlaysOnce) {
    const auto look = [this](QWidget& about) {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !desktop.Log.empty(); }, 60'000));
        const int strokes = m_strokes;
        EXPECT_GE(strokes, 2000 + 512) << "each stroke is seen";
        const QPoint off = about.frameGeometry().center() - about.screen()->geometry().center();
        EXPECT_LE(off.manhattanLength(), 2);

        // The panel is black but for its border, in which the scribble is left.
        const QImage shown = Find("canvas").grab().toImage();
        for (int x = 0; x < Find("canvas").width(); ++x) {
            EXPECT_TRUE(x < 10 || x > 347 || ColourAt(shown, x, 200) == "#000000") << x;
        }
        EXPECT_GT(Across(shown, 180, 4).size(), 200) << "many colours";
        const QImage mascot = Find("picGus").grab().toImage();
        EXPECT_NE(mascot.pixelColor(35, 40), mascot.pixelColor(1, 1));
        std::string texts; // of the version all but the number
        for (const std::string name : {"lblPlenair", "lblCR", "lblStuff"}) {
            texts += Ask("visible " + name) + " " +
                     std::to_string(Find(name).font().pointSizeF()).substr(0, 5) +
                     Ask("text " + name).substr(0, name == "lblPlenair" ? 10 : std::string::npos) + "\n";
        }
        ExpectAsInFile("about.txt", texts.substr(0, texts.rfind(' ')) + "\n");
        const std::string where = Ask("text lblStuff") + Ask("toolTip lblStuff"); // if it doesn't fit
        EXPECT_TRUE(where.ends_with(environment.Folder().Path())) << where;

        Play("@picGus @picGus");
        QWidget other;
        other.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
        other.hide();
        about.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&about));
        QCoreApplication::processEvents();
        Play("| log: call, call, call");
        EXPECT_EQ(m_strokes, strokes);
        about.close();
    };
    WorkOn([this] { Play("mnuHelp>mnuHelpAbout"); }, {look});
    EXPECT_TRUE(Window().isActiveWindow());
}

TEST_F(About, AfterAReminderItStandsBesideTheWindow) {
    SetRegistryFile(environment.Folder().File("no store yet"));
    const std::string away = File(std::string(100, 'f'));
    fs::create_directories(away + "/manual");
    SetProgramFolder(away);
    Play("?Yes !fill"); // the show is over then
    QWidget* const about = FindWindow<frmAbout>();
    EXPECT_EQ(Ask("toolTip lblStuff"), away) << "the text leaves out the middle, lest the letters be smaller";
    EXPECT_TRUE(Ask("text lblStuff").ends_with("ff") && Find("lblStuff").font().pointSizeF() == 8.25);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    Play("| selected: txtInputA 500\n6 | text txtInputA: 6\nmnuHelp>mnuHelpAbout");
    EXPECT_TRUE(QTest::qWaitForWindowActive(about));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(std::count(desktop.Log.begin(), desktop.Log.end(), "call"), 1) << "the same box, and no show";
}

} // namespace
