#include "host/report/page/index_page.h"

#include <algorithm>

#include "host/report/page/html.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

struct Column {
    Text name{};
    int IndexRow::*count = nullptr;
};

constexpr Column kColumns[] = {
    {Text::kIndexChords, &IndexRow::chordsFormed}, {Text::kIndexRests, &IndexRow::restsFilled},
    {Text::kIndexNotes, &IndexRow::notesMoved},    {Text::kIndexCleared, &IndexRow::notesCleared},
    {Text::kIndexStayed, &IndexRow::stayed},
};

std::string CountCells(const IndexRow& row) {
    std::string cells;
    for (const Column& column : kColumns) {
        cells += "<td class=\"number\">" + std::to_string(row.*column.count) + "</td>";
    }
    return cells;
}

std::string LineOf(const IndexRow& row) {
    if (!row.isMerged) {
        return "<tr><td>" + HtmlText(row.score) + "</td><td class=\"failed\" colspan=\"5\">" +
               HtmlText(Text::kIndexFailed) + ": " + HtmlText(row.problem) + "</td></tr>\n";
    }
    return "<tr><td><a href=\"" + HtmlLink(row.page) + "\">" + HtmlText(row.score) + "</a></td>" +
           CountCells(row) + "</tr>\n";
}

IndexRow SumOf(const std::vector<IndexRow>& rows) {
    IndexRow sum;
    for (const IndexRow& row : rows) {
        for (const Column& column : kColumns) {
            sum.*column.count += row.*column.count;
        }
    }
    return sum;
}

}  // namespace

std::string IndexAsPage(const std::vector<IndexRow>& rows) {
    const auto failed = static_cast<int>(
        std::ranges::count_if(rows, [](const IndexRow& row) { return !row.isMerged; }));
    const int merged = static_cast<int>(rows.size()) - failed;
    std::string page = HtmlStart(Say(Text::kIndexTitle));
    page += "<header>\n<h1>" + HtmlText(Text::kIndexTitle) + "</h1>\n<ul class=\"totals\">\n<li>" +
            HtmlCount(merged, Text::kOneScoreMerged, Text::kManyScoresMerged) + "</li>\n";
    if (failed > 0) {
        page += "<li class=\"failed\">" +
                HtmlCount(failed, Text::kOneScoreFailed, Text::kManyScoresFailed) + "</li>\n";
    }
    page +=
        "</ul>\n</header>\n<main>\n<div class=\"wide\"><table id=\"scores\">\n<thead><tr>"
        "<th scope=\"col\">" +
        HtmlText(Text::kIndexScore) + "</th>";
    for (const Column& column : kColumns) {
        page += "<th scope=\"col\" class=\"number\">" + HtmlText(column.name) + "</th>";
    }
    page += "</tr></thead>\n<tbody>\n";
    for (const IndexRow& row : rows) {
        page += LineOf(row);
    }
    page += "</tbody>\n<tfoot><tr><th scope=\"row\">" + HtmlText(Text::kIndexTotal) + "</th>" +
            CountCells(SumOf(rows)) + "</tr></tfoot>\n</table></div>\n</main>\n";
    return page + "<footer>\n<p>Plyweld " PLYWELD_VERSION "</p>\n</footer>\n</body>\n</html>\n";
}

}  // namespace standin
