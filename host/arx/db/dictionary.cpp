#include "dbdict.h"

#include "database_core.h"
#include "dbgroup.h"
#include "drawing/number_text.h"

#include <algorithm>

ACRX_CONS_DEFINE_MEMBERS(AcDbDictionary, AcDbObject)

using zuhost::TagRange;

namespace {

constexpr std::string_view kMarker = "AcDbDictionary";

bool isPointer(int code) {
    return code == 350 || code == 360;
}

/// The number of "*A12", 0 for other names.
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

AcDbDictionary::AcDbDictionary() {
    startRecords("DICTIONARY", {kMarker});
    setIntegerTag(kMarker, 281, 1);
}

const AcDbDictionary::Index& AcDbDictionary::index() const {
    if (indexVersion_ == tagVersion())
        return index_;
    index_ = {};
    const TagRange range = section(kMarker);
    for (std::size_t i = range.first; i + 1 < range.last; ++i) {
        if (tags()[i].code != 3 || !isPointer(tags()[i + 1].code))
            continue;
        const std::wstring name = decoded(tags()[i].value);
        index_.byName.emplace(zuhost::foldedName(name), i);
        if (const auto handle = zuhost::parseHandle(tags()[i + 1].value))
            index_.byHandle.emplace(*handle, i);
        index_.highestAnonymous = std::max(index_.highestAnonymous, anonymousNumber(name));
    }
    indexVersion_ = tagVersion();
    return index_;
}

AcDbObjectId AcDbDictionary::entryAt(std::size_t place) const {
    const auto handle = zuhost::parseHandle(tags()[place + 1].value);
    return handle && core() != nullptr ? AcDbObjectId(core()->document->find(*handle)) : AcDbObjectId();
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const {
    if (name == nullptr)
        return Acad::eInvalidInput;
    const auto found = index().byName.find(zuhost::foldedName(name));
    if (found == index().byName.end())
        return Acad::eKeyNotFound;
    const AcDbObjectId entry = entryAt(found->second);
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
    return getAt(name, id) == Acad::eOk;
}

bool AcDbDictionary::has(AcDbObjectId id) const {
    return index().byHandle.contains(id.handle().value());
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, std::wstring& name) const {
    const auto found = index().byHandle.find(id.handle().value());
    if (found == index().byHandle.end())
        return Acad::eKeyNotFound;
    name = decoded(tags()[found->second].value);
    return Acad::eOk;
}

Adesk::UInt32 AcDbDictionary::numEntries() const {
    return static_cast<Adesk::UInt32>(entries().size());
}

std::vector<AcDbDictionaryIterator::Entry> AcDbDictionary::entries() const {
    std::vector<AcDbDictionaryIterator::Entry> found;
    const TagRange range = section(kMarker);
    for (std::size_t i = range.first; i + 1 < range.last; ++i) {
        if (tags()[i].code != 3 || !isPointer(tags()[i + 1].code))
            continue;
        const AcDbObjectId id = entryAt(i);
        if (!id.isNull() && !id.isErased())
            found.push_back({decoded(tags()[i].value), id});
    }
    return found;
}

std::vector<std::wstring> AcDbDictionary::danglingNames() const {
    std::vector<std::wstring> names;
    const TagRange range = section(kMarker);
    for (std::size_t i = range.first; i + 1 < range.last; ++i)
        if (tags()[i].code == 3 && isPointer(tags()[i + 1].code) && entryAt(i).isNull())
            names.push_back(decoded(tags()[i].value));
    return names;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const {
    return new AcDbDictionaryIterator(entries());
}

std::wstring AcDbDictionary::anonymousName() const {
    return L"*A" + std::to_wstring(index().highestAnonymous + 1);
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id) {
    if (name == nullptr || *name == L'\0' || object == nullptr)
        return Acad::eInvalidInput;
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (object->database() != nullptr && object->database() != database())
        return Acad::eWrongDatabase;
    auto* const group = AcDbGroup::cast(object);
    const bool anonymous = *name == L'*' && group != nullptr;
    const std::wstring key = anonymous ? anonymousName() : name;
    AcDbObjectId replaced;
    if (getAt(key.c_str(), replaced) == Acad::eOk) {
        AcDbObject* old = nullptr;
        const Acad::ErrorStatus status = acdbOpenAcDbObject(old, replaced, AcDb::kForWrite);
        if (status != Acad::eOk)
            return status;
        removeEntry(index().byName.at(zuhost::foldedName(key)));
        old->erase();
        old->close();
    } else if (const auto stale = index().byName.find(zuhost::foldedName(key));
               stale != index().byName.end()) {
        removeEntry(stale->second);
    }
    assertWriteEnabled();
    if (object->database() == nullptr)
        id = core()->adopt(object, core()->document->container(zuhost::Container::Kind::objects), objectId());
    else
        id = object->objectId();
    if (anonymous)
        group->setAnonymous();
    const std::string handle = zuhost::formatHandle(id.handle().value());
    changingTags().insert(section(kMarker).last, {{3, encoded(key)}, {350, handle}});
    if (!object->hasPersistentReactor(objectId()) && object->isWriteEnabled())
        object->addPersistentReactor(objectId());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::removeEntry(std::size_t place) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk)
        changingTags().erase({place, place + 2});
    return status;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name) {
    if (name == nullptr)
        return Acad::eInvalidInput;
    const auto found = index().byName.find(zuhost::foldedName(name));
    return found == index().byName.end() ? Acad::eKeyNotFound : removeEntry(found->second);
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id) {
    const auto found = index().byHandle.find(id.handle().value());
    return found == index().byHandle.end() ? Acad::eKeyNotFound : removeEntry(found->second);
}
