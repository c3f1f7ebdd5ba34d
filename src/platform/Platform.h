#pragma once
// Picks the platform back ends for the running session, in one place.

#include <memory>

class HotKeyGrabber;

namespace Platform {
// The global hot key back end: X11 key grabs on an X11 session, a null back end elsewhere.
std::unique_ptr<HotKeyGrabber> createHotKeyGrabber();
}
