#include "platform/qt/Panels.h"

#include <QScreen>

#ifdef PLENAIR_XCB
#include "platform/qt/XServer.h"
#endif

namespace plenair {

#ifdef PLENAIR_XCB
namespace {

std::vector<std::uint32_t> Numbers(xcb_connection_t* server, xcb_window_t window, const char* property) {
    constexpr std::uint32_t kMany = 1 << 16;
    const auto asked =
        xcb_get_property(server, 0, window, AtomOf(server, property), XCB_GET_PROPERTY_TYPE_ANY, 0, kMany);
    auto* reply = xcb_get_property_reply(server, asked, nullptr);
    std::vector<std::uint32_t> numbers;
    if (reply != nullptr && reply->format == 32) {
        const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply));
        numbers.assign(first, first + reply->value_len);
    }
    std::free(reply);
    return numbers;
}

QSize SizeOf(xcb_connection_t* server, xcb_window_t window) {
    auto* reply = xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr);
    const QSize size = reply != nullptr ? QSize(reply->width, reply->height) : QSize();
    std::free(reply);
    return size;
}

} // namespace
#endif

QMargins TakenBy(const std::vector<std::uint32_t>& panel, const QRect& screen, QSize all) {
    const auto taken = [&panel](std::size_t edge, int reach, int size, int from, int to) {
        const int first = static_cast<int>(panel[4 + 2 * edge]);
        const int last = static_cast<int>(panel[5 + 2 * edge]);
        return reach > 0 && reach < size && first <= to && last >= from ? reach : 0;
    };
    const auto depth = [&panel](std::size_t edge) { return static_cast<int>(panel[edge]); };
    return {taken(0, depth(0) - screen.left(), screen.width(), screen.top(), screen.bottom()),
            taken(2, depth(2) - screen.top(), screen.height(), screen.left(), screen.right()),
            taken(1, depth(1) - (all.width() - 1 - screen.right()), screen.width(), screen.top(),
                  screen.bottom()),
            taken(3, depth(3) - (all.height() - 1 - screen.bottom()), screen.height(), screen.left(),
                  screen.right())};
}

QRect FreeArea(const QScreen& screen) {
#ifdef PLENAIR_XCB
    if (xcb_connection_t* const server = Server()) {
        constexpr std::size_t kNumbers = 12;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
        const QSize all = SizeOf(server, root);
        const double scale = screen.devicePixelRatio();
        const QRect native(screen.geometry().topLeft(),
                           (screen.geometry().size().toSizeF() * scale).toSize());
        QMargins taken;
        for (const xcb_window_t window : Numbers(server, root, "_NET_CLIENT_LIST")) {
            const auto panel = Numbers(server, window, "_NET_WM_STRUT_PARTIAL");
            if (panel.size() == kNumbers) {
                taken = taken | TakenBy(panel, native, all);
            }
        }
        return screen.geometry().marginsRemoved(taken / scale);
    }
#endif
    return screen.availableGeometry();
}

} // namespace plenair
