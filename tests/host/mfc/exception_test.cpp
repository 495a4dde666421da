#include <afx.h>
#include <zuhost/message_box.h>

#include <gtest/gtest.h>

namespace {

/// Counts the exceptions alive: a handler of the documented form leaves none.
class Counted : public CException {
    DECLARE_DYNAMIC(Counted)

public:
    Counted() { ++alive; }
    ~Counted() override { --alive; }
    static inline int alive = 0;
};

IMPLEMENT_DYNAMIC(Counted, CException)

CString textOf(const CException& exception, UINT room = 200) {
    wchar_t text[200] = L"?";
    UINT help = 7;
    const BOOL found = exception.GetErrorMessage(text, room, &help);
    EXPECT_EQ(help, 0U);
    EXPECT_EQ(found != FALSE, text[0] != L'\0');
    return text;
}

TEST(Exceptions, HaveTexts) {
    EXPECT_EQ(textOf(CFileException(CFileException::fileNotFound, 2, L"C:\\a.txt")),
              L"C:\\a.txt: the file was not found.");
    EXPECT_EQ(textOf(CFileException(CFileException::endOfFile)), L"File: the end of the file was reached.");
    for (const int cause : {-1, 15})
        EXPECT_EQ(textOf(CFileException(cause, -1, L"a")), L"a: an unknown error occurred.");
    EXPECT_EQ(textOf(CFileException(CFileException::diskFull, -1, L"a"), 4), L"a: ");
    EXPECT_EQ(textOf(CInvalidArgException()), L"An invalid argument was encountered.");
    EXPECT_EQ(textOf(Counted()), L"");
    EXPECT_FALSE(CMemoryException().GetErrorMessage(nullptr, 9));
    wchar_t untouched = L'x';
    EXPECT_FALSE(CMemoryException().GetErrorMessage(&untouched, 0));
    EXPECT_EQ(untouched, L'x');
}

TEST(Exceptions, AreReportedInAMessageBox) {
    const zuhost::MessageBoxObserver shown(IDNO);
    EXPECT_EQ(CUserException().ReportError(MB_YESNO), IDNO);
    CFileException(CFileException::diskFull, -1, L"a").ReportError();
    Counted().ReportError();
    ASSERT_EQ(shown.boxes().size(), 3U);
    EXPECT_EQ(shown.boxes()[0].text, L"The operation was cancelled.");
    EXPECT_EQ(shown.boxes()[1].text, L"a: the disk is full.");
    EXPECT_EQ(shown.boxes()[2].text, L"An unknown error occurred.");
}

TEST(Exceptions, AreThrownByPointer) {
    EXPECT_THROW(AfxThrowMemoryException(), CMemoryException*);
    EXPECT_THROW(AfxThrowNotSupportedException(), CNotSupportedException*);
    EXPECT_THROW(AfxThrowResourceException(), CResourceException*);
    EXPECT_THROW(AfxThrowUserException(), CSimpleException*);
    try {
        CFileException::ThrowOsError(ERROR_DISK_FULL, L"a");
    } catch (CException* exception) {
        ASSERT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CFileException)));
        const auto* const error = static_cast<CFileException*>(exception);
        EXPECT_EQ(error->m_cause, CFileException::diskFull);
        EXPECT_EQ(error->m_lOsError, static_cast<LONG>(ERROR_DISK_FULL));
        EXPECT_EQ(error->m_strFileName, L"a");
        exception->Delete();
    }
    EXPECT_EQ(CFileException::OsErrorToException(99999), CFileException::genericException);
}

void throwCounted() {
    throw new Counted;
}

void throwAgain() {
    TRY {
        throwCounted();
    }
    CATCH(CException, e) {
        EXPECT_EQ(Counted::alive, 1);
        THROW_LAST();
    }
    END_CATCH
}

int caughtBy(void (*action)()) {
    TRY {
        action();
    }
    CATCH(CFileException, e) {
        return e->m_cause;
    }
    AND_CATCH(Counted, e) {
        return -1;
    }
    END_CATCH
    return 0;
}

TEST(Exceptions, HandlersOfTheMacrosDeleteThem) {
    EXPECT_EQ(caughtBy([] {}), 0);
    EXPECT_EQ(caughtBy([] { THROW(new CFileException(CFileException::badPath)); }), CFileException::badPath);
    EXPECT_EQ(caughtBy(throwCounted), -1);
    EXPECT_EQ(Counted::alive, 0);
    EXPECT_EQ(caughtBy(throwAgain), -1) << "an exception thrown again is not deleted before its last handler";
    EXPECT_EQ(Counted::alive, 0);
    TRY {
        throwAgain();
    }
    CATCH_ALL(e) {
        EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(Counted)));
        TRY {
            throwCounted();
        }
        END_TRY
        EXPECT_EQ(Counted::alive, 1) << "the inner one is deleted, the outer one is still handled";
    }
    END_CATCH_ALL
    EXPECT_EQ(Counted::alive, 0);
}

} // namespace
