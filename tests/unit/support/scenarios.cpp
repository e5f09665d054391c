#include "tests/unit/support/scenarios.h"

#include <iterator>
#include <sstream>

#include "tests/unit/support/dialog_desk.h"
#include "tests/unit/support/score_generator.h"

namespace standin {
namespace {

using Way = Scenario::Way;

// A staff whose layers are given each as one text, with "|" between its measures.
WrittenScore Staff(std::initializer_list<const char*> layers, const MergeOptions& options) {
    WrittenScore score;
    score.options = options;
    u16 layer = 0;
    for (const char* text : layers) {
        std::istringstream measures{text};
        u16 measure = 0;
        for (std::string words; std::getline(measures, words, '|');) {
            using Iterator = std::istream_iterator<std::string>;
            std::istringstream stream{words};
            score.frames.push_back({1, ++measure, layer, {Iterator{stream}, Iterator{}}});
        }
        score.measures = std::max<int>(score.measures, measure);
        ++layer;
    }
    std::erase_if(score.frames, [](const auto& frame) { return frame.words.empty(); });
    score.selection = EREGION{0, 1, 1, 0, 0, 1, static_cast<i16>(score.measures), kEndOfMeasure};
    return score;
}

Scenario Of(const char* name, std::initializer_list<const char*> layers,
            const MergeOptions& options = {}, void (*more)(StandIn&) = nullptr,
            Way way = Way::kShift) {
    return {name, Staff(layers, options), more, way};
}

std::vector<Scenario> OfMusic() {
    const MergeOptions hide{.hideAddedRests = 1};
    return {
        Of("ChordsAndRests", {"q:c4 q:r h:r", "q:e4 q:f4 h:g4"}),
        Of("ThirteenNotes", {"w:c4,d4,e4,f4,g4,a4,b4", "w:c5,d5,e5,f5,g5,a5"}),
        Of("EmptyDestination", {"", "q:c4 e:d4 e:e4 h:f4"}, hide),
        Of("MissingTime", {"q:c4", "q:r q:e4 h:g4"}),
        Of("GraceChords", {"gs:c5 q:c4 h.:r", "gs:e5 q:e4 gs:f4 gs:g4 h.:g4"}),
        Of("GraceNotesFill", {"h:r h:c4", "gs:a4 gs:b4 q:e4 ge:f4 q:g4 h:r"}),
        Of("GraceNoteWithSecondVoice", {"ge:c5 w:c4", "ge:g4 v2{ q:e4 } w:f4"}),
        Of("TupletFills", {"h:r h:c4", "(3:2 q:d4 q:e4 q:f4 ) h:r"}),
        Of("NestedTupletFills", {"h:r h:c4", "(3:2q q:d4 (3:2 e:e4 e:f4 e:g4 ) q:a4 ) h:r"}),
        Of("AdjacentTuplets", {"w:r", "(3:2 q:d4 q:e4 q:f4 ) (3:2 q:d4 q:e4 q:f4 )"}),
        Of("SecondVoices", {"h:c4 v2{ q:a3 q:b3 } h:r", "h:e4 v2{ q:g3 q:r } h:f4"}),
        Of("SecondVoiceFills", {"h:r h:c4", "q:d4 v2{ e:a3 e:b3 } q:e4 h:r"}),
        Of("RestLaunchesSecondVoice", {"h:r v2{ h:a3 } h:r", "h:d4 h:e4"}),
        Of("HiddenMusic", {"h:r h:x", "h:c4! h:d4"}, hide),
        Of("TiesAcrossTheBarline", {"w:c4~ | w:~c4", "h:e4 h:g4~ | w:~g4"}),
        Of("FourLayers", {"q:c4 q:r h:r", "q:e4 q:f4 h:r", "h:r h:g4", "q:g4 q:r h:b4"}),
        Of("OneLayerToTheLast", {"h:c4 h:d4", "h:e4 h:f4", "w:g4", "h:r h:b4"},
           {.source = 1, .destination = 3, .rebeam = 0}),
        Of("ManyMeasures",
           {"h:c4 h:r | w:r | w:c4 | | h:r h:d4 | w:r", "w:e4 | w:e4 | w:e4 | w:f4 | h:g4 h:r"}),
    };
}

Scenario Slurred(const char* name, std::initializer_list<const char*> layers,
                 const std::vector<std::pair<EntryPlace, EntryPlace>>& slurs) {
    Scenario scenario = Of(name, layers);
    for (const auto& [from, to] : slurs) {
        scenario.score.shapes.push_back({from, to, false});
    }
    return scenario;
}

std::vector<Scenario> OfAttachments() {
    const std::initializer_list<const char*> halves = {"h:c4 h:r", "h:e4 h:f4"};
    Scenario expressions = Of("Expressions", halves);
    expressions.score.expressions = {
        {{1, 1, 1, 0}, 1}, {{1, 1, 1, 1}, 1}, {{1, 1, 1, 0}, -1}, {{1, 1, 1, 0}, 0}};
    Scenario details = Of("DetailsOfAChordAndOfRests", {"h:c4 h:r", "h:e4 q:f4 q:r"});
    details.score.details = {{{1, 1, 1, 0}, kArticulation, 0, 0, 'a'},
                             {{1, 1, 1, 0}, kArticulation, 0, 0, 'b'},
                             {{1, 1, 1, 0}, HostTag("SdvE"), 0, 0, 'c'},
                             {{1, 1, 1, 2}, kArticulation, 0, 0, 'd'},
                             {{1, 1, 0, 0}, kArticulation, 0, 0, 'a'}};
    Scenario rest = Of("DetailOnARestToFill", halves);
    rest.score.details = {{{1, 1, 0, 1}, kArticulation}};
    return {
        Slurred("SlurMoves", {"q:c4 q:r h:r", "q:e4 q:f4 h:g4"}, {{{1, 1, 1, 0}, {1, 1, 1, 2}}}),
        Slurred("SlurAcrossMeasures", {"h:c4 h:r | w:r", "h:e4 h:f4 | w:g4"},
                {{{1, 1, 1, 1}, {1, 2, 1, 0}}}),
        Slurred("SlurOnRests", {"q:c4 q:r h:r", "q:r q:f4 h:g4"}, {{{1, 1, 0, 1}, {1, 1, 0, 2}}}),
        Slurred("SlurOfOneEntry", {"w:c4", "w:e4"}, {{{1, 1, 1, 0}, {1, 1, 1, 0}}}),
        Slurred("SlurBetweenLayers", halves, {{{1, 1, 0, 0}, {1, 1, 1, 1}}}),
        Slurred("TwoSlursOfAnEntry", halves,
                {{{1, 1, 1, 0}, {1, 1, 1, 1}}, {{1, 1, 1, 0}, {1, 1, 0, 0}}}),
        expressions,
        details,
        rest};
}

void SelectPart(StandIn& host) {
    host.Select(1, 1, 1024, 1, 1, 3071);
}

void ShowPart(StandIn& host) {
    host.Score().AddPart(1, u"Flute");
    host.Score().currentPart = 1;
}

std::vector<Scenario> OfSelections() {
    const MergeOptions replace{.source = 1, .mode = 1};
    const std::initializer_list<const char*> halves = {"h:c4 h:r", "h:e4 h:f4"};
    const std::initializer_list<const char*> twoMeasures = {"w:r | w:c4", "w:e4 | w:g4"};
    return {
        Of("InPart", {"q:c4 q:r h:r", "q:e4 q:f4 q:g4 q:a4"}, {}, SelectPart),
        Of("InPartOfEmptyDestination", {"", "q:c4 (3:2 e:d4 e:e4 e:f4 ) h:g4"}, {}, SelectPart),
        Of("TwoPartsOfMeasures", {"q:c4 q:d4 h:e4 | w:r", "q:e4 q:f4 h:g4 | h:c4 h:d4"}, {},
           [](StandIn& host) { host.Select(1, 1, 1024, 1, 2, 2047); }),
        Of("Replace", {"h:c4 h:d4", "q:e4 q:f4 h:g4"}, replace),
        Of("ReplaceInPart", {"q:c4 q:d4 h:e4", "q:e4 q:f4 h:g4"}, replace, SelectPart),
        Of("ReplaceWithAnotherLayerActive", {"h:c4 h:d4", "w:e4"}, replace,
           [](StandIn&) { App().activeLayer = 2; }),
        Of("ReplaceWithOneLayerShown", {"h:c4 h:d4", "w:e4"}, replace,
           [](StandIn&) {
               App().activeLayer = 1;
               RunMenuCommand(MenuCommand::kShowActiveLayerOnly);
           }),
        Of("IrregularDuration", {"h:c4 q:r", "h:e4 q:f4"}, {},
           [](StandIn& host) { host.Score().SetMeasureDuration(host.Staff(1), 1, 3072); }),
        Of("StaleLayout", twoMeasures, {}, [](StandIn& host) { host.Score().MakeLayoutStale(); }),
        Of("MeasureNumbers", twoMeasures, {},
           [](StandIn& host) { host.Score().SetMeasureNumberText(2, u"2a"); }),
        Of("SecondDocument", halves, {}, [](StandIn&) { App().OpenDocument(u"other"); }),
        Of("NothingSelected", {"w:c4", "w:e4"}, {}, [](StandIn& host) { host.SelectNothing(); }),
        Of("Dialog", halves, {}, nullptr, Way::kDialog),
        Of("DialogOfAPart", halves, {}, ShowPart, Way::kDialog),
        Of("SavedSetting", halves, {.source = 1}, nullptr, Way::kSavedSetting),
        Of("SavingSettings", {"w:c4", "w:e4"}, {}, nullptr, Way::kSaving),
    };
}

// Three staves, of which a list of the document's own names some.
void AddStaffLists(std::vector<Scenario>& all) {
    const std::pair<const char*, void (*)(StandIn&)> selections[] = {
        {"ThreeStaves", [](StandIn& host) { host.SelectAll(); }},
        {"StaffList",
         [](StandIn& host) {
             host.Score().SetStaffList(2, {host.Staff(3), host.Staff(1)});
             host.Score().selection = EREGION{2, 1, 1, 0, 2, 2, 1, kEndOfMeasure};
         }},
        {"TwoStaffLists",
         [](StandIn& host) {
             host.Score().SetStaffList(65501, {host.Staff(2), host.Staff(3)});
             host.Score().selection = EREGION{0, 2, 1, 0, 65501, 2, 1, kEndOfMeasure};
         }},
    };
    for (const auto& [name, select] : selections) {
        Scenario& scenario = all.emplace_back(Of(name, {}, {}, select));
        scenario.score.staves = 3;
        for (i16 slot = 1; slot <= 3; ++slot) {
            scenario.score.frames.push_back({slot, 1, 0, {"h:c4", "h:r"}});
            scenario.score.frames.push_back({slot, 1, 1, {"h:e4", "h:f4"}});
        }
    }
}

// Each kind of detail, on an entry that joins a chord and on one that replaces a rest.
void AddDetailKinds(std::vector<Scenario>& all) {
    for (const DetailToWrite& detail : DetailsToWrite()) {
        Scenario scenario = Of("", {"h:c4 h:r", "h:~e4~,g4 h:~f4~,a4"});
        scenario.name = "Detail" + std::to_string(all.size());
        for (const int index : {0, 1}) {
            scenario.score.details.push_back(
                {{1, 1, 1, index}, detail.tag, detail.flags, 0, static_cast<char>('a' + index)});
        }
        all.push_back(scenario);
    }
}

// Random music that is neither trivial nor large.
void AddMadeUp(std::vector<Scenario>& all) {
    constexpr int kMadeUp = 16;
    constexpr std::size_t kMaxFrames = 6;
    int added = 0;
    for (u32 seed = 1; added < kMadeUp; ++seed) {
        WrittenScore score = MakeUpScore(seed);
        const bool hangsOn = !score.details.empty() && !score.shapes.empty();
        if (hangsOn && score.frames.size() >= 2 && score.frames.size() <= kMaxFrames) {
            all.push_back({"MadeUp" + std::to_string(seed), std::move(score)});
            ++added;
        }
    }
}

}  // namespace

const std::vector<Scenario>& Scenarios() {
    static const std::vector<Scenario> scenarios = [] {
        std::vector<Scenario> all = OfMusic();
        for (const auto& more : {OfAttachments(), OfSelections()}) {
            all.insert(all.end(), more.begin(), more.end());
        }
        AddStaffLists(all);
        AddDetailKinds(all);
        AddMadeUp(all);
        return all;
    }();
    return scenarios;
}

std::unique_ptr<StandIn> Build(const Scenario& scenario) {
    auto host = Build(scenario.score);
    if (scenario.more != nullptr) {
        scenario.more(*host);
    }
    return host;
}

void Prepare(const Plugin& plugin, const Scenario& scenario) {
    if (scenario.way == Way::kSavedSetting) {
        Plugin::StoreSetting(1,
                             {.name = "S", .skipsDialog = true, .options = scenario.score.options});
        plugin.Init();
    } else {
        Plugin::Store(scenario.score.options);
    }
}

void Run(const Plugin& plugin, StandIn& host, const Scenario& scenario) {
    if (scenario.way == Way::kShift) {
        plugin.InvokeWithShift(host);
        return;
    }
    if (scenario.way == Way::kSavedSetting) {
        plugin.Invoke(host, 1);
        return;
    }
    auto& desk = dynamic_cast<DialogDesk&>(*App().dialogs);
    plugin.Invoke(host);
    if (desk.Newest() != nullptr) {
        desk.Newest()->Send(kTimerMessage);
    }
    if (desk.Newest() != nullptr && scenario.way == Way::kSaving) {
        desk.ThenSaveAs(u"Mine");
        desk.Newest()->Press(kSaveSettings);
    }
    for (const u16 control : {kGo, kClose}) {
        if (desk.Newest() != nullptr) {
            desk.Newest()->Press(control);
        }
    }
}

}  // namespace standin
