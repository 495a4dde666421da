#pragma once

#include <gemat3d.h>
#include <gepnt3d.h>
#include <gescl3d.h>
#include <zuhost/platform/export.h>

#include <string>

class AcDbBlockReference;

namespace zuhost {

/// What a block reference says of its block and place.
struct ReferenceFacts {
    std::wstring block; ///< Name of the definition, even if the drawing lacks it.
    AcGePoint3d position;
    AcGeScale3d scale;
    double rotation = 0.0;
    AcGeVector3d normal;
    AcGeMatrix3d transform; ///< See AcDbBlockReference::blockTransform.
};

/// Reads all of them at once: each function of the reference would search its records.
ZUHOST_API void readFacts(const AcDbBlockReference& reference, ReferenceFacts& facts);

} // namespace zuhost
