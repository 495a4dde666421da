#include "attribute_tables.h"

#include <zucomn/frame.h>
#include <zucomn/settings.h>
#include <zucomn/tables.h>

namespace zu {

namespace {

void readIfEmpty(CPtrArray& table, const CString& folder, const wchar_t* file) {
    if (!table.IsEmpty())
        return;
    CString path;
    path.Format(L"%s\\%s", folder, file);
    ZuComn_ReadConfigFile(path, table, 0, nullptr, L"|", 0);
}

} // namespace

AttributeTables& AttributeTables::instance() {
    static AttributeTables tables;
    if (tables.triedFor_ != ZUCE_INIFILE)
        tables.readMissing();
    return tables;
}

AttributeTables::~AttributeTables() {
    clear();
}

void AttributeTables::clear() {
    ZuComn_RemoveAllFree(titles_);
    ZuComn_RemoveAllFree(parameters_);
    triedFor_.Empty();
}

void AttributeTables::readMissing() {
    triedFor_ = ZUCE_INIFILE;
    const bool isComplete = !titles_.IsEmpty() && !parameters_.IsEmpty();
    CString folder;
    if (isComplete || ZuComn_GetEnv(folder, ZUCE_INIFILE, L"環境設定", L"標準部品") != 0)
        return;
    readIfEmpty(parameters_, folder, L"属性IDパラメータ.csv");
    readIfEmpty(titles_, folder, L"属性IDタイトル.csv");
}

} // namespace zu
