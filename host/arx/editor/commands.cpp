#include "accmd.h"
#include "aced.h"
#include "undo_commands.h"
#include "zuhost/input.h"
#include "zuhost/main_frame.h"

#include <afxstr.h>

#include <algorithm>
#include <vector>

ACRX_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)
ACRX_CONS_DEFINE_MEMBERS(AcEditorReactor, AcRxObject)
ACRX_CONS_DEFINE_MEMBERS(AcEditor, AcRxObject)

namespace {

struct Command {
    CString group;
    CString globalName;
    CString localName;
    Adesk::Int32 flags = 0;
    AcRxFunctionPtr function = nullptr;
};

std::vector<Command>& commands() {
    // Never destroyed: modules remove their commands during process exit.
    static auto* const list = new std::vector<Command>;
    return *list;
}

bool isSet(const ACHAR* text) {
    return text != nullptr && *text != L'\0';
}

template <typename Matches>
Acad::ErrorStatus removeIf(Matches matches) {
    return std::erase_if(commands(), matches) > 0 ? Acad::eOk : Acad::eKeyNotFound;
}

AcEdCommandStack* newCommandStack() {
    auto* const stack = new AcEdCommandStack;
    zuhost::addUndoCommands(*stack);
    return stack;
}

CMDIFrameWnd* mainFrame = nullptr;

} // namespace

AcEdCommandStack& zuhost::commandStack() {
    static auto* const stack = newCommandStack();
    return *stack;
}

Acad::ErrorStatus AcEdCommandStack::addCommand(const ACHAR* group, const ACHAR* globalName,
                                               const ACHAR* localName, Adesk::Int32 flags,
                                               AcRxFunctionPtr function) {
    if (!isSet(group) || !isSet(globalName) || function == nullptr)
        return Acad::eInvalidInput;
    const bool known = std::any_of(commands().begin(), commands().end(), [&](const Command& c) {
        return c.group.CompareNoCase(group) == 0 && c.globalName.CompareNoCase(globalName) == 0;
    });
    if (known)
        return Acad::eDuplicateKey;
    commands().push_back({group, globalName, isSet(localName) ? localName : globalName, flags, function});
    return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::removeCmd(const ACHAR* group, const ACHAR* globalName) {
    if (!isSet(group) || !isSet(globalName))
        return Acad::eInvalidInput;
    return removeIf([&](const Command& c) {
        return c.group.CompareNoCase(group) == 0 && c.globalName.CompareNoCase(globalName) == 0;
    });
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const ACHAR* group) {
    if (!isSet(group))
        return Acad::eInvalidInput;
    return removeIf([&](const Command& c) { return c.group.CompareNoCase(group) == 0; });
}

AcRxFunctionPtr zuhost::findCommand(const ACHAR* name) {
    commandStack();
    if (!isSet(name))
        return nullptr;
    const bool global = *name == L'_';
    const wchar_t* const wanted = global ? name + 1 : name;
    const auto found = std::find_if(commands().rbegin(), commands().rend(), [&](const Command& c) {
        return (global ? c.globalName : c.localName).CompareNoCase(wanted) == 0;
    });
    return found == commands().rend() ? nullptr : found->function;
}

AcEditor& zuhost::editor() {
    static auto* const instance = new AcEditor;
    return *instance;
}

void AcEditor::addReactor(AcEditorReactor* reactor) {
    if (reactor != nullptr && !reactors_.contains(reactor))
        reactors_.append(reactor);
}

void AcEditor::removeReactor(AcEditorReactor* reactor) {
    reactors_.remove(reactor);
}

CMDIFrameWnd* acedGetAcadFrame() {
    return mainFrame;
}

void zuhost::setMainFrame(CMDIFrameWnd* frame) {
    mainFrame = frame;
}
