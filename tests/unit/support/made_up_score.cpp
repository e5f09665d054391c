// Prints the MusicXML that is made up from a seed, for other programs to read: made_up_score SEED
// Its tuplets have brackets, since few programs know one without.
#include <cstdlib>
#include <iostream>

#include "tests/unit/support/made_up_xml.h"

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: made_up_score SEED\n";
        return 2;
    }
    const auto seed = std::strtoul(arguments[1], nullptr, 10);
    std::cout << standin::MakeUpXml(static_cast<u32>(seed), {.allBracketed = true}).text;
    return 0;
}
