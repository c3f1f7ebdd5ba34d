#include "Platform.h"
// Placeholder until the hot key back ends land.
