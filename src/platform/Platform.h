#pragma once
// Picks the platform back ends for the running session, in one place.

#include <memory>

class HotKeyGrabber;

namespace Platform {
// The global hot key back end: X11 key grabs on an X11 (xcb) session, a back end that
// refuses every grab elsewhere. Needs the QGuiApplication to exist.
std::unique_ptr<HotKeyGrabber> createHotKeyGrabber();
}
