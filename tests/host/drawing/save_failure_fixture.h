#pragma once

#include "notation.h"
#include "temporary_folder.h"

#include "zuhost/file_ops.h"
#include "zuhost/paths.h"

#include <gtest/gtest.h>

class SaveFailure : public testing::Test {
protected:
    void SetUp() override {
        document_ = opened(oldBytes_);
        AcDbStub* line = member(*document_, "LINE");
        line->erased = true;
        newBytes_ = saved(*document_);
        writeOld();
    }

    void writeOld() const {
        ASSERT_FALSE(opened(oldBytes_)->save(path(), zuhost::DrawingForm::ascii, nullptr));
    }

    [[nodiscard]] std::wstring path() const { return zuhost::hostPath(folder_.file("plan.dxf")); }
    [[nodiscard]] std::string onDisk() const { return fileBytes(folder_.file("plan.dxf")); }
    [[nodiscard]] std::size_t filesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder_.path()), {}));
    }

    TemporaryFolder folder_;
    std::string oldBytes_ = fileBytes(ZU_SAMPLES "/drawings/office-floor.dxf");
    std::string newBytes_;
    std::unique_ptr<zuhost::Document> document_;
};
