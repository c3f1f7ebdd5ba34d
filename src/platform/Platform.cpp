#include "Platform.h"

#include "HotKeyGrabber.h"
#include "NullHotKeyGrabber.h"
#include "x11/X11HotKeyGrabber.h"

#include <QGuiApplication>

namespace Platform {

std::unique_ptr<HotKeyGrabber> createHotKeyGrabber()
{
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        auto x11 = X11HotKeyGrabber::create();
        if (x11)
            return x11;
    }
    return std::make_unique<NullHotKeyGrabber>();
}

}  // namespace Platform
