#include "recorded_network.h"

#include "../route/network.h"

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <zucomn/route.h>

#include <stdexcept>

namespace {

constexpr int kTrack = 100; ///< Elements on a track.
constexpr int kRoute = 2 * kTrack;

/// Turns the tees of every second track towards those of the track before, and makes the two one route.
void joinTracks(const Network& drawn) {
    RootComn_DelGroup(drawn.group);
    AcDbObjectIdArray route;
    const int count = drawn.elements.length();
    for (int i = 0; i < count; ++i) {
        if (i % kRoute >= kTrack) {
            const AcDbObjectPointer<AcDbBlockReference> element(drawn.elements[i], AcDb::kForWrite);
            element->setScaleFactors({1.0, -1.0, 1.0});
        }
        route.append(drawn.elements[i]);
        if (i % kRoute + 1 < kRoute && i + 1 < count)
            continue;
        AcDbObjectId group;
        RootComn_CreateNewGroup(L"*", route, group, false);
        route.removeAll();
    }
}

} // namespace

void writeNetwork(const std::wstring& path, int count, Design design) {
    const Network drawn(count);
    if (design == Design::sound)
        joinTracks(drawn);
    for (int i = 0; i < count; ++i) {
        const int part = design == Design::sound ? i / kRoute : i;
        CStringArray record;
        CString text;
        record.Add(L"3|系統|空調|");
        text.Format(L"S302|%d|P|ｻｲｽﾞ|1|1|", 50 * (part % 7));
        record.Add(text);
        text.Format(L"S401|%d|E|取付高|2|1|", 2500 + 100 * (part % 3));
        record.Add(text);
        record.Add(i % 5 == 0 ? L"S501|給気|A|用途|3|1|" : L"S501|還気|A|用途|3|1|");
        ApiComn_appendAttributesArray(drawn.elements[i], L"ZU_ATTR", record);
        CStringArray link;
        text.Format(L"%d|", 1 + i / (design == Design::sound ? kRoute : kTrack) % 4);
        link.Add(text);
        ApiComn_appendAttributesArray(drawn.elements[i], L"ZU_LINK", link);
    }
    if (drawn.database->dxfOut(path.c_str()) != Acad::eOk)
        throw std::runtime_error("cannot write the drawing");
}
