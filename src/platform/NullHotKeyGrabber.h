#pragma once
// The hot key back end for sessions without global grabs: every grab is refused.

#include "HotKeyGrabber.h"

class NullHotKeyGrabber final : public HotKeyGrabber
{
public:
    bool grab(quint32, quint32, unsigned) override { return false; }
    void ungrab(quint32) override {}
};
