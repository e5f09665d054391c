// Several scores in one command: which scores are found, and their outputs.
#include <algorithm>
#include <gtest/gtest.h>

#include "host/cli/commands/batch.h"
#include "host/cli/io/output_file.h"
#include "host/score/application.h"
#include "tests/unit/support/files.h"

namespace {

namespace fs = std::filesystem;
using namespace standin;
using namespace standin::cli;

class BatchItems : public testing::Test {
protected:
    BatchItems() {
        fs::create_directories(folder / "in" / "deep");
        for (const char* name : {"in/b.mxl", "in/a score.musicxml", "in/notes.txt", "in/deep/a.xml",
                                 "in/\xE8\xB6\x8A\xE5\xBE\x8C.xml"}) {
            std::ofstream{folder.Path() / PathOf(name)} << "<score-partwise/>";
        }
    }

    // The outputs below the output folder, or the error.
    std::string Outputs(BatchCommand command) const {
        for (std::string& input : command.inputs) {
            input = TextOf(folder.Path() / PathOf(input));
        }
        command.folder = (folder / "out").string();
        const auto found = ItemsOf(command);
        if (const auto* problem = std::get_if<std::string>(&found)) {
            return *problem;
        }
        std::string names;
        for (const BatchItem& item : std::get<std::vector<BatchItem>>(found)) {
            const fs::path relative = item.output.lexically_relative(folder / "out");
            names += TextOf(relative) + ';';
        }
        return names;
    }

    BatchCommand With(std::vector<std::string> inputs) const {
        BatchCommand command;
        command.inputs = std::move(inputs);
        return command;
    }

    TemporaryFolder folder;
};

TEST_F(BatchItems, FolderScoresAreSortedByName) {
    EXPECT_EQ(Outputs(With({"in"})), "a score.musicxml;b.mxl;\xE8\xB6\x8A\xE5\xBE\x8C.xml;");
}

TEST_F(BatchItems, ScoresKeepTheHostsManners) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(ArgumentsFor({"a.xml", {}}, {"--verify"}),
              (Words{"merge", "a.xml", "--json", "--color", "never", "--verify"}));
    App().manners = {.wide = true, .gaps = true};
    EXPECT_EQ(ArgumentsFor({"a.xml", "b.xml"}, {}),
              (Words{"--host", "wide,gaps", "merge", "a.xml", "--json", "--color", "never", "-o",
                     "b.xml"}));
    App().manners = {};
}

TEST_F(BatchItems, RecursiveKeepsSubfolders) {
    BatchCommand command = With({"in"});
    command.recursive = true;
    EXPECT_NE(Outputs(command).find("deep/a.xml;"), std::string::npos) << Outputs(command);
}

TEST_F(BatchItems, ExpandsWildcards) {
    EXPECT_EQ(Outputs(With({"in/?.m*"})), "b.mxl;");
    EXPECT_NE(Outputs(With({"in/*.pdf"})).find("no file matches"), std::string::npos);
}

TEST_F(BatchItems, RepeatedScoreIsMergedOnce) {
    EXPECT_EQ(Outputs(With({"in/b.mxl", "in/b.mxl"})), "b.mxl;");
}

TEST_F(BatchItems, RefusesEqualOutputs) {
    fs::create_directory(folder / "other");
    std::ofstream{folder / "other" / "b.mxl"} << "<score-partwise/>";
    EXPECT_NE(Outputs(With({"in/b.mxl", "other/b.mxl"})).find("the same file"), std::string::npos);
}

TEST_F(BatchItems, RefusesEqualReportPages) {
    fs::create_directory(folder / "other");
    std::ofstream{folder / "other" / "b.mxl"} << "<score-partwise/>";
    BatchCommand command = With({"in/b.mxl", "other/b.mxl"});
    command.inPlace = true;
    EXPECT_EQ(Outputs(command).find("the same file"), std::string::npos);
    command.report = (folder / "reports").string();
    EXPECT_NE(Outputs(command).find("the same file"), std::string::npos);
}

TEST_F(BatchItems, RefusesToOverwriteInput) {
    fs::create_directory(folder / "out");
    std::ofstream{folder / "out" / "c.xml"} << "<score-partwise/>";
    EXPECT_NE(Outputs(With({"out/c.xml"})).find("onto itself"), std::string::npos);
}

TEST_F(BatchItems, FolderWithoutScoresIsRefused) {
    fs::create_directory(folder / "empty");
    EXPECT_NE(Outputs(With({"empty"})).find("no scores"), std::string::npos);
}

}  // namespace
