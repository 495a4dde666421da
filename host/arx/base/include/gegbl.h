#pragma once

#include "getol.h"

/// Settings of the geometry classes.
struct AcGeContext {
    /// The tolerance of comparisons that are given none.
    static AcGeTol gTol;
};
