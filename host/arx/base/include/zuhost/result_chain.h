#pragma once

#include "acutmem.h"

#include <memory>

namespace zuhost {

struct ReleaseChain {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};

/// A chain of result buffers with its owner.
using ResultChain = std::unique_ptr<resbuf, ReleaseChain>;

} // namespace zuhost
