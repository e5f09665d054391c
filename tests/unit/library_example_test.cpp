// Runs the command and the record class that docs/class-library.md shows.
#include "library_example.h"

#include <gtest/gtest.h>
#include <string>

#include "Class Files/foundation/FinPIUtil.h"
#include "Class Files/interface/FinPIAlert.h"
#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace {

// The command owns itself.
void Start(standin::StandIn& host, BookmarkMeasures* command) {
    const EREGION whole = host.Score().WholeRegion();
    command->Start(&*host.Score().selection, &whole);
}

TEST(LibraryExample, BookmarksSelectedMeasures) {
    standin::StandIn host(2, 3);
    host.Score().LayoutSystems(3);
    host.Select(1, 2, 0, 2, 3, kEndOfMeasure);
    Start(host, new BookmarkMeasures(nullptr, 0, {}));

    std::string bookmarks;
    FinPIBookmark bookmark(0);
    for (bookmark.Rewind(); bookmark.LoadNext() != 0;) {
        bookmarks += bookmark.GetCmper1() == host.Staff(1) ? "1:" : "2:";
        bookmarks += std::to_string(bookmark.measure) + " ";
    }
    EXPECT_EQ(bookmarks, "1:2 1:3 2:2 2:3 ");
    EXPECT_EQ(host.Score().UndoTexts().size(), 1U) << "one undoable edit";
    EXPECT_TRUE(host.Score().Undo());
    EXPECT_TRUE(host.Score().Records().OfTag(HostTag("otBk")).empty());
    EXPECT_EQ(TakePendingError(), "");
}

class WithoutReports final : public BookmarkMeasures {
public:
    using BookmarkMeasures::BookmarkMeasures;
    i16 AllowProgress(u64, i16) override { return 0; }
};

TEST(LibraryExample, MayDisableProgress) {
    standin::StandIn host(6, 10);
    host.SelectAll();
    Start(host, new WithoutReports(nullptr, 0, {}));
    EXPECT_EQ(standin::App().progressDisplaysOpened, 1U);
    EXPECT_TRUE(standin::App().progress.empty());
}

class Unprepared final : public BookmarkMeasures {
public:
    using BookmarkMeasures::BookmarkMeasures;
    i16 PrepareDocument() override { return 0; }
};

TEST(LibraryExample, MayEndBeforeTheFirstMeasure) {
    standin::StandIn host;
    host.SelectAll();
    Start(host, new Unprepared(nullptr, 0, {}));
    EXPECT_TRUE(host.Score().Records().OfTag(HostTag("otBk")).empty());
}

TEST(LibraryExample, ForgetsAnswers) {
    const standin::StandIn host;
    constexpr i16 kQuestion = 20003;
    const u16 answer = 1;
    ASSERT_EQ(ZKFX_PutSettings(FinPIAlert::kSettingName, kQuestion, &answer, sizeof(answer),
                               FinPIAlert::kStoredUnder),
              1);
    BookmarkMeasures(nullptr, 0, {}).ResetAlerts();
    EXPECT_EQ(
        ZKFX_GetSettings(FinPIAlert::kSettingName, kQuestion, nullptr, 0, FinPIAlert::kStoredUnder),
        0U);
}

}  // namespace
