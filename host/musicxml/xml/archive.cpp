#include "host/musicxml/xml/archive.h"

#include <memory>
#include <pugixml.hpp>
#include <zip.h>

#include "host/texts/texts.h"

namespace standin {
namespace {

// A small archive can unpack to any size, and a score takes up to 30 times its text in memory: this
// limits it to 2 GB. Larger scores can still be read unpacked.
constexpr zip_uint64_t kLargestMember = zip_uint64_t{64} << 20U;
constexpr zip_uint64_t kLargestContainer = zip_uint64_t{1} << 20U;

struct Discard {
    void operator()(zip_t* archive) const noexcept { zip_discard(archive); }
    void operator()(zip_file_t* member) const noexcept { zip_fclose(member); }
    void operator()(zip_source_t* source) const noexcept { zip_source_free(source); }
};
using ArchiveHandle = std::unique_ptr<zip_t, Discard>;
using MemberHandle = std::unique_ptr<zip_file_t, Discard>;
using SourceHandle = std::unique_ptr<zip_source_t, Discard>;

// The caller shares the source, so that it can read the written bytes.
ArchiveHandle OpenArchive(zip_source_t* source, int flags) {
    zip_source_keep(source);
    ArchiveHandle archive{zip_open_from_source(source, flags, nullptr)};
    if (!archive) {
        zip_source_free(source);
    }
    return archive;
}

ArchiveMember ReadMember(zip_t* archive, const std::string& name, zip_uint64_t largest) {
    zip_stat_t about{};
    if (zip_stat(archive, name.c_str(), 0, &about) != 0) {
        return {name, {}, Say(Text::kNoMember, {name})};
    }
    if ((about.valid & ZIP_STAT_SIZE) == 0 || about.size > largest) {
        return {name, {}, Say(Text::kMemberTooLarge, {name})};
    }
    const MemberHandle member{zip_fopen(archive, name.c_str(), 0)};
    std::string bytes(static_cast<std::size_t>(about.size), '\0');
    char beyond = 0;  // only a read that meets the end compares the checksum
    if (!member ||
        zip_fread(member.get(), bytes.data(), about.size) != static_cast<zip_int64_t>(about.size) ||
        zip_fread(member.get(), &beyond, 1) != 0) {
        return {name, {}, Say(Text::kMemberDamaged, {name})};
    }
    return {name, std::move(bytes), {}};
}

// The archive's bytes after closing it wrote them to the source; empty on failure.
std::string CloseAndRead(ArchiveHandle archive, zip_source_t* target) {
    if (zip_close(archive.get()) != 0) {
        return {};
    }
    static_cast<void>(archive.release());  // closing freed it
    zip_stat_t about{};
    if (zip_source_stat(target, &about) != 0 || zip_source_open(target) != 0) {
        return {};
    }
    std::string result(static_cast<std::size_t>(about.size), '\0');
    const zip_int64_t read = zip_source_read(target, result.data(), about.size);
    zip_source_close(target);
    return read == static_cast<zip_int64_t>(about.size) ? result : std::string{};
}

// The bytes must last until the archive is closed.
bool AddMember(zip_t* archive, const char* name, std::string_view bytes, zip_int32_t method) {
    // The earliest date of a zip archive, so that all archives of the same music are equal.
    constexpr zip_uint16_t kFirstDay = (1U << 5U) | 1U;
    SourceHandle content{zip_source_buffer(archive, bytes.data(), bytes.size(), 0)};
    const zip_int64_t index = content ? zip_file_add(archive, name, content.get(), 0) : -1;
    if (index < 0) {
        return false;
    }
    static_cast<void>(content.release());  // the archive's now
    const auto place = static_cast<zip_uint64_t>(index);
    return zip_set_file_compression(archive, place, method, 0) == 0 &&
           zip_file_set_dostime(archive, place, 0, kFirstDay, 0) == 0;
}

}  // namespace

bool IsArchive(std::string_view bytes) {
    return bytes.starts_with("PK");
}

ArchiveMember ReadArchivedScore(std::string_view archive) {
    const SourceHandle source{zip_source_buffer_create(archive.data(), archive.size(), 0, nullptr)};
    const ArchiveHandle opened = source ? OpenArchive(source.get(), ZIP_RDONLY) : nullptr;
    if (!opened) {
        return {{}, {}, Say(Text::kArchiveDamaged, {})};
    }
    ArchiveMember container = ReadMember(opened.get(), "META-INF/container.xml", kLargestContainer);
    if (!container.problem.empty()) {
        return container;
    }
    pugi::xml_document document;
    document.load_buffer(container.bytes.data(), container.bytes.size());
    const pugi::xml_node root = document.child("container").child("rootfiles").child("rootfile");
    const std::string path = root.attribute("full-path").value();
    if (path.empty()) {
        return {{}, {}, Say(Text::kArchiveNamesNone, {})};
    }
    return ReadMember(opened.get(), path, kLargestMember);
}

std::string ReplaceArchivedScore(std::string_view archive, const std::string& member,
                                 std::string_view bytes) {
    const SourceHandle target{zip_source_buffer_create(archive.data(), archive.size(), 0, nullptr)};
    ArchiveHandle opened = target ? OpenArchive(target.get(), 0) : nullptr;
    if (!opened) {
        return {};
    }
    const zip_int64_t index = zip_name_locate(opened.get(), member.c_str(), 0);
    SourceHandle content{zip_source_buffer(opened.get(), bytes.data(), bytes.size(), 0)};
    if (index < 0 || !content) {
        return {};
    }
    const auto place = static_cast<zip_uint64_t>(index);
    zip_stat_t about{};
    zip_stat_index(opened.get(), place, 0, &about);
    if (zip_file_replace(opened.get(), place, content.get(), 0) != 0) {
        return {};
    }
    static_cast<void>(content.release());  // the archive's now
    // The same music gives the same bytes, whenever it is written.
    zip_file_set_mtime(opened.get(), place, about.mtime, 0);
    return CloseAndRead(std::move(opened), target.get());
}

std::string MakeArchive(const std::string& member, std::string_view bytes) {
    const std::string container =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<container><rootfiles><rootfile full-path=\"" +
        member + "\" media-type=\"application/vnd.recordare.musicxml+xml\"/></rootfiles>" +
        "</container>\n";
    const std::string_view type = "application/vnd.recordare.musicxml";
    const SourceHandle target{zip_source_buffer_create(nullptr, 0, 0, nullptr)};
    ArchiveHandle opened = target ? OpenArchive(target.get(), ZIP_CREATE | ZIP_TRUNCATE) : nullptr;
    if (!opened || !AddMember(opened.get(), "mimetype", type, ZIP_CM_STORE) ||
        !AddMember(opened.get(), "META-INF/container.xml", container, ZIP_CM_DEFLATE) ||
        !AddMember(opened.get(), member.c_str(), bytes, ZIP_CM_DEFLATE)) {
        return {};
    }
    return CloseAndRead(std::move(opened), target.get());
}

}  // namespace standin
