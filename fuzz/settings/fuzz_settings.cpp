// Any bytes as the settings of the library: the master file, "ZuConfig.ini" and the tables of attributes,
// separated by lines of "%%%". "@ROOT@" in the master file names their folder. A value that was written is
// read back.
#include "../support/require.h"
#include "../support/scratch_folder.h"

#include "attributes/attribute_tables.h"
#include "attributes/model/parameter_index.h"

#include <zucomn/attributes.h>
#include <zucomn/model/library.h>
#include <zucomn/settings.h>
#include <zucomn/strings.h>
#include <zucomn/tables.h>

#include <array>
#include <cstdint>

using zu::fuzz::require;

namespace {

constexpr std::string_view kSeparator = "%%%\n";
constexpr std::array kFiles = {"master.ini", "system/ZuConfig.ini", "system/属性IDパラメータ.csv",
                               "system/属性IDタイトル.csv"};
constexpr std::array kOptions = {L"配管±",        L"単線経路記号",     L"実数精度桁数", L"取付高注記精度桁数",
                                 L"線種尺度設定", L"属性値区切り記号", L"no option"};
/// Further occurrences are kept: each replacement makes the file longer.
constexpr std::size_t kRootsAtMost = 8;

std::string_view nextFile(std::string_view& bytes) {
    const std::size_t end = bytes.find(kSeparator);
    const std::string_view file = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + kSeparator.size());
    return file;
}

std::string withRoot(std::string_view bytes, const std::string& root) {
    constexpr std::string_view kMark = "@ROOT@";
    std::string text(bytes);
    std::size_t at = 0;
    for (std::size_t i = 0; i < kRootsAtMost && (at = text.find(kMark, at)) != std::string::npos; ++i)
        text.replace(at, kMark.size(), root);
    return text;
}

void readOptions() {
    CString value;
    for (const wchar_t* option : kOptions)
        ZuComn_readEnvConfig(value, option);
    for (const double number : {0.0, -0.0005, 12345.678, 2.5e9})
        ZuComn_RealFormat(number, -1, 1);
}

void writeOption(const wchar_t* key, const wchar_t* value) {
    if (ZuComn_writeConfig(L"環境設定", key, value, L"") == 0)
        return;
    CString read;
    require(ZuComn_readConfig(read, L"", L"環境設定", key) == 0 && read == value,
            "a value that was written is not read back");
}

void readTables() {
    const zu::AttributeTables& tables = zu::AttributeTables::instance();
    const zu::ParameterIndex parameters(tables.parameters());
    for (const wchar_t* id : {L"S301", L"S501", L""}) {
        CAttributeData::GetItemName(id);
        CStringArray texts;
        CAttributeData::GetItemParameter2(id, nullptr, texts);
        for (const wchar_t* value : {L"E1", L"A", L""})
            (void)parameters.choices(id, value);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const zu::fuzz::ScratchFolder folder;
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CString master;
    for (const char* name : kFiles) {
        const std::string_view file = nextFile(bytes);
        const bool isMaster = master.IsEmpty();
        const CString path = folder.write(name, isMaster ? withRoot(file, folder.path().string()) : file);
        if (isMaster)
            master = path;
    }
    ZuComn_SetIniFile(master);
    readOptions();
    writeOption(L"実数精度桁数", L"4");
    writeOption(L"new key", L"値");
    readTables();
    zucomn::resetLibrary();
    return 0;
}
