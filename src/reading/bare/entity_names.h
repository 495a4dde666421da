#pragma once

#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <string>

/// Names of entities by value, on the interface alone.
namespace zu {

inline std::wstring layerName(const AcDbEntity& entity) {
    AcString name;
    entity.layer(name);
    return name.kwszPtr();
}

/// The name of the reference's definition; empty when the drawing lacks it.
inline std::wstring blockName(const AcDbBlockReference& reference) {
    AcString name;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(reference.blockTableRecord());
    if (block.openStatus() == Acad::eOk)
        block->getName(name);
    return name.kwszPtr();
}

} // namespace zu
