#include "dbsymtb.h"

#include "database_core.h"
#include "dbents.h"
#include "new_text.h"
#include "object_access.h"

#include <algorithm>
#include <array>

ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord)

using zuhost::Container;

namespace {

constexpr std::string_view kBegin = "AcDbBlockBegin";
// Flags of the BLOCK.
constexpr std::int64_t kAnonymous = 1;
constexpr std::int64_t kExternal = 4;
constexpr std::int64_t kOverlay = 8;

bool isSpaceName(const std::wstring& name) {
    const std::wstring folded = zuhost::foldedName(name);
    return folded.starts_with(L"*MODEL_SPACE") || folded.starts_with(L"*PAPER_SPACE") ||
           folded == L"$MODEL_SPACE" || folded == L"$PAPER_SPACE";
}

/// Appends the entities that the block owns; vertices and attributes are owned by an entity.
void addOwned(const std::vector<AcDbStub*>& members, const AcDbStub* owner, bool skipErased,
              std::vector<AcDbObjectId>& found) {
    for (AcDbStub* member : members)
        if (member->owner == owner && !(skipErased && member->erased))
            found.emplace_back(member);
}

} // namespace

zuhost::TagList AcDbBlockTableRecord::newRecords() const {
    zuhost::TagList records = recordsOf("BLOCK_RECORD", {"AcDbSymbolTableRecord", "AcDbBlockTableRecord"});
    records.add(2, "");
    records.add(340, "0");
    return records;
}

AcDbObject* AcDbBlockTableRecord::head() const {
    Container* const block =
        core() != nullptr ? core()->blockContainer(*static_cast<AcDbStub*>(objectId())) : nullptr;
    return block != nullptr ? &core()->object(*block->head) : nullptr;
}

AcGePoint3d AcDbBlockTableRecord::origin() const {
    const AcDbObject* const block = head();
    if (block == nullptr)
        return originToCome_ ? *originToCome_ : AcGePoint3d::kOrigin;
    std::array<double, 3> values{};
    zuhost::ObjectAccess::tags(*block).subclass(kBegin).reals(std::array{10, 20, 30}, values);
    return {values[0], values[1], values[2]};
}

/// Changes the BLOCK, which holds what is not in the record itself.
template <typename Change>
Acad::ErrorStatus AcDbBlockTableRecord::changeHead(Change change) {
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    AcDbObject* const block = head();
    if (block == nullptr)
        return Acad::eNotInDatabase;
    if (block == this)
        return change(*this);
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus open =
        core()->open(*static_cast<AcDbStub*>(block->objectId()), AcDb::kForWrite, opened);
    if (open != Acad::eOk)
        return open;
    const Acad::ErrorStatus set = change(static_cast<AcDbBlockTableRecord&>(*opened));
    opened->close();
    changingTags(); // invalidates values cached for the record: they are not in its own records
    return set;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
    if (core() == nullptr) {
        originToCome_ = std::make_unique<AcGePoint3d>(origin);
        return Acad::eOk;
    }
    return changeHead([&](AcDbBlockTableRecord& block) { return block.setPointTag(kBegin, 10, origin); });
}

void AcDbBlockTableRecord::subAppended() {
    if (originToCome_)
        setOrigin(*originToCome_);
    if (commentsToCome_)
        setComments(commentsToCome_->c_str());
    originToCome_.reset();
    commentsToCome_.reset();
}

bool AcDbBlockTableRecord::isLayout() const {
    // Names of other blocks need not be decoded; the text may begin with an encoded character.
    const std::string_view stored = section({}).text(2).value_or("");
    const bool canBeSpace = stored.starts_with('*') || stored.starts_with('$') || stored.starts_with('\\');
    return canBeSpace && isSpaceName(decoded(stored));
}

std::int64_t AcDbBlockTableRecord::headFlags() const {
    const AcDbObject* const block = head();
    return block != nullptr ? zuhost::ObjectAccess::tags(*block).subclass(kBegin).integer(70).value_or(0) : 0;
}

bool AcDbBlockTableRecord::isAnonymous() const {
    return !isLayout() && ((headFlags() & kAnonymous) != 0 || nameText().starts_with(L'*'));
}
bool AcDbBlockTableRecord::isFromExternalReference() const {
    return (headFlags() & (kExternal | kOverlay)) != 0;
}
bool AcDbBlockTableRecord::isFromOverlayReference() const {
    return (headFlags() & kOverlay) != 0;
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
    const std::vector<AcDbObjectId> ids = entityIds();
    return std::any_of(ids.begin(), ids.end(), [this](AcDbObjectId id) {
        return core()->document->typeName(*static_cast<AcDbStub*>(id)) == "ATTDEF";
    });
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(ACHAR*& text) const {
    const ACHAR* known = nullptr;
    comments(known);
    text = zuhost::newText(known);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(const ACHAR*& text) const {
    const AcDbObject* const block = head();
    if (block == nullptr)
        text = kept(commentsToCome_ ? *commentsToCome_ : std::wstring());
    else
        text = kept(decoded(zuhost::ObjectAccess::tags(*block).subclass(kBegin).text(4).value_or("")));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* text) {
    const std::wstring comments(text != nullptr ? text : L"");
    if (core() == nullptr) {
        commentsToCome_ = std::make_unique<std::wstring>(comments);
        return Acad::eOk;
    }
    return changeHead([&](AcDbBlockTableRecord& block) { return block.setTextTag(kBegin, 4, comments); });
}

bool AcDbBlockTableRecord::explodable() const {
    return integerTag({}, 280, 1) != 0;
}
Acad::ErrorStatus AcDbBlockTableRecord::setExplodable(bool explodable) {
    return setIntegerTag({}, 280, explodable ? 1 : 0);
}

Acad::ErrorStatus AcDbBlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids, bool directOnly,
                                                             bool /*forceValidity*/) const {
    ids.removeAll();
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (!directOnly)
        return Acad::eNotImplementedYet;
    for (const Container& container : core()->document->containers()) {
        if (container.kind != Container::Kind::block && container.kind != Container::Kind::entities)
            continue;
        for (AcDbStub* const member : container.members) {
            if (member->erased || core()->document->typeName(*member) != "INSERT")
                continue;
            const auto* const reference = AcDbBlockReference::cast(&core()->object(*member));
            if (reference != nullptr && reference->blockTableRecord() == objectId())
                ids.append(AcDbObjectId(member));
        }
    }
    return Acad::eOk;
}

std::vector<AcDbObjectId> AcDbBlockTableRecord::entityIds(bool skipErased) const {
    std::vector<AcDbObjectId> found;
    if (core() == nullptr)
        return found;
    AcDbStub* const self = objectId();
    if (const Container* const block = core()->blockContainer(*self)) {
        found.reserve(block->members.size());
        addOwned(block->members, self, skipErased, found);
    }
    if (const Container* const entities = core()->document->findContainer(Container::Kind::entities);
        entities != nullptr && isLayout())
        addOwned(entities->members, self, skipErased, found);
    return found;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    if (entity == nullptr)
        return Acad::eNullObjectPointer;
    if (entity->database() != nullptr || zuhost::ObjectAccess::isPending(*entity))
        return Acad::eAlreadyInDb;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (!entity->canBeIn(*core()->document))
        return Acad::eNotApplicable;
    AcDbStub* const self = objectId();
    id = core()->appendEntity(*self, *entity);
    return Acad::eOk;
}

zuhost::Container& zuhost::DatabaseCore::entitiesOf(const AcDbStub& block) {
    Container* const own = blockContainer(block);
    // The ENTITIES section holds model space and the current layout; other layouts have their entities in
    // their blocks.
    return &block == modelSpace() || own == nullptr ? document->container(Container::Kind::entities) : *own;
}

AcDbObjectId zuhost::DatabaseCore::appendEntity(AcDbStub& block, AcDbEntity& entity) {
    return adopt(&entity, entitiesOf(block), &block, [&](AcDbStub&) { entity.fitToDrawing(); });
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipErased) const {
    iterator = new AcDbBlockTableRecordIterator(objectId(), entityIds(false));
    iterator->start(atBeginning, skipErased);
    return Acad::eOk;
}
