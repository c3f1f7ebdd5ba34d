#pragma once
// The event handed to a hot key's action: a synthesised key-up of the registered combination.

#include <QMetaType>
#include <QtGlobal>

struct HotKeyEvent {
    static constexpr int KeyUp = 11;  // the event type: always a key release

    quint16 keyCode = 0;        // virtual key code as registered
    quint64 modifierFlags = 0;  // modifier mask as registered
    quint64 timestamp = 0;      // the window system's time of the release, in milliseconds
    int type = KeyUp;
};

Q_DECLARE_METATYPE(HotKeyEvent)
