// Refusals that a run survives, and refusals that end it.
#include "platform/headless/session.h"
#include "tests/unit/support/plugin_driver.h"

namespace standin {
namespace {

// Chords, filled rests, grace notes, details, a smart shape and an expression.
void Write(StandIn& host) {
    host.Write({"gs:c5 q:c4 q:r h:r", "gs:g4 q:e4 q:f4 (3:2 e:g4 e:a4 e:b4) q:c5"});
    host.Layer(1, 2, 1, "h:c4 h:d4");
    host.Attach({1, 1, 1, 1}, HostTag("edIM"), "accent");
    host.Attach({1, 1, 1, 2}, HostTag("SdvE"), "word");
    host.Slur({1, 1, 1, 1}, {1, 2, 1, 0});
    host.Expression(1, 1, 1024, 1);
}

TEST(Failures, DisplayFailuresDoNotStopRun) {
    for (const HostCall call :
         {HostCall::kStartMassEdit, HostCall::kRebeamRegion, HostCall::kRedrawMusic,
          HostCall::kStartFinaleEdit, HostCall::kEndFinaleEdit}) {
        for (const bool isMissing : {false, true}) {
            StandIn host;
            host.Write({"", "w:c4"});
            const Plugin plugin;
            if (isMissing) {
                platform::headless::HideHostFunction(NameOf(call));
            } else {
                App().faults.refuseKind = FaultPlan::AllOf(call);
            }
            plugin.Merge(host);
            EXPECT_TRUE(App().alerts.empty()) << NameOf(call);
            EXPECT_EQ(host.Layer(1, 1, 0), "w:c4") << NameOf(call);
            EXPECT_EQ(App().calls.Of(HostCall::kCancelFinaleEdit), 0U) << "an edit that was ended";
            host.Score().EndEdit();
        }
    }
}

// A run of rests that the host keeps stays as it is; all other music is merged.
TEST(Failures, RefusedRestRunStays) {
    for (const HostCall call : {HostCall::kInsertEXENTRY, HostCall::kDeleteEXENTRY}) {
        StandIn host;
        host.Write({"q:c4 q:r h:d4", "q:e4 q:f4 h:g4"});
        App().faults.refuseKind = FaultPlan::AllOf(call);
        Plugin{}.Merge(host);
        EXPECT_EQ(host.Layer(1, 1, 0), "q:c4,e4 q:r h:d4,g4");
        EXPECT_EQ(host.Layer(1, 1, 1), "q:r q:f4 h:r");
        EXPECT_TRUE(App().alerts.empty());
    }
}

TEST(Failures, KeptGraceRestFailsRun) {
    StandIn host;
    host.Write({"gs:c5 w:c4", "gs:e5 w:e4"});
    App().faults.refuseKind = FaultPlan::AllOf(HostCall::kDeleteEXENTRY);
    const u64 before = host.Score().Digest();
    Plugin{}.Merge(host);
    EXPECT_EQ(host.Score().Digest(), before);
    EXPECT_EQ(App().alerts.size(), 1U);
}

// Without the measure's own duration, or the one in the staff, positions are unknown.
TEST(Failures, UnknownDurationEndsRun) {
    for (u64 nth = 1; nth <= 2; ++nth) {
        StandIn host;
        host.Write({"q:c4 q:r h:d4", "q:e4 q:f4 h:g4"});
        App().ResetCounts();
        App().faults.refuseKind = FaultPlan::OfKind{HostCall::kGetMeasureDuration, nth, nth};
        const u64 before = host.Score().Digest();
        Plugin{}.Merge(host);
        EXPECT_EQ(host.Score().Digest(), before) << nth;
        EXPECT_EQ(App().alerts.size(), 1U) << nth;
    }
}

// Nothing is written any more by a run that will be rolled back.
TEST(Failures, FailedSaveEndsRunAtOnce) {
    u64 saves = 0;
    for (u64 nth = 1; nth == 1 || saves >= nth; ++nth) {
        StandIn host{1, 2};
        Write(host);
        App().faults.refuseKind = FaultPlan::OfKind{HostCall::kSaveTGF, nth, nth};
        const u64 before = host.Score().Digest();
        App().ResetCounts();
        Plugin{}.Merge(host);
        saves = App().calls.Of(HostCall::kSaveTGF);
        if (!App().alerts.empty()) {
            EXPECT_EQ(saves, nth);
            EXPECT_EQ(host.Score().Digest(), before);
        }
    }
}

// Checked while the failure is shown, before the edit is undone.
TEST(Failures, FailedShapeMoveKeepsLyricMarks) {
    StandIn host;
    host.Write({"h:c4 h:r", "h:e4 h:f4"});
    host.Slur({1, 1, 1, 0}, {1, 1, 1, 1});
    host.Slur({1, 1, 1, 0}, {1, 1, 1, 1}, Tag::kShapeOnLyric);
    App().faults.refuseKind = FaultPlan::OfKind{HostCall::kSaveEData};  // the first end's
    const u32 first = host.EntryNumber({1, 1, 1, 0});
    int marks = 0;
    App().alertListener = [&](const Alert&) {
        marks = host.Score().Records().CountOfEntry(Tag::kShapeOnLyric, first);
    };
    Plugin{}.Merge(host);
    App().alertListener = nullptr;
    EXPECT_EQ(marks, 1);
}

TEST(Failures, AnotherDocumentBecomesCurrent) {
    for (u64 call = 1, total = 1; call <= total && !HasFailure(); ++call) {
        StandIn host{1, 2};
        Write(host);
        const auto music = Music(host.Score());
        Document& other = App().OpenDocument(u"other");
        App().ResetCounts();
        App().faults.switchDocument = FaultPlan::Switch{call, other.Number()};
        Plugin{}.Merge(host);
        total = App().calls.Total();
        App().faults = {};
        App().SetCurrentDocument(host.Score().Number());
        host.Score().CancelEdit();  // if it is open: the edit belonged to this document
        EXPECT_EQ(Music(host.Score()), music) << "before call " << call;
    }
}

// Callbacks that an older host does not export.
TEST(MissingCallbacks, RunStillMerges) {
    StandIn host{1, 2};
    Write(host);
    const Plugin plugin;
    for (const char* name :
         {"FX_GetMaxLayers", "FX_GetShowLayer", "FX_GetCurrentPartID", "FX_MassEditProgress",
          "FX_StartMassEdit", "FX_RebeamRegion", "FX_GetMeasureNumberString"}) {
        platform::headless::HideHostFunction(name);
    }
    plugin.Merge(host, {.mode = 1});
    EXPECT_EQ(host.Layer(1, 2, 0), "h:c4 h:d4");
    EXPECT_EQ(host.Score().UndoTexts(), std::vector<std::u16string>{u"Plyweld #1-#2"});
    EXPECT_TRUE(App().alerts.empty());
}

}  // namespace
}  // namespace standin
