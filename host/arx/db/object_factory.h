#pragma once

#include "dbmain.h"
#include "drawing/tag_list.h"

#include <memory>
#include <string>

namespace zuhost {

/// Makes objects of the class that belongs to records.
class ObjectBuilder {
public:
    static std::unique_ptr<AcDbObject> build(const std::string& type, const TagList& tags);
    static AcRxClass* classOf(const std::string& type, const TagList& tags);
};

} // namespace zuhost
