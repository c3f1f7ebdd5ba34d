#pragma once
// RAII for xcb replies and errors (both are malloc'd by xcb and freed with free()).

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

struct X11CaptureFree
{
    void operator()(void *p) const { std::free(p); }
};

template <typename T>
using XcbReply = std::unique_ptr<T, X11CaptureFree>;
using XcbError = std::unique_ptr<xcb_generic_error_t, X11CaptureFree>;

// Runs one request/reply pair: XcbReply<xcb_foo_reply_t> r = xcbReply(xcb_foo_reply, c, cookie, &err).
template <typename Reply, typename Cookie, typename Fn>
XcbReply<Reply> xcbReply(Fn fn, xcb_connection_t *c, Cookie cookie, XcbError *error = nullptr)
{
    xcb_generic_error_t *raw = nullptr;
    XcbReply<Reply> reply(fn(c, cookie, &raw));
    if (error)
        error->reset(raw);
    else
        std::free(raw);
    return reply;
}
