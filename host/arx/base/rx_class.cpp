#include "rxclass.h"

#include <map>
#include <memory>

namespace {

using Registry = std::map<std::wstring, std::unique_ptr<AcRxClass>, std::less<>>;

Registry& registry() {
    static Registry classes;
    return classes;
}

} // namespace

AcRxClass* newAcRxClass(const wchar_t* name, AcRxClass* parent, AcRxClass::Creator creator) {
    auto& entry = registry()[name];
    if (!entry)
        entry.reset(new AcRxClass(name, parent, creator));
    return entry.get();
}

AcRxClass* acrxFindAcRxClass(const wchar_t* name) {
    const auto found = registry().find(std::wstring_view(name));
    return found == registry().end() ? nullptr : found->second.get();
}

AcRxClass* AcRxObject::desc() {
    static AcRxClass* const root = newAcRxClass(L"AcRxObject", nullptr);
    return root;
}

AcRxClass* AcRxObject::isA() const {
    return AcRxObject::desc();
}

AcRxObject* AcRxObject::cast(const AcRxObject* object) {
    return const_cast<AcRxObject*>(object);
}

AcRx::Ordering AcRxObject::comparedTo(const AcRxObject* other) const {
    return isEqualTo(other) ? AcRx::kEqual : AcRx::kNotOrderable;
}

bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
    return isA()->isDerivedFrom(aClass);
}

AcRxObject* AcRxObject::subQueryX(const AcRxClass* /*protocol*/) const {
    return nullptr;
}

AcRxClass::AcRxClass(std::wstring name, AcRxClass* parent, Creator creator)
    : name_(std::move(name)), parent_(parent), creator_(creator) {
    if (parent != nullptr)
        line_ = parent->line_;
    line_.push_back(this);
}

bool AcRxClass::isDerivedFrom(const AcRxClass* other) const {
    if (other == nullptr || other->line_.size() > line_.size())
        return false;
    return line_[other->line_.size() - 1] == other;
}

AcRxClass* AcRxClass::desc() {
    static AcRxClass* const description = newAcRxClass(L"AcRxClass", AcRxObject::desc());
    return description;
}

AcRxClass* AcRxClass::isA() const {
    return AcRxClass::desc();
}
