#include "report/differences.h"

#include "manners/translation.h"
#include "model/drawing_file.h"
#include "model/element.h"
#include "report/csv.h"
#include "text.h"

#include <zucomn/model/attributes.h>

#include <algorithm>
#include <iostream>
#include <utility>

namespace zu::app {

namespace {

using zucomn::DrawingDifferences;
using zucomn::ElementChange;
using zucomn::ValueChange;

// Columns of an attribute row.
constexpr std::size_t kIdColumn = 3;
constexpr std::size_t kLabelColumn = 6;

Json pointJson(const AcGePoint3d& point) {
    return {point.x, point.y, point.z};
}

/// The handle, and that in the first drawing where it differs.
Json handleJson(const ElementChange& change) {
    Json json{{"handle", handleText(change.after)}};
    if (change.before.handle() != change.after.handle())
        json["was"] = handleText(change.before);
    return json;
}

Json movedJson(const DrawingDifferences& differences) {
    Json array = Json::array();
    for (const ElementChange& change : differences.changed) {
        if (!change.isMoved)
            continue;
        Json& json = array.emplace_back(handleJson(change));
        json["from"] = pointJson(change.from);
        json["to"] = pointJson(change.to);
    }
    return array;
}

Json changedJson(const DrawingDifferences& differences) {
    const auto valueJson = [](const std::optional<std::wstring>& value) {
        return value ? Json(narrow(*value)) : Json();
    };
    Json array = Json::array();
    for (const ElementChange& change : differences.changed) {
        if (change.values.empty())
            continue;
        Json values = Json::array();
        for (const ValueChange& value : change.values)
            values.push_back({{"key", narrow(value.key)},
                              {"old", valueJson(value.before)},
                              {"new", valueJson(value.after)}});
        array.emplace_back(handleJson(change))["attributes"] = std::move(values);
    }
    return array;
}

Json groupsJson(const DrawingDifferences& differences) {
    Json array = Json::array();
    for (const zucomn::GroupChange& group : differences.groups) {
        Json& json = array.emplace_back(Json{{"name", narrow(group.name)}});
        if (group.name != group.nameBefore)
            json["was"] = narrow(group.nameBefore);
        json["added"] = handleTexts(group.added);
        json["removed"] = handleTexts(group.removed);
    }
    return array;
}

Json jointsJson(const std::vector<zucomn::Joint>& joints) {
    Json array = Json::array();
    for (const auto& [first, second] : joints)
        array.push_back({handleText(first), handleText(second)});
    return array;
}

/// Lines below one heading; nothing is printed without lines. Control characters could act on the terminal.
class Section {
public:
    explicit Section(std::string heading) : heading_(std::move(heading)) {}

    void add(const std::string& line) {
        if (!heading_.empty())
            std::cout << translated(std::exchange(heading_, {})) << '\n';
        std::cout << "  " << withoutControls(line) << '\n';
    }
    void addElements(const std::vector<AcDbObjectId>& elements) {
        for (const AcDbObjectId id : elements) {
            const Element element = readElement(id);
            add(translated(describe(id) + " at " + pointText(element.origin) + " on layer " + element.layer));
        }
    }
    void addHandles(const std::vector<AcDbObjectId>& objects) {
        for (const AcDbObjectId id : objects)
            add(handleText(id));
    }

    static std::string pointText(const AcGePoint3d& point) {
        return shortNumber(point.x) + ", " + shortNumber(point.y) + ", " + shortNumber(point.z);
    }
    static std::string describe(AcDbObjectId id) {
        const Element element = readElement(id);
        return handleText(id) + ' ' + element.block +
               (element.isRouteElement() ? " (" + translated(elementCodeName(element.code)) + ')' : "");
    }

private:
    std::string heading_;
};

/// A name, and what it was before if that differs.
std::string renamed(const std::string& name, const std::string& before) {
    return before.empty() ? name : translated(name + ", was " + before);
}

std::string describe(const ElementChange& change) {
    const bool isRenumbered = change.before.handle() != change.after.handle();
    return renamed(Section::describe(change.after), isRenumbered ? handleText(change.before) : "");
}

/// The label that the element's record has for an attribute.
std::string labelOf(const ElementChange& change, const std::wstring& key) {
    for (const AcDbObjectId id : {change.after, change.before})
        for (const zucomn::AttributeRow& row : zucomn::readAttributes(id))
            if (row[kIdColumn] == key)
                return ' ' + narrow(row[kLabelColumn]);
    return {};
}

std::string valueText(const std::optional<std::wstring>& value) {
    return value ? '"' + narrow(*value) + '"' : translated("none");
}

void printElements(const DrawingDifferences& differences) {
    Section("removed elements:").addElements(differences.removed);
    Section("added elements:").addElements(differences.added);
    Section moved("moved elements:");
    for (const ElementChange& change : differences.changed)
        if (change.isMoved)
            moved.add(translated(describe(change) + " from " + Section::pointText(change.from) + " to " +
                                 Section::pointText(change.to)));
    Section changed("changed elements:");
    for (const ElementChange& change : differences.changed)
        for (const ValueChange& value : change.values)
            changed.add(describe(change) + ": " + narrow(value.key) + labelOf(change, value.key) + ' ' +
                        valueText(value.before) + " -> " + valueText(value.after));
}

void printGroups(const DrawingDifferences& differences) {
    const auto list = [](const char* what, const std::vector<AcDbObjectId>& members) {
        std::string text;
        for (const std::string& handle : handleTexts(members))
            text += ' ' + handle;
        return text.empty() ? text : ", " + translated(what) + text;
    };
    Section groups("changed groups:");
    for (const zucomn::GroupChange& group : differences.groups)
        groups.add(
            renamed(narrow(group.name), group.name == group.nameBefore ? "" : narrow(group.nameBefore)) +
            list("added", group.added) + list("removed", group.removed));
}

void printJoints(const DrawingDifferences& differences) {
    const auto print = [](const char* heading, const std::vector<zucomn::Joint>& joints) {
        Section section(heading);
        for (const auto& [first, second] : joints)
            section.add(Section::describe(first) + " - " + Section::describe(second));
    };
    print("broken joints:", differences.broken);
    print("made joints:", differences.made);
}

/// A row of the table of differences; what is not given stays empty.
Json rowOf(const char* difference, const Json& change) {
    Json row = change.is_object() ? change : Json{{"handle", change}};
    row["difference"] = difference;
    return row;
}

/// One row for each value, group member or joint that differs.
Json differenceRows(const Json& differences) {
    Json rows = Json::array();
    const auto add = [&rows](const char* difference, const Json& changes) {
        for (const Json& change : changes)
            rows.push_back(rowOf(difference, change));
    };
    add("removed", differences["removed"]);
    add("added", differences["added"]);
    for (Json change : differences["moved"]) {
        change["old"] = change["from"];
        change["new"] = change["to"];
        rows.push_back(rowOf("moved", change));
    }
    for (const Json& change : differences["changed"])
        for (Json value : change["attributes"]) {
            value["handle"] = change["handle"];
            value["was"] = change.value("was", "");
            rows.push_back(rowOf("changed", value));
        }
    for (const Json& group : differences["groups"])
        for (const auto& [difference, members] :
             {std::pair("removed from group", group["removed"]), std::pair("added to group", group["added"])})
            for (const Json& member : members)
                rows.push_back(rowOf(difference, {{"handle", member}, {"group", group["name"]}}));
    for (const auto& [difference, joints] : {std::pair("broken joint", differences["joints"]["broken"]),
                                             std::pair("made joint", differences["joints"]["made"])})
        for (const Json& joint : joints)
            rows.push_back(rowOf(difference, {{"handle", joint[0]}, {"with", joint[1]}}));
    add("other removed", differences["other"]["removed"]);
    add("other added", differences["other"]["added"]);
    add("other changed", differences["other"]["changed"]);
    return rows;
}

} // namespace

void printDifferenceRows(const DrawingDifferences& differences) {
    printCsv({"difference", "handle", "was", "key", "old", "new", "group", "with"},
             differenceRows(differencesJson(differences)));
}

Json differencesJson(const DrawingDifferences& differences) {
    return {{"same", differences.isEmpty()},
            {"added", handleTexts(differences.added)},
            {"removed", handleTexts(differences.removed)},
            {"moved", movedJson(differences)},
            {"changed", changedJson(differences)},
            {"groups", groupsJson(differences)},
            {"joints", {{"made", jointsJson(differences.made)}, {"broken", jointsJson(differences.broken)}}},
            {"other",
             {{"added", handleTexts(differences.othersAdded)},
              {"removed", handleTexts(differences.othersRemoved)},
              {"changed", handleTexts(differences.othersChanged)}}}};
}

void printDifferences(const DrawingDifferences& differences) {
    if (differences.isEmpty()) {
        std::cout << translated("no differences") << '\n';
        return;
    }
    printElements(differences);
    printGroups(differences);
    printJoints(differences);
    Section("other entities, removed:").addHandles(differences.othersRemoved);
    Section("other entities, added:").addHandles(differences.othersAdded);
    Section("other changes of records:").addHandles(differences.othersChanged);
    const auto isMoved = [](const ElementChange& change) { return change.isMoved; };
    const auto hasValues = [](const ElementChange& change) { return !change.values.empty(); };
    const auto& changed = differences.changed;
    const auto number = [](auto count) { return std::to_string(count); };
    std::cout << translated("elements: " + number(differences.removed.size()) + " removed, " +
                            number(differences.added.size()) + " added, " +
                            number(std::count_if(changed.begin(), changed.end(), isMoved)) + " moved, " +
                            number(std::count_if(changed.begin(), changed.end(), hasValues)) + " changed")
              << "; " << translated("groups: " + number(differences.groups.size()) + " changed") << "; "
              << translated("joints: " + number(differences.broken.size()) + " broken, " +
                            number(differences.made.size()) + " made")
              << "; "
              << translated("others: " + number(differences.othersRemoved.size()) + " removed, " +
                            number(differences.othersAdded.size()) + " added, " +
                            number(differences.othersChanged.size()) + " changed")
              << '\n';
}

} // namespace zu::app
