// A save that fails at any point leaves the old file or the new one.
#include "save_failure_fixture.h"

using namespace zuhost;

TEST_F(SaveFailure, EveryFailingOperationLeavesAWholeFile) {
    for (const bool fromThenOn : {false, true}) {
        std::uint64_t failures = 0;
        for (std::uint64_t n = 1; n < 100; ++n) {
            writeOld();
            file_ops::FailAt injected(n, fromThenOn);
            const auto error = document_->save(path(), DrawingForm::ascii, nullptr);
            const std::string now = onDisk();
            ASSERT_TRUE(now == oldBytes_ || now == newBytes_) << "operation " << n;
            if (!error) {
                EXPECT_TRUE(now == newBytes_);
                if (injected.count() < n)
                    break;
                continue;
            }
            ++failures;
            EXPECT_EQ(error->file, path());
            EXPECT_FALSE(error->problem.empty());
        }
        EXPECT_GE(failures, 4U);
    }
}

/// A value that does not fit is found while writing.
TEST_F(SaveFailure, RefusedFormLeavesTheOldFile) {
    const auto document = opened(drawing("AC1032", "0 SECTION|2 ENTITIES|0 X|70 99999|0 ENDSEC"));
    const auto error = document->save(path(), DrawingForm::binary, nullptr);
    ASSERT_TRUE(error);
    EXPECT_NE(error->problem.find(L"99999"), std::wstring::npos);
    EXPECT_TRUE(onDisk() == oldBytes_);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(SaveFailure, MissingFolderIsReported) {
    const auto error = document_->save(hostPath(folder_.file("none/plan.dxf")), DrawingForm::ascii, nullptr);
    ASSERT_TRUE(error);
    EXPECT_NE(error->file.find(L"none"), std::wstring::npos);
}
