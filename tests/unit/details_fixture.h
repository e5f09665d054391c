// Two layers of a measure whose details are copied, deleted and moved as in a merge: both frames
// are held, and saved afterwards.
#pragma once

#include <map>

#include "Class Files/score/details/DetailKind.h"
#include "Class Files/score/document/FinPIMetricsCache.h"
#include "Class Files/score/frames/FinPIEntryPtr.h"
#include "tests/unit/support/library_test.h"
#include "tests/unit/support/mannered.h"

namespace standin {

// The sets a merge copies onto chords and onto placed entries, and deletes.
inline constexpr u32 kOntoChord = 0x38F6FFFE;
inline constexpr u32 kOntoPlaced = 0x38F6FFFF;
inline constexpr u32 kFromSource = 0x30F6FFFE;

class Details : public LibraryTest {
protected:
    static constexpr u16 kSourceLayer = 0;
    static constexpr u16 kTargetLayer = 1;

    Details() { FinPIMetricsCache::ClearAll(); }

    // The stored details and their flags still match after the frames are saved.
    ~Details() override {
        if (source) {
            SaveBoth();
        }
        EXPECT_EQ(App().calls.flagsOutOfStep, 0U);
    }

    void Write(std::string_view sourceNotation, std::string_view targetNotation) {
        host.Layer(1, 1, kSourceLayer, sourceNotation);
        host.Layer(1, 1, kTargetLayer, targetNotation);
    }

    static EntryPlace Source(int index = 0) { return {1, 1, kSourceLayer, index}; }
    static EntryPlace Target(int index = 0) { return {1, 1, kTargetLayer, index}; }

    // The content of a note's detail.
    static std::string OfNote(char noteID, std::string_view content) {
        return std::string{noteID, '\0'} + std::string{content};
    }

    // After the last Write and Attach.
    void LoadBoth() {
        source = FinPITGFPtr{host.Staff(1), 1, kSourceLayer};
        target = FinPITGFPtr{host.Staff(1), 1, kTargetLayer};
        App().ResetCounts();
    }

    // With these details on the first entry of the source.
    void WriteAndLoad(std::string_view sourceNotation, std::string_view targetNotation,
                      const std::map<u32, std::string_view>& onSource = {}) {
        Write(sourceNotation, targetNotation);
        for (const auto& [tag, content] : onSource) {
            host.Attach(Source(), tag, content);
        }
        LoadBoth();
    }

    i16 Copy(u32 kinds, i16 from = 0, i16 to = 0) {
        return target.EntryAt(to).CopyDetailsFrom(kinds, source.EntryAt(from));
    }

    // Whether anything was deleted; -1 when it failed.
    i16 Delete(u32 kinds, i16 from = 0) {
        i16 anyDeleted = 0;
        return source.EntryAt(from).DeleteDetails(kinds, anyDeleted) == 1 ? anyDeleted : i16{-1};
    }

    void SaveBoth() {
        EXPECT_EQ(source.ReloadTGF(), 1);
        EXPECT_EQ(target.ReloadTGF(), 1);
    }

    FinPITGFPtr source;
    FinPITGFPtr target;
};

}  // namespace standin
