// The least that a MusicXML program does: read a file and write it. xml_baseline IN OUT
#include <cstdio>
#include <pugixml.hpp>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: xml_baseline IN OUT\n", stderr);
        return 2;
    }
    pugi::xml_document document;
    if (!document.load_file(argv[1], pugi::parse_full) ||
        !document.save_file(argv[2], "", pugi::format_raw)) {
        return 1;
    }
    return 0;
}
