#include "X11CaptureBackend.h"
#include "X11CaptureXcb.h"

#include <xcb/randr.h>
#include <xcb/shm.h>
#include <xcb/xproto.h>

#include <sys/ipc.h>
#include <sys/mman.h>
#include <sys/shm.h>

#include <vector>

namespace {

QString describe(const char *what, const XcbError &error)
{
    if (!error)
        return QStringLiteral("%1 failed").arg(QLatin1String(what));
    return QStringLiteral("%1 failed (X error %2)").arg(QLatin1String(what)).arg(error->error_code);
}

} // namespace

X11CaptureBackend::X11CaptureBackend()
{
    int screenNumber = 0;
    m_connection = xcb_connect(nullptr, &screenNumber);
    if (!m_connection || xcb_connection_has_error(m_connection))
        return;
    auto it = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; it.rem && i < screenNumber; ++i)
        xcb_screen_next(&it);
    if (!it.rem)
        return;
    m_screen = it.data;
    m_root = m_screen->root;

    const xcb_query_extension_reply_t *shm = xcb_get_extension_data(m_connection, &xcb_shm_id);
    if (shm && shm->present) {
        auto version = xcbReply<xcb_shm_query_version_reply_t>(
            xcb_shm_query_version_reply, m_connection, xcb_shm_query_version(m_connection));
        m_sharedMemory = version != nullptr && qgetenv("QUILLO_GRABBER_NO_SHM") != "1";
    }
}

X11CaptureBackend::~X11CaptureBackend()
{
    if (m_connection)
        xcb_disconnect(m_connection);
}

QRect X11CaptureBackend::desktopGeometry()
{
    return QRect(0, 0, m_screen->width_in_pixels, m_screen->height_in_pixels);
}

QList<QRect> X11CaptureBackend::monitors()
{
    QList<QRect> result;
    const xcb_query_extension_reply_t *randr = xcb_get_extension_data(m_connection, &xcb_randr_id);
    if (!randr || !randr->present)
        return result;
    auto version = xcbReply<xcb_randr_query_version_reply_t>(
        xcb_randr_query_version_reply, m_connection, xcb_randr_query_version(m_connection, 1, 5));
    if (!version || (version->major_version == 1 && version->minor_version < 5))
        return result;
    auto reply = xcbReply<xcb_randr_get_monitors_reply_t>(
        xcb_randr_get_monitors_reply, m_connection, xcb_randr_get_monitors(m_connection, m_root, 1));
    if (!reply)
        return result;
    for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem;
         xcb_randr_monitor_info_next(&it)) {
        const QRect r(it.data->x, it.data->y, it.data->width, it.data->height);
        if (r.isValid())
            result.append(r & desktopGeometry());
    }
    return result;
}

QPoint X11CaptureBackend::pointer()
{
    auto reply = xcbReply<xcb_query_pointer_reply_t>(
        xcb_query_pointer_reply, m_connection, xcb_query_pointer(m_connection, m_root));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

QRect X11CaptureBackend::monitorUnderPointer()
{
    const QList<QRect> all = monitors();
    const QPoint at = pointer();
    for (const QRect &r : all) {
        if (r.contains(at))
            return r;
    }
    return all.isEmpty() ? desktopGeometry() : all.first();
}

bool X11CaptureBackend::pixelFormatIsRgb32() const
{
    const xcb_setup_t *setup = xcb_get_setup(m_connection);
    if (setup->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST)
        return false;
    bool thirtyTwoBits = false;
    for (auto it = xcb_setup_pixmap_formats_iterator(setup); it.rem; xcb_format_next(&it)) {
        if (it.data->depth == m_screen->root_depth)
            thirtyTwoBits = it.data->bits_per_pixel == 32;
    }
    for (auto d = xcb_screen_allowed_depths_iterator(m_screen); d.rem; xcb_depth_next(&d)) {
        for (auto v = xcb_depth_visuals_iterator(d.data); v.rem; xcb_visualtype_next(&v)) {
            if (v.data->visual_id == m_screen->root_visual)
                return thirtyTwoBits && v.data->red_mask == 0xff0000 && v.data->green_mask == 0xff00
                    && v.data->blue_mask == 0xff;
        }
    }
    return false;
}

QImage X11CaptureBackend::grab(const QRect &wanted)
{
    const QRect area = wanted & desktopGeometry();
    if (area.isEmpty()) {
        m_lastError = QStringLiteral("nothing to capture in that area");
        return {};
    }
    if (!pixelFormatIsRgb32()) {
        m_lastError = QStringLiteral("the display's pixel format (depth %1) is not supported")
                          .arg(m_screen->root_depth);
        return {};
    }
    if (m_sharedMemory) {
        QImage image = grabShared(area);
        if (!image.isNull())
            return image;
        m_sharedMemory = false; // e.g. a remote server: the plain request works there
    }
    return grabByRequest(area);
}

QImage X11CaptureBackend::grabShared(const QRect &area)
{
    const size_t bytes = size_t(area.width()) * size_t(area.height()) * 4;
    const int id = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
    if (id < 0)
        return {};
    void *memory = shmat(id, nullptr, 0);
    if (memory == reinterpret_cast<void *>(-1)) {
        shmctl(id, IPC_RMID, nullptr);
        return {};
    }
    const xcb_shm_seg_t segment = xcb_generate_id(m_connection);
    XcbError error(xcb_request_check(m_connection, xcb_shm_attach_checked(m_connection, segment, id, 0)));
    shmctl(id, IPC_RMID, nullptr); // the kernel frees it once both sides detach
    if (error) {
        shmdt(memory);
        return {};
    }
    auto reply = xcbReply<xcb_shm_get_image_reply_t>(
        xcb_shm_get_image_reply, m_connection,
        xcb_shm_get_image(m_connection, m_root, area.x(), area.y(), area.width(), area.height(),
                          ~0u, XCB_IMAGE_FORMAT_Z_PIXMAP, segment, 0),
        &error);
    xcb_shm_detach(m_connection, segment);
    xcb_flush(m_connection);
    if (!reply) {
        shmdt(memory);
        return {};
    }
#ifdef MADV_POPULATE_READ
    // Map the server-written pages in one call rather than one fault per page (older kernels
    // refuse the advice; then the pages fault in as they are read).
    madvise(memory, bytes, MADV_POPULATE_READ);
#endif
    return QImage(static_cast<uchar *>(memory), area.width(), area.height(), area.width() * 4,
                  QImage::Format_RGB32, [](void *p) { shmdt(p); }, memory);
}

QImage X11CaptureBackend::grabByRequest(const QRect &area)
{
    QImage image(area.size(), QImage::Format_RGB32);
    if (image.isNull()) {
        m_lastError = QStringLiteral("not enough memory for a %1x%2 image").arg(area.width()).arg(area.height());
        return {};
    }
    // Bands keep each reply well under the server's maximum request length.
    const int bandHeight = qMax(1, (4 << 20) / (area.width() * 4));
    for (int y = 0; y < area.height(); y += bandHeight) {
        const int h = qMin(bandHeight, area.height() - y);
        XcbError error;
        auto reply = xcbReply<xcb_get_image_reply_t>(
            xcb_get_image_reply, m_connection,
            xcb_get_image(m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, area.x(), area.y() + y,
                          area.width(), h, ~0u),
            &error);
        if (!reply) {
            m_lastError = describe("reading the screen", error);
            return {};
        }
        const int length = xcb_get_image_data_length(reply.get());
        const uint8_t *data = xcb_get_image_data(reply.get());
        const int stride = area.width() * 4;
        if (length < stride * h) {
            m_lastError = QStringLiteral("the X server sent a short image");
            return {};
        }
        for (int row = 0; row < h; ++row)
            memcpy(image.scanLine(y + row), data + size_t(row) * stride, stride);
    }
    return image;
}
