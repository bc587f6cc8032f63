// Loaded into the program by Qt as a generic plugin. Answers on standard output what is asked on standard
// input, of what a user could see: one question a line, one answer a line. It only reads; keys and clicks
// come through the X server.
#include <QAbstractButton>
#include <QAbstractNativeEventFilter>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QGenericPlugin>
#include <QMenu>
#include <QMenuBar>
#include <QSocketNotifier>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <map>

#include <sys/resource.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

class Probe : public QObject, public QAbstractNativeEventFilter {
  public:
    Probe() {
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
    // Whoever asks waits for the answer.
    void Read() {
        char line[512];
        const auto length = read(STDIN_FILENO, line, sizeof line);
        m_notifier.setEnabled(length > 0);
        const QString question = QString::fromUtf8(line, std::max<qsizetype>(length - 1, 0));
        QString answer = Answer(question.section(' ', 0, 0), question.section(' ', 1));
        std::puts(answer.replace('\n', "\\n").toUtf8());
        std::fflush(stdout);
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
            return NameOf(object) == name || object->metaObject()->className() == name ||
                   object->property("text").toString().remove('&') == name;
        };
        for (QWidget* window : windows) {
            if (window == nullptr || (!window->isVisible() && NameOf(window) != name)) {
                continue;
            }
            const QObjectList all = QObjectList{window} + window->findChildren<QObject*>();
            if (const auto found = std::find_if(all.begin(), all.end(), called); found != all.end()) {
                return *found;
            }
        }
        return nullptr;
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

    // The window, and the place in it in pixels of the screen.
    static QString Place(const QWidget* widget, const QRect& part) {
        if (widget == nullptr || !widget->isVisible() || !widget->window()->windowHandle()->isExposed()) {
            return "hidden";
        }
        const double scale = widget->devicePixelRatio();
        const QPoint corner = (QPointF(widget->mapTo(widget->window(), part.topLeft())) * scale).toPoint();
        const QSize size = (part.size().toSizeF() * scale).toSize();
        return QString("%1 %2 %3 %4 %5")
            .arg(widget->window()->windowHandle()->winId()) // the widget may know an old one
            .arg(corner.x())
            .arg(corner.y())
            .arg(size.width())
            .arg(size.height());
    }

    // Something that a user could click, of those the one with that number, counted round and round.
    static QString Target(unsigned number) {
        QStringList all;
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* only = popup != nullptr ? popup : QApplication::activeModalWidget();
        for (QWidget* window : only != nullptr ? QWidgetList{only} : QApplication::topLevelWidgets()) {
            for (QObject* object : QObjectList{window} + window->findChildren<QObject*>()) {
                const auto [owner, part] = Shown(object);
                const auto* action = qobject_cast<QAction*>(object);
                const bool takesClicks = action != nullptr
                                             ? action->isEnabled() && !action->isSeparator()
                                             : owner != nullptr && owner->isEnabled() &&
                                                   (owner->focusPolicy() != Qt::NoFocus ||
                                                    qobject_cast<const QAbstractButton*>(owner) != nullptr);
                const QRect seen =
                    takesClicks && owner != nullptr ? part & owner->visibleRegion().boundingRect() : QRect();
                if (!seen.isEmpty()) {
                    all << Place(owner, seen) + " " + NameOf(object);
                }
            }
        }
        return all.isEmpty() ? "" : all[static_cast<qsizetype>(number) % all.size()];
    }

    // What must not be, whatever a user does; empty if nothing of it is.
    QString Wrong() {
        if (const QWidget* active = QApplication::activeWindow(); active != nullptr && !active->isVisible()) {
            return "a hidden window has the keyboard: " + NameOf(active);
        }
        auto* grid = qobject_cast<QWidget*>(Find("picGrid"));
        const auto* sheet = qobject_cast<QWidget*>(Find("frmMajorParam"));
        if (QApplication::activeModalWidget() != nullptr || grid == nullptr || sheet == nullptr) {
            m_solved.clear();
            return {}; // an action is under way, or there is no project
        }
        QAccessibleInterface* network = QAccessible::queryAccessibleInterface(grid);
        QStringList ducts;
        for (int index = 0; index < network->childCount(); ++index) {
            ducts << network->child(index)->text(QAccessible::Name) + ',';
        }
        const QObject* scrollBar = sheet->findChild<QObject*>("scrDuctNo");
        if (scrollBar->property("maximum").toInt() != std::max<qsizetype>(ducts.size(), 1)) {
            return QString("the scroll bar's maximum is not the number of ducts: %1").arg(ducts.size());
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
            const bool isZero = value == "0"; // which the network doesn't tell of
            const bool differs =
                ducts.size() >= number &&
                ducts[number - 1].contains(isZero ? caption : caption + value + ',') == isZero;
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

    // What the program has worked so far, in ms, and the most memory that it had, in MB.
    static QString Effort() {
        rusage use = {};
        getrusage(RUSAGE_SELF, &use);
        return QString("%1 %2").arg(clock() / (CLOCKS_PER_SEC / 1000)).arg(use.ru_maxrss >> 10);
    }

    QString Answer(const QString& asked, const QString& name) {
        QWidget* const active = QApplication::activeWindow();
        QWidget* const focus = QApplication::focusWidget();
        QWidget* const popup = QApplication::activePopupWidget();
        const std::map<QString, std::function<QString()>> questions = {
            {"presses", [&] { return QString::number(m_presses); }},
            {"target", [&] { return Target(name.toUInt()); }},
            {"wrong", [&] { return Wrong(); }},
            {"effort", [] { return Effort(); }},
            {"modal", [] { return NameOf(QApplication::activeModalWidget()); }},
            {"focus", [&] { return NameOf(popup != nullptr ? popup : focus); }},
            {"active", [&] { return NameOf(active); }},
            {"activeId", [&] { return QString::number(active ? active->windowHandle()->winId() : 0); }},
            // what is selected in the box that has the focus
            {"selected",
             [&] { return NameOf(focus) + " " + (focus ? focus->property("selectedText").toString() : ""); }},
        };
        if (const auto question = questions.find(asked); question != questions.end()) {
            return question->second();
        }
        QObject* object = Find(name);
        if (object == nullptr) {
            return "no " + name;
        }
        const auto [shown, part] = Shown(object);
        // Whether the mouse is over it is told as far as the program has heard.
        return asked == "place"     ? Place(shown, part)
               : asked == "hovered" ? QVariant(shown != nullptr && shown->underMouse()).toString()
                                    : object->property(asked.toUtf8()).toString();
    }

    QSocketNotifier m_notifier{STDIN_FILENO, QSocketNotifier::Read};
    int m_presses = 0;
    QStringList m_solved; // the ducts of the solved project that was seen last, while it is
};

class ProbePlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "Probe.json")

  public:
    QObject* create(const QString&, const QString&) override { return new Probe; }
};

} // namespace

#include "Probe.moc"
