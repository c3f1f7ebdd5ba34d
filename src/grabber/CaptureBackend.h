#pragma once
// The one interface the grabber captures through. Coordinates are device pixels in the
// desktop's own space (the X root window's on X11); HiDPI therefore needs no mapping here.

#include <QImage>
#include <QList>
#include <QRect>
#include <QString>

#include <memory>

struct TopLevelWindow
{
    quint32 id = 0;
    QRect frame; // as the window manager draws it (the top-level frame)
};

class CaptureBackend
{
public:
    virtual ~CaptureBackend() = default;

    // Empty when this session can be captured; otherwise the one line to tell the user.
    virtual QString unsupportedReason() const { return {}; }
    // False for a back end that answers every mode at once, without any UI (tests).
    virtual bool needsInteraction() const { return true; }
    // True when the back end plays a user who cancels (tests).
    virtual bool userCancels() const { return false; }

    // All monitors together.
    virtual QRect desktopGeometry() = 0;
    // The monitor under the pointer; the whole desktop when monitors are unknown.
    virtual QRect monitorUnderPointer() = 0;
    // The pixels of an area of the desktop, Format_RGB32; null on failure (see lastError()).
    virtual QImage grab(const QRect &area) = 0;
    // Viewable top-level windows, top-most first.
    virtual QList<TopLevelWindow> topLevelWindows() = 0;
    // The window alone: its frame without client-side shadow margins.
    virtual QRect windowWithoutShadowMargins(const TopLevelWindow &window) = 0;

    QString lastError() const { return m_lastError; }

protected:
    QString m_lastError;
};

// Picks the back end for this session: QUILLO_GRABBER_BACKEND=fake, X11 when DISPLAY
// reaches a server, otherwise one that only says the session is not supported.
std::unique_ptr<CaptureBackend> createCaptureBackend();
