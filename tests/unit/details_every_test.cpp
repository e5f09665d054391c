// Tests for every row of the list of entry details: its size matches its tag, and a record is
// copied once, deleted, and marked by the flags of its entry.
#include "shell/host/detail_flags.h"
#include "shell/host/host_details.h"
#include "shell/host/host_records.h"
#include "tests/unit/details_fixture.h"
#include "tests/unit/support/named_cases.h"

namespace standin {
namespace {

struct Row {
    const char* name;
    u32 tag;
    u32 downTag;
    std::size_t size;
    u32 flag;
    u32 kind;  // the set of it alone
    bool isOfNote;
    u32 noteFlag;

    friend void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }
};

// Smart shapes have their own tests: their marks move with the shape.
constexpr Row kRows[] = {
#define ENTRY_DETAIL(name, family, structure, tag, downTag, flag, kind, rule) \
    {#name, tag, downTag, sizeof(structure), DetailFlag::flag, DetailKind::kind, false, 0},
#define NOTE_DETAIL(name, structure, tag, flag, noteFlag, kind) \
    {#name, tag, 0, sizeof(structure), DetailFlag::flag, DetailKind::kind, true, noteFlag},
#include "shell/host/entry_details.inc"
};

class EveryDetail : public Details, public testing::WithParamInterface<Row> {};

TEST_P(EveryDetail, SizeMatchesTag) {
    EXPECT_EQ(GetParam().size, SizeOfDetail(GetParam().tag));
}

TEST_P(EveryDetail, IsCopiedOnceAndDeleted) {
    const Row& row = GetParam();
    const std::string content = row.isOfNote ? OfNote(1, "x") : "x";
    WriteAndLoad("q:~c4~", "q:~c4~", {{row.tag, content}});
    for (const FinPITGFPtr* frame : {&source, &target}) {
        frame->EntryAt(0)->notes[0].flags |= row.noteFlag;
    }
    EXPECT_EQ(Copy(row.kind) + Copy(row.kind), 2);
    // The first of two layers has its stems up, the second down.
    EXPECT_EQ(host.Attached(Target(), row.downTag != 0 ? row.downTag : row.tag), content);
    EXPECT_TRUE(target.EntryAt(0).HasFlag(row.flag));
    EXPECT_EQ(Delete(row.kind), 1);
    EXPECT_EQ(host.Attached(Source(), row.tag), "");
    EXPECT_FALSE(source.EntryAt(0).HasFlag(row.flag));
}

INSTANTIATE_TEST_SUITE_P(List, EveryDetail, testing::ValuesIn(kRows), kByName);

}  // namespace
}  // namespace standin
