#include "report/finding_json.h"

namespace zu::app {

namespace {

Json textOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

} // namespace

Json findingJson(const Finding& finding) {
    const auto& at = finding.position;
    return {{"code", finding.code},
            {"severity", severityName(finding.severity)},
            {"handle", finding.handle},
            {"problem", finding.problem},
            {"repaired", finding.repaired},
            {"position", at ? Json({at->x, at->y, at->z}) : Json()},
            {"with", finding.with},
            {"group", textOrNull(finding.group)},
            {"layer", textOrNull(finding.layer)}};
}

} // namespace zu::app
