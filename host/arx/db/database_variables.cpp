#include "database_variables.h"
#include "database_core.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "drawing/tag_view.h"
#include "line_weights.h"
#include "record_name.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zuhost {

namespace {

constexpr int kName = 9;

constexpr std::array<std::string_view, 3> kPositive{"$CELTSCALE", "$LTSCALE", "$TEXTSIZE"};
constexpr std::array<std::string_view, 8> kNotNegative{"$AUNITS", "$AUPREC", "$DIMSCALE",    "$INSUNITS",
                                                       "$LUNITS", "$LUPREC", "$MEASUREMENT", "$PDMODE"};

std::wstring interfaceName(std::string_view name) {
    return {name.begin() + 1, name.end()};
}

/// As changeVariable, but adds the variable when it is missing.
template <typename Change>
Acad::ErrorStatus setValue(DatabaseCore& core, std::string_view name, Change change) {
    return changeVariable(core, name, [&](TagList& header, TagRange range) {
        if (range.empty())
            header.add(kName, std::string(name));
        change(header, variableValue(header, name));
    });
}

} // namespace

TagRange variableValue(const TagList& header, std::string_view name) {
    for (std::size_t at = 0; at < header.size(); ++at)
        if (header[at].code == kName && header[at].value == name)
            return {at + 1, std::min(header.find(kName, {at + 1, header.size()}), header.size())};
    return {header.size(), header.size()};
}

bool isInRange(std::string_view name, double value) {
    if (!std::isfinite(value))
        return false;
    if (std::ranges::find(kPositive, name) != kPositive.end())
        return value > 0.0;
    return std::ranges::find(kNotNegative, name) == kNotNegative.end() || value >= 0.0;
}

Acad::ErrorStatus changeVariable(DatabaseCore& core, std::string_view name,
                                 const std::function<void(TagList&, TagRange)>& change) {
    if (!core.document)
        return Acad::eNoDatabase;
    const std::wstring shown = interfaceName(name);
    core.headerVariable(shown.c_str(), false);
    TagList header = core.document->header();
    change(header, variableValue(header, name));
    core.document->setHeader(std::move(header));
    core.headerVariable(shown.c_str(), true);
    return Acad::eOk;
}

double realVariable(const DatabaseCore& core, std::string_view name, int code, double missing) {
    if (!core.document)
        return missing;
    const TagList& header = core.document->header();
    return TagView(header).in(variableValue(header, name)).real(code).value_or(missing);
}

std::int64_t integerVariable(const DatabaseCore& core, std::string_view name, int code,
                             std::int64_t missing) {
    if (!core.document)
        return missing;
    const TagList& header = core.document->header();
    return TagView(header).in(variableValue(header, name)).integer(code).value_or(missing);
}

std::wstring textVariable(const DatabaseCore& core, std::string_view name, int code) {
    if (!core.document)
        return {};
    const TagList& header = core.document->header();
    return core.document->decode(TagView(header).in(variableValue(header, name)).text(code).value_or(""));
}

AcGePoint3d pointVariable(const DatabaseCore& core, std::string_view name) {
    return {realVariable(core, name, 10, 0.0), realVariable(core, name, 20, 0.0),
            realVariable(core, name, 30, 0.0)};
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, double value) {
    if (!isInRange(name, value))
        return Acad::eInvalidInput;
    return setValue(core, name, [&](TagList& header, TagRange range) { header.setReal(code, value, range); });
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, std::int64_t value) {
    if (!isInRange(name, static_cast<double>(value)))
        return Acad::eInvalidInput;
    return setValue(core, name,
                    [&](TagList& header, TagRange range) { header.setInteger(code, value, range); });
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, const std::wstring& text) {
    return setValue(core, name, [&](TagList& header, TagRange range) {
        header.setText(code, core.document->encode(text), range);
    });
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, const AcGePoint2d& point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y))
        return Acad::eInvalidInput;
    return setValue(core, name, [&](TagList& header, TagRange range) {
        header.setReal(10, point.x, range);
        header.setReal(20, point.y, variableValue(header, name));
    });
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, const AcGePoint3d& point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z))
        return Acad::eInvalidInput;
    return setValue(core, name, [&](TagList& header, TagRange range) {
        header.setReal(10, point.x, range);
        header.setReal(20, point.y, variableValue(header, name));
        header.setReal(30, point.z, variableValue(header, name));
    });
}

} // namespace zuhost

namespace {

using zuhost::integerVariable;
using zuhost::realVariable;
using zuhost::setVariable;

AcDbObjectId recordNamed(zuhost::DatabaseCore& core, std::string_view table, const std::wstring& name) {
    AcDbStub* const head = core.tableHead(table);
    return head != nullptr ? AcDbObjectId(core.findRecord(*head, name, false)) : AcDbObjectId();
}

template <typename Record>
Acad::ErrorStatus setRecord(const AcDbDatabase& database, std::string_view name, int code, AcDbObjectId id) {
    if (!id.isNull() && id.database() != &database)
        return Acad::eWrongDatabase;
    std::wstring record;
    const Acad::ErrorStatus status = zuhost::readRecordName<Record>(id, record);
    return status == Acad::eOk ? setVariable(zuhost::coreOf(database), name, code, record) : status;
}

constexpr std::int64_t kByLayer = 256;

AcGePoint2d cornerVariable(const zuhost::DatabaseCore& core, std::string_view name) {
    return {realVariable(core, name, 10, 0.0), realVariable(core, name, 20, 0.0)};
}

Acad::ErrorStatus setInteger(zuhost::DatabaseCore& core, std::string_view name, std::int64_t value) {
    return setVariable(core, name, 70, value);
}

} // namespace

AcDbObjectId AcDbDatabase::clayer() const {
    const AcDbObjectId current = recordNamed(*core_, "LAYER", textVariable(*core_, "$CLAYER", 8));
    return current.isNull() ? recordNamed(*core_, "LAYER", L"0") : current;
}
Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId layer) {
    return setRecord<AcDbLayerTableRecord>(*this, "$CLAYER", 8, layer);
}
AcDbObjectId AcDbDatabase::celtype() const {
    return recordNamed(*core_, "LTYPE", textVariable(*core_, "$CELTYPE", 6));
}
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId linetype) {
    return setRecord<AcDbLinetypeTableRecord>(*this, "$CELTYPE", 6, linetype);
}
AcDbObjectId AcDbDatabase::textstyle() const {
    const AcDbObjectId current = recordNamed(*core_, "STYLE", textVariable(*core_, "$TEXTSTYLE", 7));
    return current.isNull() ? recordNamed(*core_, "STYLE", L"Standard") : current;
}
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId style) {
    return setRecord<AcDbTextStyleTableRecord>(*this, "$TEXTSTYLE", 7, style);
}
AcCmColor AcDbDatabase::cecolor() const {
    AcCmColor color;
    color.setColorIndex(static_cast<Adesk::UInt16>(integerVariable(*core_, "$CECOLOR", 62, kByLayer)));
    return color;
}
Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor& color) {
    if (color.isByColor())
        return Acad::eNotApplicable;
    return setVariable(*core_, "$CECOLOR", 62, std::int64_t{color.colorIndex()});
}
AcDb::LineWeight AcDbDatabase::celweight() const {
    return static_cast<AcDb::LineWeight>(integerVariable(*core_, "$CELWEIGHT", 370, AcDb::kLnWtByLayer));
}
Acad::ErrorStatus AcDbDatabase::setCelweight(AcDb::LineWeight weight) {
    if (!zuhost::isLineWeight(weight))
        return Acad::eInvalidInput;
    return setVariable(*core_, "$CELWEIGHT", 370, std::int64_t{weight});
}

double AcDbDatabase::ltscale() const {
    return realVariable(*core_, "$LTSCALE", 40, 1.0);
}
Acad::ErrorStatus AcDbDatabase::setLtscale(double scale) {
    return setVariable(*core_, "$LTSCALE", 40, scale);
}
double AcDbDatabase::celtscale() const {
    return realVariable(*core_, "$CELTSCALE", 40, 1.0);
}
Acad::ErrorStatus AcDbDatabase::setCeltscale(double scale) {
    return setVariable(*core_, "$CELTSCALE", 40, scale);
}
double AcDbDatabase::dimscale() const {
    return realVariable(*core_, "$DIMSCALE", 40, 1.0);
}
Acad::ErrorStatus AcDbDatabase::setDimscale(double scale) {
    return setVariable(*core_, "$DIMSCALE", 40, scale);
}
double AcDbDatabase::textsize() const {
    return realVariable(*core_, "$TEXTSIZE", 40, 2.5);
}
Acad::ErrorStatus AcDbDatabase::setTextsize(double size) {
    return setVariable(*core_, "$TEXTSIZE", 40, size);
}

AcDb::UnitsValue AcDbDatabase::insunits() const {
    return static_cast<AcDb::UnitsValue>(integerVariable(*core_, "$INSUNITS", 70, 0));
}
Acad::ErrorStatus AcDbDatabase::setInsunits(AcDb::UnitsValue units) {
    return setInteger(*core_, "$INSUNITS", units);
}
AcDb::MeasurementValue AcDbDatabase::measurement() const {
    return static_cast<AcDb::MeasurementValue>(integerVariable(*core_, "$MEASUREMENT", 70, 0));
}
Acad::ErrorStatus AcDbDatabase::setMeasurement(AcDb::MeasurementValue measurement) {
    return setInteger(*core_, "$MEASUREMENT", measurement);
}
Adesk::Int16 AcDbDatabase::lunits() const {
    return static_cast<Adesk::Int16>(integerVariable(*core_, "$LUNITS", 70, 2));
}
Acad::ErrorStatus AcDbDatabase::setLunits(Adesk::Int16 units) {
    return setInteger(*core_, "$LUNITS", units);
}
Adesk::Int16 AcDbDatabase::luprec() const {
    return static_cast<Adesk::Int16>(integerVariable(*core_, "$LUPREC", 70, 4));
}
Acad::ErrorStatus AcDbDatabase::setLuprec(Adesk::Int16 digits) {
    return setInteger(*core_, "$LUPREC", digits);
}
Adesk::Int16 AcDbDatabase::aunits() const {
    return static_cast<Adesk::Int16>(integerVariable(*core_, "$AUNITS", 70, 0));
}
Acad::ErrorStatus AcDbDatabase::setAunits(Adesk::Int16 units) {
    return setInteger(*core_, "$AUNITS", units);
}
Adesk::Int16 AcDbDatabase::auprec() const {
    return static_cast<Adesk::Int16>(integerVariable(*core_, "$AUPREC", 70, 0));
}
Acad::ErrorStatus AcDbDatabase::setAuprec(Adesk::Int16 digits) {
    return setInteger(*core_, "$AUPREC", digits);
}
Adesk::Int16 AcDbDatabase::pdmode() const {
    return static_cast<Adesk::Int16>(integerVariable(*core_, "$PDMODE", 70, 0));
}
Acad::ErrorStatus AcDbDatabase::setPdmode(Adesk::Int16 mode) {
    return setInteger(*core_, "$PDMODE", mode);
}
double AcDbDatabase::pdsize() const {
    return realVariable(*core_, "$PDSIZE", 40, 0.0);
}
Acad::ErrorStatus AcDbDatabase::setPdsize(double size) {
    return setVariable(*core_, "$PDSIZE", 40, size);
}
bool AcDbDatabase::tilemode() const {
    return integerVariable(*core_, "$TILEMODE", 70, 1) != 0;
}

double AcDbDatabase::elevation() const {
    return realVariable(*core_, "$ELEVATION", 40, 0.0);
}
Acad::ErrorStatus AcDbDatabase::setElevation(double elevation) {
    return setVariable(*core_, "$ELEVATION", 40, elevation);
}
double AcDbDatabase::thickness() const {
    return realVariable(*core_, "$THICKNESS", 40, 0.0);
}
Acad::ErrorStatus AcDbDatabase::setThickness(double thickness) {
    return setVariable(*core_, "$THICKNESS", 40, thickness);
}
AcGePoint3d AcDbDatabase::ucsorg() const {
    return pointVariable(*core_, "$UCSORG");
}
AcGeVector3d AcDbDatabase::ucsxdir() const {
    const AcGeVector3d axis = pointVariable(*core_, "$UCSXDIR").asVector();
    return axis.isZeroLength() ? AcGeVector3d::kXAxis : axis;
}
AcGeVector3d AcDbDatabase::ucsydir() const {
    const AcGeVector3d axis = pointVariable(*core_, "$UCSYDIR").asVector();
    return axis.isZeroLength() ? AcGeVector3d::kYAxis : axis;
}

AcGePoint3d AcDbDatabase::insbase() const {
    return pointVariable(*core_, "$INSBASE");
}
Acad::ErrorStatus AcDbDatabase::setInsbase(const AcGePoint3d& base) {
    return setVariable(*core_, "$INSBASE", base);
}
AcGePoint3d AcDbDatabase::extmin() const {
    return pointVariable(*core_, "$EXTMIN");
}
AcGePoint3d AcDbDatabase::extmax() const {
    return pointVariable(*core_, "$EXTMAX");
}
AcGePoint2d AcDbDatabase::limmin() const {
    return cornerVariable(*core_, "$LIMMIN");
}
Acad::ErrorStatus AcDbDatabase::setLimmin(const AcGePoint2d& corner) {
    return setVariable(*core_, "$LIMMIN", corner);
}
AcGePoint2d AcDbDatabase::limmax() const {
    return cornerVariable(*core_, "$LIMMAX");
}
Acad::ErrorStatus AcDbDatabase::setLimmax(const AcGePoint2d& corner) {
    return setVariable(*core_, "$LIMMAX", corner);
}
