#include "host/report/page/measure_section.h"

#include <set>

#include "host/report/page/html.h"
#include "host/report/page/page_parts.h"
#include "host/report/places.h"
#include "host/report/report_json.h"

namespace standin {
namespace {

// The layers that the notes shown were in, and what the colors and frames mean.
std::string Legend(const std::vector<MeasurePictures>& pictures) {
    std::set<u16> layers;
    for (const MeasurePictures& pair : pictures) {
        for (const PicturedNote& note : pair.before.notes) {
            if (note.layer) {
                layers.insert(*note.layer);
            }
        }
    }
    std::string legend = "<p class=\"legend\">";
    for (const u16 layer : layers) {
        legend += LayerMark(layer) + ' ';
    }
    return legend + "<span class=\"framed\">" + HtmlText(Text::kPageFramed) + "</span> " +
           HtmlText(Text::kPageColors) + "</p>\n";
}

std::string Choice(std::string_view value, std::string_view words) {
    return "<option value=\"" + std::string{value} + "\">" + HtmlText(words) + "</option>";
}

std::string StaffChoices(const MergeReport& report) {
    std::set<u16> staves;
    for (const MergedMeasure& measure : report.measures) {
        staves.insert(measure.staff);
    }
    std::string choices = Choice("", Say(Text::kPageAllStaves));
    for (const u16 staff : staves) {
        choices += Choice(std::to_string(staff), report.staffNames[staff]);
    }
    return choices;
}

std::string ReasonChoices(const MergeReport& report) {
    std::string choices = Choice("", Say(Text::kPageAllMeasures));
    if (report.Stayed() > 0) {
        choices += Choice("any", Say(Text::kPageAnyReason));
    }
    for (const auto& [reason, count] : report.StayedByReason()) {
        choices +=
            Choice(NameOf(reason), WordsForReason(reason) + " (" + std::to_string(count) + ")");
    }
    return choices;
}

// The script of the page shows it and does what it asks for.
std::string Filter(const MergeReport& report) {
    return "<form id=\"filter\" hidden>\n<label>" + HtmlText(Text::kPageStaff) +
           " <select name=\"staff\">" + StaffChoices(report) + "</select></label>\n<label>" +
           HtmlText(Text::kPageReason) + " <select name=\"reason\">" + ReasonChoices(report) +
           "</select></label>\n<output name=\"shown\" data-words=\"" + HtmlText(Text::kPageShown) +
           "\"></output>\n</form>\n";
}

std::string CountsOf(const MergedMeasure& measure) {
    std::vector<std::string> counts;
    const auto add = [&counts](int number, Text one, Text many) {
        if (number > 0) {
            counts.push_back(HtmlText(Say(number == 1 ? one : many, {std::to_string(number)})));
        }
    };
    add(measure.chordsFormed, Text::kOneChordFormed, Text::kManyChordsFormed);
    add(measure.restsFilled, Text::kOneRestFilled, Text::kManyRestsFilled);
    add(measure.notesMoved, Text::kOneNoteMoved, Text::kManyNotesMoved);
    add(measure.notesCleared, Text::kOneNoteCleared, Text::kManyNotesCleared);
    add(static_cast<int>(measure.stayed.size()), Text::kOneStays, Text::kManyStay);
    return Joined(counts, " \u00B7 ");
}

// The script puts the music in the place of the words.
std::string Figure(Text name, const Picture& picture) {
    const std::string words =
        HtmlText(picture.words.empty() ? Say(Text::kPageEmpty) : std::string_view{picture.words});
    return "<figure><figcaption>" + HtmlText(name) +
           "</figcaption><div class=\"music\" role=\"img\" aria-label=\"" + HtmlText(name) + ". " +
           words + "\"><span>" + words + "</span></div></figure>\n";
}

std::string StaysOf(const MergedMeasure& measure) {
    std::string list;
    for (const StayedEntry& entry : measure.stayed) {
        list += "<li>" + LayerMark(entry.layer) + ' ' +
                HtmlText(Say(Text::kPageStay, {Joined(entry.pitches, " "), BeatText(entry.beat),
                                               WordsForReason(entry.reason)})) +
                "</li>\n";
    }
    return list.empty() ? list : "<ul class=\"stays\">\n" + list + "</ul>\n";
}

std::string Card(const MergedMeasure& measure, const std::string& staffName,
                 const MeasurePictures& pictures) {
    std::vector<std::string> reasons;
    for (const StayedEntry& entry : measure.stayed) {
        reasons.emplace_back(NameOf(entry.reason));
    }
    const std::string id = IdOf(measure);
    return "<article id=\"" + id + "\" tabindex=\"-1\" aria-labelledby=\"" + id +
           "-name\" data-staff=\"" + std::to_string(measure.staff) + "\" data-reasons=\"" +
           Joined(reasons, " ") + "\">\n<h3 id=\"" + id + "-name\">" +
           HtmlText(Say(Text::kRemarkPlace, {measure.number, staffName})) +
           "</h3>\n<p class=\"counts\">" + CountsOf(measure) + "</p>\n<div class=\"pair\">\n" +
           Figure(Text::kPageBefore, pictures.before) + Figure(Text::kPageAfter, pictures.after) +
           "</div>\n" + StaysOf(measure) + "</article>\n";
}

}  // namespace

std::string MeasureSection(const MergeReport& report,
                           const std::vector<MeasurePictures>& pictures) {
    std::string section = "<section aria-labelledby=\"measures\">\n" +
                          SectionHeading(Text::kPageMeasures, "measures");
    if (report.measures.empty()) {
        return section + "<p>" + HtmlText(Text::kPageNothingChanged) + "</p>\n</section>\n";
    }
    section += Legend(pictures) + Filter(report) + "<p id=\"trouble\" hidden></p>\n<noscript><p>" +
               HtmlText(Text::kPageNoScript) + "</p></noscript>\n<div id=\"cards\">\n";
    for (std::size_t i = 0; i < report.measures.size(); ++i) {
        const MergedMeasure& measure = report.measures[i];
        section += Card(measure, report.staffNames[measure.staff], pictures[i]);
    }
    return section + "</div>\n</section>\n";
}

}  // namespace standin
