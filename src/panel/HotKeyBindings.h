#pragma once
// Quillo's two global hot keys: Super+Shift+2 toggles the panel, Super+Shift+1 captures
// at once. The target answers hotkeyWithEvent (toggle) and hotkeyWithEventObject (capture).

class QObject;

namespace HotKeyBindings {

constexpr unsigned short kTogglePanelKey = 19;      // "2"
constexpr unsigned short kSilentCaptureKey = 18;    // "1"
constexpr unsigned long long kModifiers = 0x120000;  // Command (Super) + Shift

// Registers both, the toggle first; a combination already registered is left as it is.
void registerBindings(QObject *target);
// Removes both, whoever registered them.
void unregisterBindings();

}  // namespace HotKeyBindings
