#include "desktop/Screen.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace plenair {

namespace {

std::vector<std::string> Split(const std::string& text, char mark) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, mark);) {
        parts.push_back(part);
    }
    return parts;
}

std::vector<char*> Pointers(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts) {
        pointers.push_back(const_cast<char*>(text.c_str()));
    }
    pointers.push_back(nullptr);
    return pointers;
}

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

// A window may vanish while it is looked at.
int PassOver(Display*, XErrorEvent*) {
    return 0;
}

} // namespace

bool Until(const std::function<bool()>& isTrue) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(PatienceSeconds);
    while (!isTrue()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

Child::Child(const std::vector<std::string>& words, const std::vector<std::string>& environment, int handle,
             const std::string& log)
    : m_id(fork()) {
    if (m_id == 0) {
        const int output = open(log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
        dup2(output, 1);
        dup2(output, 2);
        if (handle >= 0) {
            fcntl(handle, F_SETFD, 0);
        }
        execvpe(words.front().c_str(), Pointers(words).data(), Pointers(environment).data());
        _exit(127);
    }
}

Child::~Child() {
    if (!HasEnded()) {
        kill(m_id, SIGTERM);
        if (!Until([this] { return HasEnded(); })) {
            kill(m_id, SIGKILL);
        }
    }
}

bool Child::HasEnded() {
    if (m_id > 0 && waitpid(m_id, &m_status, WNOHANG) != 0) {
        m_id = 0;
    }
    return m_id == 0;
}

void Child::Kill() {
    if (!HasEnded()) {
        kill(m_id, SIGKILL);
        Until([this] { return HasEnded(); });
    }
}

Screen::Screen(const std::string& windowManager, const std::string& size) {
    XSetErrorHandler(PassOver);
    StartServer(size);
    XkbSetAutoRepeatRate(m_display, XkbUseCoreKbd, 150, 10);
    // xfwm4 reads its settings over a session's bus, and only a desktop has one.
    const std::string bus = "unix:path=" + m_home.File("bus");
    m_bus = std::make_unique<Child>(
        std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + bus},
        Environment(), -1, m_home.File("bus.log"));
    Until([this] { return m_bus->HasEnded() || std::filesystem::exists(m_home.File("bus")); });
    std::vector<std::string> environment = Environment();
    environment.push_back("DBUS_SESSION_BUS_ADDRESS=" + bus);
    m_manager =
        std::make_unique<Child>(Split(windowManager, ' '), environment, -1, m_home.File("manager.log"));
    const bool isManaged = Until([this] {
        const auto window = Numbers(Root(), "_NET_SUPPORTING_WM_CHECK");
        return !window.empty() && window == Numbers(window[0], "_NET_SUPPORTING_WM_CHECK");
    });
    if (!isManaged) {
        throw std::runtime_error(windowManager + " does not start: " + ReadFile(m_home.File("manager.log")));
    }
}

Screen::~Screen() {
    m_manager.reset();
    XCloseDisplay(m_display);
}

void Screen::StartServer(const std::string& size) {
    int ends[2] = {};
    if (pipe2(ends, O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    m_server = std::make_unique<Child>(std::vector<std::string>{"Xvfb", "-displayfd", std::to_string(ends[1]),
                                                                "-screen", "0", size + "x24", "-nolisten",
                                                                "tcp", "-noreset"},
                                       Environment(), ends[1], m_home.File("server.log"));
    close(ends[1]);
    m_name = ":";
    for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';) {
        m_name += digit;
    }
    close(ends[0]);
    m_display = m_name.size() > 1 ? XOpenDisplay(m_name.c_str()) : nullptr;
    if (m_display == nullptr) {
        throw std::runtime_error("Xvfb does not start: " + ReadFile(m_home.File("server.log")));
    }
}

std::string Screen::Pasted(const std::string& form) const {
    const Window window = XCreateSimpleWindow(m_display, Root(), 0, 0, 1, 1, 0, 0, 0);
    const auto atom = [this](const std::string& name) { return XInternAtom(m_display, name.c_str(), False); };
    XConvertSelection(m_display, atom("CLIPBOARD"), atom(form), atom("PASTED"), window, CurrentTime);
    XEvent event = {};
    Until([&] { return XCheckTypedWindowEvent(m_display, window, SelectionNotify, &event) != 0; });
    const std::string pasted =
        event.xselection.property != None ? Property<std::string>(m_display, window, "PASTED") : "";
    XDestroyWindow(m_display, window);
    return pasted;
}

std::vector<std::string> Screen::Environment() const {
    std::vector<std::string> all = {
        "DISPLAY=" + m_name, "HOME=" + m_home.Path(), "XDG_RUNTIME_DIR=" + m_home.Path(),
        "LC_ALL=C.UTF-8",    "NO_AT_BRIDGE=1",        "GSETTINGS_BACKEND=memory"};
    for (const std::string name : {"PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (const char* value = getenv(name.c_str()); value != nullptr) {
            all.push_back(name + "=" + value);
        }
    }
    return all;
}

void Screen::Key(const std::string& name, bool down) {
    const KeySym symbol = XStringToKeysym(name.c_str());
    const KeyCode code = XKeysymToKeycode(m_display, symbol);
    if (code == 0) {
        throw std::runtime_error("no key " + name);
    }
    XTestFakeKeyEvent(m_display, code, down ? True : False, 0);
    XSync(m_display, False);
}

int Screen::Chord(const std::string& chord) {
    std::vector<std::string> keys;
    for (const std::string& word : Split(chord, '+')) {
        keys.push_back(word == "Alt" || word == "Shift" || word == "Control" ? word + "_L" : word);
    }
    const KeySym last = XStringToKeysym(keys.back().c_str());
    const KeyCode code = XKeysymToKeycode(m_display, last);
    int perCode = 0;
    KeySym* symbols = XGetKeyboardMapping(m_display, code, 1, &perCode);
    if (perCode > 1 && symbols[0] != last && symbols[1] == last) {
        keys.insert(keys.begin(), "Shift_L");
    }
    XFree(symbols);
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        Key(*key, true);
    }
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        Key(*key, false);
    }
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

std::string Screen::Windows() const {
    const Window root = Root();
    const auto active = Numbers(root, "_NET_ACTIVE_WINDOW");
    std::string list;
    for (const Window window : Numbers(root, "_NET_CLIENT_LIST_STACKING")) {
        XWindowAttributes look = {};
        int x = 0;
        int y = 0;
        Window child = 0;
        XGetWindowAttributes(m_display, window, &look);
        XTranslateCoordinates(m_display, window, root, 0, 0, &x, &y, &child);
        const bool isActive = !active.empty() && active[0] == window;
        std::ostringstream line;
        line << Property<std::string>(m_display, window, "_NET_WM_NAME") << (isActive ? "*" : "") << ' ' << x
             << ',' << y << ' ' << look.width << 'x' << look.height;
        list += (list.empty() ? "" : "; ") + line.str();
    }
    return list;
}

void Screen::OpenOther() {
    m_other = XCreateSimpleWindow(m_display, Root(), 0, 600, 200, 100, 0, 0, 0);
    XSizeHints place = {};
    place.flags = USPosition | USSize;
    place.x = 0;
    place.y = 600;
    XSetWMNormalHints(m_display, m_other, &place);
    XMapWindow(m_display, m_other);
    Until([this] { return IsUpToDate(m_other); });
}

void Screen::CloseOther() {
    XDestroyWindow(m_display, m_other);
    XSync(m_display, False);
}

void Screen::AwaitManager() {
    // It answers in the order in which it is told of things, and this question has an answer that can be
    // seen.
    const Window root = Root();
    const Window asking = XCreateSimpleWindow(m_display, root, 0, 0, 1, 1, 0, 0, 0);
    Tell(root, asking, "_NET_REQUEST_FRAME_EXTENTS", {});
    if (!Until([&] { return !Numbers(asking, "_NET_FRAME_EXTENTS").empty(); })) {
        throw std::runtime_error("the window manager does not answer");
    }
    XDestroyWindow(m_display, asking);
}

std::vector<unsigned long> Screen::Numbers(unsigned long window, const char* property) const {
    return Property<std::vector<unsigned long>>(m_display, window, property);
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

bool Screen::IsUpToDate(unsigned long active) const {
    const Window root = Root();
    const auto windows = Numbers(root, "_NET_CLIENT_LIST");
    const auto known = Numbers(root, "_NET_ACTIVE_WINDOW");
    return (active == 0 || (!known.empty() && known[0] == active)) &&
           std::all_of(windows.begin(), windows.end(), [this](Window window) {
               XWindowAttributes look = {};
               return XGetWindowAttributes(m_display, window, &look) != 0 && look.map_state == IsViewable;
           });
}

void Screen::Close(const std::string& title) {
    for (const Window window : Numbers(Root(), "_NET_CLIENT_LIST")) {
        if (Property<std::string>(m_display, window, "_NET_WM_NAME") == title) {
            const Atom close = XInternAtom(m_display, "WM_DELETE_WINDOW", False);
            Tell(window, window, "WM_PROTOCOLS", {static_cast<long>(close)});
        }
    }
}

std::string Screen::SavePicture(const std::string& path) const {
    Child import({"import", "-window", "root", path}, Environment());
    Until([&import] { return import.HasEnded(); });
    return path;
}

} // namespace plenair
