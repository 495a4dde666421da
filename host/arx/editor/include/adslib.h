#pragma once

// All functions of the acut, acdb and aced families.

#include "acdbads.h"
#include "acedads.h"
#include "acutads.h"
#include "acutmem.h"
#include "adsdef.h"
