#include "Markdown/BracketPairs.h"

#include <algorithm>

namespace quillmar::Markdown {

void BracketPairs::reset(std::string_view text) {
    text_ = text;
    pairs_.clear();
    walks_.clear();
    // Offsets are kept in 32 bits; in a longer text brackets are text.
    bytesLeft_ = text.size() < unclosed ? (text.size() + 1) * maxWalks : 0;
}

std::optional<BracketPairs::Closing> BracketPairs::closing(std::size_t open, std::size_t limit,
                                                           std::size_t outerWalk) {
    while (!walks_.empty() && walks_.back().end <= open) {
        pairs_.resize(walks_.back().firstPair);
        walks_.pop_back();
    }
    const auto answer = [&](const Pair& pair, std::size_t walk) -> std::optional<Closing> {
        if (pair.close >= limit) return std::nullopt;
        return Closing{.position = pair.close, .walk = static_cast<std::uint32_t>(walk)};
    };
    // Walks of this part of the text that have ended may stand below one that goes on.
    std::size_t first = walks_.size();
    while (first > 0 && walks_[first - 1].limit == limit) --first;
    const auto hasEnded = [open](const Walk& walk) { return walk.end <= open; };
    walks_.erase(std::remove_if(walks_.begin() + static_cast<std::ptrdiff_t>(first), walks_.end(), hasEnded),
                 walks_.end());
    for (std::size_t i = walks_.size(); i-- > first;)
        if (const Pair* pair = find(walks_[i], open)) return answer(*pair, i);
    if (outerWalk < walks_.size())
        if (const Pair* pair = find(walks_[outerWalk], open)) return answer(*pair, outerWalk);
    if (bytesLeft_ == 0) return std::nullopt;
    walk(open, limit);
    return answer(pairs_[walks_.back().firstPair], walks_.size() - 1);
}

const BracketPairs::Pair* BracketPairs::find(Walk& walk, std::size_t open) const {
    const std::size_t end = walk.firstPair + walk.pairCount;
    while (walk.next < end && pairs_[walk.next].open < open) ++walk.next;
    return walk.next < end && pairs_[walk.next].open == open ? &pairs_[walk.next] : nullptr;
}

void BracketPairs::walk(std::size_t open, std::size_t limit) {
    const std::size_t firstPair = pairs_.size();
    std::uint32_t innermost = unclosed; // index of the innermost open pair, whose `close` is that of the next
    std::size_t position = open;
    while (position < limit) {
        const char c = text_[position];
        if (c == '\\') {
            position += 2;
        } else if (c == '`') {
            const std::size_t run = backticks_.runAt(position, limit);
            const auto closing = backticks_.closing(position + run, run, limit);
            position = closing.value_or(position) + run;
        } else {
            ++position;
            if (c == '[') {
                pairs_.push_back({.open = static_cast<std::uint32_t>(position - 1), .close = innermost});
                innermost = static_cast<std::uint32_t>(pairs_.size() - 1);
            } else if (c == ']') {
                Pair& pair = pairs_[innermost];
                innermost = pair.close;
                pair.close = static_cast<std::uint32_t>(position - 1);
                if (innermost == unclosed) break;
            }
        }
    }
    while (innermost != unclosed) {
        Pair& pair = pairs_[innermost];
        innermost = pair.close;
        pair.close = unclosed;
    }
    position = std::min(position, limit);
    bytesLeft_ -= std::min(bytesLeft_, position - open);
    walks_.push_back({.firstPair = firstPair,
                      .pairCount = pairs_.size() - firstPair,
                      .end = position,
                      .limit = limit,
                      .next = firstPair});
}

} // namespace quillmar::Markdown
