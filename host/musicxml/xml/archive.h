// Compressed MusicXML: the score's member of a .mxl archive.
#pragma once

#include <string>
#include <string_view>

namespace standin {

struct ArchiveMember {
    std::string name;
    std::string bytes;
    std::string problem;  // why it failed; empty on success
};

bool IsArchive(std::string_view bytes);

// The score that META-INF/container.xml names first. Members larger than 64 MiB are refused.
ArchiveMember ReadArchivedScore(std::string_view archive);

// The archive with that member replaced and all others unchanged; empty on failure. The member
// keeps its time stamp.
std::string ReplaceArchivedScore(std::string_view archive, const std::string& member,
                                 std::string_view bytes);

// A new archive that holds the score as its only member; empty on failure.
std::string MakeArchive(const std::string& member, std::string_view bytes);

}  // namespace standin
