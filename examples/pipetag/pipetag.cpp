// An application module of the CAD host. PIPETAG places a tag for pipes that the user selects: a block with
// their number and total length, which remembers the pipes. PIPETAGLIST reports the tags of the drawing.
//
// Nothing here is special to the embedded host: the source is one for any host with the interface.
#include <acdocman.h>
#include <aced.h>
#include <acedads.h>
#include <actrans.h>
#include <adslib.h>
#include <afx.h>
#include <dbapserv.h>
#include <dbdict.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <dbxrecrd.h>
#include <geassign.h>
#include <rxregsvc.h>

extern "C" int DllMain(HINSTANCE instance, DWORD reason, void* reserved);
extern "C" __attribute__((visibility("default"))) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message,
                                                                                  void* packet);

namespace {

const ACHAR* const kGroup = L"PIPETAG";
const ACHAR* const kApplication = L"PIPETAG"; // of the extended data
const ACHAR* const kBlock = L"PIPE_TAG";
const ACHAR* const kRecord = L"PIPES"; // in the tag's extension dictionary
const double kTextHeight = 2.5;

// What one PIPETAG was asked for.
struct Tag {
    CString number;
    CString layer;
    ads_point point;
    AcDbObjectIdArray pipes;
    double length;
};

// [input]
// Asks for the layer of the pipes; Enter is the current layer. Returns false when the user cancels.
bool askLayer(CString& layer) {
    resbuf current;
    if (acedGetVar(L"CLAYER", &current) != RTNORM)
        return false;
    CString prompt;
    prompt.Format(L"\nLayer of the pipes <%s>: ", current.resval.rstring);
    ACHAR answer[256];
    const int rc = acedGetString(1, prompt, answer);
    layer = *answer != L'\0' ? answer : current.resval.rstring;
    acutDelString(current.resval.rstring);
    if (rc != RTNORM)
        return false;

    AcDbLayerTable* pTable = NULL;
    if (acdbHostApplicationServices()->workingDatabase()->getSymbolTable(pTable, AcDb::kForRead) != Acad::eOk)
        return false;
    const bool known = pTable->has(layer);
    pTable->close();
    if (!known)
        acutPrintf(L"\nThere is no layer %s.", (const ACHAR*)layer);
    return known;
}

bool askNumberAndPoint(Tag& tag) {
    ACHAR number[50];
    if (acedGetString(0, L"\nNumber of the tag: ", number) != RTNORM || *number == L'\0')
        return false;
    tag.number = number;
    tag.number.MakeUpper();
    acedInitGet(RSG_NONULL, NULL);
    return acedGetPoint(NULL, L"\nPlace of the tag: ", tag.point) == RTNORM;
}
// [input]

// [selection]
// Lets the user select lines on the layer.
bool selectPipes(Tag& tag) {
    resbuf* pFilter = acutBuildList(RTDXF0, L"LINE", AcDb::kDxfLayerName, (const ACHAR*)tag.layer, RTNONE);
    ads_name ss;
    acutPrintf(L"\nSelect the pipes.\n");
    const int rc = acedSSGet(NULL, NULL, NULL, pFilter, ss);
    acutRelRb(pFilter);
    if (rc != RTNORM)
        return false;
    Adesk::Int32 count = 0;
    acedSSLength(ss, &count);
    for (Adesk::Int32 i = 0; i < count; i++) {
        ads_name ent;
        AcDbObjectId id;
        if (acedSSName(ss, i, ent) == RTNORM && acdbGetObjectId(id, ent) == Acad::eOk)
            tag.pipes.append(id);
    }
    acedSSFree(ss);
    return !tag.pipes.isEmpty();
}

// Returns the total length of the lines.
double lengthOf(const AcDbObjectIdArray& pipes) {
    double length = 0.0;
    for (int i = 0; i < pipes.length(); i++) {
        AcDbObjectPointer<AcDbLine> pLine(pipes[i], AcDb::kForRead);
        if (pLine.openStatus() == Acad::eOk)
            length += pLine->startPoint().distanceTo(pLine->endPoint());
    }
    return length;
}
// [selection]

// [block]
// Adds an entity to the drawing, or to the block that is being defined, and frees its list.
bool make(resbuf* pList) {
    const int rc = pList != NULL ? acdbEntMake(pList) : RTERROR;
    acutRelRb(pList);
    return rc == RTNORM || rc == RTKWORD; // RTKWORD: a block is complete
}

// Adds the definition of an attribute below the block's circle.
bool makeDefinition(const ACHAR* tag, const ACHAR* prompt, double y) {
    ads_point at = {0.0, y, 0.0};
    return make(acutBuildList(RTDXF0, L"ATTDEF", 8, L"0", 10, at, 40, kTextHeight, 1, L"", 3, prompt, 2, tag,
                              70, 0, RTNONE));
}

// Defines the block of tags, unless the drawing has it.
bool defineBlock() {
    AcDbBlockTable* pTable = NULL;
    if (acdbHostApplicationServices()->workingDatabase()->getSymbolTable(pTable, AcDb::kForRead) != Acad::eOk)
        return false;
    const bool known = pTable->has(kBlock);
    pTable->close();
    if (known)
        return true;
    ads_point origin = {0.0, 0.0, 0.0};
    return make(acutBuildList(RTDXF0, L"BLOCK", 2, kBlock, 70, 2, 10, origin, RTNONE)) &&
           make(acutBuildList(RTDXF0, L"CIRCLE", 8, L"0", 10, origin, 40, kTextHeight / 2.0, RTNONE)) &&
           makeDefinition(L"NUMBER", L"Number", -2.0 * kTextHeight) &&
           makeDefinition(L"LENGTH", L"Length", -4.0 * kTextHeight) &&
           make(acutBuildList(RTDXF0, L"ENDBLK", RTNONE));
}

bool makeAttribute(const Tag& tag, const ACHAR* name, const ACHAR* value, double y) {
    ads_point at = {tag.point[X], tag.point[Y] + y, tag.point[Z]};
    return make(acutBuildList(RTDXF0, L"ATTRIB", 8, (const ACHAR*)tag.layer, 10, at, 40, kTextHeight, 1,
                              value, 2, name, 70, 0, RTNONE));
}

// Inserts the block with its attributes; returns the reference, null when that fails.
AcDbObjectId insertTag(const Tag& tag) {
    ads_name ent;
    AcDbObjectId id;
    ACHAR length[64];
    if (acdbRToS(tag.length, 2, 1, length) != RTNORM ||
        !make(acutBuildList(RTDXF0, L"INSERT", 8, (const ACHAR*)tag.layer, 66, 1, 2, kBlock, 10, tag.point,
                            RTNONE)) ||
        !makeAttribute(tag, L"NUMBER", tag.number, -2.0 * kTextHeight) ||
        !makeAttribute(tag, L"LENGTH", length, -4.0 * kTextHeight) ||
        !make(acutBuildList(RTDXF0, L"SEQEND", RTNONE)))
        return AcDbObjectId::kNull;
    if (acdbEntLast(ent) == RTNORM)
        acdbGetObjectId(id, ent);
    return id;
}
// [block]

// [data]
// Marks the reference as a tag: its number and the pipes' layer as extended data.
Acad::ErrorStatus writeData(AcDbObject* pReference, const Tag& tag) {
    acdbRegApp(kApplication);
    resbuf* pData =
        acutBuildList(AcDb::kDxfRegAppName, kApplication, AcDb::kDxfXdAsciiString, (const ACHAR*)tag.number,
                      AcDb::kDxfXdLayerName, (const ACHAR*)tag.layer, RTNONE);
    const Acad::ErrorStatus es = pReference->setXData(pData);
    acutRelRb(pData);
    return es;
}

// Returns the pipes as a chain of soft pointers.
resbuf* pointersTo(const AcDbObjectIdArray& pipes) {
    resbuf* pFirst = NULL;
    for (int i = pipes.length() - 1; i >= 0; i--) {
        ads_name ent;
        if (acdbGetAdsName(ent, pipes[i]) != Acad::eOk)
            continue;
        resbuf* pItem = acutBuildList(AcDb::kDxfSoftPointerId, ent, RTNONE);
        pItem->rbnext = pFirst;
        pFirst = pItem;
    }
    return pFirst;
}

// Writes the pipes to a record in the reference's extension dictionary.
Acad::ErrorStatus writePipes(AcTransaction* pTransaction, AcDbObject* pReference,
                             const AcDbObjectIdArray& pipes) {
    Acad::ErrorStatus es = pReference->createExtensionDictionary();
    AcDbObject* pObject = NULL;
    if (es == Acad::eOk)
        es = pTransaction->getObject(pObject, pReference->extensionDictionary(), AcDb::kForWrite);
    AcDbDictionary* pDictionary = AcDbDictionary::cast(pObject);
    if (pDictionary == NULL)
        return es != Acad::eOk ? es : Acad::eNotThatKindOfClass;
    AcDbXrecord* pRecord = new AcDbXrecord;
    AcDbObjectId id;
    es = pDictionary->setAt(kRecord, pRecord, id);
    if (es != Acad::eOk) {
        delete pRecord;
        return es;
    }
    resbuf* pPipes = pointersTo(pipes);
    es = pPipes != NULL ? pRecord->setFromRbChain(*pPipes) : Acad::eInvalidInput;
    acutRelRb(pPipes);
    pRecord->close();
    return es;
}

// Inserts the tag and writes what it remembers, all or nothing.
Acad::ErrorStatus placeTag(const Tag& tag) {
    AcTransaction* pTransaction = actrTransactionManager->startTransaction();
    AcDbObject* pReference = NULL;
    Acad::ErrorStatus es = defineBlock() ? Acad::eOk : Acad::eInvalidInput;
    if (es == Acad::eOk)
        es = pTransaction->getObject(pReference, insertTag(tag), AcDb::kForWrite);
    if (es == Acad::eOk)
        es = writeData(pReference, tag);
    if (es == Acad::eOk)
        es = writePipes(pTransaction, pReference, tag.pipes);
    if (es == Acad::eOk)
        return actrTransactionManager->endTransaction();
    actrTransactionManager->abortTransaction();
    return es;
}
// [data]

// The command PIPETAG.
void tagPipes() {
    Tag tag;
    if (!askLayer(tag.layer) || !askNumberAndPoint(tag) || !selectPipes(tag)) {
        acutPrintf(L"\nNo tag is placed.\n");
        return;
    }
    tag.length = lengthOf(tag.pipes);
    const Acad::ErrorStatus es = placeTag(tag);
    if (es != Acad::eOk)
        acutPrintf(L"\nThe tag is not placed: %s.\n", acadErrorStatusText(es));
    else
        acutPrintf(L"\nTag %s: %d pipes, length %.1f.\n", (const ACHAR*)tag.number, tag.pipes.length(),
                   tag.length);
}

// [report]
// Returns the text of an attribute of the reference.
CString attributeOf(const ads_name reference, const ACHAR* name) {
    ads_name ent;
    CString text;
    ads_name_set(reference, ent);
    while (acdbEntNext(ent, ent) == RTNORM) {
        resbuf* pList = acdbEntGet(ent);
        bool isAttribute = false;
        bool isWanted = false;
        CString value;
        for (resbuf* p = pList; p != NULL; p = p->rbnext) {
            if (p->restype == AcDb::kDxfStart)
                isAttribute = wcscmp(p->resval.rstring, L"ATTRIB") == 0;
            else if (p->restype == AcDb::kDxfAttributeTag)
                isWanted = wcscmp(p->resval.rstring, name) == 0;
            else if (p->restype == AcDb::kDxfText)
                value = p->resval.rstring;
        }
        acutRelRb(pList);
        if (!isAttribute)
            break;
        if (isWanted)
            text = value;
    }
    return text;
}

// Returns the number of pipes that a tag remembers and the drawing still has.
int countPipes(AcDbObjectId tag) {
    AcDbObjectPointer<AcDbObject> pReference(tag, AcDb::kForRead);
    if (pReference.openStatus() != Acad::eOk)
        return 0;
    AcDbObjectPointer<AcDbDictionary> pDictionary(pReference->extensionDictionary(), AcDb::kForRead);
    AcDbObjectId recordId;
    if (pDictionary.openStatus() != Acad::eOk || pDictionary->getAt(kRecord, recordId) != Acad::eOk)
        return 0;
    AcDbObjectPointer<AcDbXrecord> pRecord(recordId, AcDb::kForRead);
    resbuf* pPipes = NULL;
    if (pRecord.openStatus() != Acad::eOk || pRecord->rbChain(&pPipes) != Acad::eOk)
        return 0;
    int count = 0;
    for (resbuf* p = pPipes; p != NULL; p = p->rbnext) {
        AcDbObjectId pipe;
        if (acdbGetObjectId(pipe, p->resval.rlname) == Acad::eOk && !pipe.isErased())
            count++;
    }
    acutRelRb(pPipes);
    return count;
}

// The command PIPETAGLIST.
void listTags() {
    resbuf* pFilter = acutBuildList(RTDXF0, L"INSERT", AcDb::kDxfBlockName, kBlock, AcDb::kDxfXDataStart,
                                    1001, kApplication, RTNONE);
    ads_name ss;
    const int rc = acedSSGet(L"X", NULL, NULL, pFilter, ss);
    acutRelRb(pFilter);
    if (rc != RTNORM) {
        acutPrintf(L"\nThe drawing has no tags.\n");
        return;
    }
    Adesk::Int32 count = 0;
    acedSSLength(ss, &count);
    acutPrintf(L"\n%-12s %10s %6s\n", L"Number", L"Length", L"Pipes");
    for (Adesk::Int32 i = count - 1; i >= 0; i--) { // the newest is the first
        ads_name ent;
        AcDbObjectId id;
        if (acedSSName(ss, i, ent) != RTNORM || acdbGetObjectId(id, ent) != Acad::eOk)
            continue;
        acutPrintf(L"%-12s %10s %6d\n", (const ACHAR*)attributeOf(ent, L"NUMBER"),
                   (const ACHAR*)attributeOf(ent, L"LENGTH"), countPipes(id));
    }
    acedSSFree(ss);
}
// [report]

} // namespace

int DllMain(HINSTANCE /*instance*/, DWORD /*reason*/, void* /*reserved*/) {
    return 1;
}

// [entry]
AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
    switch (message) {
    case AcRx::kInitAppMsg:
        acrxUnlockApplication(packet);
        acrxRegisterAppMDIAware(packet);
        acedRegCmds->addCommand(kGroup, L"PIPETAG", L"PIPETAG", ACRX_CMD_MODAL, tagPipes);
        acedRegCmds->addCommand(kGroup, L"PIPETAGLIST", L"PIPETAGLIST", ACRX_CMD_MODAL, listTags);
        break;
    case AcRx::kUnloadAppMsg:
        acedRegCmds->removeGroup(kGroup);
        break;
    default:
        break;
    }
    return AcRx::kRetOK;
}
// [entry]
