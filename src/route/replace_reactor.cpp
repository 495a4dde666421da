#include <zucomn/replace_reactor.h>

#include "replace_reactors.h"
#include "state/library_state.h"

ACRX_CONS_DEFINE_MEMBERS(CReplaceReactor, AcRxObject)

namespace {

/// Makes the class known by its name as soon as the library is loaded.
[[maybe_unused]] const AcRxClass* const registeredClass = CReplaceReactor::desc();

} // namespace

CReplaceReactor::CReplaceReactor() = default;
CReplaceReactor::~CReplaceReactor() = default;
CReplaceReactor::CReplaceReactor(const CReplaceReactor&) = default;
CReplaceReactor::CReplaceReactor(CReplaceReactor&&) noexcept = default;
CReplaceReactor& CReplaceReactor::operator=(const CReplaceReactor&) = default;
CReplaceReactor& CReplaceReactor::operator=(CReplaceReactor&&) noexcept = default;

void CReplaceReactor::erase(AcDbObjectId /*id*/) {}

// By value, as the interface has it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void CReplaceReactor::terminated(AcDbObjectId /*id*/, AcArray<AcDbObjectId> /*newIds*/) {}

namespace {

AcArray<CReplaceReactor*>& registered() {
    return zu::state().replaceReactors;
}

/// A reactor may register and remove reactors while it is notified: removed ones are skipped, new ones are
/// not notified yet.
template <typename Notification>
void notifyReactors(Notification notification) {
    const AcArray<CReplaceReactor*> reactors = registered();
    for (CReplaceReactor* const reactor : reactors)
        if (registered().contains(reactor))
            notification(*reactor);
}

} // namespace

void RuleComn_addReplaceReactor(CReplaceReactor* reactor) {
    if (reactor != nullptr)
        registered().append(reactor);
}

void RuleComn_removeReplaceReactor(CReplaceReactor* reactor) {
    registered().remove(reactor);
}

void zu::notifyErased(AcDbObjectId id) {
    notifyReactors([id](CReplaceReactor& reactor) { reactor.erase(id); });
}

void zu::notifyTerminated(AcDbObjectId id, const AcDbObjectIdArray& newIds) {
    notifyReactors([&](CReplaceReactor& reactor) { reactor.terminated(id, newIds); });
}
