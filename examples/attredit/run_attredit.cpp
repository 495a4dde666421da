// Stands in for a host's session: loads the module, opens a drawing, runs the module's command, replaces an
// element and saves.
//   run_attredit MODULE DRAWING HANDLE OUT
#include <zucomn/dbservices.h>
#include <zucomn/replace_reactor.h>
#include <zucomn/route.h>

#include <acdocman.h>
#include <arxutil.h>
#include <dbapserv.h>
#include <dbmain.h>
#include <rxregsvc.h>
#include <zuhost/text_codec.h>

#include <iostream>
#include <span>
#include <string>

namespace {

int fail(std::wstring_view why) {
    std::cerr << zuhost::toUtf8(why) << '\n';
    return 1;
}

/// The first element joined to another in one of its groups.
AcDbObjectId joinedTo(AcDbObjectId element) {
    AcArray<AcDbObjectId> groups;
    ZuComn_GetGroupID(element, groups);
    for (const AcDbObjectId group : groups) {
        AcArray<AcDbObjectId> joined;
        RootComn_GetConnectBlock(group, element, joined, nullptr, 0);
        if (!joined.isEmpty())
            return joined.first();
    }
    return {};
}

int run(const std::wstring& module, const std::wstring& file, const std::wstring& handle,
        const std::wstring& out) {
    AcDbDatabase database(false);
    if (database.dxfIn(file.c_str()) != Acad::eOk)
        return fail(database.lastErrorText());
    acdbHostApplicationServices()->setWorkingDatabase(&database);
    if (!acrxLoadModule(module.c_str(), true))
        return 1;
    ApiComn_sendCommand(L"ATTREDIT_RAISE", 0, 1, 1);

    AcDbObjectId element;
    database.getAcDbObjectId(element, false, AcDbHandle(handle.c_str()));
    const AcDbObjectId neighbour = joinedTo(element);
    if (neighbour.isNull())
        return fail(L"no element is joined to " + handle);
    AcArray<AcDbObjectId> merged;
    merged.append(element);
    AcArray<AcDbObjectId> remaining;
    remaining.append(neighbour);
    if (RuleComn_rootReplace(merged, remaining) != 0)
        return fail(L"the element can't be replaced");

    const bool isUnloaded = acrxUnloadModule(module.c_str());
    if (database.dxfOut(out.c_str()) != Acad::eOk)
        return fail(database.lastErrorText());
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    return isUnloaded ? 0 : 1;
}

} // namespace

int main(int count, char** arguments) {
    const std::span<char*> given(arguments, static_cast<std::size_t>(count));
    if (given.size() != 5)
        return fail(L"usage: run_attredit MODULE DRAWING HANDLE OUT");
    return run(zuhost::fromUtf8(given[1]), zuhost::fromUtf8(given[2]), zuhost::fromUtf8(given[3]),
               zuhost::fromUtf8(given[4]));
}
