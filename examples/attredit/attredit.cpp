// An application module of the CAD host: its command raises all elements of a drawing, and its reactor
// reports replaced route elements.
#include <zucomn/attributes.h>
#include <zucomn/frame.h>
#include <zucomn/replace_reactor.h>
#include <zucomn/route.h>

#include <accmd.h>
#include <acutads.h>
#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <rxregsvc.h>
#include <windows.h>

#include <memory>
#include <vector>

extern "C" int DllMain(HINSTANCE instance, DWORD reason, void* reserved);
extern "C" __attribute__((visibility("default"))) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message,
                                                                                  void* packet);

namespace {

constexpr const wchar_t* kGroup = L"ATTREDIT";
constexpr const wchar_t* kRecord = L"ZU_ATTR";
constexpr const wchar_t* kHeight = L"S401";

/// Reports replaced route elements on the command line. Registered for the lifetime of the object.
class ReplacementReporter final : public CReplaceReactor {
public:
    ReplacementReporter() { RuleComn_addReplaceReactor(this); }
    ~ReplacementReporter() override { RuleComn_removeReplaceReactor(this); }

    void erase(AcDbObjectId id) override { acutPrintf(L"attredit: %llX goes\n", id.handle().value()); }
    void terminated(AcDbObjectId id, AcArray<AcDbObjectId> newIds) override {
        acutPrintf(L"attredit: %llX is replaced by", id.handle().value());
        for (const AcDbObjectId newId : newIds)
            acutPrintf(L" %llX", newId.handle().value());
        acutPrintf(L"\n");
    }
};

std::unique_ptr<ReplacementReporter> reporter;

std::vector<AcDbObjectId> entitiesOfModelSpace() {
    AcDbDatabase* const database = ZuComn_getWorkDatabase();
    if (database == nullptr)
        return {};
    AcDbObjectId space;
    const AcDbObjectPointer<AcDbBlockTable> table(database->blockTableId());
    if (table.openStatus() != Acad::eOk || table->getAt(ACDB_MODEL_SPACE, space) != Acad::eOk)
        return {};
    const AcDbObjectPointer<AcDbBlockTableRecord> record(space);
    AcDbBlockTableRecordIterator* found = nullptr;
    if (record.openStatus() != Acad::eOk || record->newIterator(found) != Acad::eOk)
        return {};
    std::vector<AcDbObjectId> ids;
    for (const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(found); !iterator->done();
         iterator->step())
        if (AcDbObjectId id; iterator->getEntityId(id) == Acad::eOk)
            ids.push_back(id);
    return ids;
}

/// Raises an element by 100 drawing units. Returns false when it has no height or cannot be changed.
bool raise(AcDbObjectId element) {
    CAttributeData attributes;
    CStringArray record;
    if (attributes.GetExtensionElementData(element, record) != 0 ||
        CAttributeData::FindAtt(&record, L"S401|") < 0)
        return false;
    CString height;
    height.Format(L"%g", _wtof(CAttributeData::GetValueAtt(&record, kHeight)) + 100.0);
    CAttributeData::SetAtAtt(&record, L"S401|", height);
    return ApiComn_appendAttributesArray(element, kRecord, record) == 0;
}

/// Implements the command ATTREDIT_RAISE.
void raiseAll() {
    int raised = 0;
    for (const AcDbObjectId element : entitiesOfModelSpace())
        raised += raise(element) ? 1 : 0;
    acutPrintf(L"attredit: %d elements raised by 100\n", raised);
}

} // namespace

int DllMain(HINSTANCE /*instance*/, DWORD /*reason*/, void* /*reserved*/) {
    return 1;
}

AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    switch (message) {
    case AcRx::kInitAppMsg:
        acrxDynamicLinker->unlockApplication(packet);
        acrxDynamicLinker->registerAppMDIAware(packet);
        acedRegCmds->addCommand(kGroup, L"ATTREDIT_RAISE", L"ATTREDIT_RAISE", ACRX_CMD_MODAL, raiseAll);
        reporter = std::make_unique<ReplacementReporter>();
        break;
    case AcRx::kUnloadAppMsg:
        reporter.reset();
        acedRegCmds->removeGroup(kGroup);
        break;
    default:
        break;
    }
    return AcRx::kRetOK;
}
