#include "dbmain.h"

#include "database_core.h"
#include "dbapserv.h"
#include "dbsymtb.h"
#include "dxf_records/number_text.h"
#include "dxf_records/value_type.h"

#include <algorithm>
#include <map>

using zuhost::Tag;
using zuhost::TagList;
using zuhost::TagRange;

namespace {

constexpr int kApplication = 1001;
constexpr int kComment = 999;
constexpr std::size_t kSizeLimit = 16383;
constexpr short kChunkLimit = 127;
constexpr std::string_view kAxes = "xyz";

/// Returns the bytes that a value counts for in the size limit of an object's extended data.
std::size_t storedSize(const Tag& tag) {
    using zuhost::dxf::ValueType;
    switch (zuhost::dxf::valueType(tag.code)) {
    case ValueType::real:
        return 1 + sizeof(double);
    case ValueType::int16:
        return 1 + sizeof(std::int16_t);
    case ValueType::int32:
        return 1 + sizeof(std::int32_t);
    case ValueType::handle:
        return 1 + sizeof(std::uint64_t);
    case ValueType::chunk:
        return 2 + tag.value.size() / 2;
    default:
        return tag.code == kApplication || tag.code == 1003 ? 1 + sizeof(std::uint64_t)
                                                            : 4 + tag.value.size();
    }
}

std::size_t storedSize(const TagList& tags, TagRange range) {
    std::size_t size = 0;
    for (std::size_t i = range.first; i < range.last; ++i)
        size += storedSize(tags[i]);
    return size;
}

std::string hexadecimal(const char* bytes, int count) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += kDigits[static_cast<unsigned char>(bytes[i]) >> 4U];
        text += kDigits[static_cast<unsigned char>(bytes[i]) & 0x0FU];
    }
    return text;
}

int digitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : 0;
}

void setChunk(resbuf& item, std::string_view digits) {
    const std::size_t count = std::min<std::size_t>(digits.size() / 2, kChunkLimit);
    item.resval.rbinary.clen = static_cast<short>(count);
    item.resval.rbinary.buf = new char[count];
    for (std::size_t i = 0; i < count; ++i)
        item.resval.rbinary.buf[i] =
            static_cast<char>(digitValue(digits[2 * i]) * 16 + digitValue(digits[2 * i + 1]));
}

/// Returns whether the code begins a value of extended data; a point begins with its first record.
bool isValueCode(int code) {
    return (code >= 1000 && code <= 1005) || (code >= 1010 && code <= 1013) ||
           (code >= 1040 && code <= 1042) || code == 1070 || code == 1071;
}

bool isValid(const resbuf& item) {
    if (item.restype != 1004)
        return isValueCode(item.restype);
    return item.resval.rbinary.clen >= 0 && item.resval.rbinary.clen <= kChunkLimit;
}

bool isPoint(int code) {
    return code >= 1010 && code <= 1013;
}

class ChainWriter {
public:
    explicit ChainWriter(const zuhost::Document& document) : document_(document) {}

    /// Appends the value at the index and returns the index of the next one. A point is one item in a chain
    /// and three records in a drawing.
    std::size_t add(const TagList& tags, std::size_t at) {
        const Tag& tag = tags[at];
        resbuf* const item = append(tag.code);
        if (acutIsTextType(item->restype)) {
            acutNewString(document_.decode(tag.value).c_str(), item->resval.rstring);
            return at + 1;
        }
        if (tag.code == 1004) {
            setChunk(*item, tag.value);
            return at + 1;
        }
        if (isPoint(tag.code))
            return addPoint(tags, at, *item);
        if (zuhost::dxf::valueType(tag.code) == zuhost::dxf::ValueType::real)
            item->resval.rreal = zuhost::parseReal(tag.value).value_or(0.0);
        else if (tag.code == 1071)
            item->resval.rlong = static_cast<std::int32_t>(zuhost::parseInteger(tag.value).value_or(0));
        else
            item->resval.rint = static_cast<short>(zuhost::parseInteger(tag.value).value_or(0));
        return at + 1;
    }

    [[nodiscard]] resbuf* first() const { return first_; }

private:
    resbuf* append(int code) {
        resbuf* const item = acutNewRb(code);
        (last_ != nullptr ? last_->rbnext : first_) = item;
        return last_ = item;
    }

    static std::size_t addPoint(const TagList& tags, std::size_t at, resbuf& item) {
        const int code = tags[at].code;
        for (std::size_t axis = 0; axis < kAxes.size(); ++axis) {
            if (at >= tags.size() || tags[at].code != code + 10 * static_cast<int>(axis))
                break;
            item.resval.rpoint[axis] = zuhost::parseReal(tags[at++].value).value_or(0.0);
        }
        return at;
    }

    const zuhost::Document& document_;
    resbuf* first_ = nullptr;
    resbuf* last_ = nullptr;
};

void addValue(TagList& tags, const resbuf& item, const zuhost::Document& document) {
    const int code = item.restype;
    if (acutIsTextType(item.restype)) {
        tags.add(code, document.encode(item.resval.rstring != nullptr ? item.resval.rstring : L""));
    } else if (code == 1004) {
        tags.add(code, hexadecimal(item.resval.rbinary.buf, item.resval.rbinary.clen));
    } else if (isPoint(code)) {
        for (std::size_t axis = 0; axis < kAxes.size(); ++axis)
            tags.add(code + 10 * static_cast<int>(axis), zuhost::formatReal(item.resval.rpoint[axis]));
    } else if (zuhost::dxf::valueType(code) == zuhost::dxf::ValueType::real) {
        tags.add(code, zuhost::formatReal(item.resval.rreal));
    } else {
        tags.add(code, std::to_string(code == 1071 ? item.resval.rlong : item.resval.rint));
    }
}

/// Texts equal to those they replace keep their stored form, as with escapes ("\\U+33a5").
void keepStoredForm(const TagList& tags, TagRange old, TagList& replacement,
                    const zuhost::Document& document) {
    for (std::size_t i = 0; i < replacement.size() && old.first + i < old.last; ++i) {
        const Tag& before = tags[old.first + i];
        Tag& now = replacement[i];
        if (now.code == before.code && now.value != before.value &&
            acutIsTextType(static_cast<short>(now.code)) &&
            document.decode(now.value) == document.decode(before.value))
            now.value = before.value;
    }
}

/// Returns the registered name that equals the application's ignoring case, in the drawing's encoding.
std::optional<std::string> registeredName(zuhost::DatabaseCore& core, const ACHAR* application) {
    AcDbStub* const table = core.tableHead("APPID");
    AcDbStub* const record =
        application != nullptr && table != nullptr ? core.findRecord(*table, application, false) : nullptr;
    if (record == nullptr)
        return std::nullopt;
    const TagList& tags = core.object(*record).tags();
    return std::string(tags.text(2, {0, tags.extendedDataStart()}).value_or(""));
}

/// Reads the values of each application of the chain, after its name. If an application occurs repeatedly,
/// the last occurrence counts.
Acad::ErrorStatus readChain(const resbuf* chain, zuhost::DatabaseCore& core, std::vector<TagList>& lists) {
    if (chain == nullptr || chain->restype != kApplication)
        return Acad::eInvalidInput;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        if (!isValid(*item))
            return Acad::eInvalidInput;
        if (item->restype != kApplication) {
            addValue(lists.back(), *item, *core.document);
            continue;
        }
        auto name = registeredName(core, item->resval.rstring);
        if (!name)
            return Acad::eRegappIdNotFound;
        std::erase_if(lists, [&name](const TagList& list) { return list[0].value == *name; });
        lists.emplace_back().add(kApplication, std::move(*name));
    }
    return Acad::eOk;
}

/// Returns the size of the extended data once the lists have replaced those of their applications.
std::size_t sizeWith(const TagList& tags, const std::vector<TagList>& replacements) {
    std::size_t size = storedSize(tags, {tags.extendedDataStart(), tags.size()});
    for (const TagList& list : replacements) {
        size -= storedSize(tags, tags.extendedData(list[0].value));
        if (list.size() > 1)
            size += storedSize(list, list.all());
    }
    return size;
}

void replace(TagList& tags, TagList replacement, const zuhost::Document& document) {
    const std::string name = replacement[0].value;
    // Damaged objects name an application several times; only the first counts, the others are kept with it.
    if (replacement.size() == 1) {
        for (TagRange all = tags.extendedData(name); !all.empty(); all = tags.extendedData(name))
            tags.erase(all);
        return;
    }
    const TagRange old = tags.extendedData(name);
    keepStoredForm(tags, old, replacement, document);
    const std::size_t place = old.empty() ? tags.size() : old.first;
    tags.erase(old);
    tags.insert(place, std::move(replacement));
}

} // namespace

resbuf* AcDbObject::xData(const ACHAR* application) const {
    if (core() == nullptr)
        return nullptr;
    const std::size_t start = extendedDataStart();
    TagRange range{start, tags().size()};
    if (range.empty())
        return nullptr;
    if (application != nullptr) {
        range = tags().extendedData(encoded(application), start);
        if (const auto name = range.empty() ? registeredName(*core(), application) : std::nullopt)
            range = tags().extendedData(*name, start);
    }
    ChainWriter chain(*core()->document);
    // Skips other group codes, which only damaged drawings have: a chain can't hold their values. One that is
    // not valid in extended data ends the values of its application, as when one application is asked for.
    bool isEnded = false;
    for (std::size_t at = range.first; at < range.last;) {
        const int code = tags()[at].code;
        isEnded = code != kApplication && (isEnded || code < kComment);
        at = isValueCode(code) && !isEnded ? chain.add(tags(), at) : at + 1;
    }
    return chain.first();
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain) {
    if (core() == nullptr)
        return Acad::eNotInDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    std::vector<TagList> replacements;
    Acad::ErrorStatus status = readChain(chain, *core(), replacements);
    if (status == Acad::eOk && sizeWith(tags(), replacements) > kSizeLimit)
        status = Acad::eXdataSizeExceeded;
    if (status == Acad::eOk)
        status = assertWriteEnabled();
    if (status != Acad::eOk)
        return status;
    for (TagList& replacement : replacements)
        replace(changingTags(), std::move(replacement), *core()->document);
    return Acad::eOk;
}

Acad::ErrorStatus acdbRegApp(AcDbDatabase* database, const ACHAR* application) {
    AcDbRegAppTable* table = nullptr;
    const Acad::ErrorStatus status = database->getSymbolTable(table, AcDb::kForWrite);
    if (status != Acad::eOk)
        return status;
    Acad::ErrorStatus added = Acad::eOk;
    if (application == nullptr) {
        added = Acad::eInvalidInput;
    } else if (!table->has(application)) {
        auto record = std::make_unique<AcDbRegAppTableRecord>();
        record->setName(application);
        added = table->add(record.get());
        if (added == Acad::eOk)
            record.release()->close();
    }
    table->close();
    return added;
}

int acdbRegApp(const ACHAR* application) {
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    return database != nullptr && acdbRegApp(database, application) == Acad::eOk ? RTNORM : RTERROR;
}
