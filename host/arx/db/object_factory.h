#pragma once

#include "dbmain.h"
#include "drawing/tag_view.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace zuhost {

/// The class of all objects of a type, and how one is made.
struct ObjectKind {
    std::string_view type;
    AcRxClass* (*desc)();
    std::size_t size;
    AcDbObject* (*construct)(void* memory);
};

/// Selects the class of an object by the type and content of its records.
class ObjectBuilder {
public:
    /// Returns the kind of all objects of the type; null when their records decide.
    static const ObjectKind* kindOf(std::string_view type);
    static AcRxClass* classOf(const std::string& type, const TagView& tags);

    /// Returns a new object, without a stub.
    static std::unique_ptr<AcDbObject> build(const std::string& type, const TagView& tags);
};

} // namespace zuhost
