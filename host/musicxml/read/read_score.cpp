#include "host/musicxml/read/read_score.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>
#include <pugixml.hpp>

#include "host/musicxml/read/part_reader.h"
#include "host/musicxml/xml/archive.h"
#include "host/musicxml/xml/file_bytes.h"
#include "host/musicxml/xml/parse_failure.h"
#include "host/musicxml/xml/xml_node.h"

namespace standin {
namespace {

constexpr int kDeepestNesting = 200;
constexpr int kMaxStavesOfPart = 64;
constexpr std::size_t kMaxStaves = 4000;

constexpr unsigned kParseOptions = pugi::parse_cdata | pugi::parse_escapes |
                                   pugi::parse_embed_pcdata | pugi::parse_comments | pugi::parse_pi;

// The parser skips whatever comes before the first tag.
Problem CheckBeginning(std::string_view text, ReadWarnings& warnings) {
    const std::size_t tag = std::min(text.find('<'), text.size());
    const std::string_view before = text.substr(0, tag);
    if (!Trimmed(before).empty()) {
        return {Text::kNotWellFormed,
                before.find_first_not_of(" \t\r\n"),
                {Say(Text::kTextBeforeTag, {})}};
    }
    if (!before.empty() && text.substr(tag).starts_with("<?xml ")) {
        warnings.Add(Say(Text::kBlanksBeforeXml), 0);
    }
    return {};
}

// Stops at the first node nested too deeply.
struct DepthLimit : pugi::xml_tree_walker {
    pugi::xml_node beyond;  // null: there is none

    bool for_each(pugi::xml_node& node) override {
        if (depth() >= kDeepestNesting) {
            beyond = node;
        }
        return !beyond;
    }
};

Problem ParseXml(std::string_view text, pugi::xml_document& document) {
    const pugi::xml_parse_result parsed =
        document.load_buffer(text.data(), text.size(), kParseOptions, pugi::encoding_utf8);
    if (!parsed) {
        return {Text::kNotWellFormed, static_cast<std::size_t>(parsed.offset), {WordsFor(parsed)}};
    }
    DepthLimit limit;
    if (!document.traverse(limit)) {
        return {Text::kNestedTooDeeply, OffsetOf(limit.beyond)};
    }
    return {};
}

Problem CheckRoot(pugi::xml_node root) {
    const std::string_view name = root.name();
    if (name == "score-timewise") {
        return {Text::kTimewise, OffsetOf(root)};
    }
    if (name != "score-partwise") {
        return {Text::kOtherRoot, OffsetOf(root), {std::string{name}}};
    }
    if (const pugi::xml_node note = root.child("note")) {
        return {Text::kNoteOutside, OffsetOf(note)};
    }
    if (const pugi::xml_node measure = root.child("measure")) {
        return {Text::kMeasureOutside, OffsetOf(measure)};
    }
    if (!root.child("part")) {
        return {Text::kNoPart, OffsetOf(root)};
    }
    return {};
}

// How many staves the part's attributes or notes ask for.
Problem CountStaves(pugi::xml_node part, ScorePart& result, int& staves) {
    staves = 1;
    for (const pugi::xml_node measure : part.children("measure")) {
        for (const pugi::xml_node child : measure.children()) {
            pugi::xml_node count;
            if (std::strcmp(child.name(), "note") == 0) {
                count = child.child("staff");
                result.namesStaves = result.namesStaves || count;
            } else if (std::strcmp(child.name(), "attributes") == 0) {
                count = child.child("staves");
            }
            if (!count) {
                continue;
            }
            const auto number = IntegerOf(count.child_value());
            if (!number || *number < 1 || *number > kMaxStavesOfPart) {
                return {Text::kStaffCount, OffsetOf(count), {count.name()}};
            }
            staves = std::max(staves, *number);
        }
    }
    return {};
}

std::u16string Utf16Of(std::string_view text) {
    const std::wstring wide = pugi::as_wide(std::string{text});
    std::u16string result;
    for (const wchar_t unit : wide) {
        const u32 code = std::char_traits<wchar_t>::to_int_type(unit);
        if (code >= 0x10000) {
            result.push_back(static_cast<char16>(0xD800U + ((code - 0x10000U) >> 10U)));
            result.push_back(static_cast<char16>(0xDC00U + ((code - 0x10000U) & 0x3FFU)));
        } else {
            result.push_back(static_cast<char16>(code));
        }
    }
    return result;
}

std::string NameOfPart(pugi::xml_node root, const std::string& id) {
    const pugi::xml_node listed =
        root.child("part-list").find_child_by_attribute("score-part", "id", id.c_str());
    return listed.child_value("part-name");
}

Problem ReadPart(pugi::xml_node root, pugi::xml_node node, OwnLayers own, u16& lastStaff,
                 ImportedScore& score) {
    ScorePart& part = score.parts.emplace_back();
    part.id = node.attribute("id").value();
    part.name = NameOfPart(root, part.id);
    int staves = 1;
    if (Problem problem = CountStaves(node, part, staves)) {
        return problem;
    }
    for (int i = 0; i < staves; ++i) {
        if (++lastStaff > kMaxStaves) {
            return {Text::kTooManyStaves, OffsetOf(node)};
        }
        part.staves.push_back({lastStaff, {}, {}});
        score.document->AddStaff(lastStaff, Utf16Of(part.name));
    }
    score.document->AddPart(static_cast<i16>(score.parts.size()), Utf16Of(part.name));
    return PartReader{score, part, own}.Read(node);
}

Problem ReadParts(const pugi::xml_document& document, OwnLayers own, ImportedScore& score) {
    const pugi::xml_node root = document.document_element();
    if (Problem problem = CheckRoot(root)) {
        return problem;
    }
    const auto parts = root.children("part");
    score.parts.reserve(static_cast<std::size_t>(std::distance(parts.begin(), parts.end())));
    u16 lastStaff = 0;
    for (const pugi::xml_node part : parts) {
        if (Problem problem = ReadPart(root, part, own, lastStaff, score)) {
            return problem;
        }
    }
    if (score.document->MeasureCount() == 0) {
        return {Text::kNoMeasure, OffsetOf(root)};
    }
    return {};
}

// One line, whatever of the file it quotes.
ReadResult Refused(std::string message, std::size_t line = 0) {
    std::replace_if(
        message.begin(), message.end(),
        [](char byte) { return static_cast<unsigned char>(byte) < 0x20; }, ' ');
    return {nullptr, std::move(message), line};
}

ReadResult Import(std::string bytes, Document* into, OwnLayers own) {
    auto score = std::make_unique<ImportedScore>();
    if (IsArchive(bytes)) {
        ArchiveMember member = ReadArchivedScore(bytes);
        if (!member.problem.empty()) {
            return Refused(std::move(member.problem));
        }
        score->archive = std::move(bytes);
        score->archiveMember = std::move(member.name);
        bytes = std::move(member.bytes);
    }
    DecodedText decoded = DecodeXml(std::move(bytes));
    if (!decoded.problem.empty()) {
        return Refused(std::move(decoded.problem), decoded.line);
    }
    score->text = std::move(decoded.text);
    if (!decoded.warning.empty()) {
        score->warnings.Add(decoded.warning, 0);
    }
    score->format = decoded.format;
    if (into == nullptr) {
        score->ownDocument = std::make_unique<Document>(u16{0}, std::u16string{});
        into = score->ownDocument.get();
    }
    score->document = into;

    pugi::xml_document document;
    Problem problem = CheckBeginning(score->text, score->warnings);
    if (!problem) {
        problem = ParseXml(score->text, document);
    }
    if (!problem) {
        problem = ReadParts(document, own, *score);
    }
    if (problem) {
        return Refused(std::move(problem.message), LineAt(score->text, problem.offset));
    }
    for (ReadWarning& warning : score->warnings.All()) {
        warning.line = LineAt(score->text, warning.offset);
    }
    into->MarkImported();
    return {std::move(score), {}, 0};
}

}  // namespace

ReadResult ReadScore(std::string bytes, Document* into, OwnLayers own) {
    try {
        return Import(std::move(bytes), into, own);
    } catch (const std::bad_alloc&) {
        return Refused(Say(Text::kNoMemory, {}));
    } catch (const std::exception& error) {
        return Refused(error.what());
    }
}

ReadResult ReadScore(const std::filesystem::path& file, Document* into, OwnLayers own) {
    FileBytes content = ReadFileBytes(file);
    if (!content.problem.empty()) {
        return Refused(std::move(content.problem));
    }
    return ReadScore(std::move(content.bytes), into, own);
}

}  // namespace standin
