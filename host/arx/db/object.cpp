#include "dbmain.h"

#include "database_core.h"
#include "reactor_records.h"

#include <zuhost/text_codec.h>

#include <algorithm>

using zuhost::TagList;
using zuhost::TagRange;

ACRX_CONS_DEFINE_MEMBERS(AcDbObject, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObjectReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabaseReactor, AcRxObject)

AcDbObject::AcDbObject() : tags_(std::make_unique<TagList>()) {}

AcDbObject::~AcDbObject() {
    notifyReactors([this](AcDbObjectReactor& r) { r.goodbye(this); });
}

AcDbObjectId AcDbObject::ownerId() const {
    return stub_ != nullptr ? AcDbObjectId(stub_->owner) : AcDbObjectId();
}

AcDbDatabase* AcDbObject::database() const {
    return stub_ != nullptr ? stub_->database : nullptr;
}

zuhost::DatabaseCore* AcDbObject::core() const {
    return stub_ != nullptr ? &stub_->database->core() : nullptr;
}

std::wstring AcDbObject::dxfName() const {
    return decoded(tags().text(0, tags().all()).value_or(""));
}

bool AcDbObject::isNewObject() const {
    return stub_ == nullptr || stub_->length == 0;
}

std::wstring AcDbObject::decoded(std::string_view value) const {
    const zuhost::DatabaseCore* const database = core();
    return database != nullptr ? database->document->decode(value) : zuhost::fromUtf8(value);
}

std::string AcDbObject::encoded(std::wstring_view text) const {
    const zuhost::DatabaseCore* const database = core();
    return database != nullptr ? database->document->encode(text) : zuhost::toUtf8(text);
}

template <typename Find>
std::size_t AcDbObject::cachedIndex(CachedIndex& cache, Find find) const {
    const TagList& records = tags();
    if (isWriteEnabled())
        return find(records);
    if (!cache.isValid || cache.version != tagVersion_)
        cache = {tagVersion_, true, find(records)};
    return cache.index;
}

std::size_t AcDbObject::firstMarker() const {
    return cachedIndex(firstMarker_, [](const TagList& records) { return records.firstMarker(); });
}

std::size_t AcDbObject::extendedDataStart() const {
    return cachedIndex(extendedDataStart_,
                       [this](const TagList& records) { return records.extendedDataStart(firstMarker()); });
}

TagRange AcDbObject::section(std::string_view marker) const {
    if (marker.empty())
        return {0, extendedDataStart()};
    // While open for write the first marker is not cached: searching for it first would only take longer.
    return tags().subclass(marker, isWriteEnabled() ? 0 : firstMarker());
}

double AcDbObject::realTag(std::string_view marker, int code, double missing) const {
    return tags().real(code, section(marker)).value_or(missing);
}

std::int64_t AcDbObject::integerTag(std::string_view marker, int code, std::int64_t missing) const {
    return tags().integer(code, section(marker)).value_or(missing);
}

std::wstring AcDbObject::textTag(std::string_view marker, int code) const {
    return decoded(tags().text(code, section(marker)).value_or(""));
}

AcGePoint3d AcDbObject::pointTag(std::string_view marker, int code, const AcGePoint3d& missing) const {
    const TagRange range = section(marker);
    return {tags().real(code, range).value_or(missing.x), tags().real(code + 10, range).value_or(missing.y),
            tags().real(code + 20, range).value_or(missing.z)};
}

Acad::ErrorStatus AcDbObject::setRealTag(std::string_view marker, int code, double value) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        changingTags().setReal(code, value, section(marker));
    return status;
}

Acad::ErrorStatus AcDbObject::setIntegerTag(std::string_view marker, int code, std::int64_t value) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        changingTags().setInteger(code, value, section(marker));
    return status;
}

Acad::ErrorStatus AcDbObject::setTextTag(std::string_view marker, int code, std::wstring_view text) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    // An equal text keeps its encoding in the records.
    if (status == Acad::eOk && (!tags().text(code, section(marker)) || textTag(marker, code) != text))
        changingTags().setText(code, encoded(text), section(marker));
    return status;
}

Acad::ErrorStatus AcDbObject::setPointTag(std::string_view marker, int code, const AcGePoint3d& point) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    // The section is looked up for each number: adding a record moves its end.
    records.setReal(code, point.x, section(marker));
    records.setReal(code + 10, point.y, section(marker));
    records.setReal(code + 20, point.z, section(marker));
    return status;
}

void AcDbObject::startRecords(std::string_view type, std::initializer_list<std::string_view> markers) {
    tags_->add(0, std::string(type));
    for (const std::string_view marker : markers)
        tags_->add(100, std::string(marker));
}

Acad::ErrorStatus AcDbObject::assertWriteEnabled() {
    if (stub_ == nullptr)
        return Acad::eOk;
    if (!writing_)
        return Acad::eNotOpenForWrite;
    zuhost::UndoLog& undo = core()->undo;
    if (recordedStep_ != undo.step()) {
        recordedStep_ = undo.step();
        undo.record(*stub_, tags(), zuhost::UndoLog::Kind::changed);
    }
    if (!modified_) {
        modified_ = true;
        notifyReactors([this](AcDbObjectReactor& r) { r.openedForModify(this); });
        core()->openedForModify(*this);
    }
    stub_->changed = true;
    return Acad::eOk;
}

TagList& AcDbObject::changingTags() {
    ++tagVersion_;
    if (hasDeferredChanges_)
        flushChanges();
    return *tags_;
}

void AcDbObject::deferChange() {
    ++tagVersion_;
    hasDeferredChanges_ = true;
}

void AcDbObject::flushChanges() const {
    hasDeferredChanges_ = false;
    if (reactorIndex_)
        reactorIndex_->apply(*tags_);
    applyDeferred(*tags_);
}

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
    if (stub_ == nullptr)
        return Acad::eNotInDatabase;
    if (!writing_)
        return Acad::eNotOpenForWrite;
    if (stub_->erased == erasing)
        return erasing ? Acad::eWasErased : Acad::eOk;
    assertWriteEnabled();
    stub_->erased = erasing;
    eraseToggled_ = !eraseToggled_;
    ++tagVersion_;
    subErased(erasing);
    return Acad::eOk;
}

AcDbObjectId AcDbObject::extensionDictionary() const {
    const TagRange range = tags().applicationGroup("ACAD_XDICTIONARY");
    const auto handle = tags().handle(360, range);
    return handle && core() != nullptr ? AcDbObjectId(core()->document->find(*handle)) : AcDbObjectId();
}
