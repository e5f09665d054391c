#include "host/readback/read/read_content.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <pugixml.hpp>

#include "host/musicxml/xml/archive.h"
#include "host/musicxml/xml/parse_failure.h"
#include "host/musicxml/xml/xml_text.h"
#include "host/readback/read/canonical_xml.h"
#include "host/readback/read/part_reading.h"
#include "host/readback/read/stream_marks.h"
#include "host/texts/texts.h"

namespace standin::readback {
namespace {

constexpr int kDeepestNesting = 200;
constexpr u32 kMaxStavesOfPart = 1000;

class DepthLimit : public pugi::xml_tree_walker {
public:
    bool for_each(pugi::xml_node&) override { return depth() < kDeepestNesting; }
};

// By measure, the highest number of a staff that is named.
std::vector<u32> StavesOf(pugi::xml_node part, u32 index, const KnownMeasures* known) {
    std::vector<u32> all;
    for (const pugi::xml_node measure : part.children("measure")) {
        const MeasureContent* content =
            known == nullptr ? nullptr : known->Find(index, static_cast<u32>(all.size()));
        u32 staves = content == nullptr ? 1 : content->staves;
        for (const pugi::xml_node child : measure.children()) {
            for (const pugi::xml_node of : child.children()) {
                const std::string_view name = of.name();
                if (name == "staff" || name == "staves") {
                    staves = std::max(staves, of.text().as_uint(1));
                }
            }
        }
        all.push_back(std::min(staves, kMaxStavesOfPart));
    }
    return all;
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

Reading ReadXml(std::string_view xml, Texts& texts, const KnownMeasures* known) {
    pugi::xml_document document;
    const pugi::xml_parse_result parsed = document.load_buffer(
        xml.data(), xml.size(), pugi::parse_cdata | pugi::parse_escapes | pugi::parse_eol,
        pugi::encoding_utf8);
    if (!parsed) {
        return Refused(Say(Text::kNotWellFormed, {WordsFor(parsed)}),
                       LineAt(xml, static_cast<std::size_t>(parsed.offset)));
    }
    DepthLimit limit;
    if (!document.traverse(limit)) {
        return Refused(Say(Text::kNestedTooDeeply, {}), 0);
    }
    const pugi::xml_node root = document.child("score-partwise");
    if (!root) {
        return Refused(Say(Text::kNotPartwise, {}), 0);
    }
    auto score = std::make_unique<Score>();
    ReadHeader(root, *score, texts);
    ElementTexts elements{xml, texts};
    u32 nextStaff = 1;
    for (const pugi::xml_node node : root.children("part")) {
        const auto index = static_cast<u32>(score->parts.size());
        const std::vector<u32> staves = StavesOf(node, index, known);
        const u32 most = staves.empty() ? 1 : *std::ranges::max_element(staves);
        score->parts.push_back({texts.Of(node.attribute("id").value()), nextStaff, most, {}});
        nextStaff += most;
        const bool isRead = PartReading{*score, elements, known}.Read(node);
        for (std::size_t i = 0; i < score->parts.back().measures.size(); ++i) {
            score->parts.back().measures[i].staves = staves[i];
        }
        if (!isRead) {
            return Refused(Say(Text::kPartMeasure,
                               {std::to_string(score->parts.size()),
                                std::string{texts[score->parts.back().measures.back().number]},
                                Say(Text::kInexactDurations, {})}),
                           0);
        }
    }
    MarkStreams(*score, texts);
    return {std::move(score), {}, 0};
}

DecodedText Decoded(std::string bytes) {
    if (IsArchive(bytes)) {
        ArchiveMember member = ReadArchivedScore(bytes);
        if (!member.problem.empty()) {
            return {{}, {}, std::move(member.problem), 0};
        }
        bytes = std::move(member.bytes);
    }
    return DecodeXml(std::move(bytes));
}

// Whether both have the same parts on the same staves, with as many measures.
bool HaveOneShape(const Score& a, const Score& b) {
    return std::ranges::equal(a.parts, b.parts, [](const Part& one, const Part& other) {
        return one.firstStaff == other.firstStaff && one.staves == other.staves &&
               one.measures.size() == other.measures.size();
    });
}

}  // namespace

Reading ReadContentOfText(std::string_view xml, Texts& texts) {
    return ReadXml(xml, texts, nullptr);
}

Reading ReadContent(std::string bytes, Texts& texts) {
    const DecodedText decoded = Decoded(std::move(bytes));
    return decoded.problem.empty() ? ReadXml(decoded.text, texts, nullptr)
                                   : Refused(decoded.problem, decoded.line);
}

Reading ReadContentOfResult(const std::string& bytes, Texts& texts, const Score& before,
                            std::string_view xmlBefore) {
    std::optional<KnownMeasures> known;
    {
        const DecodedText decoded = Decoded(bytes);
        if (!decoded.problem.empty()) {
            return Refused(decoded.problem, decoded.line);
        }
        known.emplace(before, xmlBefore, decoded.text, texts.Of("tuplet"));
    }  // the XML tree takes the room of the text
    Reading reading = ReadXml(known->Rest(), texts, &*known);
    if (reading.score != nullptr && HaveOneShape(before, *reading.score)) {
        return reading;
    }
    return ReadContent(bytes, texts);
}

}  // namespace standin::readback
