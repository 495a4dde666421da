#include <zucomn/frame.h>

#include "reset.h"
#include "state/library_state.h"

#include <dbapserv.h>
#include <summinfo.h>

int gblComn_acedUpdateDisplay = 1;
bool gblComn_withConnectHeight = false;
AcDb::LineWeight gblComn_lineWeight = AcDb::kLnWt000;
AcDb::LineWeight gblComn_ductLineWeight = AcDb::kLnWt000;
AcDb::LineWeight gblComn_kikiLineWeight = AcDb::kLnWt000;
AcDb::LineWeight gblComn_SlenderLineWeight = AcDb::kLnWt000;
CString sVelmoraOptions;

void zu::resetDrawingVariables() {
    gblComn_acedUpdateDisplay = 1;
    gblComn_withConnectHeight = false;
    for (AcDb::LineWeight* const weight :
         {&gblComn_lineWeight, &gblComn_ductLineWeight, &gblComn_kikiLineWeight, &gblComn_SlenderLineWeight})
        *weight = AcDb::kLnWt000;
    sVelmoraOptions.Empty();
}

void ZuComn_SetScale(double scale) {
    zu::state().scale = scale;
}

double ZuComn_GetGlobalScale() {
    return zu::state().scale;
}

int ZuComn_GetScale(double* scale) {
    if (scale != nullptr)
        *scale = zu::state().scale;
    return 0;
}

void ZuComn_setTolerance(double point, double vector) {
    if (point >= 0.0)
        zu::state().pointTolerance = point;
    if (vector >= 0.0)
        zu::state().vectorTolerance = vector;
}

void ZuComn_getTolerance(double* point, double* vector) {
    if (point != nullptr)
        *point = zu::state().pointTolerance;
    if (vector != nullptr)
        *vector = zu::state().vectorTolerance;
}

void ZuComn_workDatabase(AcDbDatabase* database) {
    zu::state().workDatabase = database;
}

AcDbDatabase* ZuComn_getWorkDatabase() {
    AcDbDatabase* const chosen = zu::state().workDatabase;
    return chosen != nullptr ? chosen : acdbHostApplicationServices()->workingDatabase();
}

namespace {

/// The custom properties of the working drawing; null without one.
std::unique_ptr<AcDbDatabaseSummaryInfo> summaryInfo() {
    AcDbDatabaseSummaryInfo* info = nullptr;
    acdbGetSummaryInfo(ZuComn_getWorkDatabase(), info);
    return std::unique_ptr<AcDbDatabaseSummaryInfo>(info);
}

} // namespace

int ZuComn_GetCustomVar(const wchar_t* name, CString& value) {
    const auto info = summaryInfo();
    AcString text;
    if (!info || info->getCustomSummaryInfo(name, text) != Acad::eOk)
        return -1;
    value = text;
    return 0;
}

int ZuComn_SetCustomVar(const wchar_t* name, const wchar_t* value) {
    const auto info = summaryInfo();
    if (!info)
        return -1;
    if (info->setCustomSummaryInfo(name, value) != Acad::eOk)
        info->addCustomSummaryInfo(name, value);
    return acdbPutSummaryInfo(info.get()) == Acad::eOk ? 0 : -1;
}

int ZuComn_GetEnableAnnoScale() {
    CString value;
    return ZuComn_GetCustomVar(L"ZUANNO", value) == 0 ? _wtoi(value) : 0;
}
