#pragma once

#include "getol.h"

#include <zuhost/platform/export.h>

/// Settings of the geometry classes.
struct ZUHOST_API AcGeContext {
    /// The tolerance of comparisons that are given none.
    static AcGeTol gTol;
};
