#include "afx.h"

const CRuntimeClass CObject::classCObject = {"CObject", nullptr, nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    for (const CRuntimeClass* c = this; c != nullptr; c = c->m_pBaseClass)
        if (c == base)
            return true;
    return false;
}
