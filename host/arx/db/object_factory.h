#pragma once

#include "dbmain.h"
#include "drawing/tag_view.h"

#include <memory>
#include <string>

namespace zuhost {

/// Selects the class of an object by the type and content of its records.
class ObjectBuilder {
public:
    static AcRxClass* classOf(const std::string& type, const TagView& tags);
    /// Returns the class of all objects of the type; null when their records decide.
    static AcRxClass* classOfType(const std::string& type);

    /// Return a new object, without a stub.
    static std::unique_ptr<AcDbObject> build(const std::string& type, const TagView& tags);
    static std::unique_ptr<AcDbObject> create(const AcRxClass& objectClass);
};

} // namespace zuhost
