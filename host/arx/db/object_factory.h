#pragma once

#include "dbmain.h"
#include "drawing/tag_view.h"

#include <memory>
#include <string>

namespace zuhost {

/// Selects the class of an object by the type and content of its records.
class ObjectBuilder {
public:
    /// Returns a new object of the class, without a stub.
    static std::unique_ptr<AcDbObject> build(const std::string& type, const TagView& tags);
    static AcRxClass* classOf(const std::string& type, const TagView& tags);
};

} // namespace zuhost
