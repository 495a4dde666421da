#include "acdocman.h"
#include "aced.h"
#include "acutads.h"
#include "dbapserv.h"
#include "undo_commands.h"

#include <afx.h>

#include <algorithm>

ACRX_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)
ACRX_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)

namespace {

std::wstring& input() {
    static auto* const text = new std::wstring;
    return *text;
}

/// Returns the next word of the input, after removing the blanks before it; empty at the end.
std::wstring nextWord() {
    constexpr const wchar_t* kBlanks = L" \t\r\n";
    std::wstring& text = input();
    text.erase(0, text.find_first_not_of(kBlanks));
    return text.substr(0, text.find_first_of(kBlanks));
}

std::wstring takeWord() {
    std::wstring word = nextWord();
    input().erase(0, word.size());
    return word;
}

template <typename Notification>
void notifyReactors(Notification notification) {
    // A copy: a reactor may remove itself or others.
    const AcArray<AcEditorReactor*> registered = acedEditor->reactors();
    for (AcEditorReactor* const reactor : registered)
        if (acedEditor->reactors().contains(reactor))
            notification(*reactor);
}

/// "'_.name" -> "_NAME": ignores the marks of transparent and built-in commands.
CString commandName(const std::wstring& word) {
    CString name{std::wstring_view(word)};
    name.Remove(L'\'');
    name.Remove(L'.');
    return name.MakeUpper();
}

void run(AcRxFunctionPtr function, const wchar_t* name) {
    const zuhost::CommandUndoStep step;
    notifyReactors([name](AcEditorReactor& reactor) { reactor.commandWillStart(name); });
    try {
        function();
    } catch (const CException& exception) {
        acutPrintf(L"%s: %s\n", name, exception.GetErrorText());
        notifyReactors([name](AcEditorReactor& reactor) { reactor.commandFailed(name); });
        return;
    }
    notifyReactors([name](AcEditorReactor& reactor) { reactor.commandEnded(name); });
}

} // namespace

AcApDocManager& zuhost::documentManager() {
    static auto* const manager = new AcApDocManager;
    return *manager;
}

AcDbDatabase* AcApDocument::database() const {
    return acdbHostApplicationServices()->workingDatabase();
}

AcApDocument* AcApDocManager::curDocument() const {
    static auto* const document = new AcApDocument;
    return document;
}

Acad::ErrorStatus AcApDocManager::sendStringToExecute(AcApDocument* document, const ACHAR* text,
                                                      bool /*activate*/, bool /*wrapUpInactive*/,
                                                      bool /*echo*/) {
    if (document == nullptr || text == nullptr)
        return Acad::eNullObjectPointer;
    input() += text;
    return Acad::eOk;
}

const std::wstring& zuhost::pendingInput() {
    return input();
}

void zuhost::clearPendingInput() {
    input().clear();
}

int zuhost::runPendingCommands() {
    int count = 0;
    for (std::wstring word = takeWord(); !word.empty(); word = takeWord()) {
        const CString name = commandName(word);
        const wchar_t* const shown = name.GetString() + (name.Find(L'_') == 0 ? 1 : 0);
        if (const AcRxFunctionPtr function = acedRegCmds->lookup(name)) {
            run(function, shown);
            ++count;
            continue;
        }
        acutPrintf(L"Unknown command \"%s\".\n", shown);
        notifyReactors([shown](AcEditorReactor& reactor) { reactor.unknownCommand(shown); });
    }
    return count;
}

std::wstring zuhost::pendingWord() {
    CString word = commandName(nextWord());
    word.Remove(L'_');
    return std::wstring(word.view());
}

void zuhost::takePendingWord() {
    takeWord();
}
