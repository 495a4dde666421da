#pragma once

// The host's header: the platform's folders, which have one of the same name, are searched before the host's.

#include "../../include/tchar.h"
