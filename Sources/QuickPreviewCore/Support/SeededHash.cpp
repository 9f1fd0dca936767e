#include "Support/SeededHash.h"

#include <atomic>
#include <cstring>
#include <random>

namespace quillmar {
namespace {

__extension__ using Product = unsigned __int128;

/// Both halves of the product, folded into one: every bit of the factors takes part in every bit.
std::uint64_t folded(std::uint64_t a, std::uint64_t b) {
    const Product product = static_cast<Product>(a) * b;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

std::uint64_t randomWord() {
    std::random_device random;
    return std::uint64_t{random()} << 32 | random();
}

} // namespace

SeededHash::SeededHash() {
    // Asking the system takes longer than rendering a short document, so it is asked once.
    static const std::uint64_t secretSeed = randomWord();
    static const std::uint64_t secretFactor = randomWord();
    static std::atomic<std::uint64_t> objects = 0;
    const std::uint64_t object = ++objects;
    seed_ = folded(secretSeed ^ object, secretFactor);
    factor_ = folded(secretFactor ^ object, secretSeed);
}

std::size_t SeededHash::operator()(std::string_view text, std::uint64_t number) const {
    std::uint64_t hash = folded(seed_ ^ number, factor_ ^ text.size());
    std::uint64_t word = 0;
    for (; text.size() >= sizeof word; text.remove_prefix(sizeof word)) {
        std::memcpy(&word, text.data(), sizeof word);
        hash = folded(hash ^ word, factor_);
    }
    word = 0;
    for (const char c : text) word = word << 8 | static_cast<unsigned char>(c);
    return folded(hash ^ word, factor_);
}

} // namespace quillmar
