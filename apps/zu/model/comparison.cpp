#include "model/comparison.h"

#include <zuhost/digests.h>

namespace zu::app {

zucomn::DrawingDifferences compare(DrawingFile& before, DrawingFile& after) {
    const std::vector<zuhost::EntityDigest> old = zuhost::entityDigests(before.database());
    const std::vector<zuhost::EntityDigest> now = zuhost::entityDigests(after.database());
    return zucomn::compareDrawings({before.database(), old}, {after.database(), now});
}

} // namespace zu::app
