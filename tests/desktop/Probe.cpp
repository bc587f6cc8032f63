// Loaded into the program by Qt as a generic plugin. Answers, over a socket that it inherits, what a user
// could see: one question a line, one answer a line. It only reads; keys and clicks come through the X
// server.
#include <QAbstractButton>
#include <QAbstractNativeEventFilter>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QGenericPlugin>
#include <QMenu>
#include <QMenuBar>
#include <QSocketNotifier>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <ctime>

#include <unistd.h>
#include <xcb/xcb.h>

namespace {

class Probe : public QObject, public QAbstractNativeEventFilter {
  public:
    explicit Probe(int socket) : m_socket(socket), m_notifier(socket, QSocketNotifier::Read) {
        connect(&m_notifier, &QSocketNotifier::activated, this, &Probe::Read);
        qApp->installNativeEventFilter(this);
    }

    // Counts the keys and mouse buttons going down that have come from the server, the buttons as those of
    // the one pointer and not of each mouse behind it: the window manager may hold the former back for a
    // while.
    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override {
        const auto* event = static_cast<xcb_ge_generic_event_t*>(message);
        constexpr int kXiButtonPress = 4;
        constexpr int kPointer = 2;
        const int type = event->response_type & 0x7f;
        const int device = event->pad0[0] + event->pad0[1]; // 16 bits, and never many
        const bool isButton =
            type == XCB_GE_GENERIC && event->event_type == kXiButtonPress && device == kPointer;
        m_presses += type == XCB_KEY_PRESS || isButton ? 1 : 0;
        return false;
    }

  private:
    void Read() {
        char buffer[512];
        const auto count = read(m_socket, buffer, sizeof buffer);
        if (count <= 0) {
            m_notifier.setEnabled(false);
            return;
        }
        m_questions.append(buffer, static_cast<qsizetype>(count));
        for (qsizetype end; (end = m_questions.indexOf('\n')) >= 0;) {
            const QString question = QString::fromUtf8(m_questions.first(end));
            m_questions.remove(0, end + 1);
            const QByteArray answer =
                Answer(question.section(' ', 0, 0), question.section(' ', 1)).replace('\n', "\\n").toUtf8() +
                '\n';
            if (write(m_socket, answer.constData(), static_cast<std::size_t>(answer.size())) < 0) {
                return;
            }
        }
    }

    static QString NameOf(const QObject* object) {
        return object == nullptr                ? "none"
               : object->objectName().isEmpty() ? object->metaObject()->className()
                                                : object->objectName();
    }

    // By object name, class name or caption; of several the one in the window in use.
    static QObject* Find(const QString& name) {
        QWidgetList windows = {QApplication::activePopupWidget(), QApplication::activeModalWidget(),
                               QApplication::activeWindow()};
        windows += QApplication::topLevelWidgets();
        const auto called = [&name](const QObject* object) {
            const auto* button = qobject_cast<const QAbstractButton*>(object);
            const auto* action = qobject_cast<const QAction*>(object);
            const QString caption = button != nullptr   ? button->text()
                                    : action != nullptr ? action->text()
                                                        : QString();
            return NameOf(object) == name || object->metaObject()->className() == name ||
                   QString(caption).remove('&') == name;
        };
        for (QWidget* window : windows) {
            if (window == nullptr || (!window->isVisible() && NameOf(window) != name)) {
                continue;
            }
            if (called(window)) {
                return window;
            }
            for (QObject* object : window->findChildren<QObject*>()) {
                if (called(object)) {
                    return object;
                }
            }
        }
        return nullptr;
    }

    // Whether a window is on the screen, the window manager done with it, and the program told so; sets where
    // the server has it.
    static bool IsThere(const QWidget* window, QPoint& origin) {
        auto* server = qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
        const auto id =
            static_cast<xcb_window_t>(window->windowHandle()->winId()); // the widget may know an old one
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
        const auto atom = xcb_intern_atom_reply(server, xcb_intern_atom(server, 0, 8, "WM_STATE"), nullptr);
        const auto state = xcb_get_property_reply(
            server, xcb_get_property(server, 0, id, atom->atom, XCB_GET_PROPERTY_TYPE_ANY, 0, 1), nullptr);
        const auto look =
            xcb_get_window_attributes_reply(server, xcb_get_window_attributes(server, id), nullptr);
        const auto place = xcb_translate_coordinates_reply(
            server, xcb_translate_coordinates(server, id, root, 0, 0), nullptr);
        const bool isThere = window->windowHandle()->isExposed() && state != nullptr && look != nullptr &&
                             place != nullptr && look->map_state == XCB_MAP_STATE_VIEWABLE &&
                             (look->override_redirect || state->value_len > 0);
        origin = place != nullptr ? QPoint(place->dst_x, place->dst_y) : QPoint();
        for (void* reply : {static_cast<void*>(atom), static_cast<void*>(state), static_cast<void*>(look),
                            static_cast<void*>(place)}) {
            std::free(reply);
        }
        return isThere;
    }

    // In pixels of the whole screen; empty if it can't be seen.
    static QRect Place(const QWidget* widget, const QRect& part) {
        QPoint origin;
        if (!widget->isVisible() || !IsThere(widget->window(), origin)) {
            return {};
        }
        const double scale = widget->devicePixelRatio();
        const QPointF inWindow = widget->mapTo(widget->window(), part.topLeft());
        return {origin + (inWindow * scale).toPoint(), (part.size().toSizeF() * scale).toSize()};
    }

    // The widget that shows an object, and the part of it that does: a menu's entry, the entry of a closed
    // menu in its bar, or a whole control.
    static std::pair<const QWidget*, QRect> Shown(QObject* object) {
        auto* menu = qobject_cast<QMenu*>(object);
        QAction* action = menu != nullptr && !menu->isVisible() ? menu->menuAction() : nullptr;
        action = action != nullptr ? action : qobject_cast<QAction*>(object);
        if (action == nullptr) {
            auto* widget = qobject_cast<QWidget*>(object);
            return {widget, widget != nullptr ? widget->rect() : QRect()};
        }
        for (QObject* owner : action->associatedObjects()) {
            auto* opened = qobject_cast<QMenu*>(owner);
            auto* bar = qobject_cast<QMenuBar*>(owner);
            if (opened != nullptr && opened->isVisible()) {
                return {opened, opened->actionGeometry(action)};
            }
            if (bar != nullptr) {
                return {bar, bar->actionGeometry(action)};
            }
        }
        return {};
    }

    static QRect Place(QObject* object) {
        const auto [widget, part] = Shown(object);
        return widget == nullptr ? QRect() : Place(widget, part);
    }

    static QString Words(const QRect& rect) {
        return QString("%1 %2 %3 %4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
    }

    static QString Windows() {
        QStringList all;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible()) {
                all << NameOf(window) + (window->isActiveWindow() ? "*" : "") + " " +
                           Words(window->frameGeometry());
            }
        }
        return all.join(", ");
    }

    // The cells of a table by rows, or, of the lamps, their colours.
    static QString Table(QObject* object) {
        QStringList rows;
        for (int row = 0; row < 5; ++row) {
            QString text;
            for (int column = 0; column < 4; ++column) {
                QString cell;
                QMetaObject::invokeMethod(object, "CellText", Q_RETURN_ARG(QString, cell), Q_ARG(int, row),
                                          Q_ARG(int, column));
                text += (cell.isEmpty() || text.isEmpty() ? "" : " ") + cell;
            }
            if (!text.isEmpty()) {
                rows << text;
            }
        }
        return rows.join(", ");
    }

    // The windows that take input now.
    static QWidgetList Open() {
        QWidget* only = QApplication::activePopupWidget();
        only = only != nullptr ? only : QApplication::activeModalWidget();
        QWidgetList windows = only != nullptr ? QWidgetList{only} : QApplication::topLevelWidgets();
        windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
        return windows;
    }

    // Something that a user could click, of those the one with that number, counted round and round.
    static QString Target(unsigned number) {
        QObjectList all;
        for (QWidget* window : Open()) {
            for (QObject* object : QObjectList{window} + window->findChildren<QObject*>()) {
                const auto* action = qobject_cast<QAction*>(object);
                const auto* widget = qobject_cast<QWidget*>(object);
                const bool takesClicks = action != nullptr ? action->isEnabled() && !action->isSeparator()
                                         : widget != nullptr
                                             ? widget->isVisible() && widget->isEnabled() &&
                                                   (widget->focusPolicy() != Qt::NoFocus ||
                                                    qobject_cast<const QAbstractButton*>(widget) != nullptr)
                                             : false;
                const auto [owner, part] = takesClicks ? Shown(object) : std::pair<const QWidget*, QRect>();
                if (owner != nullptr && owner->isVisible() && !part.isEmpty()) {
                    all << object;
                }
            }
        }
        QObject* object = all.isEmpty() ? nullptr : all[static_cast<qsizetype>(number) % all.size()];
        const auto [owner, part] = object != nullptr ? Shown(object) : std::pair<const QWidget*, QRect>();
        const QRect seen = owner == nullptr ? QRect()
                                            : part & QRect(owner->mapFrom(owner->window(), QPoint()),
                                                           owner->window()->size());
        return Words(seen.isEmpty() ? QRect() : Place(owner, seen)) + " " + NameOf(object);
    }

    // Whether the window manager knows of a window below this one.
    static bool HasParent(const QWindow* window) {
        auto* server = qApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
        auto* parent =
            xcb_get_property_reply(server,
                                   xcb_get_property(server, 0, static_cast<xcb_window_t>(window->winId()),
                                                    XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 0, 1),
                                   nullptr);
        const bool isThere = parent != nullptr && parent->value_len > 0;
        std::free(parent);
        return isThere;
    }

    // What must not be, whatever a user does; empty if nothing of it is.
    QString Wrong() {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            const bool isDialog = window->windowType() == Qt::Dialog || window->windowType() == Qt::Sheet;
            if (window->isVisible() && isDialog && !HasParent(window->windowHandle())) {
                return "a dialog without a parent: " + NameOf(window);
            }
        }
        if (const QWidget* active = QApplication::activeWindow(); active != nullptr && !active->isVisible()) {
            return "a hidden window has the keyboard: " + NameOf(active);
        }
        const auto* grid = qobject_cast<QWidget*>(Find("picGrid"));
        auto* sheet = qobject_cast<QWidget*>(Find("frmMajorParam"));
        if (QApplication::activeModalWidget() != nullptr || grid == nullptr || sheet == nullptr) {
            m_solved.clear();
            return {}; // an action is under way, or there is no project
        }
        QAccessibleInterface* network = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(grid));
        QStringList ducts;
        for (int index = 0; index < network->childCount(); ++index) {
            ducts << network->child(index)->text(QAccessible::Name) + ',';
        }
        const QObject* scrollBar = sheet->findChild<QObject*>("scrDuctNo");
        if (scrollBar->property("maximum").toInt() != std::max<qsizetype>(ducts.size(), 1)) {
            return QString("the scroll bar's maximum is not the number of ducts: %1, %2")
                .arg(scrollBar->property("maximum").toInt())
                .arg(ducts.size());
        }
        const int number = scrollBar->property("value").toInt();
        bool isTyped = false;
        bool isOpen = false;
        QString shown;
        for (int box = 1; box <= 8; ++box) {
            const QString index = QString("(%1)").arg(box);
            const QObject* text = sheet->findChild<QObject*>("txtParam" + index);
            const QString value = text->property("text").toString();
            const QString caption =
                ',' + sheet->findChild<QObject*>("lblParam" + index)->property("text").toString() + ' ';
            const bool differs =
                ducts.size() >= number && (value == "0" ? ducts[number - 1].contains(caption)
                                                        : !ducts[number - 1].contains(caption + value + ','));
            shown += differs ? caption + value : QString();
            isTyped = isTyped || text->property("modified").toBool();
            isOpen = isOpen || !text->property("readOnly").toBool();
        }
        // Up to its first use it shows no duct.
        const bool mustShow = sheet->isActiveWindow() || (sheet->isVisible() && number > 1);
        if (mustShow && !isTyped && !shown.isEmpty()) {
            return "the sheet shows another duct: " + shown + " of " + ducts[number - 1];
        }
        const bool isSolved = !isOpen && grid->window()->findChild<QWidget*>("cmdCalcPressure")->isVisible();
        if (isSolved && !m_solved.isEmpty() && m_solved != ducts) {
            return "a solved project has changed: " + ducts.join(' ');
        }
        m_solved = isSolved ? ducts : QStringList();
        return {};
    }

    // What the program has worked so far, in ms, and the memory that it has, in MB.
    static QString Effort() {
        QFile file("/proc/self/statm");
        file.open(QIODevice::ReadOnly);
        const qlonglong pages = file.readAll().split(' ').value(1).toLongLong();
        return QString("%1 %2")
            .arg(clock() / (CLOCKS_PER_SEC / 1000))
            .arg(pages * sysconf(_SC_PAGESIZE) >> 20);
    }

    QString Answer(const QString& asked, const QString& name) {
        if (asked == "presses") {
            return QString::number(m_presses);
        }
        if (asked == "target") {
            return Target(name.toUInt());
        }
        if (asked == "wrong") {
            return Wrong();
        }
        if (asked == "effort") {
            return Effort();
        }
        if (asked == "modal") {
            return NameOf(QApplication::activeModalWidget());
        }
        if (asked == "focus") {
            const QWidget* popup = QApplication::activePopupWidget();
            return NameOf(popup != nullptr ? popup : QApplication::focusWidget());
        }
        if (asked == "active") {
            return NameOf(QApplication::activeWindow());
        }
        if (asked == "activeId") {
            const QWidget* window = QApplication::activeWindow();
            return QString::number(window != nullptr ? window->windowHandle()->winId() : 0);
        }
        if (asked == "windows") {
            return Windows();
        }
        if (asked == "selected") { // what is selected in the box that has the focus
            const QWidget* box = QApplication::focusWidget();
            return NameOf(box) + " " +
                   (box != nullptr ? box->property("selectedText").toString() : QString());
        }
        QObject* object = Find(name);
        if (object == nullptr) {
            return "no " + name;
        }
        if (asked == "place") {
            const QRect place = Place(object);
            return place.isEmpty() ? "hidden" : Words(place);
        }
        if (asked == "hovered") { // whether the mouse is over it, as far as the program has heard
            const QWidget* widget = Shown(object).first;
            return widget != nullptr && widget->underMouse() ? "yes" : "no";
        }
        if (asked == "table") {
            return Table(object);
        }
        if (asked == "colour") {
            const auto* widget = qobject_cast<QWidget*>(object);
            return widget == nullptr || !widget->autoFillBackground()
                       ? "none"
                       : widget->palette().color(QPalette::Window).name();
        }
        const QVariant value = object->property(asked.toUtf8().constData());
        return value.isValid() ? value.toString() : "no " + asked + " of " + name;
    }

    int m_socket;
    QSocketNotifier m_notifier;
    QByteArray m_questions;
    int m_presses = 0;
    QStringList m_solved; // the ducts of the solved project that was seen last, while it is
};

class ProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "Probe.json")

  public:
    QObject* create(const QString&, const QString&) override {
        return new Probe(qEnvironmentVariableIntValue("PLENAIR_PROBE"));
    }
};

} // namespace

#include "Probe.moc"
