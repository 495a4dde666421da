#include "zuhost/header_variables.h"

#include "acutmem.h"
#include "chain_records.h"
#include "database_core.h"
#include "database_variables.h"
#include "dxf_records/number_text.h"
#include "zuhost/result_kind.h"

#include <zuhost/text_codec.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace zuhost {

namespace {

constexpr int kName = 9;
constexpr int kPoint = 10;

/// A variable with its usual value, for headers that lack it.
struct Usual {
    std::string_view name;
    int code;
    std::string_view value;
};

constexpr std::array kUsual{
    Usual{"$ANGBASE", 50, "0.0"},   Usual{"$ANGDIR", 70, "0"},          Usual{"$ATTMODE", 70, "1"},
    Usual{"$AUNITS", 70, "0"},      Usual{"$AUPREC", 70, "0"},          Usual{"$CECOLOR", 62, "256"},
    Usual{"$CELTSCALE", 40, "1.0"}, Usual{"$CELTYPE", 6, "ByLayer"},    Usual{"$CELWEIGHT", 370, "-1"},
    Usual{"$CLAYER", 8, "0"},       Usual{"$DIMSCALE", 40, "1.0"},      Usual{"$DIMSTYLE", 2, "Standard"},
    Usual{"$DIMZIN", 70, "0"},      Usual{"$ELEVATION", 40, "0.0"},     Usual{"$FILLMODE", 70, "1"},
    Usual{"$INSUNITS", 70, "0"},    Usual{"$LTSCALE", 40, "1.0"},       Usual{"$LUNITS", 70, "2"},
    Usual{"$LUPREC", 70, "4"},      Usual{"$MEASUREMENT", 70, "0"},     Usual{"$MIRRTEXT", 70, "0"},
    Usual{"$ORTHOMODE", 70, "0"},   Usual{"$PDMODE", 70, "0"},          Usual{"$PDSIZE", 40, "0.0"},
    Usual{"$TEXTSIZE", 40, "2.5"},  Usual{"$TEXTSTYLE", 7, "Standard"}, Usual{"$THICKNESS", 40, "0.0"},
    Usual{"$TILEMODE", 70, "1"},    Usual{"$USERI1", 70, "0"},          Usual{"$USERI2", 70, "0"},
    Usual{"$USERI3", 70, "0"},      Usual{"$USERI4", 70, "0"},          Usual{"$USERI5", 70, "0"},
    Usual{"$USERR1", 40, "0.0"},    Usual{"$USERR2", 40, "0.0"},        Usual{"$USERR3", 40, "0.0"},
    Usual{"$USERR4", 40, "0.0"},    Usual{"$USERR5", 40, "0.0"},
};

/// Determined by the drawing's content.
constexpr std::array<std::string_view, 9> kReadOnly{"$ACADVER",  "$DWGCODEPAGE", "$EXTMIN",
                                                    "$EXTMAX",   "$HANDSEED",    "$TDCREATE",
                                                    "$TDUPDATE", "$TDINDWG",     "$HANDLING"};

std::string headerName(std::wstring_view name) {
    return toUtf8(L"$" + foldedName(name));
}

std::optional<Tag> usualValue(std::string_view name) {
    const auto found =
        std::find_if(kUsual.begin(), kUsual.end(), [name](const Usual& usual) { return usual.name == name; });
    return found == kUsual.end() ? std::nullopt : std::optional(Tag{found->code, std::string(found->value)});
}

void readPoint(const TagList& header, TagRange values, resbuf& value) {
    value.restype = values.last - values.first > 2 ? RT3DPOINT : RTPOINT;
    for (int axis = 0; axis < 3; ++axis)
        value.resval.rpoint[axis] = TagView(header).in(values).real(kPoint * (axis + 1)).value_or(0.0);
}

void readSingle(const Tag& tag, const Document& document, resbuf& value) {
    switch (resultKind(tag.code)) {
    case ResultKind::real:
        value.restype = RTREAL;
        value.resval.rreal = parseReal(tag.value).value_or(0.0);
        break;
    case ResultKind::int16:
        value.restype = RTSHORT;
        value.resval.rint = static_cast<short>(parseInteger(tag.value).value_or(0));
        break;
    case ResultKind::int32:
        value.restype = RTLONG;
        value.resval.rlong = static_cast<std::int32_t>(parseInteger(tag.value).value_or(0));
        break;
    default:
        value.restype = RTSTR;
        acutNewString(document.decode(tag.value).c_str(), value.resval.rstring);
    }
}

std::optional<std::int64_t> integerOf(const resbuf& value) {
    if (value.restype == RTSHORT)
        return value.resval.rint;
    return value.restype == RTLONG ? std::optional<std::int64_t>(value.resval.rlong) : std::nullopt;
}

std::optional<double> realOf(const resbuf& value) {
    if (resultKind(value.restype) == ResultKind::real)
        return value.resval.rreal;
    const auto integer = integerOf(value);
    return integer ? std::optional(static_cast<double>(*integer)) : std::nullopt;
}

/// Returns the value as text for a record with the code; nullopt when the record can't hold it.
std::optional<std::string> recordValue(int code, const resbuf& value, const Document& document) {
    const ResultKind kind = resultKind(code);
    if (kind == ResultKind::real) {
        const auto real = realOf(value);
        return real && std::isfinite(*real) ? std::optional(formatReal(*real)) : std::nullopt;
    }
    if (kind == ResultKind::int16 || kind == ResultKind::int32) {
        const auto integer = integerOf(value);
        const bool fits =
            integer && (kind == ResultKind::int32 || (*integer >= std::numeric_limits<std::int16_t>::min() &&
                                                      *integer <= std::numeric_limits<std::int16_t>::max()));
        return fits ? std::optional(std::to_string(*integer)) : std::nullopt;
    }
    if (kind != ResultKind::text || value.restype != RTSTR || value.resval.rstring == nullptr)
        return std::nullopt;
    return document.encode(value.resval.rstring);
}

void setPointValues(TagList& header, TagRange values, const resbuf& value) {
    for (std::size_t i = values.first; i < values.last; ++i)
        if (header[i].code == kPoint || header[i].code == 2 * kPoint || header[i].code == 3 * kPoint)
            header.setReal(header[i].code, value.resval.rpoint[header[i].code / kPoint - 1], values);
}

} // namespace

bool headerVariable(const AcDbDatabase& database, std::wstring_view name, resbuf& value) {
    const auto& document = coreOf(database).document;
    if (!document)
        return false;
    const TagList& header = document->header();
    const std::string variable = headerName(name);
    const TagRange values = variableValue(header, variable);
    const std::optional<Tag> usual = values.empty() ? usualValue(variable) : std::nullopt;
    if (values.empty() && !usual)
        return false;
    if (usual)
        readSingle(*usual, *document, value);
    else if (header[values.first].code == kPoint)
        readPoint(header, values, value);
    else
        readSingle(header[values.first], *document, value);
    return true;
}

bool setHeaderVariable(AcDbDatabase& database, std::wstring_view name, const resbuf& value) {
    DatabaseCore& core = coreOf(database);
    const std::string variable = headerName(name);
    const auto number = realOf(value);
    if (!core.document || std::find(kReadOnly.begin(), kReadOnly.end(), variable) != kReadOnly.end() ||
        (number && !isInRange(variable, *number)))
        return false;
    const TagList& header = core.document->header();
    const TagRange values = variableValue(header, variable);
    if (!values.empty() && header[values.first].code == kPoint)
        return resultKind(value.restype) == ResultKind::point && isStorable(value) &&
               changeVariable(core, variable, [&](TagList& changed, TagRange range) {
                   setPointValues(changed, range, value);
               }) == Acad::eOk;
    const std::optional<Tag> tag =
        values.empty() ? usualValue(variable) : std::optional(header[values.first]);
    const auto text = tag ? recordValue(tag->code, value, *core.document) : std::nullopt;
    return text && changeVariable(core, variable, [&](TagList& changed, TagRange range) {
                       if (range.empty())
                           changed.insert(changed.size(), {Tag{kName, variable}, Tag{tag->code, *text}});
                       else
                           changed[range.first].value = *text;
                   }) == Acad::eOk;
}

} // namespace zuhost
