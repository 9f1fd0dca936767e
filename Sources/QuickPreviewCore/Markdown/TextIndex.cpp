#include "Markdown/TextIndex.h"

#include <utility>

namespace quillmar {
namespace {

constexpr std::size_t initialSlots = 64;

} // namespace

TextIndex::TextIndex() : ends_(1), slots_(initialSlots) {}

std::size_t TextIndex::find(std::string_view text) const {
    const Slot& slot = slots_[slotOf(text, hashOf(text))];
    return slot.place == 0 ? none : slot.place - 1;
}

std::size_t TextIndex::insert(std::string_view text) {
    if (size() >= slots_.size() / 2) grow();
    const std::uint32_t hash = hashOf(text);
    Slot& slot = slots_[slotOf(text, hash)];
    if (slot.place == 0) {
        texts_.append(text);
        ends_.push_back(texts_.size());
        slot = {.hash = hash, .place = static_cast<std::uint32_t>(size())};
    }
    return slot.place - 1;
}

std::size_t TextIndex::slotOf(std::string_view text, std::uint32_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = hash & mask;
    while (slots_[i].place != 0 && (slots_[i].hash != hash || textAt(slots_[i].place - 1) != text))
        i = (i + 1) & mask;
    return i;
}

std::uint32_t TextIndex::hashOf(std::string_view text) const {
    return static_cast<std::uint32_t>(hash_(text, 0));
}

std::string_view TextIndex::textAt(std::size_t number) const {
    return std::string_view(texts_).substr(ends_[number], ends_[number + 1] - ends_[number]);
}

void TextIndex::grow() {
    const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : before) {
        if (slot.place == 0) continue;
        std::size_t i = slot.hash & mask;
        while (slots_[i].place != 0) i = (i + 1) & mask;
        slots_[i] = slot;
    }
}

} // namespace quillmar
