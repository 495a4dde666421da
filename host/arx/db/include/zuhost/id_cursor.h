#pragma once

#include <dbmain.h>
#include <zuhost/platform/export.h>

#include <vector>

namespace zuhost {

/// A position in a list of ids, which moves either way and skips erased objects on request.
class ZUHOST_API IdCursor {
public:
    IdCursor() = default;
    explicit IdCursor(std::vector<AcDbObjectId> ids) : ids_(std::move(ids)) {}

    void start(bool atBeginning, bool skipErased);
    [[nodiscard]] bool done() const { return at_ >= ids_.size(); }
    void step(bool forward, bool skipErased);
    /// eInvalidIndex at the end.
    Acad::ErrorStatus getId(AcDbObjectId& id) const;
    /// Moves to an id; eKeyNotFound when the list lacks it, and the position stays.
    Acad::ErrorStatus seek(AcDbObjectId id);

    /// Opens the object; the caller closes it. eInvalidIndex, and null, at the end.
    template <typename T>
    Acad::ErrorStatus open(T*& object, AcDb::OpenMode mode, bool openErased) const {
        object = nullptr;
        return done() ? Acad::eInvalidIndex : acdbOpenObject(object, ids_[at_], mode, openErased);
    }

private:
    void skip(bool forward, bool skipErased);

    std::vector<AcDbObjectId> ids_;
    std::size_t at_ = 0;
};

} // namespace zuhost
