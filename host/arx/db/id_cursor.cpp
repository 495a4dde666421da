#include "zuhost/id_cursor.h"

#include <algorithm>

namespace zuhost {

void IdCursor::start(bool atBeginning, bool skipErased) {
    at_ = atBeginning || ids_.empty() ? 0 : ids_.size() - 1;
    skip(atBeginning, skipErased);
}

void IdCursor::step(bool forward, bool skipErased) {
    if (done())
        return;
    at_ = forward ? at_ + 1 : at_ - 1; // before the first id the position wraps to one past the end
    skip(forward, skipErased);
}

void IdCursor::skip(bool forward, bool skipErased) {
    while (skipErased && !done() && ids_[at_].isErased())
        at_ = forward ? at_ + 1 : at_ - 1;
}

Acad::ErrorStatus IdCursor::getId(AcDbObjectId& id) const {
    if (done())
        return Acad::eInvalidIndex;
    id = ids_[at_];
    return Acad::eOk;
}

Acad::ErrorStatus IdCursor::seek(AcDbObjectId id) {
    const auto found = std::find(ids_.begin(), ids_.end(), id);
    if (found == ids_.end())
        return Acad::eKeyNotFound;
    at_ = static_cast<std::size_t>(found - ids_.begin());
    return Acad::eOk;
}

} // namespace zuhost
