#pragma once

#include <acutmem.h>

#include <memory>

namespace zu {

struct ResultChainDeleter {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};

/// A chain of result buffers with its owner.
using ResultChain = std::unique_ptr<resbuf, ResultChainDeleter>;

} // namespace zu
