#include "host/readback/read_content.h"

#include <algorithm>
#include <cctype>
#include <pugixml.hpp>

#include "host/musicxml/xml/archive.h"
#include "host/musicxml/xml/xml_text.h"
#include "host/readback/canonical_xml.h"
#include "host/readback/part_reading.h"
#include "host/readback/stream_marks.h"

namespace standin::readback {
namespace {

constexpr int kDeepestNesting = 200;
constexpr u32 kMaxStavesOfPart = 1000;

class DepthLimit : public pugi::xml_tree_walker {
public:
    bool for_each(pugi::xml_node&) override { return depth() < kDeepestNesting; }
};

u32 StavesOf(pugi::xml_node part) {
    u32 staves = 1;
    for (const pugi::xml_node measure : part.children("measure")) {
        for (const pugi::xml_node child : measure.children()) {
            for (const pugi::xml_node of : child.children()) {
                const std::string_view name = of.name();
                if (name == "staff" || name == "staves") {
                    staves = std::max(staves, of.text().as_uint(1));
                }
            }
        }
    }
    return std::min(staves, kMaxStavesOfPart);
}

void ReadHeader(pugi::xml_node root, Score& score, Texts& texts) {
    score.items.push_back(
        {kNone, {}, false, false, texts.Of("<score-partwise" + CanonicalAttributes(root) + '>')});
    for (const pugi::xml_node child : root.children()) {
        if (child.type() == pugi::node_element && std::string_view{child.name()} != "part") {
            score.items.push_back({kNone, {}, false, false, texts.Of(CanonicalXml(child))});
        }
    }
}

// One line, even if the quoted text has several.
Reading Refused(std::string problem, std::size_t line) {
    std::replace_if(
        problem.begin(), problem.end(),
        [](char sign) { return static_cast<unsigned char>(sign) < 0x20; }, ' ');
    return {nullptr, std::move(problem), line};
}

}  // namespace

Reading ReadContentOfText(std::string_view xml, Texts& texts) {
    pugi::xml_document document;
    const pugi::xml_parse_result parsed = document.load_buffer(
        xml.data(), xml.size(), pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol,
        pugi::encoding_utf8);
    if (!parsed) {
        std::string reason = parsed.description();
        reason.front() =
            static_cast<char>(std::tolower(static_cast<unsigned char>(reason.front())));
        return Refused("the file is not well-formed XML: " + reason,
                       LineAt(xml, static_cast<std::size_t>(parsed.offset)));
    }
    DepthLimit limit;
    if (!document.traverse(limit)) {
        return Refused("elements are nested too deeply", 0);
    }
    const pugi::xml_node root = document.child("score-partwise");
    if (!root) {
        return Refused("the file is not a partwise MusicXML score", 0);
    }
    auto score = std::make_unique<Score>();
    ReadHeader(root, *score, texts);
    ElementTexts elements{xml, texts};
    u32 nextStaff = 1;
    for (const pugi::xml_node node : root.children("part")) {
        const u32 staves = StavesOf(node);
        score->parts.push_back({texts.Of(node.attribute("id").value()), nextStaff, staves, {}});
        nextStaff += staves;
        if (!PartReading{*score, elements}.Read(node)) {
            return Refused("part " + std::to_string(score->parts.size()) + ", measure " +
                               texts[score->parts.back().measures.back().number] +
                               ": durations that cannot be added up exactly",
                           0);
        }
    }
    MarkStreams(*score, texts);
    return {std::move(score), {}, 0};
}

Reading ReadContent(std::string bytes, Texts& texts) {
    if (IsArchive(bytes)) {
        ArchiveMember member = ReadArchivedScore(bytes);
        if (!member.problem.empty()) {
            return Refused(std::move(member.problem), 0);
        }
        bytes = std::move(member.bytes);
    }
    const DecodedText decoded = DecodeXml(std::move(bytes));
    return decoded.problem.empty() ? ReadContentOfText(decoded.text, texts)
                                   : Refused(decoded.problem, decoded.line);
}

}  // namespace standin::readback
