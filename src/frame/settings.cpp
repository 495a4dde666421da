#include <zucomn/settings.h>

#include "environment.h"
#include "library_text.h"
#include "reset.h"
#include "resource_ids.h"
#include "text_view.h"

#include <zucomn/frame.h>

#include <algorithm>
#include <array>
#include <string_view>

CString ZUCE_INIFILE;

void zu::resetSettings() {
    ZUCE_INIFILE.Empty();
}

namespace {

constexpr DWORD kValueSize = 512;
constexpr const wchar_t* kMissing = L"error";
constexpr const wchar_t* kOptions = L"ｵﾌﾟｼｮﾝ";
constexpr std::wstring_view kSeparatorOption = L"属性値区切り記号";

struct Option {
    std::wstring_view key;
    const wchar_t* olderKey; ///< In the options section of the master file; null: see olderSeparator.
};

constexpr std::array<Option, 10> kKnownOptions{{
    {L"配管±", L"PLUSMINUS"},
    {L"ボス直付", L"直付"},
    {L"複線→単線時経路記号", L"SINGLEIZE_MARK"},
    {L"単線経路記号", L"AUTOROUTESIGN"},
    {L"経路記号強制保持", L"LEAVE_ACCESSORIES_ROUTE"},
    {kSeparatorOption, nullptr},
    {L"実数精度桁数", L"REALACCURACY"},
    {L"取付高注記精度桁数", L"REALACCURACY_ANNO"},
    {L"線種尺度設定", L"LTSCALE"},
    {L"寸法尺度設定", L"DIMSCALE"},
}};

/// Returns false for a missing value. "error" stands for one, so a stored "error" counts as missing, too.
bool readValue(const wchar_t* file, const wchar_t* section, const wchar_t* key, CString& value) {
    wchar_t buffer[kValueSize] = {};
    GetPrivateProfileStringW(section, key, kMissing, buffer, kValueSize, file);
    if (_wcsicmp(buffer, kMissing) == 0)
        return false;
    value = buffer;
    return true;
}

CString valueOrEmpty(const wchar_t* file, const wchar_t* section, const wchar_t* key) {
    CString value;
    readValue(file, section, key, value);
    return value;
}

/// Empty while the settings name no system folder, so that the root folder does not take its place.
CString configurationFile() {
    const CString folder = zu::namedEnvironmentSetting(zu::text::kSystemFolder).value_or(CString());
    return folder.IsEmpty() ? folder : folder + L"\\ZuConfig.ini";
}

AcDb::LineWeight lineWeight(UINT keyId) {
    return static_cast<AcDb::LineWeight>(_wtoi(zu::namedEnvironmentSetting(keyId).value_or(CString())));
}

/// Removes quotes around the separator: "\"/\",1" becomes "/,1".
CString withoutQuotes(const CString& value) {
    const int comma = value.ReverseFind(L',');
    if (comma < 0)
        return value;
    CString head = value.Left(comma);
    const int length = head.GetLength();
    if (length >= 2 && head.GetAt(0) == L'"' && head.GetAt(length - 1) == L'"')
        head = head.Mid(1, length - 2);
    return head + value.Mid(comma);
}

CString olderSeparator() {
    const CString flag = valueOrEmpty(ZUCE_INIFILE, kOptions, L"EXATTRIBUTE");
    if (flag.IsEmpty())
        return {};
    const CString separator = valueOrEmpty(ZUCE_INIFILE, L"属性値記入", L"区切り記号");
    return (separator.IsEmpty() ? CString(L",") : separator) + L"," + flag;
}

CString olderValue(const Option& option) {
    return option.olderKey != nullptr ? valueOrEmpty(ZUCE_INIFILE, kOptions, option.olderKey)
                                      : olderSeparator();
}

/// A line end would start another line of the file.
bool containsLineEnd(const wchar_t* text) {
    return text != nullptr && std::wstring_view(text).find_first_of(L"\r\n") != std::wstring_view::npos;
}

} // namespace

std::optional<CString> zu::environmentSetting(const wchar_t* key) {
    CString value;
    return readValue(ZUCE_INIFILE, kEnvironmentSection, key, value) ? std::optional(value) : std::nullopt;
}

std::optional<CString> zu::namedEnvironmentSetting(unsigned keyId) {
    const CString section = libraryText(text::kEnvironmentSection);
    const CString key = libraryText(keyId);
    CString value;
    const bool isRead = !section.IsEmpty() && !key.IsEmpty() && readValue(ZUCE_INIFILE, section, key, value);
    return isRead ? std::optional(value) : std::nullopt;
}

void ZuComn_SetIniFile(const CString& path) {
    ZUCE_INIFILE = path;
    // Ducts share the key of routes.
    gblComn_lineWeight = lineWeight(zu::text::kRouteLineWeight);
    gblComn_ductLineWeight = lineWeight(zu::text::kRouteLineWeight);
    gblComn_kikiLineWeight = lineWeight(zu::text::kEquipmentLineWeight);
    gblComn_SlenderLineWeight = lineWeight(zu::text::kExtraFineLineWeight);
}

bool ZuComn_GetSystemPath(CString& path) {
    path = zu::namedEnvironmentSetting(zu::text::kSystemFolder).value_or(CString());
    return !path.IsEmpty();
}

int ZuComn_readConfig(CString& value, const wchar_t* /*file*/, const wchar_t* section, const wchar_t* key) {
    return readValue(configurationFile(), section, key, value) ? 0 : -1;
}

CString ZuComn_readConfig(const wchar_t* file, const wchar_t* section, const wchar_t* key) {
    CString value;
    ZuComn_readConfig(value, file, section, key);
    return value;
}

int ZuComn_readConfig(wchar_t* buffer, const wchar_t* file, const wchar_t* section, const wchar_t* key) {
    CString value;
    const int result = ZuComn_readConfig(value, file, section, key);
    const std::wstring_view characters = zu::view(value);
    *std::copy(characters.begin(), characters.end(), buffer) = L'\0';
    return result;
}

int ZuComn_writeConfig(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                       const wchar_t* /*file*/) {
    const CString file = configurationFile();
    if (file.IsEmpty() || containsLineEnd(section) || containsLineEnd(key) || containsLineEnd(value))
        return FALSE;
    return WritePrivateProfileStringW(section, key, value, file);
}

int ZuComn_readEnvConfig(CString& value, const wchar_t* key) {
    // Copied because the key may be the text of `value`.
    const CString name(key);
    value = valueOrEmpty(configurationFile(), zu::kEnvironmentSection, name);
    const auto option = std::find_if(kKnownOptions.begin(), kKnownOptions.end(),
                                     [&name](const Option& known) { return known.key == zu::view(name); });
    if (option == kKnownOptions.end())
        return 0;
    if (value.IsEmpty()) {
        value = olderValue(*option);
        return value.IsEmpty() ? -1 : 0;
    }
    if (option->key == kSeparatorOption)
        value = withoutQuotes(value);
    return 0;
}

int ZuComn_GetEnv(CString& value, const wchar_t* file, const wchar_t* section, const wchar_t* key) {
    return readValue(file, section, key, value) ? 0 : -1;
}

CString ZuComn_GetEnv(const wchar_t* file, const wchar_t* section, const wchar_t* key) {
    return valueOrEmpty(file, section, key);
}
