#include "summinfo.h"

#include "database_core.h"
#include "database_variables.h"
#include "new_text.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbDatabaseSummaryInfo, AcRxObject)

using zuhost::Tag;
using zuhost::TagList;

namespace {

constexpr std::string_view kKey = "$CUSTOMPROPERTYTAG";
constexpr std::string_view kValue = "$CUSTOMPROPERTY";
/// In the order of AcDbDatabaseSummaryInfo::Fixed.
constexpr std::array<std::string_view, 8> kFixedNames{"$TITLE",          "$SUBJECT",      "$AUTHOR",
                                                      "$KEYWORDS",       "$COMMENTS",     "$LASTSAVEDBY",
                                                      "$REVISIONNUMBER", "$HYPERLINKBASE"};

bool isVariable(const TagList& header, std::size_t at, std::string_view name) {
    return at + 1 < header.size() && header[at].code == 9 && header[at].value == name;
}

bool isCustom(const TagList& header, std::size_t at) {
    return isVariable(header, at, kKey) || isVariable(header, at, kValue);
}

/// Returns the index for the custom variables: that of the first one, else the end of the header.
std::size_t customPlace(const TagList& header) {
    for (std::size_t i = 0; i < header.size(); ++i)
        if (isCustom(header, i))
            return i;
    return header.size();
}

} // namespace

Acad::ErrorStatus AcDbDatabaseSummaryInfo::fixed(Fixed property, ACHAR*& text) const {
    text = zuhost::newText(fixed_[property]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::fixed(Fixed property, AcString& text) const {
    text = fixed_[property].c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::setFixed(Fixed property, const ACHAR* text) {
    fixed_[property] = text != nullptr ? text : L"";
    return Acad::eOk;
}

int AcDbDatabaseSummaryInfo::find(const ACHAR* key) const {
    for (std::size_t i = 0; i < custom_.size(); ++i)
        if (zuhost::foldedName(custom_[i].key) == zuhost::foldedName(key))
            return static_cast<int>(i);
    return -1;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::getCustomSummaryInfo(const ACHAR* key, ACHAR*& value) const {
    value = nullptr;
    AcString text;
    const Acad::ErrorStatus status = getCustomSummaryInfo(key, text);
    if (status == Acad::eOk)
        value = zuhost::newText(text.kwszPtr());
    return status;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::getCustomSummaryInfo(const ACHAR* key, AcString& value) const {
    if (key == nullptr)
        return Acad::eInvalidInput;
    const int index = find(key);
    if (index < 0)
        return Acad::eKeyNotFound;
    value = custom_[static_cast<std::size_t>(index)].value.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::getCustomSummaryInfo(int index, ACHAR*& key, ACHAR*& value) const {
    key = nullptr;
    value = nullptr;
    if (index < 0 || index >= numCustomInfo())
        return Acad::eInvalidIndex;
    key = zuhost::newText(custom_[static_cast<std::size_t>(index)].key);
    value = zuhost::newText(custom_[static_cast<std::size_t>(index)].value);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::getCustomSummaryInfo(int index, AcString& key,
                                                                AcString& value) const {
    if (index < 0 || index >= numCustomInfo())
        return Acad::eInvalidIndex;
    key = custom_[static_cast<std::size_t>(index)].key.c_str();
    value = custom_[static_cast<std::size_t>(index)].value.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::addCustomSummaryInfo(const ACHAR* key, const ACHAR* value) {
    if (key == nullptr)
        return Acad::eInvalidInput;
    if (find(key) >= 0)
        return Acad::eDuplicateKey;
    custom_.push_back({key, value != nullptr ? value : L""});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::setCustomSummaryInfo(const ACHAR* key, const ACHAR* value) {
    if (key == nullptr)
        return Acad::eInvalidInput;
    const int index = find(key);
    if (index < 0)
        return Acad::eKeyNotFound;
    custom_[static_cast<std::size_t>(index)].value = value != nullptr ? value : L"";
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::deleteCustomSummaryInfo(int index) {
    if (index < 0 || index >= numCustomInfo())
        return Acad::eInvalidIndex;
    custom_.erase(custom_.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabaseSummaryInfo::deleteCustomSummaryInfo(const ACHAR* key) {
    if (key == nullptr)
        return Acad::eInvalidInput;
    const int index = find(key);
    if (index < 0)
        return Acad::eKeyNotFound;
    custom_.erase(custom_.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetSummaryInfo(AcDbDatabase* database, AcDbDatabaseSummaryInfo*& info) {
    info = nullptr;
    if (database == nullptr || !zuhost::coreOf(*database).document)
        return Acad::eNoDatabase;
    const auto& document = zuhost::coreOf(*database).document;
    info = new AcDbDatabaseSummaryInfo;
    info->setDatabase(database);
    const TagList& header = document->header();
    for (std::size_t i = 0; i < kFixedNames.size(); ++i)
        info->fixed_[i] = zuhost::textVariable(zuhost::coreOf(*database), kFixedNames[i], 1);
    for (std::size_t i = 0; i + 3 < header.size(); ++i)
        if (isVariable(header, i, kKey) && isVariable(header, i + 2, kValue))
            info->addCustomSummaryInfo(document->decode(header[i + 1].value).c_str(),
                                       document->decode(header[i + 3].value).c_str());
    return Acad::eOk;
}

Acad::ErrorStatus acdbPutSummaryInfo(const AcDbDatabaseSummaryInfo* info) {
    if (info == nullptr)
        return Acad::eNullObjectPointer;
    if (info->database() == nullptr || !zuhost::coreOf(*info->database()).document)
        return Acad::eNoDatabase;
    const auto& document = zuhost::coreOf(*info->database()).document;
    TagList header = document->header();
    std::vector<Tag> records;
    for (std::size_t i = 0; i < kFixedNames.size(); ++i) {
        const zuhost::TagRange known = zuhost::variableValue(header, kFixedNames[i]);
        const std::string text = document->encode(info->fixed_[i]);
        if (!known.empty())
            header.setText(1, text, known);
        else if (!text.empty())
            records.insert(records.end(), {{9, std::string(kFixedNames[i])}, {1, text}});
    }
    const std::size_t place = customPlace(header);
    for (std::size_t i = header.size(); i-- > 0;)
        if (isCustom(header, i))
            header.erase({i, i + 2});
    for (int i = 0; i < info->numCustomInfo(); ++i) {
        AcString key;
        AcString value;
        info->getCustomSummaryInfo(i, key, value);
        records.insert(records.end(), {{9, std::string(kKey)},
                                       {1, document->encode(key.kwszPtr())},
                                       {9, std::string(kValue)},
                                       {1, document->encode(value.kwszPtr())}});
    }
    header.insert(place, records);
    document->setHeader(std::move(header));
    return Acad::eOk;
}
