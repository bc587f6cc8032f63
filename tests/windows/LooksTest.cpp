#include "core/windows/frmInputs.h"
#include "extras/windows/frmAbout.h"
#include "platform/qt/FormFont.h"
#include "platform/qt/Icons.h"
#include "platform/qt/Labels.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/ReadableStyle.h"
#include "platform/qt/SurfacePainter.h"
#include "platform/qt/TextFit.h"
#include "platform/qt/Twips.h"
#include "windows/WindowTest.h"

#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyle>
#include <QToolTip>

namespace {

// A window, its controls in the order of their making and its menus: name, place and size in pixels, font,
// how it takes the focus, its texts, and whether it can be seen. One to a line.
std::string Described(QWidget& window) {
    std::ostringstream all;
    const auto write = [&](const QVariant& text) {
        const std::string words = text.toString().replace('\n', '/').toStdString();
        all << (words.empty() ? "" : " ") << words;
    };
    all << window.objectName().toStdString() << ' ' << window.width() << 'x' << window.height() << std::hex
        << ' ' << int(window.windowFlags()) << std::dec;
    write(window.windowTitle());
    all << '\n';
    for (const QWidget* control :
         window.findChildren<QWidget*>(QRegularExpression("^(?!qt_|mnu)[a-z]+[A-Z]"))) {
        const QRect place = control->geometry();
        const QFont font = control->font();
        all << control->objectName().toStdString() << ' ' << place.x() << ',' << place.y() << ' '
            << place.width() << 'x' << place.height() << ' ' << font.pointSizeF() << (font.bold() ? "b" : "")
            << (font.italic() ? "i" : "") << ' ' << control->focusPolicy()
            << (control->isEnabled() ? "" : "-") << (control->isVisibleTo(&window) ? "" : " hidden");
        for (const char* text : {"text", "toolTip", "accessibleName", "alignment", "maxLength", "minimum",
                                 "maximum", "pageStep"}) {
            write(control->property(text));
        }
        if (!control->property("icon").value<QIcon>().isNull()) {
            write(control->property("iconSize").toSize().width());
        }
        for (const auto role : {QPalette::Window, QPalette::WindowText, QPalette::Base, QPalette::Text}) {
            const QColor colour = control->palette().color(role);
            write(colour != window.palette().color(role) ? colour.name() : QString());
        }
        all << '\n';
    }
    for (const QAction* action : window.findChildren<QAction*>(QRegularExpression("^mnu"))) {
        all << action->objectName().toStdString() << (action->isEnabled() ? "" : "-")
            << (action->isCheckable() ? "+" : "");
        write(action->text());
        write(action->shortcut().toString());
        all << '\n';
    }
    return all.str();
}

class Looks : public SolverTest {
  protected:
    ~Looks() override { SetFormScale(1); }
};

TEST_F(Looks, WindowsStandAsInTheTable) {
    SetFormScale(15); // a pixel is a twip then
    OpenSolver();
    std::string all = Described(Window()) + Described(Solver()) + Described(Sheet());
    {
        frmInputs options;
        frmAbout about;
        all += Described(options) + Described(about);
    }
    EndProgram();
    SetFormScale(1); // the solver fits itself to the screen
    OpenSolver();
    all += Described(Solver());
    for (const QMenu* menu : Window().findChildren<QMenu*>()) {
        EXPECT_TRUE(menu->font() == Window().font()) << menu->objectName().toStdString();
    }
    const std::string& folder = environment.Folder().Path();
    all.replace(all.find(folder), folder.size(), "FOLDER");
    ExpectAsInFile("layout.txt", all);
}

TEST_F(Looks, EveryTextFitsItsControl) {
    for (const double scale : {1.0, 16 / 8.25}) { // as drawn, and for letters of 16 points
        SetFormScale(scale);
        OpenSolver();
        const int indicator = Window().style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) + 6;
        int seen = 0;
        for (const char* one : {"cmdMoreInfo", "picGrid", "txtParam(1)"}) {
            for (QWidget* control : Find(one).window()->findChildren<QWidget*>()) {
                const bool isBox = qobject_cast<TextBox*>(control) != nullptr;
                const bool isButton = qobject_cast<Button*>(control) != nullptr;
                const bool isOption = qobject_cast<QRadioButton*>(control) != nullptr;
                const QString text = isBox ? "1234.5" : control->property("text").toString().remove('&');
                const QFontMetrics font = control->fontMetrics();
                const int beside = isBox ? 6 : isOption ? indicator : isButton ? 4 : 0;
                const QSize needed(font.horizontalAdvance(text) + beside,
                                   isButton ? font.ascent() + 2 : font.height());
                if (!text.isEmpty()) {
                    EXPECT_EQ(needed.boundedTo(control->size()), needed)
                        << control->objectName().toStdString();
                    ++seen;
                }
            }
        }
        EXPECT_EQ(seen, 45);
        const auto& grid = Find<MSFlexGrid>("grdMinorCalc");
        EXPECT_LE(grid.fontMetrics().horizontalAdvance("62825") + 3, ToPixelsX(grid.ColWidth(0)));
        EndProgram();
    }
}

TEST_F(Looks, LargeLettersEnlargeTheFormsAsFarAsTheScreenGoes) {
    const std::tuple<double, double, double, double> rows[] = {
        {8, 28800, 16200, 1},          {9, 28800, 16200, 1},
        {11, 28800, 16200, 1},         {16, 28800, 16200, 16 / 8.25},
        {12, 28800, 16200, 12 / 8.25}, {16, 13950, 16200, 1.5},
        {16, 28800, 10350, 1.5},       {16, 9000, 6000, 1}};
    for (const auto& [points, width, height, scale] : rows) {
        EXPECT_DOUBLE_EQ(FormScaleFor(points, width, height), scale) << points << " on " << width;
    }
}

// Palettes as themes give them: background of windows, of boxes, ink, and disabled ink.
struct Theme {
    const char* Window;
    const char* Base;
    const char* Ink;
    const char* Disabled;
    bool IsStrong;

    QPalette Palette() const {
        const QColor ink(Ink);
        QPalette palette(ink, QColor(Window), Qt::white, Qt::black, Qt::gray, ink, Qt::white, QColor(Base),
                         QColor(Window));
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(QPalette::Disabled, role, Disabled);
        }
        return palette;
    }
};

const Theme kThemes[] = {{"#efefef", "#ffffff", "#000000", "#bebebe", false},
                         {"#31363b", "#1b1e20", "#fcfcfc", "#4d5052", true},
                         {"#000000", "#000000", "#ffffff", "#202020", true},
                         {"#ffffff", "#ffffff", "#000000", "#e0e0e0", true}};

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

TEST_F(Looks, ButtonsOnAndOffAndTheFocusOnEachAreToldApart) {
    for (const Theme& theme : kThemes) {
        QWidget window;
        window.setPalette(theme.Palette());
        ToggleButton button(ToggleButton::Kind::CheckBox, "button", &window);
        button.SetIcon("solver/labels", "Labels");
        button.resize(27, 27);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QImage ground = button.grab().toImage();
        ground.fill(QColor(theme.Window));
        std::vector<QImage> looks;
        for (const int look : {0, 1, 2, 3}) {
            button.SetOn(look % 2 == 1);
            look < 2 ? button.clearFocus() : button.setFocus();
            for (const QImage& other : looks) {
                EXPECT_GT(Apart(button.grab().toImage(), other, 1.5), 80) << theme.Window << ' ' << look;
            }
            looks.push_back(button.grab().toImage());
        }
        EXPECT_GT(Apart(looks[1], ground, 1.5), Apart(looks[0], ground, 1.5)) << "on is the stronger one";
        ScrollBar bar("bar", &window);
        bar.resize(60, 20);
        bar.show();
        for (const bool hasFocus : {false, true}) {
            hasFocus ? bar.setFocus() : bar.clearFocus();
            EXPECT_EQ(bar.grab().toImage().pixelColor(1, 1) == bar.palette().color(QPalette::Highlight),
                      hasFocus);
        }
    }
}

TEST_F(Looks, SizesOfIconsAndFonts) {
    EXPECT_EQ(Joined(WindowIcon().availableSizes(), [](QSize size) { return std::to_string(size.width()); }),
              "16 24 32 48 64 128");
    SetFormScale(2);
    const int indicator = ReadableStyle().pixelMetric(QStyle::PM_IndicatorWidth, nullptr, nullptr);
    TakeDesktopFont();
    EXPECT_EQ(indicator, 2 * ReadableStyle().pixelMetric(QStyle::PM_IndicatorWidth, nullptr, nullptr));
    EXPECT_EQ(FormScale(), 1);
    EXPECT_EQ(QToolTip::font(), FormFont());
    EXPECT_EQ(QApplication::font("QMessageBox"), FormFont());
}

TEST_F(Looks, ControlsArePaintedAsInTheTable) {
    std::string all;
    const auto note = [&](const std::string& what, const QImage& picture, int x, int y) {
        all += what + ": " + Across(picture, x, y) + "\n";
    };
    const auto in = [](QPalette palette, QWidget&& control, int width, int height) {
        control.setPalette(palette);
        control.setFont(FormFont(12));
        control.resize(width, height);
        return control.grab().toImage();
    };
    MSFlexGrid grid("", 4, 3, nullptr);
    EXPECT_ANY_THROW(grid.TextMatrix(4, 0));
    EXPECT_ANY_THROW(grid.TextMatrix(0, 3));
    grid.SetColWidth(1, 600);
    grid.SetRowHeight(300);
    for (const int column : {0, 1, 2}) {
        grid.SetColAlignment(column, 1 + 3 * column);
        grid.SetTextMatrix(1, column, column == 1 ? "1234567" : "l");
    }
    for (const Theme& theme : kThemes) {
        QPalette palette = theme.Palette();
        EXPECT_EQ(NeedsStrongLines(palette), theme.IsStrong) << theme.Window;
        ReadableStyle().polish(palette);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            const QColor disabled = palette.color(QPalette::Disabled, role);
            EXPECT_GE(Contrast(disabled, QColor(theme.Window)), 3);
            EXPECT_GE(Contrast(disabled, QColor(theme.Base)), 3);
            all += palette.color(QPalette::Active, role).name().toStdString() + " " +
                   disabled.name().toStdString() + " ";
        }
        note("\nbordered", in(palette, BorderedLabel("", "", nullptr), 40, 30), 5, 5);
        note("box", in(palette, TextBox("", nullptr), 40, 20), 5, 5);
        note("option", in(palette, Option("", QString(), nullptr), 40, 20), 7, 10);
        note("bar", in(palette, ScrollBar("", nullptr), 60, 20), 5, 5);
        QMenu menu;
        menu.addAction("open");
        note("menu", in(palette, std::move(menu), 40, 30), 10, 2);
        palette.setColor(QPalette::Text, Qt::blue);
        note("grid", in(palette, std::move(grid), 170, 50), 5, 30);
    }
    for (const char* colour : {"#000000", "#0a0a0a", "#0b0b0b", "#ff0000", "#00ff00", "#0000ff", "#767676"}) {
        all += ShortestText(Contrast(Qt::white, QColor(colour))).substr(0, 6) + " ";
    }
    for (int width = 20; width < 60; ++width) {
        all += ShortestText(FontThatFits(grid.font(), "1234567", width).pointSizeF()) + " ";
    }
    const QIcon icon = ButtonIcon("solver/labels", kThemes[1].Palette());
    note("\nicon", icon.pixmap({30, 16}, 1).toImage(), 15, 8);
    note("greyed", icon.pixmap({30, 16}, 1, QIcon::Disabled).toImage(), 15, 8);
    note("window", WindowIcon().pixmap({16, 16}, 1).toImage(), 8, 8);
    // Colours so near to each other that the letters have a rim, and such that are just far enough.
    for (const auto& [window, ink] : {std::pair("#ffffff", "#b0b0b0"), std::pair("#ffffff", "#afafaf"),
                                      std::pair("#7f7f7f", "#7f7f7f"), std::pair("#808080", "#808080")}) {
        QPalette palette{QColor(window)};
        palette.setColor(QPalette::WindowText, QColor(ink));
        note("rimmed", in(palette, RimmedLabel("", "1EH1E", nullptr), 40, 31), 35, 15);
    }
    note("scale", in({}, ScalePicture("", nullptr), 3, 81), 1, 1);
    QImage black(60, 30, QImage::Format_RGB32);
    black.fill(Qt::black);
    black.save(QString::fromStdString(File("black.png")));
    ImagePicture image("", QString::fromStdString(File("black.png")), nullptr);
    note("image", in({}, std::move(image), 60, 60), 30, 30);
    for (const char* state : {"up", "under the mouse", "down"}) {
        InsetButton button("", "1", nullptr);
        button.setAttribute(Qt::WA_UnderMouse, *state == 'u' && state[1] == 'n');
        button.setDown(*state == 'd');
        note(state, in(kThemes[0].Palette(), std::move(button), 15, 16), 7, 8);
    }
    for (const double ratio : {1.0, 1.5, 2.0}) {
        QImage picture(120, 60, QImage::Format_RGB32);
        picture.fill(QColor("#4080c0"));
        SurfacePainter painter(picture, ratio, FormFont(12));
        painter.Paint({.Kind = DrawnItem::Shape::Text, .Start = {100, 75}, .Text = "F\u00C5gj1"});
        painter.Paint({.Style = LineStyle::Dashed, .LineWidth = 2, .Start = {60, 30}, .End = {6000, 30}});
        note("letters", picture, static_cast<int>(15 * ratio), static_cast<int>(12 * ratio));
        note("dashes", picture, 5, static_cast<int>(2 * ratio));
    }
    QWidget window;
    LayeredPicture picture;
    PictureBox marked("marked", picture, &window);
    marked.resize(50, 50);
    std::vector<int> keys;
    marked.KeyDown = [&](int code, bool) { return keys.push_back(code), true; };
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    marked.setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Right}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier, "", true);
        QApplication::sendEvent(&marked, &event);
    }
    EXPECT_EQ(keys, std::vector{39}) << "one that is held down moves on, but clicks once";
    QCoreApplication::processEvents();
    for (int line = 0; line < 100; ++line) { // at once, and black
        picture.NetworkLines.Line({7.5 * line, 0}, {7.5 * line, 750}, 0);
    }
    for (const Point place : {Point{100, 100}, Point{300, 320}}) {
        marked.SetCross(place);
        EXPECT_EQ(OnScreen("marked"), marked.grab().toImage());
    }
    note("cross", marked.grab().toImage(), 20, 21);
    note("its arms", marked.grab().toImage(), 14, 17);
    ExpectAsInFile("painted-" + std::to_string(std::lround(100 * image.devicePixelRatio())) + ".txt", all);

    int clicks = 0;
    image.Click = [&] { ++clicks; };
    QTest::mouseClick(&image, Qt::RightButton);
    QTest::mouseRelease(&image, Qt::LeftButton, {}, {61, 5}); // it was pressed inside
    EXPECT_EQ(clicks, 0);
}

// Role, name and description of what a screen reader finds below a control, and where it says it is.
std::string Spoken(QWidget& control) {
    std::ostringstream all;
    QAccessibleInterface* const owner = QAccessible::queryAccessibleInterface(&control);
    for (int index = -1; index <= owner->childCount(); ++index) {
        QAccessibleInterface* const item = owner->child(index);
        if (item == nullptr) {
            all << (index < 0 ? "" : ".");
            continue;
        }
        EXPECT_TRUE(item == owner->child(index) && item->parent() == owner && item->isValid() &&
                    item->childCount() == 0);
        EXPECT_TRUE(item->state().readOnly);
        EXPECT_EQ(owner->indexOfChild(item), index);
        const QPoint place = control.mapFromGlobal(item->rect().topLeft());
        all << item->text(QAccessible::Name).toStdString() << '|'
            << item->text(QAccessible::Description).toStdString() << '|' << place.x() << ',' << place.y()
            << ' ' << item->rect().width() << 'x' << item->rect().height()
            << (item->state().invisible ? " hidden; " : "; ");
    }
    return all.str();
}

TEST_F(Looks, WhatAScreenReaderFinds) {
    OpenSolver();
    DrawRow("RFC");
    EXPECT_EQ(Spoken(Find("picGrid")),
              "R1 rigid, from 1, 3 to 2, 3||0,0 787x730; F2 flexible, from 2, 3 to 3, 3||0,0 787x730; "
              "C3 connection, from 3, 3 to 4, 3||0,0 787x730; .");
    EXPECT_EQ(Spoken(Find("grdOtherShapes")),
              "|Diameter in mm|0,0 50x17 hidden; ||50,0 51x17 hidden; |Velocity in m/s|101,0 50x17 hidden; "
              "|Loss in Pa/m|151,0 50x17 hidden; .");
    auto* table = QAccessible::queryAccessibleInterface(&Find("grdMinorCalc"))->tableInterface();
    EXPECT_EQ(table->cellAt(4, 3)->tableCellInterface()->rowIndex(), 4);
    EXPECT_EQ(table->cellAt(4, 3)->tableCellInterface()->columnIndex(), 3);
    EXPECT_TRUE(table->cellAt(5, 0) == nullptr && table->cellAt(0, 4) == nullptr &&
                table->cellAt(-1, 0) == nullptr);
    EXPECT_EQ(table->columnDescription(3), "Loss in Pa/m");
}

TEST_F(Looks, NumbersThatDoNotFitTheirBox) {
    TextBox box("box", nullptr);
    const auto look = [&box](const char* number, bool atStart) {
        box.SetText(number);
        box.setCursorPosition(atStart ? 0 : 14);
        return box.grab().toImage();
    };
    box.show();
    box.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    for (int width = 44; width < 60; ++width) {
        box.resize(width, 20);
        for (const bool isTyped : {false, true}) {
            isTyped ? box.setFocus() : box.clearFocus();
            EXPECT_EQ(look("12345671111111", true), look("12345678888888", true))
                << "nothing behind the ellipsis";
        }
        EXPECT_EQ(look("11111117654321", false), look("88888887654321", false)) << "nor before it";
    }
}

} // namespace
