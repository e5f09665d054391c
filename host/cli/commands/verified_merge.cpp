#include "host/cli/commands/verified_merge.h"

#include <set>
#include <utility>

#include "host/texts/texts.h"
#include "host/verify/merge_faults.h"

namespace standin::cli {

namespace {

// The voices of a layer in a measure of a staff.
std::set<std::string> VoicesIn(const Document& document, const StaffVoices& voices, FrameKey key) {
    std::set<std::string> names;
    if (const Frame* frame = document.FindFrame(key)) {
        for (const EXENTRY& entry : frame->entries) {
            names.insert(voices.NameAt(key.measure, key.layer, u32{entry.entryNumber}));
        }
    }
    return names;
}

}  // namespace

VerifiedMerge::VerifiedMerge(const ImportedScore& score, const MergeOptions& options, bool verifies)
    : m_score{score}, m_options{options}, m_verifies{verifies} {
    if (verifies) {
        m_before = readback::ReadContentOfText(score.text, m_texts);
    }
}

MergeRun VerifiedMerge::Run(const EREGION& selection) {
    Document& document = *m_score.document;
    if (!m_verifies) {
        return RunMerge(document, selection, m_options);
    }
    if (m_options.mode != 0) {
        NoteCleared(selection);
    }
    document.selection = selection;
    const DocumentContent start = StartOfMerge(document, m_options);
    MergeRun run = RunMerge(document, selection, m_options);
    for (std::string& fault : FaultsOfMerge(document, start, document.Content(), m_options)) {
        m_losses.push_back(std::move(fault));
    }
    return run;
}

// The music that Replace clears: the destination's voices in the selection.
void VerifiedMerge::NoteCleared(const EREGION& selection) {
    u32 staff = 0;
    for (const ScorePart& part : m_score.parts) {
        for (const StaffVoices& voices : part.staves) {
            ++staff;
            if (i64{staff} < selection.startSlot || i64{staff} > selection.endSlot) {
                continue;
            }
            for (int measure = selection.startMeasure; measure <= selection.endMeasure; ++measure) {
                const FrameKey key{voices.staff, static_cast<u16>(measure), m_options.destination};
                const i64 first = measure == selection.startMeasure ? selection.startPosition : 0;
                const i64 last =
                    measure == selection.endMeasure ? selection.endPosition : kEndOfMeasure;
                for (const std::string& voice : VoicesIn(*m_score.document, voices, key)) {
                    m_cleared.push_back({staff, key.measure, voice, first, last});
                }
            }
        }
    }
}

std::vector<std::string> VerifiedMerge::Losses(const std::string& bytes) {
    if (!m_verifies) {
        return {};
    }
    const readback::Reading after =
        m_before.score == nullptr
            ? readback::Reading{}
            : readback::ReadContentOfResult(bytes, m_texts, *m_before.score, m_score.text);
    if (after.score == nullptr) {
        m_losses.push_back(m_before.score == nullptr
                               ? Say(Text::kSecondReading, {m_before.problem})
                               : Say(Text::kResultUnreadable, {after.problem}));
        return m_losses;
    }
    for (const readback::Difference& fault :
         readback::FaultsOfMerge(*m_before.score, *after.score, m_texts, m_cleared)) {
        m_losses.push_back(WordsFor(fault));
    }
    return m_losses;
}

}  // namespace standin::cli
