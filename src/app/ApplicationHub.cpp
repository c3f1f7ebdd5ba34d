#include "ApplicationHub.h"

namespace {
ApplicationHub *g_hub = nullptr;
}

ApplicationHub *ApplicationHub::instance() { return g_hub; }
void ApplicationHub::setInstance(ApplicationHub *hub) { g_hub = hub; }
