#include "dbid.h"

#include "database_core.h"
#include "dxf_records/number_text.h"

#include <zuhost/text_codec.h>

#include <algorithm>

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbObjectId::isErased() const {
    return stub_ != nullptr && stub_->erased;
}

AcDbHandle AcDbObjectId::handle() const {
    return AcDbHandle(stub_ != nullptr ? stub_->handle : 0);
}

AcDbDatabase* AcDbObjectId::database() const {
    return stub_ != nullptr ? stub_->database : nullptr;
}

AcRxClass* AcDbObjectId::objectClass() const {
    return stub_ != nullptr ? zuhost::coreOf(*stub_->database).classOf(*stub_) : nullptr;
}

AcDbHandle::AcDbHandle(const ACHAR* text) : value_(zuhost::parseHandle(zuhost::toUtf8(text)).value_or(0)) {}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer) const {
    const std::string digits = zuhost::formatHandle(value_);
    *std::copy(digits.begin(), digits.end(), buffer) = L'\0';
    return true;
}
