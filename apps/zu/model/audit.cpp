#include "model/audit.h"

#include "text.h"

#include <zucomn/model/audit.h>
#include <zuhost/audit.h>

namespace zu::app {

namespace {

template <typename Findings>
void append(const Findings& found, std::vector<Finding>& findings) {
    for (const auto& finding : found)
        findings.push_back({handleText(finding.object), narrow(finding.problem), finding.isRepaired});
}

} // namespace

std::vector<Finding> audit(DrawingFile& drawing, bool repairing) {
    std::vector<Finding> findings;
    append(zuhost::auditDatabase(drawing.database(), repairing), findings);
    append(zucomn::auditRoutes(drawing.database(), repairing), findings);
    return findings;
}

} // namespace zu::app
