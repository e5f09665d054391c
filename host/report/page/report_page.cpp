#include "host/report/page/report_page.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "host/report/page/asked_words.h"
#include "host/report/page/html.h"
#include "host/report/page/measure_section.h"
#include "host/report/page/page_files.h"
#include "host/report/page/page_parts.h"
#include "host/report/places.h"
#include "host/report/report_json.h"
#include "host/report/report_text.h"
#include "host/texts/texts.h"

namespace standin {
namespace {

class ReportPage {
public:
    ReportPage(const MergeReport& report, const ImportedScore& score,
               const std::vector<MeasurePictures>& pictures, std::string_view engraver)
        : m_report{report}, m_score{score}, m_pictures{pictures}, m_engraver{engraver} {}

    std::string Text() {
        m_page = HtmlStart(FileName(m_report.request.input) + " \u2013 " +
                           std::string{Say(standin::Text::kPageTitle)});
        AddHead();
        m_page += "<main>\n";
        AddStayed();
        AddNotes(standin::Text::kRemarks, "remarks", RemarkItems());
        AddNotes(standin::Text::kPageWarnings, "warnings", WarningItems());
        m_page += MeasureSection(m_report, m_pictures);
        m_page += "</main>\n";
        AddFoot();
        AddScripts();
        m_page += "</body>\n</html>\n";
        return std::move(m_page);
    }

private:
    using T = standin::Text;

    void AddHead() {
        m_page += "<a class=\"skip\" href=\"#measures\">" + HtmlText(T::kPageSkip) +
                  "</a>\n<header>\n<p class=\"kind\">" + HtmlText(T::kPageTitle) + "</p>\n<h1>" +
                  HtmlText(FileName(m_report.request.input)) + "</h1>\n";
        m_page += "<ul class=\"totals\">\n";
        AddTotal(m_report.ChordsFormed(), T::kOneChordFormed, T::kManyChordsFormed);
        AddTotal(m_report.RestsFilled(), T::kOneRestFilled, T::kManyRestsFilled);
        AddTotal(m_report.NotesMoved(), T::kOneNoteMoved, T::kManyNotesMoved);
        AddTotal(m_report.Stayed(), T::kOneLeft, T::kManyLeft);
        m_page += "</ul>\n";
        if (m_report.NotesCleared() > 0) {
            AddVerdict("cleared", ClearedLine(m_report));
        }
        if (m_report.verified) {
            AddVerdict("verified",
                       std::string{Say(m_report.NotesCleared() > 0 ? T::kVerifiedButCleared
                                                                   : T::kVerified)});
        }
        if (m_report.request.output.empty()) {
            AddVerdict("unwritten", std::string{Say(T::kNothingWritten)});
        }
        m_page += "<dl class=\"asked\">\n";
        for (const auto& [term, words] : AskedWords(m_report, m_score)) {
            m_page +=
                "<div><dt>" + HtmlText(term) + "</dt><dd>" + HtmlText(words) + "</dd></div>\n";
        }
        m_page += "</dl>\n</header>\n";
    }

    void AddTotal(int number, T one, T many) {
        m_page += "<li>" + HtmlCount(number, one, many) + "</li>\n";
    }

    void AddVerdict(std::string_view kind, const std::string& words) {
        m_page += "<p class=\"verdict " + std::string{kind} + "\">" + HtmlText(words) + "</p>\n";
    }

    void AddStayed() {
        m_page +=
            "<section aria-labelledby=\"stayed\">\n" + SectionHeading(T::kPageStayed, "stayed");
        if (m_report.Stayed() == 0) {
            m_page += "<p>" + HtmlText(T::kPageNothingStayed) + "</p>\n</section>\n";
            return;
        }
        m_page += "<div class=\"wide\"><table id=\"stays\">\n<thead><tr>";
        for (const T column : {T::kPageStaff, T::kPageMeasure, T::kPageBeat, T::kPageLayerColumn,
                               T::kPagePitches, T::kPageReason}) {
            m_page += "<th scope=\"col\">" + HtmlText(column) + "</th>";
        }
        m_page += "</tr></thead>\n<tbody>\n";
        for (const MergedMeasure& measure : m_report.measures) {
            for (const StayedEntry& entry : measure.stayed) {
                AddRow(measure, entry);
            }
        }
        m_page += "</tbody>\n</table></div>\n</section>\n";
    }

    void AddRow(const MergedMeasure& measure, const StayedEntry& entry) {
        m_page += "<tr data-staff=\"" + std::to_string(measure.staff) + "\" data-reasons=\"" +
                  NameOf(entry.reason) + "\"><td>" + HtmlText(m_report.staffNames[measure.staff]) +
                  "</td><td><a href=\"#" + IdOf(measure) + "\">" + HtmlText(measure.number) +
                  "</a></td><td>" + BeatText(entry.beat) + "</td><td>" + LayerMark(entry.layer) +
                  "</td><td>" + HtmlText(Joined(entry.pitches, " ")) + "</td><td>" +
                  HtmlText(WordsForReason(entry.reason)) + "</td></tr>\n";
    }

    std::vector<std::string> RemarkItems() const {
        std::vector<std::string> items;
        for (const Remark& remark : m_report.remarks) {
            const std::string words = HtmlText(WordsFor(remark));
            const MergedMeasure* measure = MeasureOf(remark);
            items.push_back(measure == nullptr
                                ? words
                                : "<a href=\"#" + IdOf(*measure) + "\">" + words + "</a>");
        }
        return items;
    }

    const MergedMeasure* MeasureOf(const Remark& remark) const {
        const auto found =
            std::ranges::find_if(m_report.measures, [&remark](const MergedMeasure& measure) {
                return measure.staff == remark.staff && measure.measure == remark.measure;
            });
        return found == m_report.measures.end() ? nullptr : &*found;
    }

    std::vector<std::string> WarningItems() const {
        std::vector<std::string> items;
        for (const std::string& warning : m_report.warnings) {
            items.push_back(HtmlText(warning));
        }
        return items;
    }

    void AddNotes(T title, std::string_view id, const std::vector<std::string>& items) {
        if (items.empty()) {
            return;
        }
        m_page += "<section aria-labelledby=\"" + std::string{id} + "\">\n" +
                  SectionHeading(title, id) + "<ul class=\"notes\">\n";
        for (const std::string& item : items) {
            m_page += "<li>" + item + "</li>\n";
        }
        m_page += "</ul>\n</section>\n";
    }

    void AddFoot() {
        m_page += "<footer>\n<p>Plyweld " PLYWELD_VERSION "</p>\n<p>" +
                  HtmlText(T::kPageEngravedBy) + "</p>\n</footer>\n";
    }

    // The music in the order of the figures; what each note was, by its id.
    void AddScripts() {
        nlohmann::ordered_json music = nlohmann::ordered_json::array();
        for (const MeasurePictures& pictures : m_pictures) {
            for (const Picture* picture : {&pictures.before, &pictures.after}) {
                music.push_back({{"measure", picture->measure},
                                 {"layers", LayersOf(*picture)},
                                 {"stays", StaysOf(*picture)}});
            }
        }
        const auto replace = nlohmann::ordered_json::error_handler_t::replace;
        m_page += "<script type=\"application/json\" id=\"music\">" +
                  HtmlData(music.dump(-1, ' ', false, replace)) + "</script>\n";
        if (m_engraver.empty()) {
            m_page += "<script src=\"" + HtmlLink(kEngraverBeside) + "\"></script>\n";
        } else {
            m_page.append("<script>\n").append(m_engraver).append("</script>\n");
        }
        m_page += "<script data-missing=\"" + HtmlText(T::kPageNoEngraver) + "\" data-undrawn=\"" +
                  HtmlText(T::kPageUndrawn) + "\">\n" + std::string{kPageScript} + "</script>\n";
    }

    static std::vector<int> LayersOf(const Picture& picture) {
        std::vector<int> layers;
        layers.reserve(picture.notes.size());
        for (const PicturedNote& note : picture.notes) {
            layers.push_back(note.layer ? *note.layer + 1 : 0);
        }
        return layers;
    }

    static std::vector<std::size_t> StaysOf(const Picture& picture) {
        std::vector<std::size_t> stays;
        for (std::size_t i = 0; i < picture.notes.size(); ++i) {
            if (picture.notes[i].stays) {
                stays.push_back(i);
            }
        }
        return stays;
    }

    const MergeReport& m_report;
    const ImportedScore& m_score;
    const std::vector<MeasurePictures>& m_pictures;
    const std::string_view m_engraver;
    std::string m_page;
};

}  // namespace

std::string ReportAsPage(const MergeReport& report, const ImportedScore& score,
                         const std::vector<MeasurePictures>& pictures, std::string_view engraver) {
    return ReportPage{report, score, pictures, engraver}.Text();
}

}  // namespace standin
