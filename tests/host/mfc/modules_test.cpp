#include "temporary_folder.h"

#include <afx.h>
#include <afxdllx.h>
#include <zuhost/platform/libraries.h>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// A copy of the sample module's library in a folder of its own.
class SampleModule {
public:
    explicit SampleModule(const std::string& name = zuhost::platform::libraryNames("Sample").front()) {
        fs::copy_file(ZU_SAMPLE_MODULE, folder_.file(name));
    }

    [[nodiscard]] HMODULE load() const { return LoadLibraryW((folder_.wide("") + L"SAMPLE.dll").c_str()); }
    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

private:
    TemporaryFolder folder_;
};

std::wstring fileName(HMODULE module) {
    wchar_t buffer[1024];
    const DWORD length = GetModuleFileNameW(module, buffer, 1024);
    return {buffer, length};
}

TEST(Modules, AttachOnceAndDetachWithTheLastHandle) {
    const SampleModule sample;
    const HMODULE module = sample.load();
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(sample.load(), module);
    EXPECT_STREQ(std::getenv("ZU_SAMPLE_MODULE"), "a text too long for the small buffer of a string");
    auto* const answer =
        reinterpret_cast<int (*)()>(reinterpret_cast<void*>(GetProcAddress(module, "sampleAnswer")));
    ASSERT_NE(answer, nullptr);
    EXPECT_EQ(answer(), 42);
    const void* const systems = zuhost::platform::handleOfAddress(reinterpret_cast<const void*>(answer));
    EXPECT_TRUE(systems == nullptr || systems == module) << "the system's handle, where it has one";
    EXPECT_EQ(GetProcAddress(module, "DllMain"), nullptr) << "each module has its own";
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_NE(std::getenv("ZU_SAMPLE_MODULE"), nullptr);
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(std::getenv("ZU_SAMPLE_MODULE"), nullptr);
    EXPECT_FALSE(FreeLibrary(module));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST(Modules, HaveSeveralFileNames) {
    const auto names = zuhost::platform::libraryNames("Sample");
    EXPECT_GE(names.size(), 2U);
    for (const std::string& name : names) {
        const SampleModule sample(name);
        const HMODULE module = sample.load();
        ASSERT_NE(module, nullptr) << name;
        EXPECT_TRUE(fileName(module).ends_with(L"\\Sample.dll")) << name;
        EXPECT_TRUE(FreeLibrary(module)) << name;
    }
}

TEST(Modules, ReturnTheirNameInThePlatformsForm) {
    const SampleModule sample;
    const HMODULE module = sample.load();
    ASSERT_NE(module, nullptr);
    const std::wstring name = fileName(module);
    EXPECT_TRUE(name.ends_with(L"\\Sample.dll")) << zuhost::toUtf8(name);
    EXPECT_EQ(name.find(L'/'), std::wstring::npos);
    EXPECT_TRUE(fileName(nullptr).ends_with(L"\\test_mfc.exe"));
    wchar_t buffer[4];
    EXPECT_EQ(GetModuleFileNameW(module, buffer, 4), 4U);
    EXPECT_EQ(name.substr(0, 3), buffer) << "the name is truncated to the buffer";
    FreeLibrary(module);
}

TEST(Modules, TextsAreLookedUpAlongTheChain) {
    const SampleModule sample;
    sample.folder().write("Language.strings", "1 = \"translated\"\n2 = \"\"");
    const HMODULE module = sample.load();
    const HMODULE language = LoadLibraryW((sample.folder().wide("") + L"language.dll").c_str());
    ASSERT_NE(language, nullptr);
    EXPECT_EQ(GetProcAddress(language, "x"), nullptr);
    EXPECT_EQ(LoadLibraryW(L"\\nowhere\\x.dll"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    CString text(L"before");
    EXPECT_TRUE(text.LoadString(module, 2));
    EXPECT_EQ(text, L"second\n\"quoted\" 表");
    EXPECT_FALSE(text.LoadString(language, 2));
    EXPECT_EQ(text, L"second\n\"quoted\" 表");

    const HINSTANCE before = AfxGetResourceHandle();
    AfxSetResourceHandle(language);
    EXPECT_TRUE(text.LoadString(1));
    EXPECT_EQ(text, L"translated");
    EXPECT_TRUE(text.LoadString(2)) << "a missing or empty text is found later in the chain";
    EXPECT_EQ(AfxFindStringResourceHandle(2), module);
    EXPECT_EQ(AfxFindStringResourceHandle(3), language);
    AfxSetResourceHandle(before);
    FreeLibrary(module);
    EXPECT_FALSE(text.LoadString(2)) << "an unloaded module is no longer in the chain";
    FreeLibrary(language);
}

} // namespace
