#include "QuillmarQuickLook/Icons/DconfDatabase.h"

#include "Support/ByteReader.h"

#include <algorithm>
#include <cstdint>

namespace quillmar::DconfDatabase {
namespace {

using namespace std::string_view_literals;

/// At the start of a little-endian file, with version and options behind it.
constexpr std::string_view signature = "GVariant\0\0\0\0\0\0\0\0"sv;

// The header: the signature, then where the table begins and ends.
constexpr std::int64_t tableStartOffset = 16;
constexpr std::int64_t tableEndOffset = 20;

// A table: a number of bloom words, a number of buckets, those, and the items.
constexpr std::int64_t tableHeadBytes = 8;
constexpr std::uint64_t bloomCountMask = 0x7FFFFFF;
constexpr std::int64_t wordBytes = 4;

// An item: hash, parent, where its part of the key lies, type, where its value lies.
constexpr std::int64_t itemBytes = 24;
constexpr std::int64_t parentOffset = 4;
constexpr std::int64_t keyStartOffset = 8;
constexpr std::int64_t keySizeOffset = 12;
constexpr std::int64_t typeOffset = 14;
constexpr std::int64_t valueStartOffset = 16;
constexpr std::int64_t valueEndOffset = 20;

constexpr std::uint64_t noParent = 0xFFFFFFFF;

/// Keys have as many parts as they have slashes.
constexpr int maxParts = 32;

class Table {
public:
    explicit Table(DataView database) : bytes_(database) {
        const auto start = static_cast<std::int64_t>(bytes_.u32(tableStartOffset));
        const auto end = static_cast<std::int64_t>(bytes_.u32(tableEndOffset));
        const auto blooms = static_cast<std::int64_t>(bytes_.u32(start) & bloomCountMask);
        const auto buckets = static_cast<std::int64_t>(bytes_.u32(start + wordBytes));
        items_ = start + tableHeadBytes + (blooms + buckets) * wordBytes;
        const auto size = static_cast<std::int64_t>(database.size());
        count_ = std::max<std::int64_t>(std::min(end, size) - items_, 0) / itemBytes;
    }

    std::int64_t count() const { return count_; }

    /// True when the parts of the item's key, its own and its parents', make up \p key.
    bool hasKey(std::int64_t item, std::string_view key) const {
        for (int part = 0; part < maxParts && item >= 0 && item < count_; ++part) {
            const std::string_view own = partOfKey(item);
            if (own.empty() || !key.ends_with(own)) return false;
            key.remove_suffix(own.size());
            const std::uint64_t parent = field(item, parentOffset);
            if (key.empty()) return parent == noParent;
            item = static_cast<std::int64_t>(parent);
        }
        return false;
    }

    /// Of an item with a value.
    std::optional<std::string> text(std::int64_t item) const {
        const DataView type = bytes_.slice(at(item) + typeOffset, 1);
        const auto start = static_cast<std::int64_t>(field(item, valueStartOffset));
        const auto end = static_cast<std::int64_t>(field(item, valueEndOffset));
        DataView value = bytes_.slice(start, end - start);
        // A text in a variant: its bytes, a NUL, a NUL in front of the type, which is "s".
        constexpr std::string_view ending = "\0\0s"sv;
        if (type != "v" || !value.ends_with(ending)) return std::nullopt;
        value.remove_suffix(ending.size());
        if (value.find('\0') != value.npos) return std::nullopt;
        return std::string(value);
    }

private:
    std::int64_t at(std::int64_t item) const { return items_ + item * itemBytes; }
    std::uint64_t field(std::int64_t item, std::int64_t offset) const { return bytes_.u32(at(item) + offset); }
    std::string_view partOfKey(std::int64_t item) const {
        return bytes_.slice(static_cast<std::int64_t>(field(item, keyStartOffset)),
                            static_cast<std::int64_t>(bytes_.u16(at(item) + keySizeOffset)));
    }

    ByteReader bytes_;
    std::int64_t items_ = 0;
    std::int64_t count_ = 0;
};

} // namespace

std::optional<std::string> text(DataView database, std::string_view key) {
    if (!database.starts_with(signature)) return std::nullopt;
    const Table table(database);
    // All items, not those of one bucket: the table is small, and nothing in it is believed.
    for (std::int64_t item = 0; item < table.count(); ++item)
        if (table.hasKey(item, key))
            if (auto text = table.text(item)) return text;
    return std::nullopt;
}

} // namespace quillmar::DconfDatabase
