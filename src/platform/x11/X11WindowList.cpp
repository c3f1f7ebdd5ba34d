// Top-level windows of an X11 desktop and the part of one that is the window itself.
#include "X11CaptureBackend.h"
#include "X11CaptureXcb.h"

#include <vector>

xcb_atom_t X11CaptureBackend::atom(const char *name)
{
    auto reply = xcbReply<xcb_intern_atom_reply_t>(
        xcb_intern_atom_reply, m_connection, xcb_intern_atom(m_connection, 1, uint16_t(strlen(name)), name));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QList<TopLevelWindow> X11CaptureBackend::topLevelWindows()
{
    QList<TopLevelWindow> result;
    auto tree = xcbReply<xcb_query_tree_reply_t>(xcb_query_tree_reply, m_connection,
                                                 xcb_query_tree(m_connection, m_root));
    if (!tree)
        return result;
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());
    // Send every request first, then read the answers: one round trip for all windows.
    std::vector<xcb_get_window_attributes_cookie_t> attributeCookies;
    std::vector<xcb_get_geometry_cookie_t> geometryCookies;
    for (int i = 0; i < count; ++i) {
        attributeCookies.push_back(xcb_get_window_attributes(m_connection, children[i]));
        geometryCookies.push_back(xcb_get_geometry(m_connection, children[i]));
    }
    for (int i = count - 1; i >= 0; --i) { // the tree lists bottom-most first
        auto attributes = xcbReply<xcb_get_window_attributes_reply_t>(
            xcb_get_window_attributes_reply, m_connection, attributeCookies[i]);
        auto geometry = xcbReply<xcb_get_geometry_reply_t>(xcb_get_geometry_reply, m_connection,
                                                           geometryCookies[i]);
        if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE
            || attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT)
            continue;
        const int border = geometry->border_width;
        const QRect frame(geometry->x, geometry->y, geometry->width + 2 * border,
                          geometry->height + 2 * border);
        if (frame.intersects(desktopGeometry()))
            result.append(TopLevelWindow{children[i], frame});
    }
    return result;
}

xcb_window_t X11CaptureBackend::clientOf(xcb_window_t frame)
{
    const xcb_atom_t wmState = atom("WM_STATE");
    if (wmState == XCB_ATOM_NONE)
        return frame;
    std::vector<xcb_window_t> level{frame};
    for (int depth = 0; depth < 3 && !level.empty(); ++depth) {
        std::vector<xcb_get_property_cookie_t> cookies;
        for (xcb_window_t w : level)
            cookies.push_back(xcb_get_property(m_connection, 0, w, wmState, XCB_ATOM_ANY, 0, 0));
        xcb_window_t found = XCB_NONE;
        for (size_t i = 0; i < cookies.size(); ++i) {
            auto reply = xcbReply<xcb_get_property_reply_t>(xcb_get_property_reply, m_connection, cookies[i]);
            if (found == XCB_NONE && reply && reply->type != XCB_ATOM_NONE)
                found = level[i];
        }
        if (found != XCB_NONE)
            return found;
        std::vector<xcb_window_t> next;
        for (xcb_window_t w : level) {
            auto tree = xcbReply<xcb_query_tree_reply_t>(xcb_query_tree_reply, m_connection,
                                                         xcb_query_tree(m_connection, w));
            if (!tree)
                continue;
            const xcb_window_t *children = xcb_query_tree_children(tree.get());
            next.insert(next.end(), children, children + xcb_query_tree_children_length(tree.get()));
        }
        level.swap(next);
    }
    return XCB_NONE;
}

QRect X11CaptureBackend::windowWithoutShadowMargins(const TopLevelWindow &window)
{
    const xcb_window_t client = clientOf(window.id);
    const xcb_atom_t extentsAtom = atom("_GTK_FRAME_EXTENTS");
    if (client == XCB_NONE || extentsAtom == XCB_ATOM_NONE)
        return window.frame;
    auto extents = xcbReply<xcb_get_property_reply_t>(
        xcb_get_property_reply, m_connection,
        xcb_get_property(m_connection, 0, client, extentsAtom, XCB_ATOM_CARDINAL, 0, 4));
    if (!extents || extents->format != 32 || xcb_get_property_value_length(extents.get()) != 16)
        return window.frame;
    const auto *e = static_cast<const uint32_t *>(xcb_get_property_value(extents.get())); // l, r, t, b
    const auto clamp = [](uint32_t v) { return int(qMin<uint32_t>(v, 4096)); };
    // The shadow margins lie inside the client, and so inside any frame around it.
    const QRect inner = window.frame.adjusted(clamp(e[0]), clamp(e[2]), -clamp(e[1]), -clamp(e[3]));
    return inner.isValid() ? inner : window.frame;
}
