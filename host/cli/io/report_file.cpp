#include "host/cli/io/report_file.h"

#include <filesystem>

#include "host/cli/io/installation.h"
#include "host/cli/io/output_file.h"
#include "host/musicxml/xml/archive.h"
#include "host/musicxml/xml/file_bytes.h"
#include "host/report/measure_pictures.h"
#include "host/report/page/report_page.h"
#include "host/texts/system_errors.h"
#include "host/texts/texts.h"

namespace standin::cli {

namespace {

namespace fs = std::filesystem;

std::string XmlOf(std::string bytes) {
    return DecodeXml(IsArchive(bytes) ? ReadArchivedScore(bytes).bytes : std::move(bytes)).text;
}

std::string WriteFile(const fs::path& file, std::string_view bytes) {
    const std::string problem = WriteWhole(TextOf(file), bytes);
    return problem.empty() ? problem : TextOf(file) + ": " + problem;
}

// The engraver beside the pages of a folder, unless it is there already.
std::string PutEngraverBeside(const fs::path& page, const std::string& engraver) {
    const fs::path file = page.parent_path() / kEngraverBeside;
    return ReadFileBytes(file).bytes == engraver ? std::string{} : WriteFile(file, engraver);
}

}  // namespace

bool IsPageName(const std::string& name) {
    const std::string ending = LowerCaseExtension(name);
    return ending == ".html" || ending == ".htm";
}

std::string PageFor(const std::string& report, const std::string& input) {
    if (IsPageName(report)) {
        return report;
    }
    fs::path name = input == kStandardStream ? fs::path{"score"} : PathOf(input).filename();
    name += ".html";
    return TextOf(PathOf(report) / name);
}

std::string WhyNoPage() {
    std::error_code failed;
    const std::string file = EngraverFile();
    return fs::exists(PathOf(file), failed) ? std::string{} : Say(Text::kNoEngraver, {file});
}

std::string WriteReportPage(const std::string& report, const MergeReport& merge,
                            const ImportedScore& score, std::string bytes) {
    const FileBytes engraver = ReadFileBytes(PathOf(EngraverFile()));
    if (!engraver.problem.empty()) {
        return EngraverFile() + ": " + engraver.problem;
    }
    const fs::path page = PathOf(PageFor(report, merge.request.input));
    const bool isAlone = IsPageName(report);
    if (!isAlone) {
        std::error_code failed;
        fs::create_directories(page.parent_path(), failed);
        std::string problem =
            failed ? Say(Text::kCannotMakeFolder, {TextOf(page.parent_path()), WordsFor(failed)})
                   : PutEngraverBeside(page, engraver.bytes);
        if (!problem.empty()) {
            return problem;
        }
    }
    const std::vector<MeasurePictures> pictures = PicturesOf(merge, score, XmlOf(std::move(bytes)));
    return WriteFile(page, ReportAsPage(merge, score, pictures,
                                        isAlone ? std::string_view{engraver.bytes} : ""));
}

}  // namespace standin::cli
