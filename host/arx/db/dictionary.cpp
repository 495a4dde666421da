#include "dbdict.h"

#include "database_core.h"
#include "dbgroup.h"
#include "dbsymtb.h"
#include "dxf_records/number_text.h"
#include "new_text.h"
#include "object_access.h"

#include <algorithm>
#include <utility>

ACRX_CONS_DEFINE_MEMBERS(AcDbDictionary, AcDbObject)

using zuhost::TagRef;
using zuhost::TagView;

namespace {

constexpr std::string_view kMarker = "AcDbDictionary";
constexpr int kName = 3;
constexpr int kHard = 280;
constexpr int kShared = 350;
constexpr int kOwned = 360;

bool isPointer(int code) {
    return code == kShared || code == kOwned;
}

struct StoredEntry {
    std::size_t place = 0; ///< Of the name's record.
    TagRef name;
    TagRef pointer;
};

/// Calls `visit` with each entry in order.
template <typename Visit>
void visitEntries(const TagView& records, Visit visit) {
    StoredEntry entry;
    for (auto it = records.begin(); it != records.end(); ++it) {
        entry.pointer = *it;
        if (entry.name.code == kName && isPointer(it->code))
            visit(entry);
        entry.place = it.place();
        entry.name = *it;
    }
}

StoredEntry entryAt(const TagView& records, std::size_t place) {
    auto it = records.at(place);
    StoredEntry entry{place, *it, {}};
    entry.pointer = *++it;
    return entry;
}

/// Returns the number in an anonymous name, 12 for "*A12"; 0 for other names.
int anonymousNumber(std::wstring_view name) {
    if (name.size() < 3 || name[0] != L'*' || (name[1] != L'A' && name[1] != L'a'))
        return 0;
    int number = 0;
    for (const wchar_t c : name.substr(2)) {
        if (c < L'0' || c > L'9' || number > 100'000'000)
            return 0;
        number = number * 10 + static_cast<int>(c - L'0');
    }
    return number;
}

} // namespace

zuhost::TagList AcDbDictionary::newRecords() const {
    zuhost::TagList records = recordsOf("DICTIONARY", {kMarker});
    records.add(281, "1");
    return records;
}

AcDbDictionary::Index& AcDbDictionary::index() const {
    if (indexVersion_ == tagVersion())
        return index_;
    index_ = {};
    std::vector<StoredEntry> entries;
    visitEntries(section(kMarker), [&](const StoredEntry& entry) { entries.push_back(entry); });
    for (std::size_t i = entries.size(); i-- > 0;) {
        const StoredEntry& entry = entries[i];
        const std::wstring name = decoded(entry.name.text);
        index_.byName.addFront(zuhost::foldedName(name), entry.place);
        if (const auto handle = entry.pointer.handle())
            index_.byHandle.addFront(*handle, entry.place);
        if (const int number = anonymousNumber(name); number > 0)
            index_.anonymous.insert(number);
    }
    indexVersion_ = tagVersion();
    return index_;
}

/// Returns the object that an entry points to; null when the drawing lacks it.
AcDbObjectId AcDbDictionary::target(const TagRef& pointer) const {
    const auto handle = pointer.handle();
    return handle && core() != nullptr ? AcDbObjectId(core()->document->find(*handle)) : AcDbObjectId();
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const {
    if (name == nullptr)
        return Acad::eInvalidInput;
    const auto found = index().byName.find(zuhost::foldedName(name));
    if (!found)
        return Acad::eKeyNotFound;
    const AcDbObjectId entry = target(entryAt(storedTags(), *found).pointer);
    if (entry.isNull())
        return Acad::eKeyNotFound;
    if (entry.isErased())
        return Acad::eWasErased;
    id = entry;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const {
    object = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id);
    return status == Acad::eOk ? acdbOpenAcDbObject(object, id, mode) : status;
}

bool AcDbDictionary::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk || findToCome(name) != entriesToCome_.end();
}

bool AcDbDictionary::has(AcDbObjectId id) const {
    return index().byHandle.find(id.handle().value()).has_value();
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, ACHAR*& name) const {
    name = nullptr;
    AcString text;
    const Acad::ErrorStatus status = nameAt(id, text);
    if (status == Acad::eOk)
        name = zuhost::newText(text.kwszPtr());
    return status;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, AcString& name) const {
    const auto found = index().byHandle.find(id.handle().value());
    if (!found)
        return Acad::eKeyNotFound;
    name = decoded(entryAt(storedTags(), *found).name.text).c_str();
    return Acad::eOk;
}

Adesk::UInt32 AcDbDictionary::numEntries() const {
    return static_cast<Adesk::UInt32>(entries().size() + entriesToCome_.size());
}

std::vector<zuhost::DictionaryEntry> AcDbDictionary::entries() const {
    std::vector<zuhost::DictionaryEntry> found;
    visitEntries(section(kMarker), [&](const StoredEntry& entry) {
        const AcDbObjectId id = target(entry.pointer);
        if (!id.isNull() && !id.isErased())
            found.push_back({decoded(entry.name.text), id});
    });
    return found;
}

std::vector<std::wstring> AcDbDictionary::danglingNames() const {
    std::vector<std::wstring> names;
    visitEntries(section(kMarker), [&](const StoredEntry& entry) {
        if (target(entry.pointer).isNull())
            names.push_back(decoded(entry.name.text));
    });
    return names;
}

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) const {
    object = nullptr;
    return done() ? Acad::eInvalidIndex : acdbOpenAcDbObject(object, objectId(), mode);
}

bool AcDbDictionaryIterator::setPosition(AcDbObjectId id) {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [id](const zuhost::DictionaryEntry& e) { return e.id == id; });
    if (found == entries_.end())
        return false;
    at_ = static_cast<std::size_t>(found - entries_.begin());
    return true;
}

bool AcDbDictionary::isTreatElementsAsHard() const {
    // The flag precedes the entries, of which there may be many.
    for (const TagRef& tag : section(kMarker))
        if (tag.code == kHard || tag.code == kName)
            return tag.code == kHard && tag.integer().value_or(0) != 0;
    return false;
}

Acad::ErrorStatus AcDbDictionary::setTreatElementsAsHard(bool isHard) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk || isHard == isTreatElementsAsHard())
        return status;
    zuhost::TagList& records = changingTags();
    records.eraseIf(records.subclass(kMarker), [](const zuhost::Tag& tag) { return tag.code == kHard; });
    const zuhost::TagRange own = records.subclass(kMarker);
    for (std::size_t at = own.first + 1; at < own.last; ++at)
        if (records[at - 1].code == kName && isPointer(records[at].code))
            records[at].code = isHard ? kOwned : kShared;
    if (isHard)
        records.insert(own.first, zuhost::Tag{kHard, "1"});
    return Acad::eOk;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const {
    return new AcDbDictionaryIterator(entries());
}

std::wstring AcDbDictionary::anonymousName() const {
    return L"*A" + std::to_wstring((index().anonymous.empty() ? 0 : *index().anonymous.rbegin()) + 1);
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id) {
    if (name == nullptr || *name == L'\0' || object == nullptr)
        return Acad::eInvalidInput;
    if (AcDbEntity::cast(object) != nullptr || AcDbSymbolTableRecord::cast(object) != nullptr ||
        AcDbSymbolTable::cast(object) != nullptr)
        return Acad::eWrongObjectType;
    if (zuhost::ObjectAccess::isPending(*object))
        return Acad::eInvalidInput;
    if (core() == nullptr) {
        id = AcDbObjectId();
        return setToCome(name, object);
    }
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (object->database() != nullptr && object->database() != database())
        return Acad::eWrongDatabase;
    auto* const group = AcDbGroup::cast(object);
    const bool anonymous = *name == L'*' && group != nullptr;
    const std::wstring key = anonymous ? anonymousName() : name;
    AcDbObject* old = nullptr;
    const Acad::ErrorStatus status = getAt(key.c_str(), old, AcDb::kForWrite);
    if (status != Acad::eOk && status != Acad::eKeyNotFound && status != Acad::eWasErased)
        return status;
    remove(key.c_str()); // also an entry whose object is erased or missing
    if (old != nullptr) {
        old->erase();
        old->close();
    }
    assertWriteEnabled();
    if (object->database() == nullptr)
        id = core()->adopt(object, core()->document->container(zuhost::Container::Kind::objects), objectId());
    else
        id = object->objectId();
    if (anonymous)
        group->setAnonymous();
    addEntry(key, id.handle().value());
    if (!object->hasPersistentReactor(objectId()) && object->isWriteEnabled())
        object->addPersistentReactor(objectId());
    return Acad::eOk;
}

std::vector<AcDbDictionary::EntryToCome>::const_iterator AcDbDictionary::findToCome(const ACHAR* name) const {
    const std::wstring key = zuhost::foldedName(name != nullptr ? name : L"");
    return std::find_if(entriesToCome_.begin(), entriesToCome_.end(),
                        [&](const EntryToCome& entry) { return zuhost::foldedName(entry.name) == key; });
}

/// Returns true when the object is the dictionary or is owned by it, also through other dictionaries.
bool AcDbDictionary::holdsToCome(const AcDbObject* object) const {
    return object == this ||
           std::any_of(entriesToCome_.begin(), entriesToCome_.end(), [&](const EntryToCome& e) {
               const auto* const inner = AcDbDictionary::cast(e.object.get());
               return e.object.get() == object || (inner != nullptr && inner->holdsToCome(object));
           });
}

Acad::ErrorStatus AcDbDictionary::setToCome(const ACHAR* name, AcDbObject* object) {
    if (object->database() != nullptr)
        return Acad::eNotInDatabase;
    const auto* const inner = AcDbDictionary::cast(object);
    if (inner != nullptr && inner->holdsToCome(this))
        return Acad::eInvalidInput;
    if (const auto old = findToCome(name); old != entriesToCome_.end())
        entriesToCome_.erase(old);
    entriesToCome_.push_back({name, zuhost::ObjectAccess::pending(object)});
    return Acad::eOk;
}

void AcDbDictionary::subAppended() {
    for (EntryToCome& entry : std::exchange(entriesToCome_, {})) {
        AcDbObjectId id;
        const bool staysOpen = zuhost::ObjectAccess::isHeld(*entry.object);
        AcDbObject* const object = zuhost::ObjectAccess::released(std::move(entry.object));
        if (setAt(entry.name.c_str(), object, id) != Acad::eOk)
            zuhost::PendingDeleter()(object);
        else if (!staysOpen)
            object->close();
    }
}

void AcDbDictionary::addEntry(const std::wstring& name, std::uint64_t handle) {
    const bool isIndexed = indexVersion_ == tagVersion() && removed_.empty() && !index_.byHandle.find(handle);
    zuhost::TagList& records = changingTags();
    const std::size_t place = records.subclass(kMarker).last;
    const int pointer = isTreatElementsAsHard() ? kOwned : kShared;
    records.insert(place, {{kName, encoded(name)}, {pointer, zuhost::formatHandle(handle)}});
    if (!isIndexed)
        return;
    index_.byName.addFront(zuhost::foldedName(name), place);
    index_.byHandle.addFront(handle, place);
    if (const int number = anonymousNumber(name); number > 0)
        index_.anonymous.insert(number);
    indexVersion_ = tagVersion();
}

// Removing the records is deferred: each removal would move all records after it.
void AcDbDictionary::removeEntry(std::size_t place) {
    Index& known = index();
    removed_.insert(place);
    const StoredEntry entry = entryAt(storedTags(), place);
    const std::wstring name = decoded(entry.name.text);
    known.byName.drop(zuhost::foldedName(name), removed_);
    if (const auto handle = entry.pointer.handle())
        known.byHandle.drop(*handle, removed_);
    if (const auto number = known.anonymous.find(anonymousNumber(name)); number != known.anonymous.end())
        known.anonymous.erase(number);
    deferChange();
    indexVersion_ = tagVersion();
}

void AcDbDictionary::applyDeferred(zuhost::TagList& tags) const {
    std::size_t place = 0;
    tags.eraseIf(tags.all(), [&](const zuhost::Tag& /*tag*/) {
        const std::size_t at = place++;
        return removed_.contains(at) || (at > 0 && removed_.contains(at - 1));
    });
    removed_.clear();
    indexVersion_ = tagVersion() - 1;
}

/// Looks the entry up again after assertWriteEnabled, which can move the records.
template <typename Find>
Acad::ErrorStatus AcDbDictionary::removeFound(const Find& find) {
    if (!find())
        return Acad::eKeyNotFound;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        removeEntry(*find());
    return status;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name) {
    if (name == nullptr)
        return Acad::eInvalidInput;
    if (const auto pending = findToCome(name); pending != entriesToCome_.end()) {
        entriesToCome_.erase(pending);
        return Acad::eOk;
    }
    return removeFound([&, key = zuhost::foldedName(name)] { return index().byName.find(key); });
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id) {
    return removeFound([&, handle = id.handle().value()] { return index().byHandle.find(handle); });
}
