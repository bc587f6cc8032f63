#include "extras/frmAbout.h"
#include "platform/RegistryStore.h"
#include "platform/Sound.h"
#include "windows/WindowTest.h"

#include <QApplication>
#include <QPaintEvent>
#include <QTimer>

#include <functional>

namespace plenair {
namespace {

frmAbout* AboutBox() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* about = qobject_cast<frmAbout*>(window); about != nullptr && about->isVisible()) {
            return about;
        }
    }
    return nullptr;
}

// Follows the show from outside: what is painted, and what can be seen at that moment.
class Spectator : public QObject {
  public:
    int strokes = 0; // while no control was visible
    int pixels = 0;  // painted with them

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* canvas = qobject_cast<AboutCanvas*>(watched);
        if (canvas != nullptr && event->type() == QEvent::Paint) {
            bool visible = false;
            for (const char* name : {"picGus", "lblPlenair", "lblCR", "lblStuff"}) {
                visible = visible || canvas->window()->findChild<QWidget*>(name)->isVisible();
            }
            for (const QRect& painted : static_cast<QPaintEvent*>(event)->region()) {
                pixels += visible ? 0 : painted.width() * painted.height();
            }
            strokes += visible ? 0 : 1;
        }
        return false;
    }
};

class About : public WindowTest {
  protected:
    About() { qApp->installEventFilter(&m_spectator); }
    ~About() override {
        qApp->removeEventFilter(&m_spectator);
        SetSoundProvider({});
    }
    void SetUp() override {
        Start();
        SetSoundProvider([this](const std::string&) {
            ++m_calls;
            m_seenAtCall = AboutBox() != nullptr && Get("picGus").isVisible() && Get("lblStuff").isVisible();
        });
    }

    static QWidget& Get(const char* name) { return *AboutBox()->findChild<QWidget*>(name); }
    static std::string Caption(const char* name) {
        return AboutBox()->findChild<Label*>(name)->text().toStdString();
    }

    // Opens the box from the menu, works on it when the show is over, and closes it.
    void WithAbout(const std::function<void()>& steps) {
        bool opened = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            if (m_calls == 0) {
                return;
            }
            timer.stop();
            opened = true;
            steps();
            if (frmAbout* const box = AboutBox()) {
                box->close();
            }
        });
        timer.start(5);
        ChooseFromMenu("mnuHelp", "mnuHelpAbout");
        EXPECT_TRUE(opened);
        EXPECT_EQ(AboutBox(), nullptr);
    }

    Spectator m_spectator;
    int m_calls = 0;
    bool m_seenAtCall = false;
};

TEST_F(About, ControlsComeAfterTheShowAndTheCallAfterThem) {
    WithAbout([this] {
        EXPECT_GE(m_spectator.strokes, 2000 + 512) << "each stroke is seen";
        EXPECT_LT(m_spectator.pixels / m_spectator.strokes, 358 * 326 / 12) << "and costs what it covers";
        EXPECT_EQ(m_calls, 1);
        EXPECT_TRUE(m_seenAtCall);
        EXPECT_EQ(AboutBox()->windowTitle(), "About Plenair");
        EXPECT_EQ(AboutBox()->Client()->size(), QSize(358, 326));
        EXPECT_EQ(QApplication::activeModalWidget(), AboutBox());

        // The panel is black but for its border, in which the scribble is left.
        const QImage shown = Get("canvas").grab().toImage();
        int coloured = 0;
        for (int x = 0; x < shown.width(); ++x) {
            coloured += shown.pixelColor(x, 4) != QColor(Qt::black) ? 1 : 0;
            EXPECT_TRUE(x < 10 || x > 347 || shown.pixelColor(x, 200) == QColor(Qt::black)) << x;
        }
        EXPECT_GT(coloured, 50);
    });
}

TEST_F(About, TheCallComesWithEachClickAndNotWithActivation) {
    WithAbout([this] {
        const int strokes = m_spectator.strokes;
        ClickOn(&Get("picGus"));
        ClickOn(&Get("picGus"));
        EXPECT_EQ(m_calls, 3);
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
    const int strokes = m_spectator.strokes;
    m_calls = 0;
    WithAbout([] {});
    EXPECT_GE(m_spectator.strokes - strokes, 2000 + 512) << "each opening has its show";
    EXPECT_TRUE(Window().isActiveWindow());
}

TEST_F(About, TextsFitTheirPlaces) {
    WithAbout([] {
        EXPECT_EQ(Caption("lblPlenair"), " Plenair v1.02");
        EXPECT_TRUE(Caption("lblCR").starts_with(" "));
        const QStringList lines = QString::fromStdString(Caption("lblStuff")).split('\n');
        ASSERT_EQ(lines.size(), 16);
        EXPECT_EQ(lines.mid(3, 9).join('|'),
                  "Plenair remains in a paused state of development until I generate|"
                  "enough spare time to complete it, or someone else decides to own|"
                  "the software, add their name to it, develop & support it.||"
                  "The code is structured to allow adaption to many fluid flow|"
                  "calculations - air, water, gas, ducts, pipes etc.||"
                  "Many other features can also be expanded to provide even more of|"
                  "what Plenair does best - save you time in sizing ductwork.");
        for (const int empty : {0, 2, 12, 14}) {
            EXPECT_EQ(lines[empty], "");
        }
        for (const char* name : {"lblPlenair", "lblCR", "lblStuff"}) {
            const QSize needed = static_cast<Label&>(Get(name)).sizeHint();
            EXPECT_LE(needed.width(), Get(name).width()) << name;
            EXPECT_LE(needed.height(), Get(name).height()) << name;
        }
        EXPECT_EQ(Get("picGus").geometry(), QRect(14, 14, 71, 64));
        const QImage mascot = Get("picGus").grab().toImage();
        EXPECT_EQ(mascot.pixelColor(1, 1), QColor(Qt::white));
        EXPECT_NE(mascot.pixelColor(35, 40), mascot.pixelColor(1, 1));
    });
}

TEST_F(About, AfterAReminderItStandsBesideTheWindow) {
    SetRegistryFile(m_environment.Folder().File("no store yet"));
    m_messages.Expect(MessageAnswer::Yes);
    FillTable();
    ASSERT_NE(AboutBox(), nullptr);
    EXPECT_EQ(m_calls, 1) << "the show is over";
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Window()));
    EXPECT_TRUE(HasFocusSelected("txtInputA"));
    Type("6");
    EXPECT_EQ(Text("txtInputA"), "6");

    ChooseFromMenu("mnuHelp", "mnuHelpAbout");
    EXPECT_TRUE(QTest::qWaitForWindowActive(AboutBox()));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(m_calls, 1) << "the same box comes to the front";
    AboutBox()->close();
    EXPECT_EQ(AboutBox(), nullptr);
    Window().activateWindow();
    m_calls = 0;
    WithAbout([] { EXPECT_EQ(QApplication::activeModalWidget(), AboutBox()); });
}

} // namespace
} // namespace plenair
