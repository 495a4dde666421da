#include "acdbads.h"

#include "chain_records.h"
#include "database_core.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "object_access.h"

#include <algorithm>

namespace {

using zuhost::Container;
using zuhost::DatabaseCore;

constexpr int kFirstEntity = -2;

DatabaseCore* workingCore() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    DatabaseCore* const core = drawing != nullptr ? &zuhost::coreOf(*drawing) : nullptr;
    return core != nullptr && core->document ? core : nullptr;
}

/// Returns the table with the name, which is "BLOCK" for that of blocks; null when there is none.
AcDbStub* tableOf(DatabaseCore& core, const ACHAR* name) {
    if (name == nullptr)
        return nullptr;
    const std::string table = core.document->encode(zuhost::foldedName(name));
    if (table == "BLOCK")
        return core.tableHead("BLOCK_RECORD");
    for (const Container& container : core.document->containers())
        if (container.kind == Container::Kind::table && container.name == table)
            return container.head;
    return nullptr;
}

/// Returns whether lists of records have the code: neither handles and owners nor what later versions added.
bool isListed(int code) {
    constexpr int kFirstLater = 290;
    return code < kFirstLater && code != 5 && code != 8 && code != 100 && code != 102 && code != 105;
}

/// Returns the list of a record: that of a block has the records of its BLOCK and its first entity.
resbuf* recordList(DatabaseCore& core, AcDbStub& record) {
    const Container* const block = core.blockContainer(record);
    zuhost::ChainWriter chain(&core);
    const zuhost::TagView records = core.tags(block != nullptr ? *block->head : record).withoutExtendedData();
    for (auto at = records.begin(); at != records.end();) {
        if (isListed(at->code))
            chain.add(at);
        else
            ++at;
    }
    const auto* const owner = AcDbBlockTableRecord::cast(&core.object(record));
    if (owner == nullptr)
        return chain.release();
    if (const auto entities = zuhost::ObjectAccess::entities(*owner, true); !entities.empty())
        acdbGetAdsName(chain.append(kFirstEntity).resval.rlname, entities.front());
    return chain.release();
}

/// The place of acdbTblNext in a table: its records when the walk began.
struct Walk {
    std::int64_t database = 0; ///< Its number: a closed database can't be asked.
    const AcDbStub* table = nullptr;
    std::vector<AcDbStub*> records;
    std::size_t next = 0;

    void begin(DatabaseCore& core, const AcDbStub& of) {
        *this = {core.number.value(), &of, core.records(of), 0};
    }
    [[nodiscard]] bool isIn(const DatabaseCore& core, const AcDbStub& of) const {
        return database == core.number.value() && table == &of;
    }
};

Walk& walk() {
    static Walk walk;
    return walk;
}

} // namespace

resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext) {
    DatabaseCore* const core = workingCore();
    AcDbStub* const head = core != nullptr ? tableOf(*core, table) : nullptr;
    AcDbStub* const record =
        head != nullptr && name != nullptr ? core->findRecord(*head, name, false) : nullptr;
    if (record == nullptr)
        return nullptr;
    if (setNext != 0) {
        walk().begin(*core, *head);
        const auto& records = walk().records;
        walk().next = static_cast<std::size_t>(std::ranges::find(records, record) - records.begin()) + 1;
    }
    return recordList(*core, *record);
}

resbuf* acdbTblNext(const ACHAR* table, int rewind) {
    DatabaseCore* const core = workingCore();
    AcDbStub* const head = core != nullptr ? tableOf(*core, table) : nullptr;
    if (head == nullptr)
        return nullptr;
    if (rewind != 0 || !walk().isIn(*core, *head))
        walk().begin(*core, *head);
    while (walk().next < walk().records.size()) {
        AcDbStub* const record = walk().records[walk().next++];
        if (!record->erased)
            return recordList(*core, *record);
    }
    return nullptr;
}
