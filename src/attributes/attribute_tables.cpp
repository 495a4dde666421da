#include "attribute_tables.h"

#include "frame/environment.h"
#include "frame/text_view.h"
#include "model/parameter_index.h"
#include "state/library_state.h"

#include <zucomn/frame.h>
#include <zucomn/model/attributes.h>
#include <zucomn/settings.h>
#include <zucomn/tables.h>

#include <optional>

namespace zu {

namespace {

constexpr const wchar_t* kParameters = L"属性IDパラメータ.csv";
constexpr const wchar_t* kTitles = L"属性IDタイトル.csv";

std::optional<CString> tableFolder() {
    return environmentSetting(kStandardParts);
}

CString pathOf(const CString& folder, const wchar_t* file) {
    return folder + L"\\" + file;
}

bool read(CPtrArray& table, const CString& folder, const wchar_t* file) {
    return ZuComn_ReadConfigFile(pathOf(folder, file), table, 0, nullptr, L"|", 0) == 0;
}

} // namespace

AttributeTables& AttributeTables::instance() {
    AttributeTables& tables = *state().attributeTables;
    if (tables.settingsFile_ != ZUCE_INIFILE)
        tables.readMissing();
    return tables;
}

AttributeTables::~AttributeTables() {
    ZuComn_RemoveAllFree(titles_);
    ZuComn_RemoveAllFree(parameters_);
}

void AttributeTables::readMissing() {
    settingsFile_ = ZUCE_INIFILE;
    const std::optional<CString> folder = tableFolder();
    if (folder && parameters_.IsEmpty())
        read(parameters_, *folder, kParameters);
    if (folder && titles_.IsEmpty())
        read(titles_, *folder, kTitles);
}

CString AttributeTables::titlesFile() {
    const std::optional<CString> folder = tableFolder();
    return folder ? pathOf(*folder, kTitles) : CString();
}

CString AttributeTables::parametersFile() {
    const std::optional<CString> folder = tableFolder();
    return folder ? pathOf(*folder, kParameters) : CString();
}

bool AttributeTables::readParameters(CPtrArray& records) {
    const std::optional<CString> folder = tableFolder();
    return folder && read(records, *folder, kParameters);
}

} // namespace zu

std::wstring zucomn::parameterTableFile() {
    return std::wstring(zu::view(zu::AttributeTables::parametersFile()));
}

std::optional<bool> zucomn::isEditableAttribute(std::wstring_view id) {
    CPtrArray records;
    if (!zu::AttributeTables::readParameters(records))
        return std::nullopt;
    const zu::ParameterIndex parameters(records);
    ZuComn_RemoveAllFree(records);
    return parameters.editable(zu::textOf(id));
}
