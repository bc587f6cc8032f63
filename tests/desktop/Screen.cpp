#include "desktop/Screen.h"

#include <QDebug>
#include <QRegularExpression>

#include <X11/XKBlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <stdexcept>

namespace plenair {

namespace {

// A property of a window, as a list of numbers or as a text; empty if it isn't there.
template <typename Items>
Items Property(Display* display, Window window, const char* name) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 1 << 20, False, AnyPropertyType,
                       &type, &format, &count, &rest, &data);
    Items items;
    if (data != nullptr) {
        const auto* first = reinterpret_cast<const typename Items::value_type*>(data);
        items.assign(first, first + count);
        XFree(data);
    }
    return items;
}

} // namespace

Screen::Screen(const QString& windowManager) {
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; }); // a window may vanish while it is looked at
    m_server.startCommand("Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp -noreset");
    m_name = m_server.HasLine() ? ":" + m_server.readLine().trimmed() : QString();
    m_display = XOpenDisplay(m_name.toUtf8());
    if (m_display == nullptr) {
        throw std::runtime_error("Xvfb does not start: " + m_server.readAllStandardError().toStdString());
    }
    XkbSetAutoRepeatRate(m_display, XkbUseCoreKbd, 150, 10);
    // xfwm4 reads its settings over a session's bus, and only a desktop has one.
    m_bus.setEnvironment(Environment());
    m_bus.startCommand("dbus-daemon --session --nofork --nopidfile --print-address");
    m_busAddress = m_bus.HasLine() ? "DBUS_SESSION_BUS_ADDRESS=" + m_bus.readLine().trimmed() : "";
    m_manager.setEnvironment(Environment() << m_busAddress);
    m_manager.startCommand(windowManager);
    const bool isManaged = Until([this] {
        const auto window = Numbers(Root(), "_NET_SUPPORTING_WM_CHECK");
        return !window.empty() && window == Numbers(window[0], "_NET_SUPPORTING_WM_CHECK");
    });
    if (!isManaged) {
        throw std::runtime_error("no window manager: " + m_manager.readAllStandardError().toStdString());
    }
}

Screen::~Screen() {
    XCloseDisplay(m_display);
}

OtherWindow::OtherWindow(const QRect& place)
    : m_id(XCreateSimpleWindow(TheScreen().Connection(), TheScreen().Root(), place.x(), place.y(),
                               static_cast<unsigned>(place.width()), static_cast<unsigned>(place.height()), 0,
                               0, 0x808080)) {
    XSizeHints hints = {};
    hints.flags = USPosition; // where it was made
    XSetWMNormalHints(TheScreen().Connection(), m_id, &hints);
}

OtherWindow::~OtherWindow() {
    XDestroyWindow(TheScreen().Connection(), m_id);
    XSync(TheScreen().Connection(), False);
}

void OtherWindow::Set(const char* property, unsigned long type, const std::vector<long>& values) const {
    XChangeProperty(TheScreen().Connection(), m_id, XInternAtom(TheScreen().Connection(), property, False),
                    type, 32, PropModeReplace, reinterpret_cast<const unsigned char*>(values.data()),
                    static_cast<int>(values.size()));
}

void OtherWindow::Show() const {
    XMapWindow(TheScreen().Connection(), m_id);
    XSync(TheScreen().Connection(), False);
}

std::string Screen::Pasted(const std::string& form) const {
    const OtherWindow window;
    const auto atom = [this](const std::string& name) { return XInternAtom(m_display, name.c_str(), False); };
    XConvertSelection(m_display, atom("CLIPBOARD"), atom(form), atom("PASTED"), window.Id(), CurrentTime);
    XEvent event = {};
    Until([&] { return XCheckTypedWindowEvent(m_display, window.Id(), SelectionNotify, &event) != 0; });
    return Property<std::string>(m_display, window.Id(), "PASTED");
}

QStringList Screen::Environment() const {
    const QRegularExpression passedOn("^(PATH|ASAN_OPTIONS|UBSAN_OPTIONS)=");
    return QProcess::systemEnvironment().filter(passedOn)
           << "DISPLAY=" + m_name << "HOME=" + m_home.path() << "XDG_RUNTIME_DIR=" + m_home.path()
           << "LC_ALL=C.UTF-8"
           << "NO_AT_BRIDGE=1"
           << "GSETTINGS_BACKEND=memory";
}

void Screen::Key(const std::string& name, bool down) {
    const KeyCode code = XKeysymToKeycode(m_display, XStringToKeysym(name.c_str()));
    XTestFakeKeyEvent(m_display, code, down ? True : False, 0);
    XSync(m_display, False);
}

int Screen::Chord(const std::string& chord) {
    QStringList keys = QString::fromStdString(chord).split('+');
    keys.replaceInStrings(QRegularExpression("^(Alt|Shift|Control)$"), "\\1_L");
    const KeySym last = XStringToKeysym(keys.back().toUtf8());
    if (XkbKeycodeToKeysym(m_display, XKeysymToKeycode(m_display, last), 0, 0) != last) {
        keys.prepend("Shift_L");
    }
    std::for_each(keys.begin(), keys.end(), [this](const QString& key) { Key(key.toStdString(), true); });
    std::for_each(keys.rbegin(), keys.rend(), [this](const QString& key) { Key(key.toStdString(), false); });
    return static_cast<int>(keys.size());
}

void Screen::MoveTo(int x, int y) {
    XTestFakeMotionEvent(m_display, 0, x, y, 0);
    XSync(m_display, False);
}

void Screen::Button(int button, bool down) {
    XTestFakeButtonEvent(m_display, static_cast<unsigned>(button), down ? True : False, 0);
    XSync(m_display, False);
}

std::vector<unsigned long> Screen::Stack() const {
    const auto stack = Numbers(Root(), "_NET_CLIENT_LIST_STACKING");
    return stack.empty() ? Numbers(Root(), "_NET_CLIENT_LIST") : stack; // as of xfwm4 with one window
}

std::string Screen::Windows() const {
    QString list;
    QDebug words(&list);
    for (const Window window : Stack()) {
        words.noquote() << Property<std::string>(m_display, window, "_NET_WM_NAME").c_str()
                        << (HasKeyboard(window) ? "*" : "") << Client(window) << ' ';
    }
    return list.toStdString();
}

unsigned long Screen::Find(const std::string& title) const {
    const auto stack = Stack();
    const auto found = std::find_if(stack.begin(), stack.end(), [&](Window window) {
        return Property<std::string>(m_display, window, "_NET_WM_NAME") == title;
    });
    return found != stack.end() ? *found : 0;
}

QRect Screen::Client(unsigned long window) const {
    XWindowAttributes look = {};
    if (window == 0 || XGetWindowAttributes(m_display, window, &look) == 0 || look.map_state != IsViewable ||
        (look.override_redirect == False && Numbers(window, "WM_STATE").empty())) {
        return {};
    }
    int x = 0;
    int y = 0;
    Window child = 0;
    XTranslateCoordinates(m_display, window, Root(), 0, 0, &x, &y, &child);
    return {x, y, look.width, look.height};
}

void Screen::AwaitManager() {
    // It answers in the order in which it is told of things, and this question has an answer that can be
    // seen.
    const OtherWindow asking;
    Tell(Root(), asking.Id(), "_NET_REQUEST_FRAME_EXTENTS", {});
    if (!Until([&] { return !Numbers(asking.Id(), "_NET_FRAME_EXTENTS").empty(); })) {
        throw std::runtime_error("the window manager does not answer");
    }
}

std::vector<unsigned long> Screen::Numbers(unsigned long window, const char* property) const {
    return Property<std::vector<unsigned long>>(m_display, window, property);
}

bool Screen::Holds(unsigned long window, const char* property, const char* name) const {
    const auto names = Numbers(window, property);
    return std::count(names.begin(), names.end(), XInternAtom(m_display, name, False)) > 0;
}

unsigned long Screen::Root() const {
    return DefaultRootWindow(m_display);
}

void Screen::Tell(unsigned long receiver, unsigned long window, const char* message,
                  const std::vector<long>& values) const {
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(m_display, message, False);
    event.xclient.format = 32;
    std::copy(values.begin(), values.end(), event.xclient.data.l);
    XSendEvent(m_display, receiver, False,
               receiver == Root() ? SubstructureNotifyMask | SubstructureRedirectMask : NoEventMask, &event);
    XSync(m_display, False);
}

bool Screen::IsPointerFree() {
    const int answer =
        XGrabPointer(m_display, Root(), False, 0, GrabModeAsync, GrabModeAsync, None, None, CurrentTime);
    XUngrabPointer(m_display, CurrentTime);
    XSync(m_display, False);
    return answer == GrabSuccess;
}

bool Screen::HasKeyboard(unsigned long window) const {
    const auto active = Numbers(Root(), "_NET_ACTIVE_WINDOW");
    return window != 0 && !active.empty() && active[0] == window;
}

bool Screen::IsUpToDate(unsigned long active) const {
    const auto windows = Numbers(Root(), "_NET_CLIENT_LIST");
    return (active == 0 || HasKeyboard(active)) &&
           std::none_of(windows.begin(), windows.end(),
                        [this](Window window) { return Client(window).isEmpty(); });
}

void Screen::Close(const std::string& title) {
    if (const Window window = Find(title); window != 0) {
        const Atom close = XInternAtom(m_display, "WM_DELETE_WINDOW", False);
        Tell(window, window, "WM_PROTOCOLS", {static_cast<long>(close)});
    }
}

void Screen::Run(const QString& command) const {
    Child program;
    program.setEnvironment(Environment());
    program.startCommand(command);
    program.waitForFinished(kPatience);
}

} // namespace plenair
