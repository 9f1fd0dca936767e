#pragma once

#include "Platform/Data.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>
#include <zlib.h>

/// Builds the files in which gvfs keeps what people have told of their files, byte by byte (gvfs,
/// `metadata/file-format.txt`).
namespace quillmar {

inline constexpr std::uint32_t metadataTag = 0x0123ABCD;

/// An item of a tree. Its children are written in the order given here, which the format wants to be by name.
struct MetadataItem {
    std::string name;
    std::map<std::string, std::string> values;
    std::vector<MetadataItem> children = {};
};

inline Data bigEndian(std::uint64_t number, int bytes = 4) {
    Data data;
    for (int byte = bytes; byte-- > 0;) data += static_cast<char>(number >> (8 * byte) & 0xFF);
    return data;
}

class MetadataTreeBuilder {
public:
    static constexpr std::size_t rootOffset = 32;

    explicit MetadataTreeBuilder(const MetadataItem& root, std::uint32_t tag) {
        collectKeys(root);
        tree_ = Data("\xDA\x1Ameta\1\0", 8) + bigEndian(0) + bigEndian(tag) + bigEndian(rootOffset) +
                bigEndian(rootOffset + itemBytes) + bigEndian(0, 8);
        tree_.append(itemBytes, '\0');
        writeKeys();
        writeItem(root, rootOffset);
    }

    const Data& tree() const { return tree_; }

private:
    static constexpr std::size_t itemBytes = 16;
    static constexpr std::size_t valueBytes = 8;

    void collectKeys(const MetadataItem& item) {
        for (const auto& value : item.values) keys_[value.first] = 0;
        for (const MetadataItem& child : item.children) collectKeys(child);
    }

    void patch(std::size_t offset, std::size_t number) { tree_.replace(offset, 4, bigEndian(number)); }

    /// Appends a block of \p count elements; the place of the first.
    std::size_t appendBlock(std::size_t count, std::size_t elementBytes) {
        tree_ += bigEndian(count);
        const std::size_t first = tree_.size();
        tree_.append(count * elementBytes, '\0');
        return first;
    }

    void appendText(const std::string& text, std::size_t offset) {
        patch(offset, tree_.size());
        tree_ += text;
        tree_.append(4 - text.size() % 4, '\0');
    }

    void writeKeys() {
        std::size_t place = appendBlock(keys_.size(), 4);
        std::uint32_t number = 0;
        for (auto& [key, keyNumber] : keys_) {
            keyNumber = number++;
            appendText(key, place);
            place += 4;
        }
    }

    void writeItem(const MetadataItem& item, std::size_t offset) {
        appendText(item.name, offset);
        patch(offset + 8, tree_.size());
        std::size_t place = appendBlock(item.values.size(), valueBytes);
        for (const auto& [key, text] : item.values) {
            patch(place, keys_[key]);
            appendText(text, place + 4);
            place += valueBytes;
        }
        if (item.children.empty()) return;
        patch(offset + 4, tree_.size());
        place = appendBlock(item.children.size(), itemBytes);
        for (const MetadataItem& child : item.children) {
            writeItem(child, place);
            place += itemBytes;
        }
    }

    Data tree_;
    std::map<std::string, std::uint32_t> keys_;
};

inline Data metadataTree(const MetadataItem& root, std::uint32_t tag = metadataTag) {
    return MetadataTreeBuilder(root, tag).tree();
}

/// An entry of a journal: \p change is what was done, and the texts that belong to it, each with its NUL.
inline Data rawJournalEntry(DataView change) {
    Data content = bigEndian(1'700'000'000, 8).append(change);
    content.append((4 - content.size() % 4) % 4, '\0');
    const Data size = bigEndian(content.size() + 12);
    content += size;
    const auto sum =
        ::crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
    return size + bigEndian(sum) + content;
}

inline Data journalEntry(char kind, const std::vector<std::string>& texts) {
    Data change(1, kind);
    for (const std::string& text : texts) change.append(text).append(1, '\0');
    return rawJournalEntry(change);
}

inline Data setEntry(const std::string& path, const std::string& key, const std::string& text) {
    return journalEntry(0, {path, key, text});
}
/// A list of one text; all that stands behind the key is of no interest to who wants a text.
inline Data setListEntry(const std::string& path, const std::string& key, const std::string& text) {
    return journalEntry(1, {path, key, text});
}
inline Data unsetEntry(const std::string& path, const std::string& key) { return journalEntry(2, {path, key}); }
inline Data copyEntry(const std::string& source, const std::string& target) {
    return journalEntry(3, {target, source});
}
inline Data removeEntry(const std::string& path) { return journalEntry(4, {path}); }

/// A journal of 32 KB, like those of gvfs; larger when the entries are.
inline Data metadataJournal(const std::vector<Data>& entries, std::uint32_t tag = metadataTag) {
    Data content;
    for (const Data& entry : entries) content += entry;
    constexpr std::size_t headerBytes = 20;
    content.resize(std::max<std::size_t>(content.size(), 32'768 - headerBytes));
    return Data("\xDA\x1Ajour\1\0", 8) + bigEndian(tag) + bigEndian(content.size() + headerBytes) +
           bigEndian(entries.size()) + content;
}

} // namespace quillmar
