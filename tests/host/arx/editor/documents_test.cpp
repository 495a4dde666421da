#include "editor_drawing.h"

#include <zuhost/drawing_files.h>

#include <temporary_folder.h>

namespace {

/// Records the changes of locks: the mode before and after, and the command.
struct LockRecorder : AcApDocManagerReactor {
    LockRecorder() { acDocManager->addReactor(this); }
    ~LockRecorder() override { acDocManager->removeReactor(this); }
    LockRecorder(const LockRecorder&) = delete;
    LockRecorder& operator=(const LockRecorder&) = delete;

    void documentLockModeWillChange(AcApDocument* document, AcAp::DocLockMode mine, AcAp::DocLockMode newMine,
                                    AcAp::DocLockMode current, const ACHAR* command) override {
        EXPECT_EQ(document->lockMode(), current);
        heard += std::to_wstring(mine) + L">" + std::to_wstring(newMine) + command + L" ";
    }
    void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode /*previousMine*/,
                                 AcAp::DocLockMode mine, AcAp::DocLockMode current,
                                 const ACHAR* /*command*/) override {
        EXPECT_EQ(document->myLockMode(), mine);
        EXPECT_EQ(mine, current);
        if (unlocks)
            acDocManager->unlockDocument(document);
    }

    bool unlocks = false;
    std::wstring heard;
};

bool wasQuiescent = true;

class Documents : public EditorDrawing {
protected:
    ~Documents() override { acedRegCmds->removeGroup(L"DOCUMENTS"); }

    static void run(AcRxFunctionPtr function) {
        acedRegCmds->addCommand(L"DOCUMENTS", L"WORK", L"WORK", ACRX_CMD_MODAL, function);
        EXPECT_EQ(zuhost::runCommand(L"WORK"), zuhost::CommandEnd::ended);
    }
};

} // namespace

TEST_F(Documents, LocksNest) {
    LockRecorder recorder;
    AcApDocument* const document = curDoc();
    EXPECT_EQ(document, acDocManager->document(&drawing));
    EXPECT_EQ(document->lockMode(), AcAp::kNotLocked);
    EXPECT_EQ(acDocManager->unlockDocument(document), Acad::eNotApplicable);
    EXPECT_EQ(acDocManager->lockDocument(document), Acad::eOk);
    EXPECT_EQ(acDocManager->lockDocument(document, AcAp::kRead, L"X"), Acad::eOk);
    EXPECT_EQ(document->lockMode(), AcAp::kRead);
    EXPECT_EQ(acDocManager->unlockDocument(document), Acad::eOk);
    EXPECT_EQ(acDocManager->unlockDocument(document), Acad::eOk);
    EXPECT_EQ(recorder.heard, L"2>4 4>8X 8>4# 4>2# ");
    EXPECT_EQ(acDocManager->lockDocument(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(acDocManager->unlockDocument(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(acDocManager->lockDocument(document, AcAp::kNotLocked), Acad::eInvalidInput);
    EXPECT_EQ(acDocManager->document(nullptr), nullptr);
}

TEST_F(Documents, CommandsLockTheDocument) {
    LockRecorder recorder;
    run([] {
        wasQuiescent = acDocManager->isApplicationContext();
        EXPECT_EQ(acDocManager->unlockDocument(curDoc()), Acad::eNotApplicable) << "the command's own";
        acDocManager->lockDocument(curDoc(), AcAp::kXWrite); // Left for the end of the command.
    });
    EXPECT_FALSE(wasQuiescent);
    EXPECT_TRUE(curDoc()->isQuiescent());
    EXPECT_EQ(recorder.heard, L"2>4WORK 4>16 16>2#WORK ");
    EXPECT_EQ(curDoc()->lockMode(), AcAp::kNotLocked);
}

TEST_F(Documents, AReactorMayReleaseTheLock) {
    LockRecorder recorder;
    recorder.unlocks = true;
    EXPECT_EQ(acDocManager->lockDocument(curDoc()), Acad::eOk);
    EXPECT_EQ(curDoc()->lockMode(), AcAp::kNotLocked);
    run([] { acDocManager->lockDocument(curDoc()); });
    EXPECT_EQ(curDoc()->lockMode(), AcAp::kNotLocked);
}

TEST_F(Documents, HaveTheNameOfTheirFile) {
    EXPECT_STREQ(curDoc()->fileName(), L"");
    const ACHAR* path = L"before";
    EXPECT_EQ(drawing.getFilename(path), Acad::eNoFileName);
    EXPECT_EQ(path, nullptr);
    const TemporaryFolder folder;
    const std::wstring file = folder.wide("a.dxf");
    ASSERT_EQ(drawing.dxfOut(file.c_str()), Acad::eOk);
    EXPECT_EQ(curDoc()->fileName(), file);
    EXPECT_EQ(drawing.dxfOut(folder.wide("no such folder/a.dxf").c_str()), Acad::eFilerError);
    EXPECT_EQ(curDoc()->fileName(), file) << "a save that failed";

    AcDbDatabase other(false);
    ASSERT_EQ(other.dxfIn(file.c_str()), Acad::eOk);
    acdbHostApplicationServices()->setWorkingDatabase(&other);
    EXPECT_EQ(curDoc()->fileName(), file);
    ASSERT_EQ(zuhost::dxfInBytes(other, zuhost::dxfOutBytes(drawing, false), L"memory.dxf"), Acad::eOk);
    EXPECT_STREQ(curDoc()->fileName(), L"");
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_STREQ(curDoc()->fileName(), L"");
}
