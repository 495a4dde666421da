// Runs a module as a session of the host would: opens a drawing, loads the module, runs its command, replaces
// an element by a neighbour and saves the drawing.
//   run_attredit MODULE DRAWING HANDLE OUT
#include <zucomn/dbservices.h>
#include <zucomn/replace_reactor.h>
#include <zucomn/route.h>

#include <acdocman.h>
#include <arxutil.h>
#include <atlconv.h>
#include <dbapserv.h>
#include <dbmain.h>
#include <rxregsvc.h>

#include <iostream>
#include <span>
#include <string>

namespace {

int fail(const std::wstring& why) {
    std::cerr << static_cast<const char*>(CW2A(why.c_str(), CP_UTF8)) << '\n';
    return 1;
}

std::wstring wide(const char* utf8) {
    return std::wstring(CA2W(utf8, CP_UTF8));
}

/// Returns the first element that is connected to the given one in one of its groups; null when there is
/// none.
AcDbObjectId connectedTo(AcDbObjectId element) {
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
    if (const Acad::ErrorStatus status = database.dxfIn(file.c_str()); status != Acad::eOk)
        return fail(L"cannot open " + file + L": " + acadErrorStatusText(status));
    acdbHostApplicationServices()->setWorkingDatabase(&database);
    if (!acrxLoadModule(module.c_str(), true))
        return fail(L"cannot load the module " + module);
    ApiComn_sendCommand(L"ATTREDIT_RAISE", 0, 1, 1);

    AcDbObjectId element;
    database.getAcDbObjectId(element, false, AcDbHandle(handle.c_str()));
    const AcDbObjectId neighbour = connectedTo(element);
    if (neighbour.isNull())
        return fail(L"element " + handle + L" is connected to no other element; choose another handle");
    AcArray<AcDbObjectId> replaced;
    replaced.append(element);
    AcArray<AcDbObjectId> replacement;
    replacement.append(neighbour);
    if (RuleComn_rootReplace(replaced, replacement) != 0)
        return fail(L"element " + handle + L" cannot be replaced: it or one of its groups is open");

    const bool isUnloaded = acrxUnloadModule(module.c_str());
    if (const Acad::ErrorStatus status = database.dxfOut(out.c_str()); status != Acad::eOk)
        return fail(L"cannot save " + out + L": " + acadErrorStatusText(status));
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    return isUnloaded ? 0 : 1;
}

} // namespace

int main(int count, char** arguments) {
    const std::span<char*> given(arguments, static_cast<std::size_t>(count));
    if (given.size() != 5)
        return fail(L"usage: run_attredit MODULE DRAWING HANDLE OUT");
    return run(wide(given[1]), wide(given[2]), wide(given[3]), wide(given[4]));
}
