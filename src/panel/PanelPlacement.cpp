#include "PanelPlacement.h"

#include <algorithm>
#include <cmath>

namespace PanelPlacement {

namespace {
int clampInto(int pos, int length, int areaStart, int areaLength)
{
    // A panel larger than the area keeps its start edge visible.
    const int last = areaStart + std::max(0, areaLength - length);
    return std::clamp(pos, areaStart, last);
}
}  // namespace

QRect place(const QRect &iconRect, const QSize &size, const QRect &screenAvailable, bool *opensUpward)
{
    const double iconCentre = iconRect.x() + iconRect.width() * 0.5;
    int x = int(std::lround(iconCentre - size.width() * 0.5));

    const bool upward = screenAvailable.isValid()
        && iconRect.center().y() > screenAvailable.y() + screenAvailable.height() / 2;
    int y = upward ? iconRect.y() - size.height() : iconRect.y() + iconRect.height();

    if (screenAvailable.isValid()) {
        x = clampInto(x, size.width(), screenAvailable.x(), screenAvailable.width());
        y = clampInto(y, size.height(), screenAvailable.y(), screenAvailable.height());
    }
    if (opensUpward)
        *opensUpward = upward;
    return QRect(QPoint(x, y), size);
}

QRect centre(const QSize &size, const QRect &screenAvailable)
{
    const int x = screenAvailable.x() + (screenAvailable.width() - size.width()) / 2;
    const int y = screenAvailable.y() + (screenAvailable.height() - size.height()) / 2;
    return QRect(QPoint(std::max(x, screenAvailable.x()), std::max(y, screenAvailable.y())), size);
}

}  // namespace PanelPlacement
