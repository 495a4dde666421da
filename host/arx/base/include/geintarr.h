#pragma once

#include "acarray.h"

using AcGeIntArray = AcArray<int>;
