#include "HotKeyBindings.h"

#include "ZQHotKeyCenter.h"

namespace HotKeyBindings {

void registerBindings(QObject *target)
{
    ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
    center->registerHotKeyWithKeyCode(kTogglePanelKey, kModifiers, target, "hotkeyWithEvent", QVariant());
    center->registerHotKeyWithKeyCode(kSilentCaptureKey, kModifiers, target, "hotkeyWithEventObject",
                                      QStringLiteral("Silent Hotkey"));
}

void unregisterBindings()
{
    ZQHotKeyCenter *center = ZQHotKeyCenter::sharedHotKeyCenter();
    center->unregisterHotKeyWithKeyCode(kTogglePanelKey, kModifiers);
    center->unregisterHotKeyWithKeyCode(kSilentCaptureKey, kModifiers);
}

}  // namespace HotKeyBindings
