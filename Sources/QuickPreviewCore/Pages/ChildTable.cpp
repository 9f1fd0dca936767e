#include "Pages/ChildTable.h"

#include <utility>

namespace quillmar {
namespace {

constexpr std::size_t initialSlots = 1'024;

} // namespace

ChildTable::ChildTable() : children_(1), slots_(initialSlots) {}

std::uint32_t ChildTable::hashOf(NodeIndex parent, std::string_view name) const {
    return static_cast<std::uint32_t>(hash_(name, parent));
}

std::optional<NodeIndex> ChildTable::find(NodeIndex parent, std::string_view name) const {
    const std::uint32_t hash = hashOf(parent, name);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t i = hash & mask; slots_[i].place != 0; i = (i + 1) & mask) {
        if (slots_[i].hash != hash) continue;
        const Child& child = children_[slots_[i].place];
        if (child.parent == parent && child.name == name) return child.child;
    }
    return std::nullopt;
}

void ChildTable::insert(NodeIndex parent, std::string_view name, NodeIndex child) {
    if (children_.size() > slots_.size() / 2) grow();
    place({.hash = hashOf(parent, name), .place = static_cast<std::uint32_t>(children_.size())});
    children_.push_back({.name = name, .parent = parent, .child = child});
}

void ChildTable::place(Slot slot) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = slot.hash & mask;
    while (slots_[i].place != 0) i = (i + 1) & mask;
    slots_[i] = slot;
}

void ChildTable::grow() {
    const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    for (const Slot& slot : before)
        if (slot.place != 0) place(slot);
}

} // namespace quillmar
