#pragma once
// Translation of the registered key codes and modifier masks for the grab back ends.
// Key codes are the virtual key codes of the ANSI (US) layout; masks use the bits
// Control 0x40000, Shift 0x20000, Option 0x80000, Command 0x100000.

#include <QtGlobal>

namespace KeyCodeTable {

inline constexpr quint64 ControlMask = 0x40000;
inline constexpr quint64 ShiftMask = 0x20000;
inline constexpr quint64 OptionMask = 0x80000;
inline constexpr quint64 CommandMask = 0x100000;

// The X keysym of the key at that position on a US layout; 0 for a code not in the table.
quint32 keysymForKeyCode(quint16 keyCode);
// HotKeyGrabber::Modifier bits for the mask: Command -> Super, Option -> Alt; other bits dropped.
unsigned grabModifiersForFlags(quint64 modifierFlags);

}  // namespace KeyCodeTable
