#include "host/report/excerpts.h"

#include <map>
#include <pugixml.hpp>

#include "host/report/measure_cutter.h"

namespace standin {
namespace {

// Indices of the places in each measure of a part.
using PlacesByMeasure = std::map<std::size_t, std::vector<std::size_t>>;

void CutPart(pugi::xml_node part, const PlacesByMeasure& wanted,
             const std::vector<ExcerptPlace>& places, std::vector<Excerpt>& excerpts) {
    AttributesInForce inForce;
    std::size_t index = 0;
    for (const pugi::xml_node measure : part.children("measure")) {
        const auto found = wanted.find(index++);
        if (found != wanted.end()) {
            for (const std::size_t place : found->second) {
                excerpts[place] = CutMeasure(measure, places[place].staff, inForce);
            }
        }
        for (const pugi::xml_node attributes : measure.children("attributes")) {
            inForce.Take(attributes);
        }
    }
}

}  // namespace

std::vector<Excerpt> CutExcerpts(const std::string& text, const std::vector<ExcerptPlace>& places) {
    std::vector<Excerpt> excerpts(places.size());
    pugi::xml_document score;
    if (!score.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8)) {
        return excerpts;
    }
    std::map<std::string, PlacesByMeasure> wanted;
    for (std::size_t i = 0; i < places.size(); ++i) {
        wanted[places[i].part][places[i].measure].push_back(i);
    }
    for (const pugi::xml_node part : score.document_element().children("part")) {
        const auto found = wanted.find(part.attribute("id").value());
        if (found != wanted.end()) {
            CutPart(part, found->second, places, excerpts);
        }
    }
    return excerpts;
}

}  // namespace standin
