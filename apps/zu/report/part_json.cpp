#include "report/part_json.h"

#include <zuhost/text_codec.h>
#include <zuhost/texts.h>

#include <cmath>

namespace zu::app {

namespace {

Json textOf(const CString& text) {
    return zuhost::toUtf8(zuhost::viewOf(text));
}

/// JSON can express finite numbers only.
Json numberOf(double value) {
    return std::isfinite(value) ? Json(value) : Json();
}

Json pointOf(double x, double y) {
    return Json::array({numberOf(x), numberOf(y)});
}

/// The fields of one entity; those whose record is missing are null.
class EntityFields {
public:
    explicit EntityFields(const CEnt& entity) : entity_(entity) {
        json_["type"] = textOf(entity.GetTypeName());
        json_["layer"] = textOf(entity.GetLayer());
        add("handle", 5, textOf(entity.GetHandle()));
        add("color", 62, entity.m_color);
        add("paper", 67, entity.m_paper ? 1 : 0);
        add("lineweight", 370, entity.m_lineWeight);
    }

    void add(const char* name, int code, Json value) {
        json_[name] = entity_.Has(code) ? std::move(value) : Json();
    }
    void addNumber(const char* name, int code, double value) { add(name, code, numberOf(value)); }
    void addText(const char* name, int code, const CString& text) { add(name, code, textOf(text)); }
    void addPoint(const char* name, int code, double x, double y) { add(name, code, pointOf(x, y)); }
    void put(const char* name, Json value) { json_[name] = std::move(value); }
    Json take() { return std::move(json_); }

private:
    const CEnt& entity_;
    Json json_;
};

void addFields(EntityFields& fields, const CLine& line) {
    fields.addPoint("p1", 10, line.m_x1, line.m_y1);
    fields.addPoint("p2", 11, line.m_x2, line.m_y2);
}

void addFields(EntityFields& fields, const CCircle& circle) {
    fields.addPoint("centre", 10, circle.m_x, circle.m_y);
    fields.addNumber("radius", 40, circle.m_radius);
}

void addFields(EntityFields& fields, const CArc& arc) {
    fields.addPoint("centre", 10, arc.m_x, arc.m_y);
    fields.addNumber("radius", 40, arc.m_radius);
    fields.addNumber("start", 50, arc.m_start);
    fields.addNumber("end", 51, arc.m_end);
}

void addFields(EntityFields& fields, const CEllipse& ellipse) {
    fields.addPoint("centre", 10, ellipse.m_x, ellipse.m_y);
    fields.addPoint("major", 11, ellipse.m_majorX, ellipse.m_majorY);
    fields.addNumber("ratio", 40, ellipse.m_ratio);
    fields.addNumber("start", 41, ellipse.m_start);
    fields.addNumber("end", 42, ellipse.m_end);
}

void addFields(EntityFields& fields, const CLwPline& polyline) {
    Json points = Json::array();
    Json bulges = Json::array();
    for (const CDblPoint& point : polyline.GetPoints()) {
        points.push_back(pointOf(point.x, point.y));
        bulges.push_back(numberOf(point.bulge));
    }
    fields.put("points", points);
    fields.put("bulges", bulges);
    fields.add("flags", 70, polyline.m_flags);
}

void addFields(EntityFields& fields, const CPline& polyline) {
    Json vertices = Json::array();
    for (POSITION at = polyline.m_vertices.GetHeadPosition(); at != nullptr;) {
        const auto& vertex = static_cast<const CVertex&>(*polyline.m_vertices.GetNext(at));
        vertices.push_back({{"p", pointOf(vertex.m_x, vertex.m_y)},
                            {"bulge", vertex.Has(42) ? numberOf(vertex.m_bulge) : Json()},
                            {"flags", vertex.Has(70) ? Json(vertex.m_flags) : Json()}});
    }
    fields.add("flags", 70, polyline.m_flags);
    fields.put("vertices", vertices);
}

void addFields(EntityFields& fields, const CInsert& insert) {
    fields.addText("block", 2, insert.GetBlock());
    fields.addPoint("p", 10, insert.m_x, insert.m_y);
    fields.addNumber("xscale", 41, insert.m_xScale);
    fields.addNumber("yscale", 42, insert.m_yScale);
    fields.addNumber("rotation", 50, insert.m_rotation);
    fields.add("columns", 70, insert.m_columns);
    fields.add("rows", 71, insert.m_rows);
}

void addFields(EntityFields& fields, const CText& text) {
    fields.addText("text", 1, text.GetText());
    fields.addPoint("p", 10, text.m_x, text.m_y);
    fields.addPoint("p2", 11, text.m_x2, text.m_y2);
    fields.addNumber("height", 40, text.m_height);
    fields.addNumber("width", 41, text.m_width);
    fields.addNumber("rotation", 50, text.m_rotation);
    fields.addNumber("oblique", 51, text.m_oblique);
    fields.addText("style", 7, text.GetStyle());
    fields.add("halign", 72, text.m_halign);
    fields.add("valign", 73, text.m_valign);
}

void addFields(EntityFields& fields, const CMtext& text) {
    Json parts = Json::array();
    for (const CString& part : text.GetParts())
        parts.push_back(textOf(part));
    fields.put("parts", parts);
    fields.addText("text", 1, text.GetText());
    fields.addPoint("p", 10, text.m_x, text.m_y);
    fields.addNumber("height", 40, text.m_height);
    fields.addNumber("width", 41, text.m_width);
    fields.add("attach", 71, text.m_attach);
    fields.addNumber("rotation", 50, text.m_rotation);
    fields.addText("style", 7, text.GetStyle());
}

void addFields(EntityFields& fields, const CDim& dimension) {
    fields.addText("block", 2, dimension.GetBlock());
    fields.addText("style", 3, dimension.GetStyle());
    fields.addPoint("p", 10, dimension.m_x, dimension.m_y);
    fields.addPoint("p2", 11, dimension.m_x2, dimension.m_y2);
    fields.add("flags", 70, dimension.m_flags);
    fields.addText("text", 1, dimension.GetText());
    fields.addNumber("angle", 50, dimension.m_angle);
}

void addFields(EntityFields& fields, const CAcPoint& point) {
    fields.addPoint("p", 10, point.m_x, point.m_y);
}

template <typename Entity>
bool addFieldsAs(EntityFields& fields, const CEnt& entity) {
    const auto* const typed = dynamic_cast<const Entity*>(&entity);
    if (typed != nullptr)
        addFields(fields, *typed);
    return typed != nullptr;
}

template <typename... Entities>
void addFieldsOfType(EntityFields& fields, const CEnt& entity) {
    (addFieldsAs<Entities>(fields, entity) || ...);
}

Json entityToJson(const CEnt& entity) {
    EntityFields fields(entity);
    addFieldsOfType<CLine, CCircle, CArc, CEllipse, CLwPline, CPline, CInsert, CText, CMtext, CDim, CAcPoint>(
        fields, entity);
    return fields.take();
}

template <typename Object, typename Convert>
Json listToJson(const CObList& list, Convert convert) {
    Json array = Json::array();
    for (POSITION at = list.GetHeadPosition(); at != nullptr;)
        array.push_back(convert(static_cast<const Object&>(*list.GetNext(at))));
    return array;
}

Json layerToJson(const CLayer& layer) {
    return {{"name", textOf(layer.m_name)},
            {"linetype", textOf(layer.m_linetype)},
            {"color", layer.m_color},
            {"flags", layer.m_flags}};
}

Json blockToJson(const CBlock& block) {
    return {{"name", textOf(block.m_name)},
            {"base", {numberOf(block.m_x), numberOf(block.m_y), numberOf(block.m_z)}},
            {"flags", block.m_flags},
            {"entities", listToJson<CEnt>(block.m_entities, entityToJson)}};
}

} // namespace

Json partToJson(const CAcadDxf& part) {
    double minX = 0;
    double minY = 0;
    double maxX = 0;
    double maxY = 0;
    part.GetSave(minX, minY, maxX, maxY);
    return {{"ascii", part.GetAsciiFlag()},
            {"version", part.GetVersion()},
            {"extents", {numberOf(minX), numberOf(minY), numberOf(maxX), numberOf(maxY)}},
            {"layers", listToJson<CLayer>(part.GetLayers(), layerToJson)},
            {"blocks", listToJson<CBlock>(part.GetBlocks(), blockToJson)},
            {"entities", listToJson<CEnt>(part.GetEntities(), entityToJson)}};
}

} // namespace zu::app
