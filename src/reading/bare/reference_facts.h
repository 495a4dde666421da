#pragma once

#include "entity_names.h"

#include <dbents.h>

#include <string>

/// Block and place of a reference, on the interface alone.
namespace zu {

struct ReferenceFacts {
    std::wstring block; ///< Name of the definition; empty when the drawing lacks it.
    AcGePoint3d position;
    AcGeScale3d scale;
    double rotation = 0.0;
    AcGeVector3d normal;
    AcGeMatrix3d transform; ///< See AcDbBlockReference::blockTransform.
};

inline void readFacts(const AcDbBlockReference& reference, ReferenceFacts& facts) {
    facts = {blockName(reference), reference.position(), reference.scaleFactors(),
             reference.rotation(), reference.normal(),   reference.blockTransform()};
}

} // namespace zu
