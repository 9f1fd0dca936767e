#include "QuillmarQuickLook/Icons/IconCache.h"

#include "Platform/Directory.h"
#include "Platform/DirectoryReader.h"
#include "Platform/FileError.h"
#include "QuillmarQuickLook/UserFolders.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace quillmar {
namespace {

/// In front of every icon. The format is ours alone: another one gets another mark.
struct Header {
    std::array<char, 8> mark{'Q', 'M', 'I', 'C', 'O', 'N', '1', '\n'};
    std::uint32_t keyBytes = 0;
    std::uint32_t iconBytes = 0;
    std::uint64_t checksum = 0; ///< of key and icon
};

/// FNV-1a, 64 bits. Finds what a full disk or a crash has cut short, not what somebody has forged.
std::uint64_t checksum(std::string_view bytes) {
    constexpr std::uint64_t prime = 0x100000001b3;
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * prime;
    return hash;
}

/// The whole file at \p path, if it is a file of our own and not too large.
std::optional<Data> readOwnFile(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return std::nullopt;
    struct stat status {};
    Data data;
    const bool isOurs = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
                        status.st_uid == ::geteuid() && status.st_size > 0 &&
                        status.st_size <= static_cast<off_t>(IconCache::maxFileBytes);
    if (isOurs) {
        data.resize(static_cast<std::size_t>(status.st_size));
        const ssize_t count = ::read(descriptor, data.data(), data.size());
        data.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    ::close(descriptor);
    if (data.empty()) return std::nullopt;
    return data;
}

} // namespace

std::string IconCache::standardFolder() {
    const std::string cache = UserFolders::cache();
    return cache.empty() ? cache : cache + "/quillmar/icons";
}

std::string IconCache::pathFor(std::string_view key) const {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "/%016llx", static_cast<unsigned long long>(checksum(key)));
    return folder_ + name.data();
}

std::optional<Data> IconCache::find(std::string_view key) const {
    if (folder_.empty()) return std::nullopt;
    auto file = readOwnFile(pathFor(key));
    Header header;
    if (!file || file->size() < sizeof header) return std::nullopt;
    std::memcpy(&header, file->data(), sizeof header);
    const std::string_view body = std::string_view(*file).substr(sizeof header);
    const bool isWhole = header.mark == Header().mark &&
                         body.size() == std::size_t{header.keyBytes} + header.iconBytes &&
                         checksum(body) == header.checksum;
    if (!isWhole || body.substr(0, header.keyBytes) != key) return std::nullopt;
    return Data(body.substr(header.keyBytes));
}

void IconCache::store(std::string_view key, DataView icon) const {
    if (folder_.empty() || sizeof(Header) + key.size() + icon.size() > maxFileBytes) return;
    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    dropOldest();

    Header header;
    header.keyBytes = static_cast<std::uint32_t>(key.size());
    header.iconBytes = static_cast<std::uint32_t>(icon.size());
    Data body(key);
    body.append(icon);
    header.checksum = checksum(body);
    Data file(reinterpret_cast<const char*>(&header), sizeof header);
    file.append(body);

    // Written under a name of its own and put in its place when it is whole.
    std::string unfinished = folder_ + "/.XXXXXX";
    const int descriptor = ::mkostemp(unfinished.data(), O_CLOEXEC);
    if (descriptor < 0) return;
    const bool isWritten = ::write(descriptor, file.data(), file.size()) == static_cast<ssize_t>(file.size());
    ::close(descriptor);
    if (!isWritten || std::rename(unfinished.c_str(), pathFor(key).c_str()) != 0) ::unlink(unfinished.c_str());
}

void IconCache::dropOldest() const {
    struct Entry {
        Timestamp modified;
        std::string name;
    };
    std::vector<Entry> entries;
    try {
        const Directory folder(FileURL::standardized(folder_, FileURL::root()));
        DirectoryReader reader;
        reader.start(folder);
        while (const auto entry = reader.next())
            if (const auto status = folder.status(entry->name); status && status->kind == ItemKind::regularFile)
                entries.push_back({.modified = status->modified, .name = entry->name});
    } catch (const FileError&) {
        return;
    }
    if (entries.size() < maxIcons) return;
    const auto middle = entries.begin() + static_cast<std::ptrdiff_t>(entries.size() / 2);
    std::ranges::nth_element(entries, middle, {}, &Entry::modified);
    for (auto entry = entries.begin(); entry != middle; ++entry)
        ::unlink((folder_ + '/' + entry->name).c_str());
}

} // namespace quillmar
