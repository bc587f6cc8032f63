#include "platform/qt/ReadableStyle.h"
#include "windows/WindowTest.h"

namespace {

// Palettes as themes give them: background of windows, of boxes, ink, and disabled ink.
struct Theme {
    const char* Name;
    const char* Window;
    const char* Base;
    const char* Ink;
    const char* Disabled;
    bool IsStrong;

    QPalette Palette() const {
        QPalette palette{QColor(Window), QColor(Window)};
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            palette.setColor(group, QPalette::Base, Base);
            for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
                palette.setColor(group, role, group == QPalette::Disabled ? Disabled : Ink);
            }
        }
        return palette;
    }
};

const Theme kThemes[] = {{"light", "#efefef", "#ffffff", "#000000", "#bebebe", false},
                         {"dark", "#31363b", "#1b1e20", "#fcfcfc", "#4d5052", true},
                         {"white on black", "#000000", "#000000", "#ffffff", "#202020", true},
                         {"black on white", "#ffffff", "#ffffff", "#000000", "#e0e0e0", true}};

// The pixels of two pictures of one size, or of a picture and a background, that are told apart by that
// contrast.
int Apart(const QImage& one, const QImage& other, double contrast) {
    int apart = 0;
    for (int pixel = 0; pixel < one.width() * one.height(); ++pixel) {
        const QPoint at(pixel % one.width(), pixel / one.width());
        apart += Contrast(one.pixelColor(at), other.pixelColor(at)) >= contrast ? 1 : 0;
    }
    return apart;
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
        for (const int look : {0, 1, 2, 3}) {
            button.SetOn(look % 2 == 1);
            look < 2 ? button.clearFocus() : button.setFocus();
            for (const QImage& other : looks) {
                EXPECT_GT(Apart(button.grab().toImage(), other, 1.5), 80) << theme.Name << ' ' << look;
            }
            looks.push_back(button.grab().toImage());
        }
    }
}

TEST(Readable, DisabledTextsAndLinesInEveryTheme) {
    for (const Theme& theme : kThemes) {
        SCOPED_TRACE(theme.Name);
        QPalette palette = theme.Palette();
        ReadableStyle style;
        EXPECT_EQ(NeedsStrongLines(palette), theme.IsStrong);
        style.polish(palette);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::Button}) {
                EXPECT_GE(Contrast(palette.color(QPalette::Disabled, role),
                                   palette.color(QPalette::Disabled, ground)),
                          3);
            }
            EXPECT_EQ(palette.color(QPalette::Active, role), QColor(theme.Ink));
        }
        TextBox box("box", nullptr);
        Option option("option", QString(), nullptr); // off
        MSFlexGrid grid("grid", 2, 2, nullptr);
        const std::pair<QWidget*, const char*> controls[] = {
            {&box, theme.Base}, {&option, theme.Window}, {&grid, theme.Base}};
        for (const auto& [control, ground] : controls) {
            control->setPalette(palette);
            control->resize(60, 20);
            const QImage picture = control->grab().toImage();
            QImage plain = picture;
            plain.fill(QColor(ground));
            EXPECT_GT(Apart(picture, plain, theme.IsStrong ? 3 : 1.5), 0)
                << control->objectName().toStdString();
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
