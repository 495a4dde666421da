#include "database_core.h"

#include "dbdict.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "dxf_records/number_text.h"
#include "object_access.h"
#include "object_factory.h"
#include "renaming.h"
#include "transactions.h"

#include <zuhost/text_codec.h>

#include <algorithm>

namespace zuhost {

namespace {

/// Converts the texts of an object that was outside a drawing from UTF-8 to the drawing's encoding and
/// escapes.
void encodeTexts(TagList& tags, const Document& document) {
    const auto isPlain = [](char c) { return c >= ' ' && c <= '~' && c != '\\' && c != '^'; };
    for (Tag& tag : tags)
        if (!std::all_of(tag.value.begin(), tag.value.end(), isPlain))
            tag.value = document.encode(fromUtf8(tag.value));
}

template <typename Notification>
void notifyAll(const std::vector<AcDbDatabaseReactor*>& reactors, Notification notification) {
    // Iterates over a copy: a reactor may remove itself or others.
    for (AcDbDatabaseReactor* reactor : std::vector(reactors))
        if (std::find(reactors.begin(), reactors.end(), reactor) != reactors.end())
            notification(*reactor);
}

} // namespace

DatabaseCore::DatabaseCore(AcDbDatabase& database) : self(database) {}

DatabaseCore::~DatabaseCore() = default;

void DatabaseCore::reset(std::unique_ptr<Document> opened) {
    leaveTransactions(self);
    undo.clear();
    destroyObjects(); // before the document destroys their stubs
    document = std::move(opened);
    typeKinds_.clear();
    blocks_.reset();
    names_.clear();
    tables_.clear();
    parts.clear();
    erasedStart = {};
    lockedLayers_.reset();
    groups_ = nullptr;
    modelSpace_ = nullptr;
    if (document && modelSpace() == nullptr) {
        document->implyModelSpace();
        names_.clear();
    }
}

/// Notifies all reactors before destroying any object: a reactor may open others.
void DatabaseCore::destroyObjects() {
    // NOLINTNEXTLINE(modernize-loop-convert): reactors can add objects.
    for (std::size_t i = 0; i < objects_.size(); ++i) {
        AcDbObject& object = *objects_[i];
        object.notifyReactors([&object](AcDbObjectReactor& r) { r.goodbye(&object); });
        if (object.reactors_)
            object.reactors_->transient.clear();
    }
    objects_.clear();
    memory_.clear();
}

void DatabaseCore::ObjectDeleter::operator()(AcDbObject* object) const {
    if (object->isInBlock_)
        object->~AcDbObject();
    else
        delete object;
}

DatabaseCore::OwnedObject DatabaseCore::build(const AcDbStub& stub) {
    // New objects of the document, as blocks have, are not in the drawing's bytes.
    if (stub.length == 0) {
        auto own = std::make_unique<TagList>(document->tags(stub));
        std::unique_ptr<AcDbObject> built = ObjectBuilder::build(document->typeName(stub), *own);
        built->own_ = std::move(own);
        return OwnedObject(built.release());
    }
    if (stub.type >= typeKinds_.size())
        typeKinds_.resize(stub.type + std::size_t{1});
    const ObjectKind*& kind = typeKinds_[stub.type];
    if (kind == nullptr)
        kind = ObjectBuilder::kindOf(document->typeName(stub));
    if (kind == nullptr)
        return OwnedObject(ObjectBuilder::build(document->typeName(stub), document->view(stub)).release());
    OwnedObject built(kind->construct(memory_.allocate(kind->size)));
    built->isInBlock_ = true;
    return built;
}

AcDbObject& DatabaseCore::object(AcDbStub& stub) {
    if (stub.object != nullptr)
        return *stub.object;
    OwnedObject built = build(stub);
    built->stub_ = &stub;
    stub.object = built.get();
    objects_.push_back(std::move(built));
    return *stub.object;
}

AcRxClass* DatabaseCore::classOf(AcDbStub& stub) {
    if (stub.object != nullptr || stub.length == 0)
        return object(stub).isA();
    return ObjectBuilder::classOf(document->typeName(stub), document->view(stub));
}

TagView DatabaseCore::tags(AcDbStub& stub) {
    return stub.object != nullptr || stub.length == 0 ? object(stub).tags() : document->view(stub);
}

Acad::ErrorStatus DatabaseCore::replaceTags(AcDbObject& object, TagList tags) {
    const Acad::ErrorStatus status = object.assertWriteEnabled();
    if (status == Acad::eOk)
        object.changingTags() = std::move(tags);
    return status;
}

void DatabaseCore::initialise(AcDbObject& object, TagList tags) {
    object.changingTags() = std::move(tags);
}

AcDbObjectId DatabaseCore::adopt(AcDbObject* object, Container& container, AcDbStub* owner,
                                 const std::function<void(AcDbStub&)>& prepare) {
    const std::string type(object->tags().text(0).value_or(""));
    const bool isPart = owner != nullptr && isPartType(type);
    if (isPart)
        parts.of(*document, *owner);
    AcDbStub* const stub = document->append(container, type, owner);
    if (isPart)
        parts.add(*document, *stub);
    TagList& tags = object->changingTags();
    encodeTexts(tags, *document);
    const std::size_t firstMarker = std::min(tags.find(100, tags.all()), tags.size());
    std::vector<Tag> identity;
    if (!stub->hasInternalHandle)
        identity.push_back({document->handleCode(*stub), formatHandle(stub->handle)});
    const bool ownerIsWritten = owner == nullptr || !owner->hasInternalHandle;
    if (document->version() > 1009 && ownerIsWritten)
        identity.push_back({330, formatHandle(owner != nullptr ? owner->handle : 0)});
    tags.insert(std::min<std::size_t>(firstMarker, std::max<std::size_t>(tags.size(), 1)), identity);
    if (document->version() <= 1009)
        tags.eraseMarkers();
    objects_.emplace_back(object);
    stub->object = object;
    object->stub_ = stub;
    object->writing_ = true;
    object->modified_ = true;
    object->appended_ = true;
    object->isHeld_ = false;
    undo.record(*stub, &tags, UndoLog::Kind::appended);
    if (prepare)
        prepare(*stub);
    registerApplications(tags);
    object->subAppended();
    return {stub};
}

AcDbObjectId DatabaseCore::adoptPart(AcDbEntity& part, AcDbStub& owner) {
    const auto complete = [&](AcDbStub&) {
        if (!part.section("AcDbEntity").text(8))
            part.setLayer(ObjectAccess::layer(static_cast<const AcDbEntity&>(object(owner))).c_str());
        part.fitToDrawing();
    };
    return adopt(&part, entitiesOf(*owner.owner), &owner, complete);
}

AcDbStub* DatabaseCore::sequenceEnd(const AcDbStub& entity) {
    const std::vector<AcDbStub*>& all = parts.of(*document, entity);
    const bool isEnded =
        !all.empty() && !all.back()->erased && document->typeName(*all.back()) == kSequenceEnd;
    return isEnded ? all.back() : nullptr;
}

/// Registers the applications of extended data that an object was given outside of the drawing.
void DatabaseCore::registerApplications(const TagList& tags) {
    constexpr int kApplication = 1001;
    std::vector<std::wstring> names;
    for (std::size_t i = tags.extendedDataStart(); i < tags.size(); ++i)
        if (tags[i].code == kApplication)
            names.push_back(document->decode(tags[i].value));
    for (const std::wstring& name : names)
        acdbRegApp(&self, name.c_str());
}

// ---- objects with a fixed role in the drawing

AcDbStub* DatabaseCore::tableHead(std::string_view table) {
    if (!document)
        return nullptr;
    if (const auto found = tables_.find(table); found != tables_.end())
        return found->second;
    // Drawings before R13 have no table of block records: the document adds one that is not saved.
    return tables_.emplace(std::string(table), document->container(Container::Kind::table, table).head)
        .first->second;
}

AcDbStub* DatabaseCore::rootDictionary() const {
    if (!document)
        return nullptr;
    for (const Container& container : document->containers())
        if (container.kind == Container::Kind::objects)
            for (AcDbStub* member : container.members)
                if (document->typeName(*member) == "DICTIONARY")
                    return member;
    return nullptr;
}

AcDbStub* DatabaseCore::groupDictionary() {
    if (groups_ == nullptr || groups_->erased) {
        groups_ = nullptr;
        AcDbStub* const root = rootDictionary();
        AcDbObjectId id;
        if (root != nullptr &&
            static_cast<AcDbDictionary&>(object(*root)).getAt(L"ACAD_GROUP", id) == Acad::eOk)
            groups_ = id;
    }
    return groups_;
}

AcDbStub* DatabaseCore::makeGroupDictionary() {
    if (AcDbStub* const known = groupDictionary())
        return known;
    AcDbObject* opened = nullptr;
    AcDbStub* const root = rootDictionary();
    if (root == nullptr || open(*root, AcDb::kForWrite, opened) != Acad::eOk)
        return nullptr;
    auto* const created = new AcDbDictionary;
    AcDbObjectId id;
    if (static_cast<AcDbDictionary*>(opened)->setAt(L"ACAD_GROUP", created, id) == Acad::eOk)
        created->close();
    opened->close();
    return groupDictionary();
}

AcDbStub* DatabaseCore::modelSpace() {
    if (modelSpace_ == nullptr) {
        AcDbStub* const blocks = tableHead("BLOCK_RECORD");
        if (blocks == nullptr)
            return nullptr;
        modelSpace_ = findRecord(*blocks, ACDB_MODEL_SPACE, false);
    }
    return modelSpace_;
}

Container* DatabaseCore::blockContainer(const AcDbStub& record) {
    if (!blocks_) {
        blocks_.emplace();
        for (Container& container : document->containers())
            if (container.kind == Container::Kind::block)
                indexBlock(container);
    }
    const auto found = blocks_->find(&record);
    return found == blocks_->end() ? nullptr : found->second;
}

void DatabaseCore::indexBlock(Container& block) {
    if (blocks_ && block.head != nullptr)
        blocks_->emplace(block.head->owner != nullptr ? block.head->owner : block.head, &block);
}

// ---- locked layers

bool DatabaseCore::isOnLockedLayer(const AcDbObject& object) {
    const auto* const entity = AcDbEntity::cast(&object);
    if (entity == nullptr)
        return false;
    if (!lockedLayers_) {
        lockedLayers_.emplace();
        if (AcDbStub* const table = tableHead("LAYER"))
            for (AcDbStub* const record : records(*table))
                if (const auto* const layer = AcDbLayerTableRecord::cast(&this->object(*record));
                    layer != nullptr && !record->erased && layer->isLocked())
                    lockedLayers_->insert(foldedName(ObjectAccess::name(*layer)));
    }
    return !lockedLayers_->empty() && lockedLayers_->contains(foldedName(ObjectAccess::layer(*entity)));
}

void DatabaseCore::recordClosed(const AcDbStub& owner) {
    if (lockedLayers_ && &owner == tableHead("LAYER"))
        lockedLayers_.reset();
}

// ---- names

std::vector<AcDbStub*> DatabaseCore::records(const AcDbStub& table) {
    std::vector<AcDbStub*> found;
    for (const Container& container : document->containers())
        if (container.kind == Container::Kind::table && container.head == &table)
            found = container.members;
    if (&table != tableHead("BLOCK_RECORD"))
        return found;
    // A block without a record is its own record.
    for (const Container& container : document->containers())
        if (container.kind == Container::Kind::block && container.head != nullptr &&
            container.head->owner == nullptr)
            found.push_back(container.head);
    return found;
}

const DatabaseCore::NameIndex& DatabaseCore::names(const AcDbStub& table) {
    const auto [entry, isNew] = names_.try_emplace(&table);
    if (isNew)
        for (AcDbStub* const record : records(table))
            indexName(table, *record);
    return entry->second;
}

void DatabaseCore::indexName(const AcDbStub& table, AcDbStub& record) {
    const auto index = names_.find(&table);
    if (index == names_.end())
        return;
    if (const auto name = tags(record).withoutExtendedData().text(2))
        index->second[foldedName(document->decode(*name))].push_back(&record);
}

AcDbStub* DatabaseCore::findRecord(const AcDbStub& table, std::wstring_view name, bool erasedToo) {
    const NameIndex& index = names(table);
    std::wstring key = foldedName(name);
    auto found = index.find(key);
    if (found == index.end() && key.ends_with(L"_SPACE") && key.front() == L'*') {
        key.front() = L'$'; // the name in drawings before R13
        found = index.find(key);
    }
    if (found == index.end())
        return nullptr;
    for (AcDbStub* record : found->second)
        if (!record->erased)
            return record;
    return erasedToo ? found->second.front() : nullptr;
}

// ---- notifications

void DatabaseCore::goodbye() {
    notifyAll(reactors, [&](AcDbDatabaseReactor& r) { r.goodbye(&self); });
    destroyObjects();
}

void DatabaseCore::openedForModify(const AcDbObject& object) {
    notifyAll(reactors, [&](AcDbDatabaseReactor& r) { r.objectOpenedForModify(&self, &object); });
}

void DatabaseCore::appended(const AcDbObject& object) {
    notifyAll(reactors, [&](AcDbDatabaseReactor& r) { r.objectAppended(&self, &object); });
}

void DatabaseCore::modified(const AcDbObject& object) {
    notifyAll(reactors, [&](AcDbDatabaseReactor& r) { r.objectModified(&self, &object); });
}

void DatabaseCore::erased(const AcDbObject& object, bool erasing) {
    notifyAll(reactors, [&](AcDbDatabaseReactor& r) { r.objectErased(&self, &object, erasing); });
}

void DatabaseCore::headerVariable(const ACHAR* name, bool changed) {
    notifyAll(reactors, [&](AcDbDatabaseReactor& r) {
        changed ? r.headerSysVarChanged(&self, name, true) : r.headerSysVarWillChange(&self, name);
    });
}

void DatabaseCore::restore(AcDbStub& stub, std::optional<TagList> tags, bool erased, UndoLog::Kind kind,
                           bool undoing) {
    AcDbObject& target = object(stub);
    const bool toggled = stub.erased != erased;
    const auto* const record = AcDbSymbolTableRecord::cast(&target);
    const std::wstring nameBefore = record != nullptr ? ObjectAccess::name(*record) : std::wstring();
    target.replaceTags(std::move(tags));
    if (record != nullptr && stub.owner != nullptr && ObjectAccess::name(*record) != nameBefore)
        renameInVariables(*this, this->tags(*stub.owner).text(2).value_or(""), nameBefore,
                          ObjectAccess::name(*record));
    stub.erased = erased;
    erasedStart = {};
    if (stub.owner != nullptr) {
        invalidateNames(stub.owner);
        recordClosed(*stub.owner);
    }
    if (kind == UndoLog::Kind::appended) {
        notifyAll(reactors, [&](AcDbDatabaseReactor& r) {
            undoing ? r.objectUnAppended(&self, &target) : r.objectReAppended(&self, &target);
        });
        target.notifyReactors(
            [&](AcDbObjectReactor& r) { undoing ? r.unappended(&target) : r.reappended(&target); });
        return;
    }
    modified(target);
    target.notifyReactors([&](AcDbObjectReactor& r) { r.modifyUndone(&target); });
    target.notifyReactors([&](AcDbObjectReactor& r) { r.modified(&target); });
    if (!toggled)
        return;
    target.notifyReactors([&](AcDbObjectReactor& r) { r.erased(&target, erased); });
    this->erased(target, erased);
}

} // namespace zuhost
