#include "LiveSettings.h"

LiveSettings &LiveSettings::shared()
{
    static LiveSettings live;
    return live;
}
