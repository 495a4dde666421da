#pragma once

#include "rxobject.h"

#include <zuhost/platform/export.h>

#include <string>
#include <vector>

/// Run-time description of a class: its name, its parent and a function that creates an object.
class ZUHOST_API AcRxClass : public AcRxObject {
public:
    using Creator = AcRxObject* (*)();

    [[nodiscard]] const wchar_t* name() const { return name_.c_str(); }
    [[nodiscard]] AcRxClass* myParent() const { return parent_; }
    [[nodiscard]] bool isDerivedFrom(const AcRxClass* other) const;
    /// Returns a new object owned by the caller; null for classes that can't be created.
    [[nodiscard]] AcRxObject* create() const { return creator_ != nullptr ? creator_() : nullptr; }

    AcRxClass* isA() const override;
    static AcRxClass* desc();

private:
    friend ZUHOST_API AcRxClass* newAcRxClass(const wchar_t* name, AcRxClass* parent, Creator creator);
    AcRxClass(std::wstring name, AcRxClass* parent, Creator creator);

    std::wstring name_;
    AcRxClass* parent_;
    Creator creator_;
    std::vector<const AcRxClass*> line_; ///< From the root to the class itself.
};

/// Registers a class under its name, or returns the one already registered. It lives as long as the host.
ZUHOST_API AcRxClass* newAcRxClass(const wchar_t* name, AcRxClass* parent,
                                   AcRxClass::Creator creator = nullptr);

/// Returns the class registered under the name; null when there is none.
ZUHOST_API AcRxClass* acrxFindAcRxClass(const wchar_t* name);

/// Does nothing: a class knows its parent as soon as it is registered.
inline void acrxBuildClassHierarchy() {}
