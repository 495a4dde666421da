#include "attributes/attribute_record.h"
#include "extended_data.h"
#include "findings.h"
#include "frame/text_view.h"
#include "reference_facts.h"
#include "route/element_code.h"
#include "route/element_place.h"
#include "route/link_record.h"

#include <arxutil.h>
#include <dbents.h>
#include <dbobjptr.h>

#include <windows.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <optional>
#include <utility>

namespace zu {

namespace {

using zucomn::RouteFault;

constexpr short kApplicationName = 1001;
constexpr short kText = 1000;
constexpr std::size_t kHeaderFields = 3;
constexpr std::size_t kItemFields = kStoredFields;
constexpr const wchar_t* kHeader = L"header of the attribute record";

/// An entity's extended data of one application.
struct Record {
    int count = 0; ///< Occurrences of the application's name.
    bool hasOtherValues = false;
    bool hasLaterValues = false; ///< Values after a repeated name of the application.
    CStringArray texts;

    [[nodiscard]] bool hasText() const {
        for (int i = 0; i < texts.GetSize(); ++i)
            if (!texts[i].IsEmpty())
                return true;
        return false;
    }
};

struct Records {
    Record attributes;
    Record link;
};

void addValue(short type, std::wstring_view text, Record& record) {
    if (record.count > 1)
        record.hasLaterValues |= type != kText || !text.empty();
    else if (type == kText)
        record.texts.Add(zu::textOf(text));
    else
        record.hasOtherValues = true;
}

bool isSameName(std::wstring_view text, std::wstring_view name) {
    return text.size() == name.size() && startsWithNoCase(text, name);
}

Records readRecords(const AcDbObject& entity) {
    Records records;
    Record* current = nullptr;
    visitExtendedData(entity, nullptr, [&](short type, std::wstring_view text) {
        if (type == kApplicationName) {
            current = isSameName(text, kAttributeApplication) ? &records.attributes
                      : isSameName(text, kLinkApplication)    ? &records.link
                                                              : nullptr;
            if (current != nullptr)
                ++current->count;
        } else if (current != nullptr) {
            addValue(type, text, *current);
        }
        return true;
    });
    return records;
}

/// The fields of a text, each terminated by a bar, and the rest after the last bar.
struct Fields {
    std::vector<CString> ended;
    CString rest;
};

Fields split(const CString& text) {
    Fields fields{splitFields(text), {}};
    fields.rest = fields.ended.back();
    fields.ended.pop_back();
    return fields;
}

CString join(const std::vector<CString>& fields) {
    CString text;
    for (const CString& field : fields)
        text += field + kFieldSeparator;
    return text;
}

/// Returns true for a text with the given number of terminated fields and nothing else.
bool hasFields(const CString& text, std::size_t count) {
    const std::wstring_view view = zu::view(text);
    return view.ends_with(kFieldSeparator) &&
           static_cast<std::size_t>(std::count(view.begin(), view.end(), kFieldSeparator)) == count;
}

/// Returns the text with the given number of terminated fields; nullopt when a field with a value would be
/// lost.
std::optional<CString> withFields(const CString& text, std::size_t count) {
    Fields fields = split(text);
    if (!fields.rest.IsEmpty())
        fields.ended.push_back(fields.rest);
    while (fields.ended.size() > count && CString(fields.ended.back()).Trim().IsEmpty())
        fields.ended.pop_back();
    if (fields.ended.size() > count)
        return std::nullopt;
    fields.ended.resize(count);
    return join(fields.ended);
}

std::wstring fieldsProblem(const std::wstring& what, const CString& text, std::size_t wanted) {
    const Fields fields = split(text);
    if (!fields.rest.IsEmpty())
        return what + L" has a field that no bar ends: " + std::wstring(zu::view(text));
    return what + L" has " + std::to_wstring(fields.ended.size()) + L" fields instead of " +
           std::to_wstring(wanted) + L": " + std::wstring(zu::view(text));
}

bool isCount(const CString& field) {
    const std::wstring_view digits = zu::view(field);
    return !digits.empty() && digits.size() < 10 &&
           std::all_of(digits.begin(), digits.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

/// Audits the record of one entity: repairs its texts where possible, stores them once and reports the
/// findings.
class RecordAudit {
public:
    RecordAudit(AcDbObjectId entity, const wchar_t* application, Record record)
        : entity_(entity), application_(application), record_(std::move(record)) {}

    [[nodiscard]] bool isThere() const { return record_.count > 0; }
    [[nodiscard]] const CStringArray& texts() const { return record_.texts; }

    /// Returns false when the record has no texts to check.
    bool checkForm(const std::wstring& name) {
        const bool isEmpty = !record_.hasText() && !record_.hasOtherValues && !record_.hasLaterValues;
        if (record_.count > 1 && !isEmpty)
            note(name + L" is there more than once; only the first counts");
        if (record_.hasOtherValues)
            note(name + L" holds values that are no texts");
        if (record_.hasText())
            return true;
        faults_.push_back({name + L" is empty", isEmpty});
        record_.texts.RemoveAll();
        return false;
    }

    void checkAttributes() {
        for (int i = 1; i < record_.texts.GetSize(); ++i)
            checkItem(i);
        checkHeader();
    }

    void checkLinkKind() {
        const std::wstring_view text = zu::view(record_.texts[0]);
        if (linkKind(text) < 0)
            note(L"link record doesn't begin with a link kind (0 to " + std::to_wstring(kLastLinkKind) +
                 L"): " + std::wstring(text));
    }

    void report(RouteFault kind, RouteAudit& audit) const {
        const bool hasRepairs =
            std::any_of(faults_.begin(), faults_.end(), [](const Fault& f) { return f.repaired; });
        const bool isStored = audit.isRepairing() && hasRepairs && store();
        for (const Fault& fault : faults_)
            audit.add(entity_, kind, fault.problem, fault.repaired && isStored);
    }

private:
    struct Fault {
        std::wstring problem;
        bool repaired;
    };

    void note(std::wstring problem) { faults_.push_back({std::move(problem), false}); }
    void repair(std::wstring problem, int place, const CString& text) {
        record_.texts[place] = text;
        faults_.push_back({std::move(problem), true});
    }

    void checkItem(int place) {
        const CString text = record_.texts[place];
        if (hasFields(text, kItemFields))
            return;
        const std::optional<CString> repaired = withFields(text, kItemFields);
        if (repaired == text)
            return;
        const std::wstring problem =
            fieldsProblem(L"item " + std::to_wstring(place) + L" of the attribute record", text, kItemFields);
        repaired ? repair(problem, place, *repaired) : note(problem);
    }

    /// As nearly every header is.
    [[nodiscard]] bool isHeaderRight() const {
        const std::wstring_view header = zu::view(record_.texts[0]);
        std::array<char, 16> digits{};
        const char* const end =
            std::to_chars(digits.data(), digits.data() + digits.size(), record_.texts.GetSize() - 1).ptr;
        const auto field = std::mismatch<const char*>(digits.data(), end, header.begin(), header.end());
        return hasFields(record_.texts[0], kHeaderFields) && field.first == end &&
               *field.second == kFieldSeparator;
    }

    void checkHeader() {
        if (isHeaderRight())
            return;
        const CString text = record_.texts[0];
        const std::optional<CString> repaired = withFields(text, kHeaderFields);
        if (!repaired)
            return note(fieldsProblem(kHeader, text, kHeaderFields));
        CString items;
        items.Format(L"%d", static_cast<int>(record_.texts.GetSize() - 1));
        Fields header = split(*repaired);
        CString& count = header.ended.front();
        if (*repaired != text) {
            if (count.IsEmpty())
                count = items;
            repair(fieldsProblem(kHeader, text, kHeaderFields), 0, join(header.ended));
        }
        if (CString(count).Trim() == items)
            return;
        const std::wstring problem = L"attribute record names \"" + std::wstring(zu::view(count)) +
                                     L"\" as the number of its items and has " +
                                     std::wstring(zu::view(items));
        if (!isCount(count) && !count.IsEmpty())
            return note(problem);
        count = items;
        repair(problem, 0, join(header.ended));
    }

    [[nodiscard]] bool store() const {
        // What is repaired is not drawn: entities on locked layers are repaired too.
        const AcDbObjectPointer<AcDbObject> entity(entity_, AcDb::kForWrite, false, true);
        return entity.openStatus() == Acad::eOk &&
               ApiComn_appendAttributesArray(entity.object(), application_, record_.texts) == 0;
    }

    AcDbObjectId entity_;
    const wchar_t* application_;
    Record record_;
    std::vector<Fault> faults_;
};

void auditAttributes(RecordAudit& record, RouteAudit& audit) {
    if (!record.isThere())
        return;
    if (record.checkForm(L"attribute record"))
        record.checkAttributes();
    record.report(RouteFault::attributeRecord, audit);
}

void auditLink(RecordAudit& record, RouteAudit& audit) {
    if (!record.isThere())
        return;
    if (record.checkForm(L"link record"))
        record.checkLinkKind();
    record.report(RouteFault::linkRecord, audit);
}

CountedElement elementOf(const AcDbBlockReference& reference, const RecordAudit& attributes,
                         const RecordAudit& link, ElementBlocks& blocks,
                         const zucomn::QuantityAttributes& ids) {
    ReferenceFacts facts;
    readFacts(reference, facts);
    CountedElement element = countedFrom(reference, facts, blocks, attributes.texts(), ids);
    element.placeHash = hashOf(elementPlace(facts), std::hash<AcDbObjectId>()(element.definition));
    element.kind = link.texts().IsEmpty() ? -1 : linkKind(zu::view(link.texts()[0]));
    return element;
}

} // namespace

std::vector<CountedElement> auditRecords(const std::vector<AcDbObjectId>& entities, RouteAudit& audit) {
    const zucomn::QuantityAttributes ids = zucomn::quantityAttributes();
    std::vector<CountedElement> elements;
    elements.reserve(entities.size());
    ElementBlocks blocks;
    for (const AcDbObjectId entity : entities) {
        AcDbObjectPointer<AcDbObject> object(entity);
        if (object.openStatus() != Acad::eOk)
            continue;
        Records records = readRecords(*object.object());
        RecordAudit attributes(entity, kAttributeApplication, std::move(records.attributes));
        RecordAudit link(entity, kLinkApplication, std::move(records.link));
        if (const auto* const reference = AcDbBlockReference::cast(object.object()))
            elements.push_back(elementOf(*reference, attributes, link, blocks, ids));
        object.close(); // repairs open it for write
        auditAttributes(attributes, audit);
        auditLink(link, audit);
    }
    return elements;
}

} // namespace zu
