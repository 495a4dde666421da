#include <zucomn/model/audit.h>

#include <array>

namespace zucomn {

namespace {

struct Fault {
    RouteFault fault;
    std::wstring_view code;
    Severity severity;
};

/// One row per fault, in the order of the enumeration. Codes are stable: scripts name them.
constexpr std::array kFaults{
    Fault{RouteFault::emptyGroup, L"empty-group", Severity::warning},
    Fault{RouteFault::membership, L"several-groups", Severity::error},
    Fault{RouteFault::attributeRecord, L"attribute-record", Severity::error},
    Fault{RouteFault::linkRecord, L"link-record", Severity::error},
    Fault{RouteFault::duplicate, L"duplicate", Severity::error},
    Fault{RouteFault::openEnd, L"open-end", Severity::warning},
    Fault{RouteFault::gap, L"gap", Severity::error},
    Fault{RouteFault::crowdedJoint, L"crowded-joint", Severity::error},
    Fault{RouteFault::kindMismatch, L"kind-mismatch", Severity::error},
    Fault{RouteFault::sizeMismatch, L"size-mismatch", Severity::warning},
    Fault{RouteFault::heightMismatch, L"height-mismatch", Severity::warning},
    Fault{RouteFault::unreached, L"unreached", Severity::warning},
};

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < kFaults.size(); ++i)
        if (kFaults[i].fault != static_cast<RouteFault>(i))
            return false;
    return kFaults.size() == kRouteFaults;
}
static_assert(isInOrder());

} // namespace

std::wstring_view faultCode(RouteFault fault) {
    return kFaults[static_cast<std::size_t>(fault)].code;
}

Severity faultSeverity(RouteFault fault) {
    return kFaults[static_cast<std::size_t>(fault)].severity;
}

} // namespace zucomn
