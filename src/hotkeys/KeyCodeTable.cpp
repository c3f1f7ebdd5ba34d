#include "KeyCodeTable.h"

#include "HotKeyGrabber.h"

#include <iterator>

namespace KeyCodeTable {
namespace {

struct Entry {
    quint16 keyCode;
    quint32 keysym;
};

// Virtual key code -> keysym. Printable keys use their Latin-1 keysym (the lower-case letter).
constexpr Entry kTable[] = {
    {0x00, 'a'}, {0x01, 's'}, {0x02, 'd'}, {0x03, 'f'}, {0x04, 'h'}, {0x05, 'g'}, {0x06, 'z'},
    {0x07, 'x'}, {0x08, 'c'}, {0x09, 'v'}, {0x0B, 'b'}, {0x0C, 'q'}, {0x0D, 'w'}, {0x0E, 'e'},
    {0x0F, 'r'}, {0x10, 'y'}, {0x11, 't'}, {0x12, '1'}, {0x13, '2'}, {0x14, '3'}, {0x15, '4'},
    {0x16, '6'}, {0x17, '5'}, {0x18, '='}, {0x19, '9'}, {0x1A, '7'}, {0x1B, '-'}, {0x1C, '8'},
    {0x1D, '0'}, {0x1E, ']'}, {0x1F, 'o'}, {0x20, 'u'}, {0x21, '['}, {0x22, 'i'}, {0x23, 'p'},
    {0x25, 'l'}, {0x26, 'j'}, {0x27, '\''}, {0x28, 'k'}, {0x29, ';'}, {0x2A, '\\'}, {0x2B, ','},
    {0x2C, '/'}, {0x2D, 'n'}, {0x2E, 'm'}, {0x2F, '.'}, {0x31, ' '}, {0x32, '`'},
    {0x24, 0xff0d},  // Return
    {0x30, 0xff09},  // Tab
    {0x33, 0xff08},  // BackSpace (the "delete" key)
    {0x35, 0xff1b},  // Escape
    {0x72, 0xff6a},  // Help
    {0x73, 0xff50},  // Home
    {0x74, 0xff55},  // Prior (page up)
    {0x75, 0xffff},  // Delete (forward delete)
    {0x77, 0xff57},  // End
    {0x79, 0xff56},  // Next (page down)
    {0x7B, 0xff51},  // Left
    {0x7C, 0xff53},  // Right
    {0x7D, 0xff54},  // Down
    {0x7E, 0xff52},  // Up
    // Function keys F1..F16 (keysym F1 = 0xffbe, consecutive).
    {0x7A, 0xffbe}, {0x78, 0xffbf}, {0x63, 0xffc0}, {0x76, 0xffc1}, {0x60, 0xffc2}, {0x61, 0xffc3},
    {0x62, 0xffc4}, {0x64, 0xffc5}, {0x65, 0xffc6}, {0x6D, 0xffc7}, {0x67, 0xffc8}, {0x6F, 0xffc9},
    {0x69, 0xffca}, {0x6B, 0xffcb}, {0x71, 0xffcc}, {0x6A, 0xffcd},
};

}  // namespace

quint32 keysymForKeyCode(quint16 keyCode)
{
    for (const Entry &entry : kTable) {
        if (entry.keyCode == keyCode)
            return entry.keysym;
    }
    return 0;
}

unsigned grabModifiersForFlags(quint64 modifierFlags)
{
    unsigned modifiers = 0;
    if (modifierFlags & ControlMask)
        modifiers |= HotKeyGrabber::Control;
    if (modifierFlags & CommandMask)
        modifiers |= HotKeyGrabber::Super;
    if (modifierFlags & ShiftMask)
        modifiers |= HotKeyGrabber::Shift;
    if (modifierFlags & OptionMask)
        modifiers |= HotKeyGrabber::Alt;
    return modifiers;
}

}  // namespace KeyCodeTable
