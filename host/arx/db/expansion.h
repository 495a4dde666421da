#pragma once

namespace zuhost {

/// Limits the entities that nested blocks produce, which grow exponentially.
struct Expansion {
    int entitiesLeft = 2'000'000;
    int depthLeft = 64;
};

} // namespace zuhost
