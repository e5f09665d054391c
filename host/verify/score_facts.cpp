#include "host/verify/score_facts.h"

#include <algorithm>
#include <map>
#include <utility>

#include "host/score/records/detail_kinds.h"
#include "host/score/records/tags.h"
#include "host/texts/texts.h"
#include "host/verify/note_name.h"
#include "shell/host/detail_flags.h"

namespace standin {
namespace {

// A detail with an up-stem and a down-stem variant counts as the same one.
std::string NameOf(u32 tag) {
    const DetailKindRow* const kind = FindDetailKind(tag);
    tag = kind != nullptr ? kind->tag : tag;
    std::string name;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        const char letter = static_cast<char>(tag >> shift);
        name += letter < ' ' ? static_cast<char>('0' + letter) : letter;
    }
    return name;
}

std::string ReadableContent(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes.substr(0, bytes.find_last_not_of('\0') + 1)) {
        if (byte > ' ' && byte < '\x7F') {
            text += byte;
        } else {
            const auto value = static_cast<u8>(byte);
            text += {'.', kDigits[value >> 4U], kDigits[value & 15U]};
        }
    }
    return text;
}

std::string Describe(u32 tag, const Bytes& bytes, const EXENTRY& entry) {
    if (tag == Tag::kShapeOnEntry || tag == Tag::kShapeOnLyric) {
        return NameOf(tag) + " mark of shape " +
               std::to_string(FromBytes<EDTSmartShapeEntMark>(bytes).shapeNumber);
    }
    if (!IsOfNote(tag)) {
        return NameOf(tag) + ' ' + ReadableContent(bytes);
    }
    const u16 noteID = FromBytes<NoteDetailHead>(bytes).noteID;
    for (const EXNOTE& note : entry.notes) {
        if (noteID != 0 && note.noteID == noteID) {
            return NameOf(tag) + ' ' + ReadableContent(std::string_view{bytes}.substr(2)) + " of " +
                   NameOfNote(note);
        }
    }
    return NameOf(tag) + " of no note";
}

void AddDetails(const DocumentContent& content, const EXENTRY& entry,
                std::vector<std::string>& attachments) {
    for (const auto& [tag, table] : content.records) {
        if (FamilyOf(tag) != RecordFamily::kEntryDetail || tag == Tag::kTuplet) {
            continue;
        }
        for (auto at = table.lower_bound(RecordKey::OfEntry(entry.entryNumber));
             at != table.end() && at->first.Entry() == entry.entryNumber; ++at) {
            attachments.push_back(Describe(tag, at->second, entry));
        }
    }
}

// Entries and the shapes that mark them, sorted.
std::vector<std::pair<u32, u16>> MarksIn(const DocumentContent& content) {
    std::vector<std::pair<u32, u16>> marks;
    for (const u32 tag : {Tag::kShapeOnEntry, Tag::kShapeOnLyric}) {
        const auto table = content.records.find(tag);
        if (table == content.records.end()) {
            continue;
        }
        for (const auto& [key, bytes] : table->second) {
            const auto mark = FromBytes<EDTSmartShapeEntMark>(bytes);
            marks.emplace_back(key.Entry(), u16{mark.shapeNumber});
        }
    }
    std::ranges::sort(marks);
    return marks;
}

// If an end's entry has lost its mark, the line is not drawn there.
std::multimap<u32, std::string> ShapeEndsOf(const DocumentContent& content) {
    std::multimap<u32, std::string> ends;
    const auto shapes = content.records.find(Tag::kSmartShape);
    if (shapes == content.records.end()) {
        return ends;
    }
    const auto marks = MarksIn(content);
    for (const auto& [key, bytes] : shapes->second) {
        const auto shape = FromBytes<EDTSmartShape>(bytes);
        const auto add = [&, number = key.OtherItem()](const EDTSmartShapeEnd& end,
                                                       const char* which) {
            const std::pair mark{u32{end.entryNumber}, number};
            if (std::ranges::binary_search(marks, mark)) {
                ends.emplace(mark.first, which + (" of shape " + std::to_string(number)));
            }
        };
        add(shape.start, "start");
        add(shape.end, "end");
    }
    return ends;
}

std::string TimeOf(const EXENTRY& entry) {
    const bool isGrace = (entry.flags & EntryFlag::kGrace) != 0;
    return std::to_string(entry.elapsedTime) + '+' + std::to_string(entry.actualDuration) +
           (isGrace ? " grace " + std::to_string(entry.duration) : std::string{});
}

void AddFlagDetails(const EXENTRY& entry, std::vector<std::string>& attachments) {
    for (const u32 flag : {DetailFlag::kPrimaryBeamBreak, DetailFlag::kFrozenStem,
                           DetailFlag::kFlagDetail1, DetailFlag::kFlagDetail2}) {
        if ((entry.flags & flag) != 0) {
            attachments.push_back("flag " + std::to_string(flag));
        }
    }
}

}  // namespace

std::string EntryFacts::Place() const {
    return Say(Text::kFaultPlace, {std::to_string(key.staff), std::to_string(key.measure), time});
}

std::vector<EntryFacts> FactsOf(const DocumentContent& content) {
    StaffMeasures all;
    for (const auto& [key, frame] : content.frames) {
        all.insert(MeasureOf(key));
    }
    return FactsOf(content, all);
}

std::vector<EntryFacts> FactsOf(const DocumentContent& content, const StaffMeasures& measures) {
    const std::multimap<u32, std::string> shapeEnds = ShapeEndsOf(content);
    std::vector<EntryFacts> facts;
    for (const auto& [key, frame] : content.frames) {
        if (!measures.contains(MeasureOf(key))) {
            continue;
        }
        for (const EXENTRY& entry : frame.entries) {
            EntryFacts& fact = facts.emplace_back(EntryFacts{&entry, key, TimeOf(entry), {}, {}});
            for (i16 i = 0; i < entry.noteCount; ++i) {
                fact.notes.push_back(NameOfNote(entry.notes[i]));
            }
            AddDetails(content, entry, fact.attachments);
            const auto [first, last] = shapeEnds.equal_range(u32{entry.entryNumber});
            std::for_each(first, last,
                          [&fact](const auto& end) { fact.attachments.push_back(end.second); });
            AddFlagDetails(entry, fact.attachments);
            std::ranges::sort(fact.notes);
            std::ranges::sort(fact.attachments);
            fact.attachments.erase(std::unique(fact.attachments.begin(), fact.attachments.end()),
                                   fact.attachments.end());
        }
    }
    return facts;
}

}  // namespace standin
