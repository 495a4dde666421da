#include "dbmain.h"

#include "database_core.h"
#include "object_access.h"
#include "reactor_records.h"

#include <zuhost/text_codec.h>

#include <array>
#include <cmath>

using zuhost::TagList;
using zuhost::TagView;

ACRX_CONS_DEFINE_MEMBERS(AcDbObject, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObjectReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDatabaseReactor, AcRxObject)

AcDbObject::AcDbObject() = default;

AcDbObject::~AcDbObject() {
    notifyReactors([this](AcDbObjectReactor& r) { r.goodbye(this); });
}

void zuhost::PendingDeleter::operator()(AcDbObject* object) const {
    object->isPending_ = false;
    if (!object->isHeld_)
        delete object;
}

AcDbObjectId AcDbObject::ownerId() const {
    return stub_ != nullptr ? AcDbObjectId(stub_->owner) : AcDbObjectId();
}

AcDbDatabase* AcDbObject::database() const {
    return stub_ != nullptr ? stub_->database : nullptr;
}

zuhost::DatabaseCore* AcDbObject::core() const {
    return stub_ != nullptr ? &zuhost::ObjectAccess::core(*stub_->database) : nullptr;
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

TagView AcDbObject::tags() const {
    if (!own_ && stub_ != nullptr)
        return core()->document->view(*stub_);
    return {*ownTags()};
}

TagView AcDbObject::storedTags() const {
    return own_ ? TagView(*own_) : tags();
}

const TagList* AcDbObject::ownTags() const {
    completeTags();
    return own_.get();
}

void AcDbObject::completeTags() const {
    if (hasDeferredChanges_)
        flushChanges();
    if (!own_ && stub_ == nullptr)
        own_ = std::make_unique<TagList>(newRecords());
}

TagView AcDbObject::section(std::string_view marker) const {
    return marker.empty() ? tags().withoutExtendedData() : tags().subclass(marker);
}

double AcDbObject::realTag(std::string_view marker, int code, double missing) const {
    return section(marker).real(code).value_or(missing);
}

std::int64_t AcDbObject::integerTag(std::string_view marker, int code, std::int64_t missing) const {
    return section(marker).integer(code).value_or(missing);
}

std::wstring AcDbObject::textTag(std::string_view marker, int code) const {
    return decoded(section(marker).text(code).value_or(""));
}

AcGePoint3d AcDbObject::pointTag(std::string_view marker, int code, const AcGePoint3d& missing) const {
    std::array values{missing.x, missing.y, missing.z};
    section(marker).reals(std::array{code, code + 10, code + 20}, values);
    return {values[0], values[1], values[2]};
}

Acad::ErrorStatus AcDbObject::setRealTag(std::string_view marker, int code, double value) {
    if (!std::isfinite(value))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) {
        TagList& records = changingTags();
        records.setReal(code, value, section(marker).range());
    }
    return status;
}

Acad::ErrorStatus AcDbObject::setIntegerTag(std::string_view marker, int code, std::int64_t value) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) {
        TagList& records = changingTags();
        records.setInteger(code, value, section(marker).range());
    }
    return status;
}

Acad::ErrorStatus AcDbObject::setTextTag(std::string_view marker, int code, std::wstring_view text) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    const TagView part = section(marker);
    // An equal text keeps its encoding in the records.
    const auto known = part.text(code);
    if (!known || decoded(*known) != text)
        records.setText(code, encoded(text), part.range());
    return status;
}

Acad::ErrorStatus AcDbObject::setPointTag(std::string_view marker, int code, const AcGePoint3d& point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    TagList& records = changingTags();
    // The section is looked up for each number: adding a record moves its end.
    records.setReal(code, point.x, section(marker).range());
    records.setReal(code + 10, point.y, section(marker).range());
    records.setReal(code + 20, point.z, section(marker).range());
    return status;
}

TagList AcDbObject::newRecords() const {
    return {};
}

TagList AcDbObject::recordsOf(std::string_view type, std::initializer_list<std::string_view> markers) {
    TagList records;
    records.add(0, std::string(type));
    for (const std::string_view marker : markers)
        records.add(100, std::string(marker));
    return records;
}

Acad::ErrorStatus AcDbObject::assertWriteEnabled() {
    const Acad::ErrorStatus status = startChange();
    if (status == Acad::eOk && !own_ && stub_ != nullptr) {
        own_ = std::make_unique<TagList>(core()->document->tags(*stub_));
        ++tagVersion_;
    }
    return status;
}

Acad::ErrorStatus AcDbObject::startChange() {
    if (stub_ == nullptr)
        return Acad::eOk;
    if (!writing_)
        return Acad::eNotOpenForWrite;
    zuhost::UndoLog& undo = core()->undo;
    if (recordedStep_ != undo.step()) {
        recordedStep_ = undo.step();
        undo.record(*stub_, ownTags(), zuhost::UndoLog::Kind::changed);
    }
    if (!modified_) {
        modified_ = true;
        notifyReactors([this](AcDbObjectReactor& r) { r.openedForModify(this); });
        core()->openedForModify(*this);
    }
    return Acad::eOk;
}

TagList& AcDbObject::changingTags() {
    ++tagVersion_;
    completeTags();
    return *own_;
}

void AcDbObject::replaceTags(std::optional<TagList> tags) {
    ++tagVersion_;
    completeTags(); // Deferred changes are replaced too.
    own_ = tags ? std::make_unique<TagList>(std::move(*tags)) : nullptr;
}

void AcDbObject::deferChange() {
    ++tagVersion_;
    hasDeferredChanges_ = true;
}

void AcDbObject::flushChanges() const {
    hasDeferredChanges_ = false;
    if (reactors_ && reactors_->index)
        reactors_->index->apply(*own_);
    applyDeferred(*own_);
}

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
    if (stub_ == nullptr)
        return Acad::eNotInDatabase;
    if (!writing_)
        return Acad::eNotOpenForWrite;
    if (stub_->erased == erasing)
        return erasing ? Acad::eWasErased : Acad::eOk;
    if (!lockIsIgnored_ && core()->isOnLockedLayer(*this))
        return Acad::eOnLockedLayer;
    startChange();
    stub_->erased = erasing;
    if (!erasing)
        core()->erasedStart = {};
    eraseToggled_ = !eraseToggled_;
    ++tagVersion_;
    subErased(erasing);
    return Acad::eOk;
}
