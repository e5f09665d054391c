// A staff in one measure, cut from a part.
#pragma once

#include <map>
#include <pugixml.hpp>
#include <string>
#include <utility>

#include "host/report/excerpts.h"
#include "host/score/time/rational.h"

namespace standin {

// What <attributes> have set and nothing has changed since.
class AttributesInForce {
public:
    void Take(pugi::xml_node attributes);

    Rational Divisions() const { return m_divisions; }
    // Makes the children that a staff needs, in the order of the format.
    void AppendTo(pugi::xml_node attributes, int staff) const;

private:
    pugi::xml_node Find(const std::string& name, int staff) const;

    Rational m_divisions{1, 1};
    std::map<std::pair<std::string, int>, pugi::xml_node> m_elements;  // staff 0: all of them
};

// inForce: at the start of the measure.
Excerpt CutMeasure(pugi::xml_node measure, int staff, const AttributesInForce& inForce);

}  // namespace standin
