#pragma once
// Where a panel that hangs from the tray icon goes: its top edge on the icon's bottom
// edge, horizontally centred on the icon; above the icon when the tray sits in the lower
// half of its screen; always fully inside the screen's available area.

#include <QRect>

namespace PanelPlacement {

QRect place(const QRect &iconRect, const QSize &size, const QRect &screenAvailable,
            bool *opensUpward = nullptr);

// Centred on the available area (the splash window).
QRect centre(const QSize &size, const QRect &screenAvailable);

}  // namespace PanelPlacement
