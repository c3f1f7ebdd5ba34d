#pragma once
// Captures an X11 desktop through XCB: MIT-SHM where the server offers it (local
// connections), xcb_get_image otherwise. Monitors come from RandR; no compositor is needed.

#include "CaptureBackend.h"

#include <xcb/xcb.h>

class X11CaptureBackend : public CaptureBackend
{
public:
    X11CaptureBackend();
    ~X11CaptureBackend() override;
    X11CaptureBackend(const X11CaptureBackend &) = delete;
    X11CaptureBackend &operator=(const X11CaptureBackend &) = delete;

    bool isConnected() const { return m_root != XCB_NONE; }

    QRect desktopGeometry() override;
    QRect monitorUnderPointer() override;
    QImage grab(const QRect &area) override;
    QList<TopLevelWindow> topLevelWindows() override;
    QRect windowWithoutShadowMargins(const TopLevelWindow &window) override;

    QList<QRect> monitors();
    QPoint pointer();

private:
    bool pixelFormatIsRgb32() const;
    QImage grabShared(const QRect &area);
    QImage grabByRequest(const QRect &area);
    xcb_window_t clientOf(xcb_window_t frame);
    xcb_atom_t atom(const char *name);

    xcb_connection_t *m_connection = nullptr;
    xcb_screen_t *m_screen = nullptr;
    xcb_window_t m_root = XCB_NONE;
    bool m_sharedMemory = false;
};
