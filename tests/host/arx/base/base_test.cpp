#include <acarray.h>
#include <acdocman.h>
#include <aced.h>
#include <acutads.h>
#include <afx.h>
#include <arxutil.h>
#include <rxregsvc.h>

#include <gtest/gtest.h>
#include <zuhost/input.h>

#include <numbers>

namespace {

using zuhost::CommandLineObserver;

TEST(RunTimeClasses, KnowTheirNamesAndParents) {
    EXPECT_EQ(AcEditor::desc()->myParent(), AcRxObject::desc());
    EXPECT_STREQ(AcEditor::desc()->name(), L"AcEditor");
    EXPECT_EQ(acrxFindAcRxClass(L"AcEditor"), AcEditor::desc());
    EXPECT_EQ(acrxFindAcRxClass(L"none"), nullptr);
    const std::unique_ptr<AcRxObject> made(AcEditor::desc()->create());
    EXPECT_EQ(made->isA(), AcEditor::desc());
    EXPECT_EQ(AcEditor::cast(made.get()), made.get());
    EXPECT_EQ(AcApDocument::cast(made.get()), nullptr);
    EXPECT_EQ(AcApDocument::cast(nullptr), nullptr);
    EXPECT_EQ(made->comparedTo(made.get()), AcRx::kEqual);
    EXPECT_EQ(made->clone(), nullptr);
}

TEST(Arrays, ClampOrIgnoreIndicesOutOfRange) {
    AcArray<int> array;
    for (const int value : {1, 2, 3, 2})
        array.append(value);
    array.insertAt(99, 4).insertAt(-5, 0);
    EXPECT_EQ(array.first(), 0);
    EXPECT_EQ(array.last(), 4);
    array.removeAt(99).removeAt(-1);
    EXPECT_EQ(array.length(), 6);
    EXPECT_EQ(array.find(2), 2);
    EXPECT_EQ(array.findFrom(2, 3), 4);
    EXPECT_TRUE(array.remove(2));
    EXPECT_FALSE(array.remove(77));
    EXPECT_EQ(array.find(2), 3);
    array.append(array);
    EXPECT_EQ(array.length(), 10);
    array.setLogicalLength(2).setLogicalLength(3);
    EXPECT_EQ(array[2], 0);
}

class RecordingReactor : public AcEditorReactor {
public:
    RecordingReactor() { acedEditor->addReactor(this); }
    ~RecordingReactor() override { acedEditor->removeReactor(this); }
    void commandWillStart(const ACHAR* name) override { log += L"start " + std::wstring(name) + L";"; }
    void commandEnded(const ACHAR* name) override { log += L"end " + std::wstring(name) + L";"; }
    void commandFailed(const ACHAR* name) override { log += L"fail " + std::wstring(name) + L";"; }
    void unknownCommand(const ACHAR* name) override { log += L"unknown " + std::wstring(name) + L";"; }
    std::wstring log;
};

void failing() {
    AfxThrowInvalidArgException();
}

void sending() {
    ApiComn_sendCommand(L"zu_fail", 0, 0, 1);
}

TEST(Commands, RunInTheOrderSent) {
    CommandLineObserver printed;
    RecordingReactor reactor;
    EXPECT_EQ(acedRegCmds->addCommand(L"G", L"ZU_FAIL", nullptr, ACRX_CMD_MODAL, failing), Acad::eOk);
    EXPECT_EQ(acedRegCmds->addCommand(L"g", L"zu_fail", nullptr, ACRX_CMD_MODAL, failing),
              Acad::eDuplicateKey);
    EXPECT_EQ(acedRegCmds->addCommand(L"G", L"ZU_SEND", L"送信", ACRX_CMD_MODAL, sending), Acad::eOk);
    EXPECT_EQ(acedRegCmds->addCommand(L"G", L"", nullptr, ACRX_CMD_MODAL, sending), Acad::eInvalidInput);
    EXPECT_EQ(ApiComn_sendCommand(L"_zu_send", 1, 0, 1), 0);
    EXPECT_EQ(ApiComn_sendCommand(L"zu_send", 0, 0, 1), 0);
    EXPECT_EQ(ApiComn_sendCommand(L"'_.ZU_FAIL", 1, 0, 1), 0);
    EXPECT_EQ(ApiComn_sendCommand(L"", 0, 0, 1), -1);
    EXPECT_EQ(zuhost::pendingInput(), L"'_.ZU_FAIL\n_zu_send\nzu_send\n");
    EXPECT_TRUE(reactor.log.empty()) << "nothing runs before the host is idle";
    EXPECT_EQ(zuhost::runPendingCommands(), 3);
    EXPECT_EQ(reactor.log, L"start ZU_FAIL;fail ZU_FAIL;start ZU_SEND;end ZU_SEND;unknown ZU_SEND;"
                           L"start ZU_FAIL;fail ZU_FAIL;");
    EXPECT_NE(printed.text().find(L"Unknown command \"ZU_SEND\""), std::wstring::npos);
    EXPECT_EQ(zuhost::findCommand(L"送信"), &sending);
    EXPECT_EQ(acedRegCmds->removeCmd(L"G", L"ZU_FAIL"), Acad::eOk);
    EXPECT_EQ(acedRegCmds->removeGroup(L"G"), Acad::eOk);
    EXPECT_EQ(acedRegCmds->removeGroup(L"G"), Acad::eKeyNotFound);
    EXPECT_EQ(zuhost::findCommand(L"送信"), nullptr);
}

TEST(Commands, ReportTheExceptionsThatTheyLetEscape) {
    CommandLineObserver printed;
    const std::pair<AcRxFunctionPtr, std::wstring> cases[] = {
        {[] { AfxThrowFileException(CFileException::diskFull, -1, L"C:\\x.dat"); },
         L"ZU_ESCAPE: C:\\x.dat: the disk is full.\n"},
        {[] { throw std::runtime_error("no parts"); }, L"ZU_ESCAPE: no parts\n"},
        {[] { throw std::bad_alloc(); }, L"ZU_ESCAPE: Out of memory.\n"},
        {[] { throw 1; }, L"ZU_ESCAPE: An unknown error occurred.\n"},
    };
    std::wstring expected;
    for (const auto& [function, message] : cases) {
        acedRegCmds->addCommand(L"G", L"ZU_ESCAPE", nullptr, ACRX_CMD_MODAL, function);
        ApiComn_sendCommand(L"ZU_ESCAPE", 0, 0, 1);
        EXPECT_EQ(zuhost::runPendingCommands(), 1);
        acedRegCmds->removeGroup(L"G");
        expected += message;
    }
    EXPECT_EQ(printed.text(), expected);
}

TEST(Modules, AreAttachedStartedAndUnloaded) {
    CommandLineObserver printed;
    ASSERT_TRUE(acrxLoadModule(ZU_TEST_MODULES "\\zu_test_module.arx", true))
        << ".arx stands for a shared library";
    EXPECT_EQ(printed.text(), L"attach init ");
    EXPECT_TRUE(acrxLoadModule(L"ZU_TEST_MODULE.dll", true)) << "already loaded";
    EXPECT_TRUE(acrxDynamicLinker->isAppMDIAware(L"zu_test_module"));
    ApiComn_sendCommand(L"_ZU_TEST", 0, 1, 1);
    EXPECT_TRUE(acrxUnloadModule(L"zu_test_module.arx"));
    EXPECT_EQ(printed.text(), L"attach init command unload detach ");
    EXPECT_FALSE(acrxUnloadModule(L"zu_test_module.arx"));
    EXPECT_EQ(zuhost::findCommand(L"_ZU_TEST"), nullptr);
}

TEST(Modules, FailToLoadWithAReason) {
    CommandLineObserver printed;
    EXPECT_FALSE(acrxLoadModule(L"no_such_module.arx", true));
    EXPECT_NE(printed.text().find(L"no_such_module.arx"), std::wstring::npos);
    EXPECT_FALSE(acrxLoadModule(ZU_TEST_MODULES "\\zu_test_refusing.arx", false));
    EXPECT_FALSE(acrxAppIsLoaded(L"zu_test_refusing"));
    EXPECT_NE(printed.text().find(L"attach init detach "), std::wstring::npos);
    EXPECT_TRUE(acrxLoadModule(ZU_TEST_MODULES "\\zu_test_locked.arx", true));
    EXPECT_TRUE(acrxDynamicLinker->isApplicationLocked(L"zu_test_locked"));
    EXPECT_FALSE(acrxUnloadModule(L"zu_test_locked")) << "the module did not unlock itself";
    EXPECT_FALSE(acrxDynamicLinker->unlockApplication(nullptr));
}

TEST(CommandLine, PrintsWithCheckedArguments) {
    CommandLineObserver printed;
    EXPECT_EQ(acutPrintf(L"%s %d\n", CString(L"画層"), 3), RTNORM);
    acutPrintf(L"100%%");
    EXPECT_EQ(printed.text(), L"画層 3\n100%");
    {
        CommandLineObserver inner;
        acutPrintf(L"inner");
        EXPECT_EQ(inner.text(), L"inner");
    }
    EXPECT_EQ(printed.text().find(L"inner"), std::wstring::npos);
    EXPECT_DOUBLE_EQ(ApiComn_DegreeToRadian(180), std::numbers::pi);
    EXPECT_DOUBLE_EQ(ApiComn_RadianToDegree(std::numbers::pi / 2), 90);
}

} // namespace
