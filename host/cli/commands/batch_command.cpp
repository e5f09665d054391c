#include <algorithm>
#include <atomic>
#include <fstream>
#include <iostream>
#include <mutex>
#include <nlohmann/json.hpp>
#include <sstream>
#include <thread>

#include "host/cli/commands/batch.h"
#include "host/cli/commands/commands.h"
#include "host/cli/io/messages.h"
#include "host/cli/io/output_file.h"
#include "host/cli/io/report_file.h"
#include "host/cli/io/terminal.h"
#include "host/report/page/index_page.h"
#include "host/system/child_process.h"
#include "host/system/machine.h"
#include "host/texts/system_errors.h"

namespace standin::cli {

namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream{file, std::ios::binary}.rdbuf();
    return std::move(text).str();
}

struct Totals {
    int chords = 0;
    int notes = 0;
    int stayed = 0;
    int cleared = 0;
};

std::string Count(int number, Text one, Text many) {
    return Say(number == 1 ? one : many, {std::to_string(number)});
}

std::string Summary(Text line, std::vector<std::string> start, const Totals& totals) {
    start.push_back(Count(totals.chords, Text::kOneChordFormed, Text::kManyChordsFormed));
    start.push_back(Count(totals.notes, Text::kOneNoteMoved, Text::kManyNotesMoved));
    start.push_back(Count(totals.stayed, Text::kOneStayedShort, Text::kManyStayedShort));
    std::string text = Say(line, start);
    if (totals.cleared > 0) {
        text += ", " + Count(totals.cleared, Text::kOneNoteCleared, Text::kManyNotesCleared);
    }
    return text;
}

// The last message of a run, without the program's name.
std::string LastComplaint(std::string messages) {
    constexpr std::string_view kProgram = "plyweld: ";
    messages.resize(messages.find_last_not_of('\n') + 1);
    const std::string line = messages.substr(messages.find_last_of('\n') + 1);
    return line.starts_with(kProgram) ? line.substr(kProgram.size()) : line;
}

// Merges each score in its own process, several at a time, so that a crash or a lack of memory does
// not affect the others.
class Batch {
public:
    Batch(const BatchCommand& command, std::vector<BatchItem> items)
        : m_command{command},
          m_items{std::move(items)},
          m_rows(m_items.size()),
          m_temporary{machine::MakeTemporaryFolder()} {}
    ~Batch() {
        std::error_code failed;
        fs::remove_all(m_temporary, failed);
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    ExitCode Run() {
        std::vector<std::thread> workers;
        const std::size_t count =
            std::min(m_items.size(), static_cast<std::size_t>(m_command.jobs));
        workers.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            workers.emplace_back([this] { Work(); });
        }
        for (std::thread& worker : workers) {
            worker.join();
        }
        m_progress.Clear();
        const std::string problem = m_command.report.empty() ? std::string{} : WriteIndex();
        Conclude();
        if (!problem.empty()) {
            Complain(problem);
        }
        if (m_interrupted) {
            return kInterrupted;
        }
        return m_failed.empty() && problem.empty() ? kDone : kFailed;
    }

private:
    void Work() {
        for (std::size_t next = m_next++; next < m_items.size() && !m_interrupted;
             next = m_next++) {
            MergeOne(next);
        }
    }

    void MergeOne(std::size_t index) {
        const BatchItem& item = m_items[index];
        const fs::path report = m_temporary / (std::to_string(index) + ".json");
        const fs::path errors = m_temporary / (std::to_string(index) + ".txt");
        fs::path target = item.output;
        if (m_command.inPlace) {
            target = m_temporary / std::to_string(index);
            target += item.input.extension();
        }
        int exitCode = kFailed;
        std::string problem = item.problem;
        if (problem.empty() && !m_command.inPlace) {
            problem = MakeFolderOf(target);
        }
        if (problem.empty()) {
            std::vector<std::string> options = m_command.options;
            if (!item.page.empty()) {
                const fs::path page = PathOf(m_command.report) / item.page;
                options.insert(options.end(), {"--report", TextOf(page.parent_path() / "")});
            }
            exitCode = machine::RunThisProgram(ArgumentsFor({item.input, target, {}}, options),
                                               report, errors);
            problem = exitCode < 0 ? Say(Text::kCrashed, {TextOf(item.input)}) : std::string{};
        }
        if (exitCode == kDone && m_command.inPlace) {
            problem = PutInPlace(item.input, target);
        }
        const std::lock_guard lock{m_output};
        m_interrupted = m_interrupted || exitCode == kInterrupted;
        m_progress.Clear();
        const std::string complaints = ContentOf(errors);
        std::cerr << complaints;
        if (!problem.empty()) {
            Complain(problem);
        }
        const bool isDone = exitCode == kDone && problem.empty();
        AddRow(index, isDone ? ContentOf(report) : std::string{});
        if (!isDone) {
            m_rows[index].problem = problem.empty() ? LastComplaint(complaints) : problem;
            m_rows[index].isMerged = false;
        }
        m_progress.Show(Say(Text::kMergedScores,
                            {std::to_string(++m_finished), std::to_string(m_items.size())}));
    }

    // Both return an error message.
    static std::string MakeFolderOf(const fs::path& file) {
        std::error_code failed;
        if (!file.parent_path().empty()) {
            fs::create_directories(file.parent_path(), failed);
        }
        return failed ? Say(Text::kCannotMakeFolder, {TextOf(file.parent_path()), WordsFor(failed)})
                      : std::string{};
    }

    static std::string PutInPlace(const fs::path& score, const fs::path& merged) {
        fs::path backup = score;
        backup += ".bak";
        std::error_code failed;
        if (fs::exists(backup, failed)) {
            return Say(Text::kBackupExists, {TextOf(backup)});
        }
        fs::copy_file(score, backup, failed);
        if (failed) {
            return Say(Text::kCannotKeep, {TextOf(score), WordsFor(failed)});
        }
        const std::string problem = WriteWhole(TextOf(score), ContentOf(merged));
        return problem.empty() ? problem : TextOf(score) + ": " + problem;
    }

    // report: empty when the score was not merged.
    void AddRow(std::size_t index, const std::string& report) {
        const BatchItem& item = m_items[index];
        const std::string name = TextOf(item.input);
        IndexRow& row = m_rows[index];
        row.page = TextOf(item.page.generic_u8string());
        row.score = TextOf(fs::path{item.page}.replace_extension());
        auto json = nlohmann::ordered_json::parse(report, nullptr, false);
        if (json.is_discarded() || !json.contains("totals")) {
            m_failed.push_back(name);
            return;
        }
        const auto& counts = json["totals"];
        row.chordsFormed = counts["chordsFormed"];
        row.restsFilled = counts["restsFilled"];
        row.notesMoved = counts["notesMoved"];
        row.notesCleared = counts["notesCleared"];
        row.stayed = counts["stayed"];
        const Totals totals{row.chordsFormed, row.notesMoved, row.stayed, row.notesCleared};
        m_totals.chords += totals.chords;
        m_totals.notes += totals.notes;
        m_totals.stayed += totals.stayed;
        m_totals.cleared += totals.cleared;
        if (m_command.json) {
            json["output"] = m_command.inPlace ? json["input"] : json["output"];
            m_reports.push_back(json);
        } else if (!m_command.quiet) {
            std::cout << Summary(Text::kSummaryLine, {name}, totals) << '\n' << std::flush;
        }
    }

    // Says what went wrong.
    std::string WriteIndex() {
        std::erase_if(m_rows, [](const IndexRow& row) { return row.score.empty(); });
        const fs::path file = PathOf(m_command.report) / "index.html";
        std::string problem = MakeFolderOf(file);
        if (problem.empty()) {
            problem = WriteWhole(TextOf(file), IndexAsPage(m_rows));
            problem = problem.empty() ? problem : TextOf(file) + ": " + problem;
        }
        return problem;
    }

    void Conclude() {
        if (m_command.json) {
            std::cout << m_reports.dump(2) << '\n';
        } else if (!m_command.quiet) {
            const std::size_t done = m_items.size() - m_failed.size();
            std::cout << Summary(Text::kTotalLine,
                                 {std::to_string(done), std::to_string(m_items.size())}, m_totals)
                      << '\n';
        }
        std::ranges::sort(m_failed);
        for (const std::string& name : m_failed) {
            Complain(Say(Text::kFailedLine, {name}));
        }
    }

    const BatchCommand& m_command;
    const std::vector<BatchItem> m_items;
    std::vector<IndexRow> m_rows;  // by item, guarded too; without a score: not come to
    const fs::path m_temporary;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<bool> m_interrupted = false;
    std::mutex m_output;  // guards the members below, and the streams
    StatusLine m_progress;
    std::size_t m_finished = 0;
    Totals m_totals;
    std::vector<std::string> m_failed;
    nlohmann::ordered_json m_reports = nlohmann::ordered_json::array();
};

}  // namespace

ExitCode MergeBatch(const BatchCommand& command) {
    auto found = ItemsOf(command);
    if (const auto* problem = std::get_if<std::string>(&found)) {
        Complain(*problem);
        return kUsage;
    }
    const std::string noPage = command.report.empty() ? std::string{} : WhyNoPage();
    if (!noPage.empty()) {
        Complain(noPage);
        return kFailed;
    }
    return Batch{command, std::move(std::get<std::vector<BatchItem>>(found))}.Run();
}

}  // namespace standin::cli
