#include "host/cli/commands/batch.h"

#include <algorithm>
#include <map>

#include "host/cli/io/output_file.h"
#include "host/score/application.h"
#include "host/texts/system_errors.h"

namespace standin::cli {

namespace {

namespace fs = std::filesystem;

// A score and its path relative to the given folder.
struct FoundScore {
    fs::path file;
    fs::path relative;
    std::string problem{};
};

bool IsScoreFile(const fs::directory_entry& entry) {
    std::error_code failed;
    const std::string ending = LowerCaseExtension(TextOf(entry.path()));
    return entry.is_regular_file(failed) &&
           (ending == ".musicxml" || ending == ".xml" || ending == ".mxl");
}

// The scores of a folder, named relative to the given one. A folder that cannot be read is added
// with the reason.
void AddScores(const fs::path& folder, bool recursive, const fs::path& given,
               std::vector<FoundScore>& scores) {
    std::error_code failed;
    fs::directory_iterator at{folder, failed};
    for (; !failed && at != fs::directory_iterator{}; at.increment(failed)) {
        std::error_code unknown;
        if (IsScoreFile(*at)) {
            scores.push_back({at->path(), at->path().lexically_relative(given)});
        } else if (recursive && at->is_directory(unknown) && !at->is_symlink(unknown)) {
            AddScores(at->path(), recursive, given, scores);
        }
    }
    if (failed) {
        const fs::path name = (folder / "").parent_path().filename();
        scores.push_back({folder, folder == given ? name : folder.lexically_relative(given),
                          Say(Text::kFolderUnreadable, {TextOf(folder), WordsFor(failed)})});
    }
}

// Names of files differ by case, but not on Windows.
char32_t Folded(char32_t letter) {
    constexpr bool kIgnoresCase = fs::path::preferred_separator == '\\';
    return kIgnoresCase && letter >= U'A' && letter <= U'Z' ? letter - U'A' + U'a' : letter;
}

// Whether the name matches the pattern with * and ?.
bool Matches(std::u32string_view pattern, std::u32string_view name) {
    if (pattern.empty()) {
        return name.empty();
    }
    if (pattern.front() == U'*') {
        return Matches(pattern.substr(1), name) ||
               (!name.empty() && Matches(pattern, name.substr(1)));
    }
    return !name.empty() &&
           (pattern.front() == U'?' || Folded(pattern.front()) == Folded(name.front())) &&
           Matches(pattern.substr(1), name.substr(1));
}

// The shells of Windows leave wildcards to the program.
std::string AddMatches(const fs::path& pattern, std::vector<FoundScore>& scores) {
    const fs::path folder = pattern.has_parent_path() ? pattern.parent_path() : fs::path{"."};
    const std::u32string name = pattern.filename().u32string();
    std::vector<FoundScore> all;
    AddScores(folder, false, folder, all);
    std::erase_if(all, [&](const FoundScore& score) {
        return score.problem.empty() && !Matches(name, score.file.filename().u32string());
    });
    if (all.empty()) {
        return Say(Text::kNoneLikeThis, {TextOf(pattern)});
    }
    std::ranges::sort(all, {}, &FoundScore::file);
    scores.insert(scores.end(), all.begin(), all.end());
    return {};
}

std::string AddInput(const std::string& input, bool recursive, std::vector<FoundScore>& scores) {
    const fs::path path = PathOf(input);
    std::error_code failed;
    if (fs::is_directory(path, failed)) {
        std::vector<FoundScore> inFolder;
        AddScores(path, recursive, path, inFolder);
        std::ranges::sort(inFolder, {}, &FoundScore::relative);
        scores.insert(scores.end(), inFolder.begin(), inFolder.end());
        return inFolder.empty() ? Say(Text::kNoScores, {input}) : std::string{};
    }
    const bool isPattern = input.find_first_of("*?") != std::string::npos;
    if (isPattern && !fs::exists(path, failed)) {
        return AddMatches(path, scores);
    }
    scores.push_back({path, path.filename()});
    return {};
}

}  // namespace

std::variant<std::vector<BatchItem>, std::string> ItemsOf(const BatchCommand& command) {
    std::vector<FoundScore> scores;
    for (const std::string& input : command.inputs) {
        std::string problem = AddInput(input, command.recursive, scores);
        if (!problem.empty()) {
            return problem;
        }
    }
    std::vector<BatchItem> items;
    std::map<fs::path, fs::path> inputOf;
    for (const FoundScore& score : scores) {
        BatchItem item{score.file, {}, {}, score.problem};
        if (command.inPlace) {
            item.output = score.file;
        } else if (!command.folder.empty()) {
            item.output = PathOf(command.folder) / score.relative;
        }
        if (!command.report.empty()) {
            item.page = score.relative;
            item.page += ".html";
        }
        bool isTaken = false;
        for (const fs::path& file : {item.output, PathOf(command.report) / item.page}) {
            const auto [other, isNew] = inputOf.emplace(file.lexically_normal(), score.file);
            if (!isNew && !file.empty() && other->second != score.file) {
                return Say(Text::kSameTarget, {TextOf(other->second), TextOf(score.file)});
            }
            isTaken = isTaken || (!isNew && !file.empty());
        }
        std::error_code failed;
        if (!command.inPlace && fs::equivalent(item.output, score.file, failed)) {
            return Say(Text::kOntoInput, {TextOf(score.file)});
        }
        if (!isTaken) {
            items.push_back(std::move(item));
        }
    }
    return items;
}

std::vector<std::string> ArgumentsFor(const BatchItem& item,
                                      const std::vector<std::string>& options) {
    std::vector<std::string> arguments;
    if (const std::string manners = NamesOf(App().manners); !manners.empty()) {
        arguments = {"--host", manners};
    }
    arguments.insert(arguments.end(), {"merge", TextOf(item.input), "--json", "--color", "never"});
    if (!item.output.empty()) {
        arguments.insert(arguments.end(), {"-o", TextOf(item.output)});
    }
    arguments.insert(arguments.end(), options.begin(), options.end());
    return arguments;
}

}  // namespace standin::cli
