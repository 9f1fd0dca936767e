#include "Archives/ArchiveReader.h"

#include "Archives/ArchiveError.h"
#include "Archives/ArchiveLimits.h"
#include "Archives/DecompressingStream.h"
#include "Archives/FileStream.h"
#include "Archives/GzipHeader.h"
#include "Archives/TarHeader.h"
#include "Archives/TarReader.h"
#include "Archives/ZipReader.h"
#include "Platform/FileHandle.h"
#include "Platform/Text.h"
#include "Support/ByteReader.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <memory>

namespace quillmar::ArchiveReader {
namespace {

using Algorithm = DecompressionFilter::Algorithm;

/// What a zip file may begin with: a local file header, the end of an empty archive, a spanning marker (the zip
/// application note, 4.3).
constexpr std::array<DataView, 3> zipMagics{"PK\3\4", "PK\5\6", "PK\7\10"};

/// The xz file format, 2.1.1.1.
constexpr DataView xzMagic{"\xFD"
                           "7zXZ\0",
                           6};

/// A stream that is to be told apart: a tar archive inside, or a single file.
struct CompressedStream {
    Algorithm algorithm;        ///< whose first bytes come soonest
    Algorithm listingAlgorithm; ///< for the whole of a tar archive
    std::int64_t offset = 0;    ///< of the compressed data in the file
    ArchiveFormat archiveFormat;
    ArchiveFormat fileFormat;
    std::string originalName;
    std::optional<std::int64_t> originalSize;
};

/// The name of \p url without its extension when that is one of \p extensions in any case, with \p tarExtension
/// exactly as it stands (it is short for two) exchanged for "tar".
std::string strippingExtension(const FileURL& url, std::initializer_list<std::string_view> extensions,
                               std::string_view tarExtension) {
    std::string name = url.lastPathComponent();
    const std::string extension = url.pathExtension();
    if (std::ranges::find(extensions, lowercased(extension)) == extensions.end()) return name;
    name.resize(name.size() - extension.size() - 1);
    if (extension == tarExtension) name += ".tar";
    return name;
}

/// ISIZE, the trailer's last field (RFC 1952, 2.3.1): the size modulo 2^32, so it is of no use for files of 4
/// GiB and more. None for files too small to have one.
std::optional<std::int64_t> gzipOriginalSize(FileHandle& file) {
    constexpr std::int64_t smallestFile = 18; // a header of 10 bytes, a trailer of 8
    constexpr std::int64_t largestFile = 4'294'967'294;
    constexpr std::int64_t fieldBytes = 4;
    const std::int64_t size = file.size();
    if (size < smallestFile || size > largestFile) return std::nullopt;
    file.seek(size - fieldBytes);
    const Data trailer = file.read(static_cast<std::size_t>(fieldBytes));
    return static_cast<std::int64_t>(ByteReader(trailer).u32(0));
}

/// The first block of \p stream. Throws ArchiveError.
Data firstBlock(DecompressingStream& stream) {
    try {
        return Data(stream.read(TarHeader::blockSize));
    } catch (const DecompressionError&) {
        throw ArchiveError::damaged("The compressed data is damaged.");
    }
}

CompressedFile compressedFile(CompressedStream compressed, DecompressingStream& stream, Data sample) {
    try {
        sample.append(stream.read(ArchiveLimits::sampleBytes - sample.size()));
    } catch (const DecompressionError&) {
        // What came out before is still worth showing.
    }
    const bool isComplete = sample.size() < ArchiveLimits::sampleBytes;
    return {compressed.fileFormat, std::move(compressed.originalName), compressed.originalSize,
            std::move(sample), isComplete};
}

ArchiveContent contentOf(FileHandle& file, CompressedStream compressed, const Deadline& deadline) {
    file.seek(compressed.offset);
    auto stream = std::make_unique<DecompressingStream>(file, compressed.algorithm, deadline);
    Data first = firstBlock(*stream);
    if (!TarHeader::isHeader(first)) return compressedFile(std::move(compressed), *stream, std::move(first));
    if (compressed.listingAlgorithm != compressed.algorithm) {
        file.seek(compressed.offset);
        stream = std::make_unique<DecompressingStream>(file, compressed.listingAlgorithm, deadline);
        first = firstBlock(*stream);
    }
    return TarReader::listing(*stream, first, compressed.archiveFormat, deadline, ArchiveLimits::maxEntries);
}

} // namespace

ArchiveContent read(const FileURL& url, double budget, const Clock& clock) {
    const Deadline deadline(budget, clock);
    FileHandle file(url);
    const Data head = file.read(ArchiveLimits::headBytes);
    const DataView start(head);
    if (std::ranges::find(zipMagics, start.substr(0, 4)) != zipMagics.end())
        return ZipReader::listing(url, ArchiveLimits::maxEntries);
    if (auto header = GzipHeader::parse(head)) {
        const auto originalSize = gzipOriginalSize(file);
        auto name = std::move(header->originalName);
        return contentOf(file,
                         {.algorithm = Algorithm::deflate,
                          .listingAlgorithm = Algorithm::deflate,
                          .offset = static_cast<std::int64_t>(header->headerLength),
                          .archiveFormat = ArchiveFormat::tarGzip,
                          .fileFormat = ArchiveFormat::gzip,
                          .originalName = name ? *name : strippingExtension(url, {"gz", "gzip", "tgz"}, "tgz"),
                          .originalSize = originalSize},
                         deadline);
    }
    if (start.starts_with(xzMagic))
        return contentOf(file,
                         {.algorithm = Algorithm::xz,
                          .listingAlgorithm = DecompressionFilter::forWholeXz(head),
                          .offset = 0,
                          .archiveFormat = ArchiveFormat::tarXz,
                          .fileFormat = ArchiveFormat::xz,
                          .originalName = strippingExtension(url, {"xz", "txz"}, "txz"),
                          .originalSize = std::nullopt},
                         deadline);
    const DataView first = start.substr(0, TarHeader::blockSize);
    if (!TarHeader::isHeader(first)) throw ArchiveError::unrecognized();
    file.seek(static_cast<std::int64_t>(TarHeader::blockSize));
    FileStream stream(file);
    return TarReader::listing(stream, first, ArchiveFormat::tar, deadline, ArchiveLimits::maxEntries);
}

} // namespace quillmar::ArchiveReader
