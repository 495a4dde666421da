#include "database_variables.h"
#include "database_core.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "drawing/tag_view.h"
#include "record_name.h"

#include <cmath>

namespace zuhost {

namespace {

constexpr int kName = 9;

/// Returns the records of a variable's value; an empty range at the end of the header when it is missing.
TagRange valueOf(const TagList& header, std::string_view name) {
    for (std::size_t i = 0; i < header.size(); ++i) {
        if (header[i].code != kName || header[i].value != name)
            continue;
        std::size_t last = i + 1;
        while (last < header.size() && header[last].code != kName)
            ++last;
        return {i + 1, last};
    }
    return {header.size(), header.size()};
}

std::wstring interfaceName(std::string_view name) {
    return {name.begin() + 1, name.end()};
}

/// Calls `change` with the header and the range of the variable's value, which is added when it is missing.
template <typename Change>
Acad::ErrorStatus setValue(DatabaseCore& core, std::string_view name, Change change) {
    if (!core.document)
        return Acad::eNoDatabase;
    const std::wstring shown = interfaceName(name);
    core.headerVariable(shown.c_str(), false);
    TagList header = core.document->header();
    if (valueOf(header, name).empty())
        header.add(kName, std::string(name));
    change(header, valueOf(header, name));
    core.document->setHeader(std::move(header));
    core.headerVariable(shown.c_str(), true);
    return Acad::eOk;
}

} // namespace

double realVariable(const DatabaseCore& core, std::string_view name, int code, double missing) {
    if (!core.document)
        return missing;
    const TagList& header = core.document->header();
    return TagView(header).in(valueOf(header, name)).real(code).value_or(missing);
}

std::int64_t integerVariable(const DatabaseCore& core, std::string_view name, int code,
                             std::int64_t missing) {
    if (!core.document)
        return missing;
    const TagList& header = core.document->header();
    return TagView(header).in(valueOf(header, name)).integer(code).value_or(missing);
}

std::wstring textVariable(const DatabaseCore& core, std::string_view name, int code) {
    if (!core.document)
        return {};
    const TagList& header = core.document->header();
    return core.document->decode(TagView(header).in(valueOf(header, name)).text(code).value_or(""));
}

AcGePoint3d pointVariable(const DatabaseCore& core, std::string_view name) {
    return {realVariable(core, name, 10, 0.0), realVariable(core, name, 20, 0.0),
            realVariable(core, name, 30, 0.0)};
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, double value) {
    if (!std::isfinite(value))
        return Acad::eInvalidInput;
    return setValue(core, name, [&](TagList& header, TagRange range) { header.setReal(code, value, range); });
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, std::int64_t value) {
    return setValue(core, name,
                    [&](TagList& header, TagRange range) { header.setInteger(code, value, range); });
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, int code, const std::wstring& text) {
    return setValue(core, name, [&](TagList& header, TagRange range) {
        header.setText(code, core.document->encode(text), range);
    });
}

Acad::ErrorStatus setVariable(DatabaseCore& core, std::string_view name, const AcGePoint3d& point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y) || !std::isfinite(point.z))
        return Acad::eInvalidInput;
    return setValue(core, name, [&](TagList& header, TagRange range) {
        header.setReal(10, point.x, range);
        header.setReal(20, point.y, valueOf(header, name));
        header.setReal(30, point.z, valueOf(header, name));
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

Acad::ErrorStatus setPositive(zuhost::DatabaseCore& core, std::string_view name, double value) {
    return value > 0.0 ? setVariable(core, name, 40, value) : Acad::eInvalidInput;
}

Acad::ErrorStatus setInteger(zuhost::DatabaseCore& core, std::string_view name, std::int64_t value) {
    return value >= 0 ? setVariable(core, name, 70, value) : Acad::eInvalidInput;
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
AcDb::LineWeight AcDbDatabase::celweight() const {
    return static_cast<AcDb::LineWeight>(integerVariable(*core_, "$CELWEIGHT", 370, AcDb::kLnWtByLayer));
}
Acad::ErrorStatus AcDbDatabase::setCelweight(AcDb::LineWeight weight) {
    return setVariable(*core_, "$CELWEIGHT", 370, std::int64_t{weight});
}

double AcDbDatabase::ltscale() const {
    return realVariable(*core_, "$LTSCALE", 40, 1.0);
}
Acad::ErrorStatus AcDbDatabase::setLtscale(double scale) {
    return setPositive(*core_, "$LTSCALE", scale);
}
double AcDbDatabase::celtscale() const {
    return realVariable(*core_, "$CELTSCALE", 40, 1.0);
}
Acad::ErrorStatus AcDbDatabase::setCeltscale(double scale) {
    return setPositive(*core_, "$CELTSCALE", scale);
}
double AcDbDatabase::dimscale() const {
    return realVariable(*core_, "$DIMSCALE", 40, 1.0);
}
Acad::ErrorStatus AcDbDatabase::setDimscale(double scale) {
    return scale >= 0.0 ? setVariable(*core_, "$DIMSCALE", 40, scale) : Acad::eInvalidInput;
}
double AcDbDatabase::textsize() const {
    return realVariable(*core_, "$TEXTSIZE", 40, 2.5);
}
Acad::ErrorStatus AcDbDatabase::setTextsize(double size) {
    return setPositive(*core_, "$TEXTSIZE", size);
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
