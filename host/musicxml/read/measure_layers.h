// The entries of one part's measure, gathered as they are read, then laid into layers.
#pragma once

#include <deque>
#include <string_view>
#include <vector>

#include "host/musicxml/imported_score.h"
#include "host/musicxml/problem.h"
#include "host/musicxml/read/tuplet_groups.h"

namespace standin {

class MeasureLayers {
public:
    MeasureLayers(ImportedScore& score, ScorePart& part, std::array<bool, kLayers> ownLayers)
        : m_score{score},
          m_part{part},
          m_own{ownLayers},
          m_tuplets{score.fragments, part.crossingBrackets} {}

    void Begin(u16 measure);

    // A new entry of a voice on a staff of the part (from 0); valid until Store.
    EntryDraft& Add(int staff, std::string_view voice);

    // Puts each voice into its layer and stores the frames. Entries that overlap their own voice go
    // to a layer that is free in this measure, else to voice 2 of their layer. Entries that fit in
    // no layer are carried.
    Problem Store();

    // The layer of the measure's voice, kLayers or more if it is carried; -1 if it has no music
    // there.
    int LayerOf(int staff, std::string_view voice) const;

private:
    // Consecutive entries that do not overlap.
    struct Line {
        std::vector<EntryDraft*> entries;
        Rational end{};
    };
    struct Voice {
        int staff = 0;
        std::string name;
        std::vector<EntryDraft*> entries;
        std::vector<Line> lines;
        int layer = -1;
        bool isGuest = false;  // its entries are among those of another voice
    };
    // The layers of one staff.
    struct Used {
        std::array<bool, kLayers> layers{};
        int nextCarried = kLayers;
    };

    static void SplitIntoLines(Voice& voice);
    Problem ChooseLayers(int staff);
    Problem ChooseFurtherLayer(Voice& voice, Used& used);
    Problem TooManyVoices(const Voice& voice) const;
    bool ShareLayer(Voice& voice);
    int FreeLayer(const Used& used) const;
    int TakeLayer(const Voice& voice, int layer, Used& used);
    Problem StoreVoice(Voice& voice, Used& used);
    Problem StoreLine(const Voice& voice, const Line& line, int layer);
    void KeepText(const Line& line);
    static void DissolveTornTuplets(const Voice& voice);
    Problem LayOut(const Line& line, u32 flags, Rational from, std::vector<EXENTRY>& frame);
    Problem AppendSecondVoice(const Voice& voice, const Line& line, std::vector<EXENTRY>& frame);
    void PutFrame(int staff, int layer, std::vector<EXENTRY> frame);

    ImportedScore& m_score;
    ScorePart& m_part;
    std::array<bool, kLayers> m_own;
    TupletGroups m_tuplets;
    u16 m_measure = 0;
    std::deque<EntryDraft> m_drafts;
    std::vector<Voice> m_voices;  // in order of first appearance in the measure
};

}  // namespace standin
