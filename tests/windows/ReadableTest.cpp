#include "platform/qt/ReadableStyle.h"
#include "windows/WindowTest.h"

namespace {

// Palettes as themes give them: background of windows, of boxes, ink, and disabled ink.
struct Theme {
    const char* name;
    const char* window;
    const char* base;
    const char* ink;
    const char* disabled;
    bool strong;

    QPalette Palette() const {
        QPalette palette{QColor(window), QColor(window)};
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            palette.setColor(group, QPalette::Base, base);
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
                palette.setColor(group, role, group == QPalette::Disabled ? disabled : ink);
            }
        }
        return palette;
    }
};

const Theme kThemes[] = {{"light", "#efefef", "#ffffff", "#000000", "#bebebe", false},
                         {"dark", "#31363b", "#1b1e20", "#fcfcfc", "#4d5052", true},
                         {"white on black", "#000000", "#000000", "#ffffff", "#202020", true},
                         {"black on white", "#ffffff", "#ffffff", "#000000", "#e0e0e0", true}};

// The best contrast to a background that any pixel of a picture has.
double Seen(const QWidget& widget, const QColor& background) {
    const QImage picture = const_cast<QWidget&>(widget).grab().toImage();
    double best = 1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            best = std::max(best, Contrast(picture.pixelColor(x, y), background));
        }
    }
    return best;
}

TEST(Readable, ButtonsOnAndOffAndTheFocusOnEachAreToldApart) {
    for (const Theme& theme : kThemes) {
        QWidget window;
        window.setPalette(theme.Palette());
        ToggleButton button(ToggleButton::Kind::CheckBox, "button", &window);
        button.SetIcon("solver/labels", "Labels");
        button.resize(27, 27);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        std::vector<QImage> looks;
        for (const bool focused : {false, true}) {
            focused ? button.setFocus() : button.clearFocus();
            for (const bool on : {false, true}) {
                button.SetOn(on);
                looks.push_back(button.grab().toImage());
            }
        }
        for (const QImage& one : looks) {
            for (const QImage* other = &one + 1; other <= &looks.back(); ++other) {
                int seen = 0;
                for (int pixel = 0; pixel < 27 * 27; ++pixel) {
                    const QPoint at(pixel % 27, pixel / 27);
                    seen += Contrast(one.pixelColor(at), other->pixelColor(at)) > 1.5 ? 1 : 0;
                }
                EXPECT_GT(seen, 80) << theme.name << ' ' << &one - &looks.front() << ' '
                                    << other - &looks.front();
            }
        }
    }
}

TEST(Readable, DisabledTextsAndLinesInEveryTheme) {
    for (const Theme& theme : kThemes) {
        SCOPED_TRACE(theme.name);
        QPalette palette = theme.Palette();
        ReadableStyle style;
        EXPECT_EQ(NeedsStrongLines(palette), theme.strong);
        style.polish(palette);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::Button}) {
                EXPECT_GE(Contrast(palette.color(QPalette::Disabled, role),
                                   palette.color(QPalette::Disabled, ground)),
                          3);
            }
            EXPECT_EQ(palette.color(QPalette::Active, role), QColor(theme.ink));
        }
        TextBox box("box", nullptr);
        Option option("option", QString(), nullptr); // off
        MSFlexGrid grid("grid", 2, 2, nullptr);
        for (QWidget* control :
             {static_cast<QWidget*>(&box), static_cast<QWidget*>(&option), static_cast<QWidget*>(&grid)}) {
            control->setPalette(palette);
            control->resize(60, 20);
            const bool inBox = control != &option;
            const double lines = Seen(*control, QColor(inBox ? theme.base : theme.window));
            EXPECT_GE(lines, theme.strong ? 3 : 1.5) << control->objectName().toStdString();
        }
    }
    TextBox box("box", nullptr);
    const auto look = [&box](const char* number) {
        box.SetText(number);
        return box.grab().toImage();
    };
    for (int width = 44; width < 60; ++width) {
        box.resize(width, 20);
        EXPECT_EQ(look("12345671111111"), look("12345678888888")) << "nothing behind the ellipsis";
    }
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(Contrast(QColor("#767676"), Qt::white), 4.54, 0.01);
}

} // namespace
