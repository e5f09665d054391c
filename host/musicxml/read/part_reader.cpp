#include "host/musicxml/read/part_reader.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "host/musicxml/expressions.h"
#include "host/musicxml/pitch.h"
#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

constexpr std::string_view kDefaultVoice = "1";
constexpr std::size_t kMaxMeasures = 30000;

bool IsRightBarline(pugi::xml_node node) {
    return std::strcmp(node.name(), "barline") == 0 &&
           std::string_view{node.attribute("location").as_string("right")} == "right";
}

// Whether <attributes> are plain <divisions>, which the writer chooses itself.
bool SaysNothingElse(pugi::xml_node attributes) {
    const pugi::xml_node child = attributes.first_child();
    return !attributes.first_attribute() && child == attributes.last_child() &&
           !child.first_attribute() && !child.first_child();
}

// Without <divisions>, a note's type still gives the unit of its duration.
Rational ImpliedDivisions(pugi::xml_node note) {
    const NoteType type = NoteTypeOf(Trimmed(note.child_value("type")));
    const auto duration = DecimalOf(note.child_value("duration"));
    if (type == 0 || !duration || note.child("dot") || note.child("time-modification")) {
        return {};
    }
    const Rational implied =
        Rational::Of(duration->num * kQuarterNote, duration->den * NotatedLength(type, 0));
    return implied.num > 0 ? implied : Rational{};
}

}  // namespace

PartReader::PartReader(ImportedScore& score, ScorePart& part, std::array<bool, kLayers> ownLayers)
    : m_score{score},
      m_part{part},
      m_document{*score.document},
      m_spanners{m_document, part.lines},
      m_notes{score.text, score.fragments, score.pitches},
      m_attachments{score, m_spanners},
      m_layers{score, part, ownLayers} {}

Problem PartReader::Read(pugi::xml_node part) {
    for (const pugi::xml_node measure : part.children("measure")) {
        if (m_measure >= kMaxMeasures) {
            return {Text::kTooManyMeasures, OffsetOf(measure)};
        }
        ++m_measure;
        if (Problem problem = ReadMeasure(measure)) {
            return problem;
        }
        NameMeasure(measure.attribute("number").value());
    }
    return m_spanners.KeepUnpaired() ? Problem{} : Problem{Text::kTooManyLines, OffsetOf(part)};
}

// Messages name a measure by its number in the file, which may differ from its position.
void PartReader::NameMeasure(std::string_view number) {
    const bool isPlain = std::ranges::all_of(number, [](char c) { return c > ' ' && c < '\x7f'; });
    if (isPlain && !number.empty() && number != std::to_string(m_measure)) {
        m_document.SetMeasureNumberText(m_measure, {number.begin(), number.end()});
    }
}

Problem PartReader::ReadMeasure(pugi::xml_node node) {
    const std::string_view text = m_score.text;
    PartMeasure& measure = m_part.measures.emplace_back();
    measure.bodyBegin = TagEnd(text, OffsetOf(node));
    const bool isEmpty = text.substr(measure.bodyBegin - 2, 2) == "/>";
    m_time = {};
    m_uncounted = {};
    m_measureExists = false;
    m_chord.clear();
    m_directions.clear();
    m_directionsBefore = 0;
    m_itemsWaiting = 0;
    m_previous = {};
    m_lastEntry = 0;
    m_layers.Begin(m_measure);
    measure.divisions = m_context.divisions.IsZero() ? Rational{1, 1} : m_context.divisions;

    for (const pugi::xml_node child : node.children()) {
        if (Problem problem = ReadChild(child)) {
            return problem;
        }
    }
    const pugi::xml_node last = node.last_child();
    const std::size_t end = last ? EndOf(text, last) : measure.bodyBegin;
    measure.bodyEnd = isEmpty ? measure.bodyBegin : std::min(text.find("</", end), text.size());
    measure.grid = m_context.divisions.IsZero() ? Rational{1, 1} : m_context.divisions;
    LeaveStream();
    measure.lastEntry = m_lastEntry;
    EnsureMeasure();
    if (Problem problem = m_layers.Store()) {
        return problem;
    }
    if (!m_spanners.EndMeasure()) {
        return {Text::kTooManyLines, OffsetOf(node)};
    }
    for (const VoicedDirection& direction : m_directions) {
        if (!StoreDirection(direction)) {
            return {Text::kTooManyDirections, OffsetOf(direction.node)};
        }
    }
    const i32 length = static_cast<i32>(RoundToUnits(measure.length));
    if (length > 0 &&
        (m_document.MeasureDuration(0, m_measure) < length || &m_part == &m_score.parts.front())) {
        m_document.SetMeasureDuration(0, m_measure, length);
    }
    return {};
}

Problem PartReader::ReadChild(pugi::xml_node child) {
    const std::string_view name = child.name();
    if (name == "note") {
        return ReadNote(child);
    }
    if (name == "backup") {
        return ReadBackup(child);
    }
    if (name == "forward") {
        return ReadForward(child);
    }
    if (name == "attributes") {
        if (Problem problem = ReadAttributes(child, m_context)) {
            return problem;
        }
    }
    return ReadItem(child);
}

// The measure takes its key and time from the first part that has it.
void PartReader::EnsureMeasure() {
    if (m_measureExists) {
        return;
    }
    m_measureExists = true;
    if (m_measure > m_document.MeasureCount()) {
        const Meter& meter = m_context.meter;
        m_document.AddMeasure(meter.beats, meter.beatDuration, KeyWord(m_context.fifths));
    }
    m_measureFifths = FifthsOfKeyWord(m_document.Measure(m_measure).key);
}

void PartReader::Reach(Rational time) {
    PartMeasure& measure = m_part.measures.back();
    if (measure.length < time) {
        measure.length = time;
    }
}

Problem PartReader::ReadMove(pugi::xml_node move, Rational& length) const {
    Problem problem = m_notes.ReadDuration(move.child("duration"), m_context.divisions, length);
    if (problem && problem.offset == 0) {
        return {Text::kNoDuration, OffsetOf(move), {move.name()}};
    }
    return problem;
}

Problem PartReader::ReadBackup(pugi::xml_node backup) {
    Rational length;
    if (Problem problem = ReadMove(backup, length)) {
        return problem;
    }
    LeaveStream();
    m_time = m_time - m_uncounted - length;
    m_uncounted = {};
    if (m_time.num < 0) {
        m_score.warnings.Add(Say(Text::kBackupTooFar), OffsetOf(backup));
        m_time = {};
    }
    return {};
}

Problem PartReader::ReadForward(pugi::xml_node forward) {
    Rational length;
    if (Problem problem = ReadMove(forward, length)) {
        return problem;
    }
    if (length.IsZero()) {
        m_score.warnings.Add(Say(Text::kEmptyForward), OffsetOf(forward));
    }
    m_time = m_time + length;
    Reach(m_time);
    return m_time.IsValid() ? Problem{} : Problem{Text::kTimesDisagree, OffsetOf(forward)};
}

Problem PartReader::ReadItem(pugi::xml_node item) {
    PartMeasure& measure = m_part.measures.back();
    const std::size_t begin = OffsetOf(item);
    const std::size_t end = EndOf(m_score.text, item);
    if (std::strcmp(item.name(), "direction") == 0 && item.child("voice")) {
        m_directions.push_back({item, m_time, static_cast<u32>(measure.items.size()), false});
    }
    const bool setsDivisions =
        std::strcmp(item.name(), "attributes") == 0 && item.child("divisions");
    m_part.namesDivisions = m_part.namesDivisions || setsDivisions;
    if (setsDivisions && SaysNothingElse(item)) {
        measure.changesDivisions = true;
        return {};
    }
    MeasureItem& result = measure.items.emplace_back();
    result.begin = begin;
    result.end = end;
    result.time = m_time;
    result.offset = OffsetOfItem(item);
    result.closesMeasure = IsRightBarline(item);
    result.divisions = setsDivisions ? m_context.divisions : Rational{};
    result.lastEntry = m_lastEntry;
    AddLineEnds(item);
    return {};
}

Rational PartReader::OffsetOfItem(pugi::xml_node item) const {
    const auto divisions = DecimalOf(item.child_value("offset"));
    return divisions && !m_context.divisions.IsZero()
               ? Rational::Of(divisions->num * m_context.divisions.den,
                              divisions->den * m_context.divisions.num)
               : Rational{};
}

// Of a direction or a barline.
void PartReader::AddLineEnds(pugi::xml_node item) {
    for (const pugi::xml_node child : item.children()) {
        SpannerEnding ending;
        if (std::strcmp(child.name(), "direction-type") == 0) {
            AddLineEnds(child);
        } else if (ReadLineEnd(child, ending)) {
            const pugi::xml_node direction = child.parent().parent();
            ending.voice = direction.child_value("voice");
            ending.staff = static_cast<u16>(IntegerOf(direction.child_value("staff")).value_or(1));
            ending.measure = m_measure;
            ending.position = static_cast<i32>(RoundToUnits(m_time));
            m_spanners.Add(ending);
        }
    }
}

// Items after a note in its stream belong to the next note, if there is one.
void PartReader::EnterStream(const StreamPlace& note) {
    std::vector<MeasureItem>& items = m_part.measures.back().items;
    for (; m_itemsWaiting < items.size(); ++m_itemsWaiting) {
        MeasureItem& item = items[m_itemsWaiting];
        item.before = note.entry;
        item.staff = note.staff;
        item.voice = note.voice;
    }
    m_previous = note;
}

void PartReader::LeaveStream() {
    std::vector<MeasureItem>& items = m_part.measures.back().items;
    for (; m_itemsWaiting < items.size(); ++m_itemsWaiting) {
        MeasureItem& item = items[m_itemsWaiting];
        item.after = m_previous.entry;
        item.staff = m_previous.staff;
        item.voice = m_previous.voice;
    }
    m_previous = {};
}

Problem PartReader::ReadNote(pugi::xml_node node) {
    EnsureMeasure();
    if (m_context.divisions.IsZero()) {
        m_context.divisions = ImpliedDivisions(node);
        m_part.measures.back().divisions = m_context.divisions;
    }
    NoteElement note;
    if (Problem problem = m_notes.Read(node, m_context.divisions, m_measureFifths, note)) {
        return problem;
    }
    if (static_cast<std::size_t>(note.staff) > m_part.staves.size()) {
        return {Text::kNoSuchStaffInPart, OffsetOf(node)};
    }
    for (; m_directionsBefore < m_directions.size(); ++m_directionsBefore) {
        m_directions[m_directionsBefore].beforeGrace = note.grace;
    }
    m_part.namesVoices = m_part.namesVoices || !note.voice.empty();
    if (note.voice.empty()) {
        note.voice = kDefaultVoice;
    }
    if (note.length.IsZero() && !note.grace) {
        GiveLength(note);
    }
    bool isNew = false;
    EntryDraft& draft = EntryFor(note, isNew);
    AddText(draft, note, isNew);
    if (isNew) {
        m_lastEntry = draft.entry.entryNumber;
        if (!note.chord || m_chord.size() == 1) {
            EnterStream({draft.entry.entryNumber,
                         m_part.staves[static_cast<std::size_t>(note.staff - 1)].staff,
                         std::string{note.voice}});
        }
    }
    if (!AddNote(draft, note, isNew)) {
        return {Text::kTooManyMarks, OffsetOf(node)};
    }
    if (!draft.End().IsValid()) {
        return {Text::kTimesDisagree, OffsetOf(node)};
    }
    Reach(draft.End());
    if (!note.chord || m_chord.size() == 1) {
        m_time = draft.End();
    }
    return {};
}

// A note whose <duration> is 0 lasts as long as its chord, or as its type says; what follows it in
// its voice begins later than the file counts.
void PartReader::GiveLength(NoteElement& note) {
    const bool joins = note.chord && !m_chord.empty();
    Rational length = joins ? m_chord.front().draft->form.length
                            : Rational::OfUnits(NotatedLength(note.type, note.dots));
    const pugi::xml_node ratio = note.node.child("time-modification");
    const auto actual = IntegerOf(ratio.child_value("actual-notes"));
    const auto normal = IntegerOf(ratio.child_value("normal-notes"));
    if (!joins && actual && normal && *actual > 0 && *normal > 0) {
        length = Rational::Of(length.num * *normal, length.den * *actual);
    }
    if (length.IsZero()) {
        return;
    }
    m_score.warnings.Add(Say(Text::kZeroDuration), OffsetOf(note.node));
    note.length = length;
    note.isTimed = false;
    m_uncounted = joins ? m_uncounted : m_uncounted + length;
}

// A chord's note joins the entry on its own staff and in its own voice, if it is as long.
EntryDraft& PartReader::EntryFor(const NoteElement& note, bool& isNew) {
    Rational start = m_time;
    if (note.chord && !m_chord.empty()) {
        start = m_chord.front().draft->start;
        for (const ChordMember& member : m_chord) {
            const EntryDraft& draft = *member.draft;
            const bool fits = member.staff == note.staff && member.voice == note.voice &&
                              draft.form.length == note.length && draft.Grace() == note.grace &&
                              draft.entry.noteCount > 0 && !note.rest &&
                              draft.entry.noteCount < kMaxNotesPerEntry;
            if (fits) {
                return *member.draft;
            }
        }
    } else {
        m_chord.clear();
    }
    EntryDraft& draft = m_layers.Add(note.staff - 1, note.voice);
    draft.start = start;
    if (!m_chord.empty() && m_chord.front().staff != note.staff) {
        m_part.chordParts.insert(draft.entry.entryNumber);
    }
    m_chord.push_back({&draft, note.staff, note.voice});
    isNew = true;
    return draft;
}

// Notes of a chord that became several entries make no sense one entry at a time; what says
// another length than it takes would move what is written after it.
void PartReader::AddText(EntryDraft& draft, const NoteElement& note, bool isNew) {
    const std::string_view text = m_score.text;
    const std::size_t begin = OffsetOf(note.node);
    if (isNew) {
        draft.text.begin = begin;
        draft.text.divisions = m_context.divisions;
        draft.isOnePiece = !note.chord && note.isTimed;
    } else {
        const std::string_view between = text.substr(draft.text.end, begin - draft.text.end);
        draft.isOnePiece = draft.isOnePiece && note.isTimed && Trimmed(between).empty();
    }
    draft.text.end = EndOf(text, note.node);
    for (const ChordMember& member : m_chord) {
        member.draft->isOnePiece = member.draft->isOnePiece && m_chord.size() == 1;
    }
}

bool PartReader::AddNote(EntryDraft& draft, const NoteElement& note, bool isNew) {
    EXENTRY& entry = draft.entry;
    if (isNew) {
        draft.form.length = note.length;
        draft.form.type = note.type;
        draft.form.dots = static_cast<u8>(std::min(note.dots, 15));
        draft.form.timeModification = note.timeModification;
        draft.ratio = note.ratio;
        draft.form.rest = note.restElement;
        entry.flags |= note.grace ? EntryFlag::kGrace : 0U;
        entry.flags |= note.rest ? EntryFlag::kNoNotes : EntryFlag::kNote;
        entry.flags |= note.rest && note.hidden ? EntryFlag::kIgnore : 0U;
    }
    EntryPlace place{&entry,          &draft.form,
                     entry.noteCount, m_part.staves[static_cast<std::size_t>(note.staff - 1)].staff,
                     m_measure,       draft.start};
    if (!note.rest) {
        EXNOTE& head = entry.notes[entry.noteCount++];
        head.pitch = note.pitchField;
        head.second = note.pitchFragment;
        head.noteID = static_cast<u16>(entry.noteCount);
        head.flags = u32{head.noteID} << 16U;
    }
    const bool fits = m_attachments.Read(note, place);
    if (!m_attachments.Brackets().empty()) {
        draft.brackets = m_score.fragments.InternCopy(
            std::string{m_score.fragments[draft.brackets]}.append(m_attachments.Brackets()));
    }
    return fits;
}

bool PartReader::StoreDirection(const VoicedDirection& direction) {
    const int staff = IntegerOf(direction.node.child_value("staff")).value_or(1) - 1;
    const std::string_view voice = Trimmed(direction.node.child_value("voice"));
    const int layer = m_layers.LayerOf(staff, voice);
    if (layer < 0 || layer >= kLayers) {
        return true;
    }
    ExpressionPlace place;
    place.staff = m_part.staves[static_cast<std::size_t>(staff)].staff;
    place.measure = m_measure;
    place.layer = static_cast<u16>(layer);
    place.position = static_cast<i32>(RoundToUnits(direction.time));
    place.graceIndex = direction.beforeGrace ? i16{1} : i16{0};
    const Frame* frame = m_document.FindFrame({place.staff, m_measure, place.layer});
    if (frame != nullptr) {
        place.atEntry = std::ranges::any_of(frame->entries, [&](const EXENTRY& entry) {
            return entry.elapsedTime == place.position;
        });
    }
    const FragmentId text = m_score.fragments.Intern(TextOf(m_score.text, direction.node));
    return AddExpression(m_score, place, text, direction.item);
}

}  // namespace standin
