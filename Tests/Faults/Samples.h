#pragma once

#include "Tests/Helpers/Compress.h"
#include "Tests/Helpers/Pictures.h"
#include "Tests/Helpers/TarBuilder.h"
#include "Tests/Helpers/TemporaryFolder.h"
#include "Tests/Helpers/ZipBuilder.h"

/// An item of each kind, in \p folder: small, but large enough to be read in several pieces.
namespace quillmar::Samples {

/// Files in the archives; their content is hardly compressed.
inline constexpr int fileCount = 40;
inline constexpr std::size_t fileBytes = 8'000;

inline FileURL text(const TemporaryFolder& folder) {
    return folder.write("numbers.txt", Data(100'000, '7') + '\n');
}

inline Data firstImage() { return png(3, 3, red); }
inline Data secondImage() { return png(5, 5, blue); }

inline FileURL markdown(const TemporaryFolder& folder) {
    folder.write("red.png", firstImage());
    folder.write("blue.png", secondImage());
    return folder.write("pictures.md", "# Pictures\n\n![first](red.png)\n\n![second](blue.png)\n");
}

inline FileURL zip(const TemporaryFolder& folder) {
    std::vector<ZipBuilder::Header> headers;
    for (int i = 0; i < fileCount; ++i) headers.push_back({.name = "file " + std::to_string(i), .size = 7});
    constexpr DataView fileHeader = "PK\3\4"; // that of the first file, by which an archive is recognised
    const Data directory = ZipBuilder::directory(headers);
    const ZipBuilder::End end{.entries = fileCount,
                              .size = static_cast<std::uint32_t>(directory.size()),
                              .offset = static_cast<std::uint32_t>(fileHeader.size())};
    return folder.write("files.zip", Data(fileHeader) + directory + end.bytes());
}

inline Data tarOfFiles() {
    Data archive;
    std::uint32_t noise = 1;
    for (int i = 0; i < fileCount; ++i) {
        Data content;
        for (std::size_t byte = 0; byte < fileBytes; ++byte) {
            noise = noise * 1'664'525 + 1'013'904'223;
            content += static_cast<char>(noise >> 24U);
        }
        archive += file("file " + std::to_string(i), content);
    }
    return archive + endOfArchive();
}

inline FileURL tarGzip(const TemporaryFolder& folder) {
    return folder.write("files.tar.gz", gzip(tarOfFiles()));
}

inline FileURL tarXz(const TemporaryFolder& folder) {
    constexpr std::size_t blockBytes = 100'000;
    return folder.write("files.tar.xz", xz(tarOfFiles(), blockBytes));
}

inline FileURL folderOfFiles(const TemporaryFolder& folder) {
    FileURL item = folder.makeFolder("files");
    for (const std::string inside : {"files/", "files/inner/", "files/inner/innermost/", "files/other/"}) {
        folder.makeFolder(inside);
        for (const std::string name : {"a.txt", "b.png", "c"}) folder.write(inside + name, Data(10'000, 'x'));
    }
    return item;
}

} // namespace quillmar::Samples
