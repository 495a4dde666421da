#include "audit.h"
#include "text.h"

#include <adslib.h>
#include <arxutil.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <algorithm>
#include <memory>
#include <optional>

namespace zu::app {

namespace {

constexpr const wchar_t* kAttributes = L"ZU_ATTR";
constexpr const wchar_t* kLink = L"ZU_LINK";
constexpr short kApplicationName = 1001;
constexpr short kText = 1000;
constexpr std::size_t kHeaderFields = 3;
constexpr std::size_t kItemFields = 6;

struct ChainDeleter {
    void operator()(resbuf* chain) const { acutRelRb(chain); }
};

/// What an entity holds of an application.
struct Record {
    int count = 0; ///< How often the application stands there.
    bool hasOtherValues = false;
    std::vector<CString> texts;
};

Record readRecord(const resbuf* chain, const wchar_t* application) {
    Record record;
    bool isOurs = false;
    for (const resbuf* item = chain; item != nullptr; item = item->rbnext) {
        if (item->restype == kApplicationName) {
            isOurs = CString(item->resval.rstring).CompareNoCase(application) == 0;
            record.count += isOurs ? 1 : 0;
        } else if (isOurs && record.count == 1) {
            if (item->restype == kText)
                record.texts.emplace_back(item->resval.rstring);
            else
                record.hasOtherValues = true;
        }
    }
    return record;
}

/// The fields of a text that are each ended by a bar, and what stands behind the last one.
struct Fields {
    std::vector<CString> ended;
    CString rest;
};

Fields split(const CString& text) {
    Fields fields;
    int start = 0;
    for (int bar = text.Find(L'|'); bar >= 0; bar = text.Find(L'|', start)) {
        fields.ended.push_back(text.Mid(start, bar - start));
        start = bar + 1;
    }
    fields.rest = text.Mid(start);
    return fields;
}

CString join(const std::vector<CString>& fields) {
    CString text;
    for (const CString& field : fields)
        text += field + L"|";
    return text;
}

/// The text with so many fields, all ended; nullopt when a field with a value would have to go.
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

std::string fieldsProblem(const std::string& what, const CString& text, std::size_t wanted) {
    const Fields fields = split(text);
    if (!fields.rest.IsEmpty())
        return what + " has a field that no bar ends: " + narrow(text.view());
    return what + " has " + std::to_string(fields.ended.size()) + " fields instead of " +
           std::to_string(wanted) + ": " + narrow(text.view());
}

bool isCount(const CString& field) {
    const std::wstring_view digits = field.view();
    return !digits.empty() && digits.size() < 10 &&
           std::all_of(digits.begin(), digits.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

/// The faults of one entity's record, whose texts are mended where they can be and stored at once.
class RecordAudit {
public:
    RecordAudit(AcDbObjectId entity, const wchar_t* application, Record record, Audit& audit)
        : entity_(entity), application_(application), record_(std::move(record)), audit_(audit) {}

    /// False when nothing more can be said of the record.
    bool auditForm(const std::string& name) {
        if (record_.count > 1)
            audit_.add(entity_, name + " is there more than once; only the first counts");
        if (record_.hasOtherValues)
            audit_.add(entity_, name + " holds values that are no texts");
        const bool isEmpty = std::all_of(record_.texts.begin(), record_.texts.end(),
                                         [](const CString& text) { return text.IsEmpty(); });
        if (!isEmpty)
            return true;
        if (record_.hasOtherValues) {
            audit_.add(entity_, name + " has no texts");
            return false;
        }
        record_.texts.clear();
        audit_.add(entity_, name + " is empty", [this] { return store(); });
        return false;
    }

    void auditAttributes() {
        for (std::size_t i = 1; i < record_.texts.size(); ++i)
            auditFields("item " + std::to_string(i) + " of the attribute record", i, kItemFields);
        auditFields("header of the attribute record", 0, kHeaderFields);
        auditCount();
    }

    void auditLinkKind() {
        const CString& text = record_.texts.front();
        const std::wstring_view view = text.view();
        if (view.size() < 2 || view[0] < L'0' || view[0] > L'6' || view[1] != L'|')
            audit_.add(entity_, "link record doesn't begin with a link kind (0 to 6): " + narrow(view));
    }

private:
    void auditFields(const std::string& what, std::size_t place, std::size_t wanted) {
        const CString text = record_.texts[place];
        const std::optional<CString> mended = withFields(text, wanted);
        if (mended == text)
            return;
        const std::string problem = fieldsProblem(what, text, wanted);
        if (mended)
            audit_.add(entity_, problem, [&] { return replace(place, *mended); });
        else
            audit_.add(entity_, problem);
    }

    void auditCount() {
        Fields header = split(record_.texts.front());
        if (header.ended.size() != kHeaderFields)
            return;
        CString items;
        items.Format(L"%d", static_cast<int>(record_.texts.size() - 1));
        if (CString(header.ended.front()).Trim() == items)
            return;
        const std::string problem = "attribute record names " + narrow(header.ended.front().view()) +
                                    " as the number of its items and has " + narrow(items.view());
        if (!isCount(header.ended.front()) && !header.ended.front().IsEmpty())
            return audit_.add(entity_, problem);
        header.ended.front() = items;
        audit_.add(entity_, problem, [&] { return replace(0, join(header.ended)); });
    }

    bool replace(std::size_t place, const CString& text) {
        record_.texts[place] = text;
        return store();
    }

    [[nodiscard]] bool store() const {
        CStringArray texts;
        for (const CString& text : record_.texts)
            texts.Add(text);
        return ApiComn_appendAttributesArray(entity_, application_, texts) == 0;
    }

    AcDbObjectId entity_;
    const wchar_t* application_;
    Record record_;
    Audit& audit_;
};

struct Found {
    bool attributes = false;
    bool link = false;
};

Found auditEntity(AcDbObjectId entity, Audit& audit) {
    Record attributes;
    Record link;
    if (const AcDbObjectPointer<AcDbObject> object(entity); object.openStatus() == Acad::eOk) {
        const std::unique_ptr<resbuf, ChainDeleter> chain(object->xData());
        attributes = readRecord(chain.get(), kAttributes);
        link = readRecord(chain.get(), kLink);
    }
    const Found found{attributes.count > 0, link.count > 0};
    if (found.attributes)
        if (RecordAudit record(entity, kAttributes, std::move(attributes), audit);
            record.auditForm("attribute record"))
            record.auditAttributes();
    if (found.link)
        if (RecordAudit record(entity, kLink, std::move(link), audit); record.auditForm("link record"))
            record.auditLinkKind();
    return found;
}

void auditRegistration(AcDbDatabase& database, const wchar_t* application, Audit& audit) {
    AcDbRegAppTable* table = nullptr;
    if (database.getSymbolTable(table) != Acad::eOk)
        return;
    const bool isKnown = table->has(application);
    table->close();
    if (!isKnown)
        audit.add(database.regAppTableId(),
                  std::string("application ") + narrow(application) + " is not registered",
                  [&] { return acdbRegApp(&database, application) == Acad::eOk; });
}

} // namespace

void auditRecords(DrawingFile& drawing, const std::vector<AcDbObjectId>& entities, Audit& audit) {
    Found any;
    for (const AcDbObjectId entity : entities) {
        const Found found = auditEntity(entity, audit);
        any.attributes |= found.attributes;
        any.link |= found.link;
    }
    if (any.attributes)
        auditRegistration(drawing.database(), kAttributes, audit);
    if (any.link)
        auditRegistration(drawing.database(), kLink, audit);
}

} // namespace zu::app
