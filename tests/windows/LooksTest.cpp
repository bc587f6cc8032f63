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
#include <QDirIterator>
#include <QMenu>
#include <QRadioButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QStyle>
#include <QToolTip>

namespace {

// The icon that a control shows: the one that gives its picture.
QString IconOf(QWidget& control) {
    const QIcon own = control.property("icon").value<QIcon>();
    const auto picture = [](const QIcon& icon) { return icon.pixmap(32, 32).toImage(); };
    for (QDirIterator files(":/icons", {"*.svg"}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        const QString name = files.next().chopped(4).mid(8);
        Picture other("other", name, control.parentWidget());
        other.resize(control.size());
        if (own.isNull() ? other.grab().toImage() == control.grab().toImage()
                         : picture(ButtonIcon(name, control.palette())) == picture(own)) {
            return name;
        }
    }
    return "no icon";
}

// A window, its controls in the order of their making, its menus and its keys: name, place and size in
// pixels, font, how it takes the focus, its texts, and whether it can be seen and is on. One to a line. Each
// text must fit its control.
std::string Described(QWidget& window) {
    std::ostringstream all;
    const auto write = [&](const QVariant& text) {
        const std::string words = text.toString().replace('\n', '/').toStdString();
        all << (words.empty() ? "" : " ") << words;
    };
    const auto writePlace = [&](const QRect& place) {
        all << ' ' << place.x() << ',' << place.y() << ' ' << place.width() << 'x' << place.height();
    };
    window.winId(); // makes the native window, which has its own title
    all << window.objectName().toStdString() << ' ' << window.width() << 'x' << window.height() << std::hex
        << ' ' << int(window.windowFlags()) << std::dec;
    write(window.windowHandle()->title());
    write(window.accessibleName());
    all << '\n';
    for (QWidget* control : window.findChildren<QWidget*>(QRegularExpression("^(?!qt_|mnu)[a-z]+[A-Z]"))) {
        const QFont font = control->font();
        all << control->objectName().toStdString();
        writePlace(control->geometry());
        all << ' ' << font.pointSizeF() << (font.bold() ? "b" : "") << (font.italic() ? "i" : "") << ' '
            << control->focusPolicy() << (control->isEnabled() ? "" : "-")
            << (control->isVisibleTo(&window) ? "" : " hidden")
            << (control->property("checked").toBool() ? " on" : "");
        for (const char* text : {"text", "toolTip", "accessibleName", "alignment", "maxLength", "minimum",
                                 "maximum", "pageStep", "tracking"}) {
            write(control->property(text));
        }
        const bool isBox = qobject_cast<const TextBox*>(control) != nullptr;
        const bool isButton = qobject_cast<const Button*>(control) != nullptr;
        const QString shown = isBox ? "1234.5" : control->property("text").toString().remove('&');
        const QFontMetrics letters(font);
        const int beside = isBox      ? 6
                           : isButton ? 4
                           : qobject_cast<const QRadioButton*>(control) != nullptr
                               ? control->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) + 6
                               : 0;
        const QSize needed(letters.horizontalAdvance(shown) + beside,
                           isButton ? letters.ascent() + 2 : letters.height());
        EXPECT_TRUE(shown.isEmpty() || shown.contains('\n') || needed.boundedTo(control->size()) == needed)
            << control->objectName().toStdString();
        const bool hasIcon = !control->property("icon").value<QIcon>().isNull();
        if (hasIcon || qobject_cast<Picture*>(control) != nullptr) {
            write(IconOf(*control));
            write(hasIcon ? control->property("iconSize").toSize().width() : QVariant());
        }
        const auto* grid = qobject_cast<MSFlexGrid*>(control);
        for (int column = 0; grid != nullptr && column < grid->Columns(); ++column) {
            writePlace(grid->CellPlace(grid->Rows() - 1, column));
            all << ' ' << grid->ColAlignment(column);
            write(grid->ColHeading(column));
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
    all << "menus, keys";
    for (const QMenu* menu : window.findChildren<QMenu*>(QRegularExpression("^mnu"))) {
        write(menu->title());
    }
    for (const QShortcut* shortcut : window.findChildren<QShortcut*>()) {
        write(QKeySequence::listToString(shortcut->keys()) + (shortcut->autoRepeat() ? "" : " once"));
    }
    all << '\n';
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
    Find<Button>("cmdMoreInfo").click();
    all += "unfolded " + std::to_string(Window().height()) + "\n";
    {
        frmInputs options;
        frmAbout about;
        all += Described(options) + Described(about);
    }
    for (const double scale : {16 / 8.25, 1.0}) { // for letters of 16 points, and as drawn
        EndProgram();
        SetFormScale(scale);
        OpenSolver();
        EXPECT_LE(Find("grdMinorCalc").fontMetrics().horizontalAdvance("62825") + 3,
                  ToPixelsX(Find<MSFlexGrid>("grdMinorCalc").ColWidth(0)));
        Described(Window());
        Described(Solver());
        Described(Sheet());
    }
    all += Described(Solver()); // it fits itself to the screen
    for (const QMenu* menu : Window().findChildren<QMenu*>()) {
        EXPECT_TRUE(menu->font() == Window().font()) << menu->objectName().toStdString();
    }
    const std::string& folder = environment.Folder().Path();
    all.replace(all.find(folder), folder.size(), "FOLDER");
    ExpectAsInFile("layout.txt", all);
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

// Palettes as themes give them: background of windows, of boxes, ink, and disabled ink; and what is made of
// them.
struct Theme {
    const char* Window;
    const char* Base;
    const char* Ink;
    const char* Disabled;
    bool IsStrong;
    const char* Solver; // the lines of its grid, headings, and letters and ground of boxes that are locked

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

const Theme kThemes[] = {
    {"#efefef", "#ffffff", "#000000", "#bebebe", false, "#efefef #0000ff #0000ff #efefef"},
    {"#31363b", "#1b1e20", "#fcfcfc", "#4d5052", true, "#f0f0f0 #8caaff #8caaff #31363b"},
    {"#000000", "#000000", "#ffffff", "#202020", true, "#c0c0c0 #8caaff #8caaff #000000"},
    {"#ffffff", "#ffffff", "#000000", "#e0e0e0", true, "#c0c0c0 #0000ff #0000ff #ffffff"}};

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
        button.resize(28, 28);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_EQ(button.iconSize(), QSize(20, 20)) << "with room for the frame of the focus around it";
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
            EXPECT_EQ(ColourAt(looks.back(), 2, 9) == theme.Ink, look >= 2) << theme.Window << ' ' << look;
        }
        EXPECT_GT(Apart(looks[1], ground, 1.5), Apart(looks[0], ground, 1.5)) << "on is the stronger one";
        ScrollBar bar("bar", &window);
        bar.resize(60, 20);
        bar.show();
        for (const bool hasFocus : {false, true}) {
            hasFocus ? bar.setFocus() : bar.clearFocus();
            const QImage picture = bar.grab().toImage();
            const std::string mark = bar.palette().color(QPalette::Highlight).name().toStdString();
            EXPECT_EQ(ColourAt(picture, 1, 1) == mark && ColourAt(picture, 59, 19) == mark &&
                          ColourAt(picture, 2, 2) != mark,
                      hasFocus);
        }
    }
}

TEST_F(Looks, ColoursOfTheSolverInEveryTheme) {
    for (const Theme& theme : kThemes) {
        QApplication::setPalette(theme.Palette());
        OpenSheet("R");
        const QPalette locked = Find("txtParam(2)").palette();
        const QColor colours[] = {ToColour(Solver().BackColour()),
                                  Find("lblDuct").palette().windowText().color(), locked.text().color(),
                                  locked.base().color()};
        EXPECT_EQ(Joined(colours, [](const QColor& colour) { return colour.name().toStdString(); }),
                  theme.Solver);
        EXPECT_EQ(ColourAt(OnScreen("lblParam(1)"), 125, 9), theme.Base);
        EXPECT_EQ(Find("lblParam(1)").foregroundRole(), QPalette::Text);
        EndProgram();
    }
    QApplication::setPalette(QPalette());
}

TEST_F(Looks, SizesOfIconsAndFonts) {
    EXPECT_EQ(Joined(WindowIcon().availableSizes(), [](QSize size) { return std::to_string(size.width()); }),
              "16 24 32 48 64 128");
    const QFont before = QApplication::font();
    QApplication::setFont(QFont("DejaVu Sans Condensed")); // its digits are wider than the drawn ones
    EXPECT_EQ(FormFont().family(), "Liberation Sans");
    QApplication::setFont(before);
    EXPECT_EQ(Label("label", "", nullptr).textFormat(), Qt::PlainText);
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
        picture.BaseLines.Line({7.5 * line, 0}, {7.5 * line, 750}, 0);
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
                    item->childCount() == 0 && item->indexOfChild(owner) == -1);
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
    const auto* last = QAccessible::queryAccessibleInterface(&Find("picGrid"))->child(2);
    Play("@cmdLessDuct(2)");
    EXPECT_FALSE(last->isValid());
    auto* table = QAccessible::queryAccessibleInterface(&Find("grdMinorCalc"))->tableInterface();
    const auto* cell = table->cellAt(4, 3)->tableCellInterface();
    EXPECT_TRUE(cell->rowIndex() == 4 && cell->columnIndex() == 3 && !cell->isSelected() &&
                cell->rowExtent() == 1 && cell->columnExtent() == 1);
    EXPECT_TRUE(table->cellAt(0, 0) != nullptr && table->cellAt(5, 0) == nullptr &&
                table->cellAt(0, 4) == nullptr && table->cellAt(-1, 0) == nullptr &&
                table->cellAt(0, -1) == nullptr);
    EXPECT_EQ(table->selectedCellCount() + table->selectedColumnCount() + table->selectedRowCount(), 0);
    EXPECT_FALSE(table->selectRow(0) || table->selectColumn(0) || table->unselectRow(0) ||
                 table->unselectColumn(0) || table->isRowSelected(0) || table->isColumnSelected(0));
    frmInputs options;
    const auto role = [](QWidget& of) { return QAccessible::queryAccessibleInterface(&of)->role(); };
    EXPECT_TRUE(role(Window()) == QAccessible::Window && role(options) == QAccessible::Dialog &&
                role(Find("picHeight")) == QAccessible::Graphic &&
                role(Find("picScale")) == QAccessible::Graphic);
    EXPECT_EQ(table->columnDescription(3), "Loss in Pa/m");
}

} // namespace
