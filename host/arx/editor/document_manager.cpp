#include "acdocman.h"
#include "acutads.h"
#include "command_lock.h"
#include "editor_access.h"
#include "input_queue.h"
#include "undo_commands.h"

#include "zuhost/input.h"
#include <afx.h>
#include <zuhost/escaped_exception.h>
#include <zuhost/texts.h>

namespace {

zuhost::InputQueue& input() {
    return zuhost::InputQueue::instance();
}

template <typename Notification>
void notifyReactors(Notification notification) {
    // A copy: a reactor may remove itself or others.
    const AcArray<AcEditorReactor*> registered = zuhost::EditorAccess::reactors(*acedEditor);
    for (AcEditorReactor* const reactor : registered)
        if (zuhost::EditorAccess::reactors(*acedEditor).contains(reactor))
            notification(*reactor);
}

/// "'_.name" -> "_NAME": ignores the marks of transparent and built-in commands.
CString commandName(std::wstring_view word) {
    CString name = zuhost::textOf(word);
    name.Remove(L'\'');
    name.Remove(L'.');
    return name.MakeUpper();
}

zuhost::CommandEnd run(AcRxFunctionPtr function, const wchar_t* name) {
    const zuhost::CommandLock lock(name);
    const zuhost::CommandUndoStep step;
    notifyReactors([name](AcEditorReactor& reactor) { reactor.commandWillStart(name); });
    try {
        function();
    } catch (...) {
        acutPrintf(L"%s: %s\n", name, zuhost::deleteEscapedException().c_str());
        notifyReactors([name](AcEditorReactor& reactor) { reactor.commandFailed(name); });
        return zuhost::CommandEnd::failed;
    }
    notifyReactors([name](AcEditorReactor& reactor) { reactor.commandEnded(name); });
    return zuhost::CommandEnd::ended;
}

} // namespace

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                      bool /*activate*/, bool /*wrapUpInactive*/,
                                                      bool /*echo*/) {
    if (document == nullptr || text == nullptr)
        return Acad::eNullObjectPointer;
    input().append(text);
    return Acad::eOk;
}

const std::wstring& zuhost::pendingInput() {
    return input().pending();
}

void zuhost::clearPendingInput() {
    input().clear();
}

zuhost::CommandEnd zuhost::runCommand(const std::wstring& word) {
    const CString name = commandName(word);
    const wchar_t* const shown = name.GetString() + (name.Find(L'_') == 0 ? 1 : 0);
    if (const AcRxFunctionPtr function = findCommand(name))
        return run(function, shown);
    acutPrintf(L"Unknown command \"%s\".\n", shown);
    notifyReactors([shown](AcEditorReactor& reactor) { reactor.unknownCommand(shown); });
    return CommandEnd::unknown;
}

int zuhost::runPendingCommands() {
    int count = 0;
    for (std::wstring word = input().takeCommand(); !word.empty(); word = input().takeCommand())
        if (runCommand(word) != CommandEnd::unknown)
            ++count;
    return count;
}

std::wstring zuhost::pendingWord() {
    CString word = commandName(input().nextWord());
    word.Remove(L'_');
    return std::wstring(zuhost::viewOf(word));
}

void zuhost::takePendingWord() {
    input().takeWord();
}
