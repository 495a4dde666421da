// A save that fails or is killed at any point leaves the old file or the new one.
#include "notation.h"
#include "temporary_folder.h"

#include "zuhost/file_ops.h"
#include "zuhost/paths.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace zuhost;
namespace fs = std::filesystem;

namespace {

class SaveFailure : public testing::Test {
protected:
    void SetUp() override {
        document_ = opened(oldBytes_);
        AcDbStub* line = member(*document_, "LINE");
        line->erased = true;
        newBytes_ = saved(*document_);
        writeOld();
    }

    void writeOld() const { ASSERT_FALSE(opened(oldBytes_)->save(path(), DrawingForm::ascii, nullptr)); }

    [[nodiscard]] std::wstring path() const { return hostPath(folder_.file("plan.dxf")); }
    [[nodiscard]] std::string onDisk() const { return fileBytes(folder_.file("plan.dxf")); }
    [[nodiscard]] std::size_t filesInFolder() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_.path()), {}));
    }

    TemporaryFolder folder_;
    std::string oldBytes_ = fileBytes(ZU_SAMPLES "/drawings/office-floor.dxf");
    std::string newBytes_;
    std::unique_ptr<Document> document_;
};

} // namespace

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

TEST_F(SaveFailure, KilledAtAnyOperationLeavesAWholeFile) {
    bool finished = false;
    for (int n = 1; n < 100 && !finished; ++n) {
        writeOld();
        const pid_t child = fork();
        if (child == 0) {
            int seen = 0;
            const file_ops::Interception interception([&](file_ops::Operation, const std::string&) {
                if (++seen == n)
                    raise(SIGKILL);
                return 0;
            });
            const auto error = document_->save(path(), DrawingForm::ascii, nullptr);
            _exit(error ? 1 : 0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        finished = WIFEXITED(status) && WEXITSTATUS(status) == 0;
        const std::string now = onDisk();
        ASSERT_TRUE(now == newBytes_ || (!finished && now == oldBytes_)) << "operation " << n;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder_.path()))
            fs::remove(entry.path()); // temporary files of killed processes
    }
    EXPECT_TRUE(finished);
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
