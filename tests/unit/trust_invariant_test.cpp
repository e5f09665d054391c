// The check behind all merges of made-up music: it must detect the faults of a bad merge.
#include "host/verify/merge_faults.h"
#include "shell/host/detail_flags.h"
#include "tests/unit/support/named_cases.h"
#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

struct FaultCase {
    const char* name;
    void (*change)(DocumentContent&);  // to a merged score in which all is well
    const char* fault;                 // part of a line that reports it

    friend void PrintTo(const FaultCase& row, std::ostream* out) { *out << row.name; }
};

EXENTRY& EntryAt(DocumentContent& content, u16 measure, u16 layer, std::size_t index) {
    return content.frames.at({7, measure, layer}).entries.at(index);
}

RecordStore::Table& Records(DocumentContent& content, u32 tag) {
    return content.records.at(tag);
}

void MoveDetail(DocumentContent& content, u32 tag, u32 to) {
    auto node = Records(content, tag).extract(Records(content, tag).begin());
    node.key() = RecordKey::OfEntry(to);
    Records(content, tag).insert(std::move(node));
}

const FaultCase kFaults[] = {
    {"NoteLost", [](auto& c) { --EntryAt(c, 1, 0, 0).noteCount; }, "e4 lost"},
    {"TieLost", [](auto& c) { EntryAt(c, 1, 0, 1).notes[0].flags &= ~NoteFlag::kTieStart; },
     "f4~ lost"},
    {"NoteLater", [](auto& c) { EntryAt(c, 1, 0, 1).elapsedTime += 256; }, "1024+1024: f4~ lost"},
    {"NoteShorter", [](auto& c) { EntryAt(c, 1, 0, 1).actualDuration -= 256; },
     "1024+768: f4~ added"},
    {"DetailLost", [](auto& c) { c.records.erase(HostTag("edIM")); }, "separated from edIM dot"},
    {"DetailOnAnotherNote",
     [](auto& c) { MoveDetail(c, HostTag("edIM"), EntryAt(c, 1, 0, 1).entryNumber); },
     "edIM dot on another note"},
    {"DetailLeftOnTheRest",
     [](auto& c) { MoveDetail(c, HostTag("edIM"), EntryAt(c, 1, 1, 0).entryNumber); },
     "edIM dot on a rest"},
    {"ShapeEndLeft",
     [](auto& c) {
         Bytes& bytes = Records(c, Tag::kSmartShape).begin()->second;
         auto shape = FromBytes<EDTSmartShape>(bytes);
         shape.start.entryNumber = EntryAt(c, 1, 1, 1).entryNumber;
         bytes = BytesOf(shape);
     },
     "f4~ separated from"},
    {"ExpressionLeft",
     [](auto& c) {
         Bytes& bytes = Records(c, Tag::kExpression).begin()->second;
         auto expression = FromBytes<MyExpressionAssign>(bytes);
         expression.layer = 2;
         bytes = BytesOf(expression);
     },
     "expression of layer 1 separated from f4~"},
    {"RestShown", [](auto& c) { EntryAt(c, 1, 1, 0).flags &= ~EntryFlag::kIgnore; },
     "the rest left is not hidden"},
    {"FlagMissing", [](auto& c) { EntryAt(c, 1, 0, 0).flags &= ~DetailFlag::kArticulation; },
     "detail flags out of step"},
    {"SameNoteIDs", [](auto& c) { EntryAt(c, 1, 0, 0).notes[1].noteID = 1; },
     "note IDs that are not unique"},
    {"Overlap",
     [](auto& c) {
         EntryAt(c, 1, 0, 2).elapsedTime -= 512;
         EntryAt(c, 1, 0, 2).actualDuration += 512;
     },
     "layer 0, 1536: the voice overlaps itself"},
    {"Longer", [](auto& c) { EntryAt(c, 1, 1, 2).actualDuration += 512; }, "the layer grew"},
    {"UnselectedMeasure", [](auto& c) { EntryAt(c, 2, 1, 0).fieldAt12 = 1; },
     "measure 2, layer 1: changed out of turn"},
    {"UninvolvedLayer", [](auto& c) { EntryAt(c, 1, 2, 0).fieldAt12 = 1; },
     "measure 1, layer 2: changed out of turn"},
    {"MeasureRecord", [](auto& c) { Records(c, Tag::kMeasure).begin()->second[9] = 3; },
     "a merge does not touch"},
};

class Invariant : public testing::TestWithParam<FaultCase> {};

TEST_P(Invariant, DetectsFault) {
    StandIn host{1, 2};
    host.Write({"q:c4 q:r h:r", "q:e4 q:f4~ h:g4", "w:c3"});
    host.Layer(1, 2, 1, "w:~f4");
    host.Attach({1, 1, 1, 0}, HostTag("edIM"), "dot");
    host.Slur({1, 1, 1, 1}, {1, 2, 1, 0});
    host.Expression(1, 1, 1024, 1);
    host.Select(1, 1, 0, 1, 1, kEndOfMeasure);
    const MergeOptions options{12, 1, 0, 0, 0, 1};
    const DocumentContent before = host.Score().Content();
    Plugin{}.Merge(host, options);
    const DocumentContent merged = host.Score().Content();
    ASSERT_EQ(Lines(FaultsOfMerge(host.Score(), before, merged, options)), "");
    DocumentContent after = merged;
    GetParam().change(after);
    const std::string faults = Lines(FaultsOfMerge(host.Score(), before, after, options));
    EXPECT_NE(faults.find(GetParam().fault), std::string::npos) << faults;
}

INSTANTIATE_TEST_SUITE_P(Merge, Invariant, testing::ValuesIn(kFaults), kByName);

}  // namespace
}  // namespace standin
