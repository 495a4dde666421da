#include "report/report_page.h"

#include "manners/translation.h"
#include "report/plan_marks.h"
#include "report/report_style.h"

#include <algorithm>
#include <array>
#include <set>
#include <sstream>
#include <utility>

namespace zu::app {

namespace {

/// Also without control characters, which pages must not hold.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : withoutControls(text)) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

std::string word(std::string_view english) {
    return escaped(translated(english));
}

std::string textOf(const Json& value) {
    return value.is_string() ? value.get<std::string>()
           : value.is_null() ? std::string()
                             : shortNumber(value.get<double>());
}

bool isError(const Json& finding) {
    return finding["severity"].get<std::string>() == "error";
}

std::size_t countOf(const Json& report, bool errors) {
    const Json& findings = report["findings"];
    return static_cast<std::size_t>(std::count_if(
        findings.begin(), findings.end(), [errors](const Json& each) { return isError(each) == errors; }));
}

std::string countText(std::size_t count, const std::string& what) {
    return translated(std::to_string(count) + ' ' + what + (count == 1 ? "" : "s"));
}

std::string countsOf(const Json& report) {
    if (report.contains("error"))
        return translated("no report");
    return countText(countOf(report, true), "error") + ", " + countText(countOf(report, false), "warning");
}

/// Where it is: what is known of handle, group, layer and position.
std::string detailsOf(const Json& finding) {
    std::vector<std::string> details{finding["code"].get<std::string>()};
    for (const char* key : {"handle", "group", "layer"})
        if (const std::string text = textOf(finding[key]); !text.empty())
            details.push_back(translated(key).append(" ").append(text));
    if (const Json& at = finding["position"]; at.is_array())
        details.push_back(
            shortNumber(at[0].get<double>()).append(", ").append(shortNumber(at[1].get<double>())));
    std::string joined;
    for (const std::string& detail : details)
        joined.append(joined.empty() ? "" : " · ").append(detail);
    return joined;
}

struct Column {
    const char* key;
    const char* heading;
    bool isAmount;
};

constexpr std::array kColumns{Column{"kind", "kind", false},   Column{"what", "what", false},
                              Column{"block", "block", false}, Column{"size", "size", false},
                              Column{"count", "count", true},  Column{"length", "length", true}};

void writeQuantities(std::ostream& out, const Json& report) {
    const Json& rows = report["quantities"];
    if (rows.empty()) {
        out << "<p class=\"faint\">" << word("no elements") << "</p>\n";
        return;
    }
    const auto start = [](const Column& column, const char* tag) {
        return std::string("<") + tag +
               (column.isAmount ? " class=\"amount\" align=\"right\">" : " align=\"left\">");
    };
    out << "<div class=\"table\"><table width=\"100%\"><thead><tr>";
    for (const Column& column : kColumns)
        out << start(column, "th") << word(column.heading) << "</th>";
    out << "</tr></thead>\n<tbody>\n";
    for (const Json& row : rows) {
        out << "<tr>";
        for (const Column& column : kColumns)
            out << start(column, "td") << escaped(textOf(row[column.key])) << "</td>";
        out << "</tr>\n";
    }
    out << "</tbody></table></div>\n";
}

void writeWarnings(std::ostream& out, const Json& report) {
    if (report["warnings"].empty())
        return;
    out << "<h2>" << word("Warnings when reading") << "</h2>\n<ul>\n";
    for (const Json& warning : report["warnings"])
        out << "<li>" << word(warning.get<std::string>()) << "</li>\n";
    out << "</ul>\n";
}

void writeFacts(std::ostream& out, const Json& report) {
    out << "<p class=\"faint\">" << escaped(report["drawing"].get<std::string>()) << "<br>\n"
        << escaped(report["format"].get<std::string>());
    for (const char* key : {"objects", "elements", "groups"})
        out << " · " << escaped(translated(shortNumber(report[key].get<double>()) + ' ' + key));
    out << " · " << escaped(report["program"].get<std::string>()) << "</p>\n";
}

/// One report of the page; ids of its parts start with its own.
class Article {
public:
    Article(const Json& report, std::string id) : report_(report), id_(std::move(id)) {}

    void write(std::ostream& out) const {
        out << "<article id=\"" << id_ << "\">\n<h1>" << escaped(report_["name"].get<std::string>())
            << "</h1>\n";
        if (report_.contains("error")) {
            out << "<p class=\"error\">" << word(report_["error"].get<std::string>()) << "</p>\n</article>\n";
            return;
        }
        writeFacts(out, report_);
        writePlan(out);
        out << "<h2>" << word("Findings") << "</h2>\n";
        writeFindings(out, true);
        writeFindings(out, false);
        if (report_["findings"].empty())
            out << "<p>" << word("nothing found") << "</p>\n";
        out << "<h2>" << word("Quantities") << "</h2>\n";
        writeQuantities(out, report_);
        writeWarnings(out, report_);
        out << "</article>\n";
    }

private:
    void writePlan(std::ostream& out) const {
        const Json& plan = report_["plan"];
        out << "<figure><div class=\"sheet\"><picture><source media=\"screen and (prefers-color-scheme: "
               "dark)\" srcset=\""
            << plan["dark"].get<std::string>() << "\"><img alt=\"" << word("Plan") << "\" width=\""
            << plan["width"] << "\" height=\"" << plan["height"] << "\" src=\""
            << plan["light"].get<std::string>() << "\"></picture>\n";
        writeMarks(out);
        out << "</div></figure>\n";
    }

    void writeMarks(std::ostream& out) const {
        const auto link = [this](const Json& finding) {
            const std::string number = finding["number"].dump();
            return "<a id=\"" + id_ + "m" + number + "\" href=\"#" + id_ + "f" + number + "\" title=\"" +
                   word(finding["problem"].get<std::string>()) + "\">" + number + "</a>";
        };
        for (const PlanMark& mark : planMarks(report_)) {
            std::set<const Json*> named;
            const auto linked = [&](const Json& finding) {
                named.insert(&finding);
                return link(finding);
            };
            const std::string text = mark.text(linked);
            out << "<span class=\"mark " << (mark.isError() ? "error" : "warning")
                << "\" style=\"left:" << shortNumber(100.0 * mark.x)
                << "%;top:" << shortNumber(100.0 * mark.y) << "%\"><span>" << text << "</span>";
            // Those that it does not name lead to it as well.
            for (const Json* const finding : mark.findings)
                if (!named.contains(finding))
                    out << "<i id=\"" << id_ << "m" << (*finding)["number"] << "\"></i>";
            out << "</span>\n";
        }
    }

    void writeFindings(std::ostream& out, bool errors) const {
        if (countOf(report_, errors) == 0)
            return;
        out << "<h3 class=\"" << (errors ? "error\">" : "warning\">")
            << escaped(countText(countOf(report_, errors), errors ? "error" : "warning"))
            << "</h3>\n<ul class=\"findings\">\n";
        for (const Json& finding : report_["findings"])
            if (isError(finding) == errors)
                writeFinding(out, finding);
        out << "</ul>\n";
    }

    void writeFinding(std::ostream& out, const Json& finding) const {
        const std::string number = finding["number"].dump();
        const bool isOnPlan = finding["place"].is_array();
        out << "<li id=\"" << id_ << "f" << number << "\">";
        if (isOnPlan)
            out << "<a class=\"number " << severityOf(finding) << "\" href=\"#" << id_ << "m" << number
                << "\">" << number << "</a> ";
        else
            out << "<span class=\"number " << severityOf(finding) << "\">" << number << "</span> ";
        out << word(finding["problem"].get<std::string>()) << "<div class=\"faint\">"
            << escaped(detailsOf(finding)) << "</div></li>\n";
    }

    [[nodiscard]] static const char* severityOf(const Json& finding) {
        return isError(finding) ? "error" : "warning";
    }

    const Json& report_;
    std::string id_;
};

std::string titleOf(const Json& reports) {
    return reports.size() == 1 ? reports[0]["name"].get<std::string>() : countText(reports.size(), "drawing");
}

std::string articleId(std::size_t index) {
    return std::string("d").append(std::to_string(index + 1));
}

void writeContents(std::ostream& out, const Json& reports) {
    out << "<nav><h1>" << escaped(titleOf(reports)) << "</h1>\n<ol>\n";
    for (std::size_t i = 0; i < reports.size(); ++i)
        out << "<li><a href=\"#" << articleId(i) << "\">" << escaped(reports[i]["drawing"].get<std::string>())
            << "</a> <span class=\"faint\">" << escaped(countsOf(reports[i])) << "</span></li>\n";
    out << "</ol></nav>\n";
}

/// Leads to the mark on the plan, and is led to by it.
std::string linkedNumber(const Json& finding, const LinkAddress& address) {
    const std::string number = finding["number"].dump();
    const std::string link =
        finding["place"].is_array() ? " href=\"" + address("m" + number) + '"' : std::string();
    return "<a name=\"f" + number + '"' + link + '>' + number + "</a>";
}

} // namespace

std::string reportPage(const Json& reports) {
    std::ostringstream out;
    out << "<!DOCTYPE html>\n<html lang=\"" << languageTag()
        << "\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "<meta name=\"color-scheme\" content=\"light dark\">\n<title>"
        << escaped(titleOf(reports)) << "</title>\n<style>" << kReportStyle << "</style>\n</head>\n<body>\n";
    if (reports.size() > 1)
        writeContents(out, reports);
    for (std::size_t i = 0; i < reports.size(); ++i)
        Article(reports[i], articleId(i)).write(out);
    out << "</body>\n</html>\n";
    return out.str();
}

std::string reportTables(const Json& report, const LinkAddress& address) {
    std::ostringstream out;
    for (const bool errors : {true, false}) {
        if (countOf(report, errors) == 0)
            continue;
        out << "<h3>" << escaped(countText(countOf(report, errors), errors ? "error" : "warning"))
            << "</h3><table width=\"100%\" cellpadding=\"3\">";
        for (const Json& finding : report["findings"])
            if (isError(finding) == errors)
                out << "<tr><td width=\"5%\" align=\"right\"><b>" << linkedNumber(finding, address)
                    << "</b></td><td>" << word(finding["problem"].get<std::string>())
                    << "<br><font color=\"#5c6670\">" << escaped(detailsOf(finding)) << "</font></td></tr>";
        out << "</table>";
    }
    if (report["findings"].empty())
        out << "<p>" << word("nothing found") << "</p>";
    out << "<h2>" << word("Quantities") << "</h2>";
    writeQuantities(out, report);
    writeWarnings(out, report);
    return out.str();
}

} // namespace zu::app
