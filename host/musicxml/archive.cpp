#include "host/musicxml/archive.h"

#include <memory>
#include <pugixml.hpp>
#include <zip.h>

namespace standin {
namespace {

constexpr zip_uint64_t kLargestMember = zip_uint64_t{256} << 20U;
constexpr zip_uint64_t kLargestContainer = zip_uint64_t{1} << 20U;

struct Discard {
    void operator()(zip_t* archive) const noexcept { zip_discard(archive); }
    void operator()(zip_file_t* member) const noexcept { zip_fclose(member); }
    void operator()(zip_source_t* source) const noexcept { zip_source_free(source); }
};
using ArchiveHandle = std::unique_ptr<zip_t, Discard>;
using MemberHandle = std::unique_ptr<zip_file_t, Discard>;
using SourceHandle = std::unique_ptr<zip_source_t, Discard>;

// The source is the caller's too, so that what was written to it can be read.
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
        return {name, {}, "the archive has no member " + name};
    }
    if ((about.valid & ZIP_STAT_SIZE) == 0 || about.size > largest) {
        return {name, {}, "the archive's member " + name + " is too large"};
    }
    const MemberHandle member{zip_fopen(archive, name.c_str(), 0)};
    std::string bytes(static_cast<std::size_t>(about.size), '\0');
    if (!member ||
        zip_fread(member.get(), bytes.data(), about.size) != static_cast<zip_int64_t>(about.size)) {
        return {name, {}, "the archive's member " + name + " cannot be unpacked"};
    }
    return {name, std::move(bytes), {}};
}

}  // namespace

bool IsArchive(std::string_view bytes) {
    return bytes.starts_with("PK");
}

ArchiveMember ReadArchivedScore(std::string_view archive) {
    const SourceHandle source{zip_source_buffer_create(archive.data(), archive.size(), 0, nullptr)};
    const ArchiveHandle opened = source ? OpenArchive(source.get(), ZIP_RDONLY) : nullptr;
    if (!opened) {
        return {{}, {}, "the file is a damaged archive"};
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
        return {{}, {}, "the archive's META-INF/container.xml names no score"};
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
    if (index < 0 || !content ||
        zip_file_replace(opened.get(), static_cast<zip_uint64_t>(index), content.get(), 0) != 0) {
        return {};
    }
    static_cast<void>(content.release());  // the archive's now
    if (zip_close(opened.get()) != 0) {
        return {};
    }
    static_cast<void>(opened.release());  // closing freed it

    zip_stat_t about{};
    if (zip_source_stat(target.get(), &about) != 0 || zip_source_open(target.get()) != 0) {
        return {};
    }
    std::string result(static_cast<std::size_t>(about.size), '\0');
    const zip_int64_t read = zip_source_read(target.get(), result.data(), about.size);
    zip_source_close(target.get());
    return read == static_cast<zip_int64_t>(about.size) ? result : std::string{};
}

}  // namespace standin
