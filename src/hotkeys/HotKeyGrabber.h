#pragma once
// A window system's global key grabs, as the hot key center needs them.
// A back end grabs a combination for the whole session and reports, once per press,
// when the grabbed combination is released.

#include <QtGlobal>
#include <functional>

class HotKeyGrabber
{
public:
    // Modifiers in the back end's terms; the center translates the registered mask.
    enum Modifier : unsigned {
        Shift = 0x1,
        Control = 0x2,
        Alt = 0x4,
        Super = 0x8,
    };
    // Called on the GUI thread, from the event loop, with the id given to grab().
    using ReleaseHandler = std::function<void(quint32 id, quint64 timestamp)>;

    virtual ~HotKeyGrabber() = default;

    // Grabs keysym + modifiers under the id. False when the window system (or this back end,
    // for a combination it already holds) refuses; a refusal leaves nothing grabbed.
    virtual bool grab(quint32 id, quint32 keysym, unsigned modifiers) = 0;
    // Releases the grab made under id; unknown ids are ignored.
    virtual void ungrab(quint32 id) = 0;

    void setReleaseHandler(ReleaseHandler handler) { m_releaseHandler = std::move(handler); }

protected:
    void notifyReleased(quint32 id, quint64 timestamp) const
    {
        if (m_releaseHandler)
            m_releaseHandler(id, timestamp);
    }

private:
    ReleaseHandler m_releaseHandler;
};
