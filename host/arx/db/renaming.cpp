#include "renaming.h"

#include "database_core.h"
#include "database_variables.h"
#include "name_codes.h"
#include "object_access.h"

#include <algorithm>

namespace zuhost {

namespace {

constexpr std::wstring_view kExcluded = L"<>/\\\":;?*|,=`";
constexpr int kLayerInExtendedData = 1003;

/// A variable of the header that names a record.
constexpr NameCode kNamingVariables[] = {
    {"$CLAYER", 8, "LAYER"},
    {"$CELTYPE", 6, "LTYPE"},
    {"$TEXTSTYLE", 7, "STYLE"},
    {"$DIMSTYLE", 2, "DIMSTYLE"},
};

/// Returns the table whose record a value of an object names; empty for other values.
std::string_view tableNamed(Container::Kind kind, std::string_view type, int code) {
    if (code == kLayerInExtendedData)
        return "LAYER";
    if (kind == Container::Kind::table || kind == Container::Kind::objects)
        return code == 6 && (type == "LAYER" || type == "MLINESTYLE") ? "LTYPE" : "";
    if (type == "BLOCK" && (code == 2 || code == 3))
        return "BLOCK_RECORD";
    const auto* const found = std::ranges::find_if(kNameCodes, [&](const NameCode& name) {
        return name.code == code && (name.type.empty() || name.type == type);
    });
    return found != std::end(kNameCodes) ? found->table : "";
}

class Renaming {
public:
    Renaming(DatabaseCore& core, std::string_view table, const std::wstring& from, const std::wstring& to)
        : core_(core), table_(table), from_(foldedName(from)), to_(to) {}

    void renameAll() {
        for (const Container& container : core_.document->containers()) {
            rename(container.head, container.kind);
            for (AcDbStub* const member : container.members)
                rename(member, container.kind);
            rename(container.tail, container.kind);
        }
        renameVariables();
    }

    void renameVariables() {
        for (const NameCode& variable : kNamingVariables)
            if (variable.table == table_ && isOld(textVariable(core_, variable.type, variable.code)))
                setVariable(core_, variable.type, variable.code, to_);
    }

private:
    [[nodiscard]] bool isOld(const std::wstring& name) const { return foldedName(name) == from_; }

    [[nodiscard]] bool namesOld(Container::Kind kind, std::string_view type, int code,
                                std::string_view value) const {
        return tableNamed(kind, type, code) == table_ && isOld(core_.document->decode(value));
    }
    [[nodiscard]] bool anyNamesOld(Container::Kind kind, std::string_view type, const TagView& tags) const {
        for (const TagRef& tag : tags)
            if (namesOld(kind, type, tag.code, tag.text))
                return true;
        return false;
    }

    void rename(AcDbStub* stub, Container::Kind kind) {
        if (stub == nullptr)
            return;
        const std::string& type = core_.document->typeName(*stub);
        if (!anyNamesOld(kind, type, core_.tags(*stub)))
            return;
        ObjectAccess::changeAnyhow(core_.object(*stub), [&](TagList& records) {
            for (Tag& tag : records)
                if (namesOld(kind, type, tag.code, tag.value))
                    tag.value = core_.document->encode(to_);
        });
    }

    DatabaseCore& core_;
    std::string_view table_;
    std::wstring from_; ///< Folded.
    const std::wstring& to_;
};

} // namespace

bool isRecordName(std::wstring_view name, bool isBlock) {
    if (isBlock && name.size() > 1 && name.front() == L'*')
        name.remove_prefix(1);
    return !name.empty() && std::ranges::none_of(name, [](wchar_t c) {
        return c < L' ' || c == 0x7F || kExcluded.find(c) != std::wstring_view::npos;
    });
}

void renameInVariables(DatabaseCore& core, std::string_view table, const std::wstring& from,
                       const std::wstring& to) {
    Renaming(core, table, from, to).renameVariables();
}

void renameReferences(DatabaseCore& core, std::string_view table, const std::wstring& from,
                      const std::wstring& to) {
    Renaming(core, table, from, to).renameAll();
}

} // namespace zuhost
