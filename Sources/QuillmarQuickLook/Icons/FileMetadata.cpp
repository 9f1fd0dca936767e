#include "QuillmarQuickLook/Icons/FileMetadata.h"

#include "Support/ByteReader.h"

#include <algorithm>
#include <array>
#include <compare>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillmar::FileMetadata {
namespace {

using namespace std::string_view_literals;

// Both files begin with a signature and the one major version there is.
constexpr std::string_view treeSignature = "\xDA\x1Ameta\x01"sv;
constexpr std::string_view journalSignature = "\xDA\x1Ajour\x01"sv;

constexpr std::int64_t wordBytes = 4;

// The header of a tree: its tag, and where the root and the names of the keys lie.
constexpr std::int64_t treeTagOffset = 12;
constexpr std::int64_t treeRootOffset = 16;
constexpr std::int64_t treeKeysOffset = 20;
constexpr std::int64_t treeHeaderBytes = 32;

// An item: where its name, its children and its values lie, and when it changed.
constexpr std::int64_t itemBytes = 16;
constexpr std::int64_t itemChildrenOffset = 4;
constexpr std::int64_t itemValuesOffset = 8;

// A value: the number of its key, and where its text lies.
constexpr std::int64_t valueBytes = 8;
constexpr std::int64_t valueTextOffset = 4;
constexpr std::uint32_t listBit = 0x80000000;

// The header of a journal: the tag of its tree, the size of the file, the number of entries.
constexpr std::int64_t journalTagOffset = 8;
constexpr std::int64_t journalSizeOffset = 12;
constexpr std::int64_t journalCountOffset = 16;
constexpr std::int64_t journalHeaderBytes = 20;

// An entry: its size, the CRC-32 of what follows, a time, what was done, texts, and its size again.
constexpr std::int64_t entrySumOffset = 4;
constexpr std::int64_t entryTimeOffset = 8;
constexpr std::int64_t entryKindOffset = 16;
constexpr std::int64_t entryTextsOffset = 17;
constexpr std::int64_t minEntryBytes = 24; ///< a path of one byte, rounded up to words

/// Linux has no longer paths (PATH_MAX).
constexpr std::size_t maxPathBytes = 4096;

enum class Change : unsigned char { set, setList, unset, copy, remove };

/// All numbers are big-endian.
std::uint32_t number(const ByteReader& bytes, std::int64_t offset) {
    return __builtin_bswap32(static_cast<std::uint32_t>(bytes.u32(offset)));
}

constexpr std::array<std::uint32_t, 256> checksumTable = [] {
    constexpr std::uint32_t polynomial = 0xEDB88320; // reflected, as in ISO 3309
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
        std::uint32_t remainder = byte;
        for (int bit = 0; bit < 8; ++bit)
            remainder = remainder % 2 == 0 ? remainder >> 1U : (remainder >> 1U) ^ polynomial;
        table.at(byte) = remainder;
    }
    return table;
}();

/// CRC-32.
std::uint32_t checksum(DataView bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes)
        sum = checksumTable.at((sum ^ static_cast<unsigned char>(byte)) & 0xFFU) ^ (sum >> 8U);
    return ~sum;
}

class Tree {
public:
    /// \p tree must outlive this.
    explicit Tree(DataView tree)
        : bytes_(tree), size_(static_cast<std::int64_t>(tree.size())),
          isTree_(size_ >= treeHeaderBytes && tree.starts_with(treeSignature)) {}

    bool isTree() const { return isTree_; }
    std::uint32_t tag() const { return number(bytes_, treeTagOffset); }

    std::optional<std::string> text(std::string_view path, std::string_view key) const {
        const auto item = itemAt(path);
        const auto wanted = keyNumber(key);
        if (!item || !wanted) return std::nullopt;
        const Block values = block(number(bytes_, *item + itemValuesOffset), valueBytes);
        const auto value = values.find([&](std::int64_t offset) { return numberOfValue(offset) <=> *wanted; });
        if (!value || (number(bytes_, *value) & listBit) != 0) return std::nullopt;
        const DataView found = bytes_.slice(number(bytes_, *value + valueTextOffset), maxTextBytes + 1);
        const std::size_t end = found.find('\0');
        if (end == found.npos) return std::nullopt;
        return std::string(found.substr(0, end));
    }

private:
    /// Elements of one size, sorted. None when the file says that there are more than it has room for.
    struct Block {
        std::int64_t start = 0;
        std::int64_t count = 0;
        std::int64_t elementBytes = 0;

        /// Where the element lies that \p compare, given such a place, calls equal to what is wanted.
        template <typename Compare>
        std::optional<std::int64_t> find(const Compare& compare) const {
            std::int64_t first = 0;
            for (std::int64_t end = count; first < end;) {
                const std::int64_t middle = first + (end - first) / 2;
                const std::strong_ordering order = compare(start + middle * elementBytes);
                if (std::is_eq(order)) return start + middle * elementBytes;
                if (std::is_lt(order))
                    first = middle + 1;
                else
                    end = middle;
            }
            return std::nullopt;
        }
    };

    Block block(std::int64_t offset, std::int64_t elementBytes) const {
        const std::int64_t count = number(bytes_, offset);
        const std::int64_t start = offset + wordBytes;
        // The place 0 is that of the header: it says that there is no block.
        if (offset == 0 || count > (size_ - start) / elementBytes) return {};
        return {.start = start, .count = count, .elementBytes = elementBytes};
    }

    /// The text that the number at \p offset leads to, beside \p wanted. Of a longer text only the beginning is
    /// looked at.
    std::strong_ordering compareText(std::int64_t offset, std::string_view wanted) const {
        const DataView text =
            bytes_.slice(number(bytes_, offset), static_cast<std::int64_t>(wanted.size()) + 1);
        return text.substr(0, text.find('\0')) <=> wanted;
    }

    std::optional<std::int64_t> itemAt(std::string_view path) const {
        std::optional<std::int64_t> item = number(bytes_, treeRootOffset);
        while (item && !path.empty()) {
            const std::size_t end = std::min(path.find('/'), path.size());
            const std::string_view name = path.substr(0, end);
            path.remove_prefix(std::min(end + 1, path.size()));
            if (name.empty()) continue;
            const Block children = block(number(bytes_, *item + itemChildrenOffset), itemBytes);
            item = children.find([&](std::int64_t offset) { return compareText(offset, name); });
        }
        return item;
    }

    std::optional<std::uint32_t> keyNumber(std::string_view key) const {
        const Block keys = block(number(bytes_, treeKeysOffset), wordBytes);
        const auto place = keys.find([&](std::int64_t offset) { return compareText(offset, key); });
        if (!place) return std::nullopt;
        return static_cast<std::uint32_t>((*place - keys.start) / wordBytes);
    }

    std::uint32_t numberOfValue(std::int64_t offset) const { return number(bytes_, offset) & ~listBit; }

    ByteReader bytes_;
    std::int64_t size_;
    bool isTree_;
};

/// The entries of the journal that belongs to the tree with \p tag, the oldest first, up to the first that is
/// damaged.
std::vector<DataView> entries(DataView journal, std::uint32_t tag) {
    const ByteReader bytes(journal);
    const auto size = static_cast<std::int64_t>(journal.size());
    if (!journal.starts_with(journalSignature) || size < journalHeaderBytes ||
        journal.size() > maxJournalBytes || number(bytes, journalTagOffset) != tag ||
        number(bytes, journalSizeOffset) != size)
        return {};
    std::vector<DataView> entries;
    std::int64_t offset = journalHeaderBytes;
    for (std::uint32_t left = number(bytes, journalCountOffset); left > 0; --left) {
        const std::int64_t length = number(bytes, offset);
        if (length < minEntryBytes || length > size - offset) break;
        const DataView entry = bytes.slice(offset, length);
        if (number(bytes, offset + length - wordBytes) != length) break;
        if (number(bytes, offset + entrySumOffset) != checksum(entry.substr(entryTimeOffset))) break;
        entries.push_back(entry);
        offset += length;
    }
    return entries;
}

/// Takes the text off the front of \p texts, and the NUL behind it.
std::optional<DataView> takeText(DataView& texts) {
    const std::size_t end = texts.find('\0');
    if (end == texts.npos) return std::nullopt;
    const DataView text = texts.substr(0, end);
    texts.remove_prefix(end + 1);
    return text;
}

DataView withoutTrailingSlashes(DataView path) { return path.substr(0, path.find_last_not_of('/') + 1); }

/// What stands in \p path behind \p folder, from the slash on; none when it lies elsewhere.
std::optional<std::string_view> partBelow(DataView folder, std::string_view path) {
    folder = withoutTrailingSlashes(folder);
    if (!path.starts_with(folder)) return std::nullopt;
    path.remove_prefix(folder.size());
    if (!path.empty() && path.front() != '/') return std::nullopt;
    return path;
}

/// Where one reads on, from the newest entry to the oldest: what an item has now may be what another one had.
struct Search {
    std::string path;
    std::string_view key;
    std::optional<std::string> text;
    bool isOver = false;

    void end(std::optional<std::string> found) {
        text = std::move(found);
        isOver = true;
    }

    void look(DataView entry) {
        const auto change = static_cast<Change>(entry[entryKindOffset]);
        DataView texts = entry.substr(entryTextsOffset, entry.size() - entryTextsOffset - wordBytes);
        const auto item = takeText(texts);
        if (!item) return;
        switch (change) {
        case Change::set:
        case Change::setList:
        case Change::unset: lookAtValue(change, *item, texts); break;
        case Change::copy: lookAtCopy(*item, texts); break;
        case Change::remove:
            if (partBelow(*item, path)) end(std::nullopt);
            break;
        }
    }

private:
    void lookAtValue(Change change, DataView item, DataView texts) {
        if (item != path || takeText(texts) != key) return;
        if (change != Change::set) {
            end(std::nullopt);
        } else if (const auto value = takeText(texts)) {
            end(value->size() <= maxTextBytes ? std::optional<std::string>(*value) : std::nullopt);
        }
    }

    void lookAtCopy(DataView target, DataView texts) {
        const auto below = partBelow(target, path);
        const auto source = takeText(texts);
        if (!below || !source || source->empty()) return;
        std::string before(withoutTrailingSlashes(*source));
        before += *below;
        if (before.size() > maxPathBytes)
            end(std::nullopt);
        else
            path = before.empty() ? "/" : std::move(before);
    }
};

} // namespace

std::optional<std::string> text(DataView tree, DataView journal, std::string_view path, std::string_view key) {
    const Tree items(tree);
    if (!items.isTree()) return std::nullopt;
    Search search{.path = std::string(path), .key = key, .text = {}};
    const std::vector<DataView> changes = entries(journal, items.tag());
    for (std::size_t i = changes.size(); i-- > 0;) {
        search.look(changes[i]);
        if (search.isOver) return search.text;
    }
    return items.text(search.path, key);
}

std::optional<std::string> journalName(DataView tree, std::string_view name) {
    const Tree items(tree);
    if (!items.isTree()) return std::nullopt;
    constexpr std::string_view digits = "0123456789abcdef";
    std::string journal(name);
    journal += '-';
    for (unsigned shift = 32; shift > 0;) {
        shift -= 4;
        journal += digits[items.tag() >> shift & 0xFU];
    }
    journal += ".log";
    return journal;
}

} // namespace quillmar::FileMetadata
