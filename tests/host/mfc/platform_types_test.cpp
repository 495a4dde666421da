// On Windows, the platform's own types, constants and functions beside the host's.
#include <afx.h>
#include <shlwapi.h>
#include <zuhost/text_codec.h>

#include <gtest/gtest.h>

#include <type_traits>

#ifndef ERROR_SUCCESS
#error "the platform's constants are macros"
#endif

namespace {

static_assert(std::is_same_v<DWORD, unsigned long> && std::is_same_v<LONG, long>);

TEST(PlatformTypes, HandlesOfModulesAreThePlatforms) {
    const HMODULE program = GetModuleHandle(nullptr);
    HMODULE found = nullptr;
    EXPECT_TRUE(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT, nullptr, &found));
    EXPECT_EQ(found, program);
    const HMODULE sample = LoadLibrary(zuhost::fromUtf8(ZU_SAMPLE_MODULE).c_str());
    ASSERT_NE(sample, nullptr);
    const FARPROC answer = GetProcAddress(sample, "sampleAnswer");
    EXPECT_TRUE(GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                       GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                                   reinterpret_cast<const wchar_t*>(answer), &found));
    EXPECT_EQ(found, sample);
    EXPECT_TRUE(FreeLibrary(sample));
    EXPECT_FALSE(GetModuleHandleExW(0, L"zu_sample_module.dll", &found)) << "detached and unloaded";
}

TEST(PlatformTypes, ErrorsAreThePlatforms) {
    EXPECT_FALSE(SetEvent(nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE) << "of a function that the host lacks";
    EXPECT_EQ(GetFileAttributes(L"C:\\missing\\file"), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND) << "of one of the host's";
}

TEST(PlatformTypes, NamesOfSectionsAreTheHosts) {
    wchar_t names[16];
    EXPECT_EQ(GetPrivateProfileSectionNames(names, 16, L"C:\\missing.ini"), 0U);
    EXPECT_STREQ(PathFindFileName(L"C:\\a/b.txt"), L"b.txt");
}

} // namespace
