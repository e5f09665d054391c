#include "tests/unit/support/stand_in.h"

#include "host/score/smart_shape.h"
#include "tests/unit/support/notation.h"

namespace standin {
namespace {

constexpr u16 kFirstStaff = 7;  // so that no staff number is a slot

// A text expression that belongs to an entry.
constexpr u16 kEntryExpression = 1;
constexpr std::size_t kExpressionKindOffset = 12;
constexpr char kBelongsToEntry = 9;

}  // namespace

u32 SizeOfDetail(u32 tag) {
    const u32 units = tag >> 16U & 0xFFU;
    return 12 * (units < 0x20 ? units : 1);
}

StandIn::StandIn(int staves, int measures, i16 beats, i16 beatDuration) {
    App().Reset();
    m_document = &App().OpenDocument(u"score");
    for (int slot = 1; slot <= staves; ++slot) {
        const std::string number = std::to_string(slot);
        m_document->AddStaff(static_cast<u16>(kFirstStaff + slot - 1),
                             u"Staff " + std::u16string{number.begin(), number.end()});
    }
    for (int measure = 1; measure <= measures; ++measure) {
        m_document->AddMeasure(beats, beatDuration);
    }
    m_document->LayoutSystems(4);
    Bytes definition(38, '\0');
    definition[kExpressionKindOffset] = kBelongsToEntry;
    m_document->Records().Create(Tag::kTextExpression, RecordKey::Other(kEntryExpression),
                                 definition);
}

StandIn::~StandIn() {
    for (const Alert& alert : App().alerts) {
        EXPECT_EQ(alert.kind, 0) << "one button";
    }
    const Application& app = App();
    EXPECT_EQ(app.lent.Count(), 0U) << "frames still on loan";
    EXPECT_EQ(app.calls.strangeFrames, 0U) << "frames handed over that were not on loan";
    EXPECT_EQ(app.CurrentDocument(), m_document) << "another document is current";
    EXPECT_FALSE(m_document->IsEditOpen()) << "an edit is still open";
    EXPECT_TRUE(app.progressDisplays.empty()) << "a progress display is still open";
    App().Reset();
}

u16 StandIn::Staff(i16 slot) const {
    return m_document->StaffInSlot(slot, 0);
}

void StandIn::Layer(i16 slot, u16 measure, u16 layer, std::string_view notation) {
    WrittenLayer written = ParseLayer(notation);
    for (EXENTRY& entry : written.entries) {
        entry.entryNumber = m_document->NewEntryNumber();
    }
    for (const WrittenTuplet& tuplet : written.tuplets) {
        const u32 first = written.entries.at(tuplet.entry).entryNumber;
        m_document->Records().Create(Tag::kTuplet, RecordKey::OfEntry(first, kAppend),
                                     BytesOf(tuplet.tuplet));
    }
    m_document->PutFrame(Key(slot, measure, layer), std::move(written.entries));
}

void StandIn::Write(std::initializer_list<std::string_view> notations) {
    for (u16 layer = 0; const std::string_view notation : notations) {
        Layer(1, 1, layer++, notation);
    }
    SelectAll();
}

void StandIn::LayerEverywhere(u16 layer, std::string_view notation) {
    const EREGION whole = m_document->WholeRegion();
    for (i16 slot = whole.startSlot; slot <= whole.endSlot; ++slot) {
        for (i16 measure = whole.startMeasure; measure <= whole.endMeasure; ++measure) {
            Layer(slot, static_cast<u16>(measure), layer, notation);
        }
    }
}

std::string StandIn::Layer(i16 slot, u16 measure, u16 layer) const {
    return PrintLayer(*m_document, Key(slot, measure, layer));
}

std::string StandIn::Times(i16 slot, u16 measure, u16 layer) const {
    return PrintTimes(*m_document, Key(slot, measure, layer));
}

EXENTRY StandIn::Entry(EntryPlace place) const {
    const Frame* frame = m_document->FindFrame(Key(place.slot, place.measure, place.layer));
    const auto index = static_cast<std::size_t>(place.index);
    if (frame == nullptr || index >= frame->entries.size()) {
        ADD_FAILURE() << "no entry " << place.index << " in layer " << place.layer;
        return {};
    }
    return frame->entries[index];
}

RecordKey StandIn::Attach(EntryPlace place, u32 tag, std::string_view content) {
    Bytes bytes{content};
    bytes.resize(SizeOfDetail(tag));
    const u32 entry = EntryNumber(place);
    const auto used =
        m_document->Records().Create(tag, RecordKey::OfEntry(entry, kAppend), std::move(bytes));
    m_document->RefreshDetailFlags(entry);
    return used.value_or(RecordKey{});
}

std::string StandIn::Attached(EntryPlace place, u32 tag) const {
    std::string text;
    m_document->Records().ForEachDetail(
        EntryNumber(place), [&](u32 detailTag, RecordKey, const Bytes& bytes) {
            if (detailTag == tag) {
                const std::size_t last = bytes.find_last_not_of('\0');
                text += (text.empty() ? "" : ",") + bytes.substr(0, last + 1);
            }
        });
    return text;
}

u16 StandIn::Slur(EntryPlace from, EntryPlace to, u32 markTag) {
    EDTSmartShape shape{};
    shape.start = {Staff(from.slot), from.measure, EntryNumber(from), Entry(from).elapsedTime};
    shape.end = {Staff(to.slot), to.measure, EntryNumber(to), Entry(to).elapsedTime};
    return AddSmartShape(*m_document, shape, markTag);
}

u16 StandIn::Expression(i16 slot, u16 measure, i32 position, i16 layer, i16 graceIndex) {
    MyExpressionAssign expression{};
    expression.definition = kEntryExpression;
    expression.staff = static_cast<i16>(Staff(slot));
    expression.layer = static_cast<u16>(layer + 1);
    expression.positionLow = static_cast<u16>(position);
    expression.positionHigh = static_cast<u16>(position >> 16);
    expression.graceIndex = graceIndex;
    const auto used = m_document->Records().Create(
        Tag::kExpression, RecordKey::Other(measure, kAppend), BytesOf(expression));
    return used.value_or(RecordKey{}).Inci();
}

void StandIn::SelectAll() {
    Score().selection = Score().WholeRegion();
}

void StandIn::Select(i16 firstSlot, i16 firstMeasure, i32 firstPosition, i16 lastSlot,
                     i16 lastMeasure, i32 lastPosition) {
    Score().selection =
        EREGION{0, firstSlot, firstMeasure, firstPosition, 0, lastSlot, lastMeasure, lastPosition};
}

}  // namespace standin
