#include "report/part_warnings.h"

#include <iostream>

namespace zu::app {

namespace {

std::string placeOf(const zu::dxf::Finding& finding) {
    return finding.line > 0 ? std::to_string(finding.line) : " byte " + std::to_string(finding.offset);
}

} // namespace

void printWarnings(const std::string& file, const zu::dxf::Findings& findings) {
    for (const zu::dxf::Finding& finding : findings.kept) {
        std::cerr << file << ':' << placeOf(finding) << ": warning: ";
        if (finding.code != zu::dxf::Findings::kNoCode)
            std::cerr << "group code " << finding.code << ": ";
        std::cerr << finding.problem << '\n';
    }
    if (findings.count > findings.kept.size())
        std::cerr << file << ": warning: " << findings.count - findings.kept.size()
                  << " more faults are not listed\n";
}

} // namespace zu::app
