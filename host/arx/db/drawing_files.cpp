#include "zuhost/drawing_files.h"

#include "database_core.h"
#include "object_access.h"

namespace zuhost {

Acad::ErrorStatus dxfInStrict(AcDbDatabase& database, const ACHAR* path) {
    return ObjectAccess::dxfIn(database, path, true);
}

Acad::ErrorStatus dxfInBytes(AcDbDatabase& database, std::string bytes, const ACHAR* name) {
    return ObjectAccess::dxfIn(database, std::move(bytes), name);
}

Acad::ErrorStatus dxfOut(AcDbDatabase& database, const ACHAR* path, bool binary) {
    return ObjectAccess::dxfOut(database, path, binary);
}

std::string dxfOutBytes(AcDbDatabase& database, bool binary) {
    DatabaseCore& core = coreOf(database);
    if (!core.document)
        return {};
    DocumentError error;
    std::string bytes =
        core.document->bytes(binary ? DrawingForm::binary : DrawingForm::ascii, core.savedTags(), &error);
    if (bytes.empty())
        ObjectAccess::lastError(database) = error.message();
    return bytes;
}

std::shared_ptr<const std::string> dxfOutShared(AcDbDatabase& database) {
    DatabaseCore& core = coreOf(database);
    return core.document ? core.document->sharedBytes(core.savedTags()) : nullptr;
}

bool isBinary(const AcDbDatabase& database) {
    const auto& document = coreOf(database).document;
    return document && document->form() == DrawingForm::binary;
}

int drawingVersion(const AcDbDatabase& database) {
    const auto& document = coreOf(database).document;
    return document ? document->version() : 0;
}

const std::wstring& lastErrorText(const AcDbDatabase& database) {
    return ObjectAccess::lastError(database);
}

std::vector<std::wstring> warnings(const AcDbDatabase& database) {
    std::vector<std::wstring> texts;
    if (const auto& document = coreOf(database).document)
        for (const DocumentError& warning : document->warnings())
            texts.push_back(warning.message(L"warning: "));
    return texts;
}

void allowReplacingChangedFile(AcDbDatabase& database) {
    if (const auto& document = coreOf(database).document)
        document->allowReplacingChangedFile();
}

} // namespace zuhost
