#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace quillmar {

/// Documents that make a careless renderer recurse, search again what it has searched, or write far more than
/// it has read.
struct HostileMarkdown {
    std::string name;
    std::function<std::string(std::size_t bytes)> document; ///< not longer than its argument
};

using HostileDocuments = std::vector<HostileMarkdown>;

HostileDocuments hostileContainers();
HostileDocuments hostileLeafBlocks();
HostileDocuments hostileLinks();
HostileDocuments hostileInlines();

/// All of them.
HostileDocuments hostileMarkdown();

} // namespace quillmar
