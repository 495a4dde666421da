#pragma once

#include "dbmain.h"
#include "drawing/tag_list.h"

#include <memory>
#include <string>

namespace zuhost {

/// Selects the class of an object by the type and content of its records.
class ObjectBuilder {
public:
    /// Returns a new object of the class; the records are not copied into it.
    static std::unique_ptr<AcDbObject> build(const std::string& type, const TagList& tags);
    static AcRxClass* classOf(const std::string& type, const TagList& tags);
};

} // namespace zuhost
