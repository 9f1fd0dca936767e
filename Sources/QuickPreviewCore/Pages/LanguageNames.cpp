#include "Pages/LanguageNames.h"

#include <algorithm>
#include <array>
#include <span>

namespace quillmar::LanguageNames {
namespace {

struct Entry {
    std::string_view key;
    std::string_view label;
};

// Both tables are sorted by key.

constexpr std::array specialNames{
    Entry{"brewfile", "Ruby"}, Entry{"dockerfile", "Dockerfile"}, Entry{"gemfile", "Ruby"},
    Entry{"justfile", "Just"}, Entry{"makefile", "Makefile"},     Entry{"package.resolved", "JSON"},
    Entry{"podfile", "Ruby"},  Entry{"procfile", "Procfile"},     Entry{"vagrantfile", "Ruby"},
};

constexpr std::array languages{
    Entry{"astro", "Astro"},
    Entry{"bash", "Bash"},
    Entry{"bat", "Batch"},
    Entry{"c", "C"},
    Entry{"cc", "C++"},
    Entry{"cfg", "Config"},
    Entry{"cjs", "JavaScript"},
    Entry{"clj", "Clojure"},
    Entry{"cmake", "CMake"},
    Entry{"conf", "Config"},
    Entry{"cpp", "C++"},
    Entry{"cs", "C#"},
    Entry{"css", "CSS"},
    Entry{"csv", "CSV"},
    Entry{"dart", "Dart"},
    Entry{"diff", "Diff"},
    Entry{"elm", "Elm"},
    Entry{"env", "Environment"},
    Entry{"erl", "Erlang"},
    Entry{"ex", "Elixir"},
    Entry{"exs", "Elixir"},
    Entry{"fish", "Fish"},
    Entry{"fs", "F#"},
    Entry{"go", "Go"},
    Entry{"gql", "GraphQL"},
    Entry{"gradle", "Gradle"},
    Entry{"graphql", "GraphQL"},
    Entry{"h", "C header"},
    Entry{"hcl", "HCL"},
    Entry{"hpp", "C++ header"},
    Entry{"hs", "Haskell"},
    Entry{"htm", "HTML"},
    Entry{"html", "HTML"},
    Entry{"ini", "INI"},
    Entry{"java", "Java"},
    Entry{"jl", "Julia"},
    Entry{"js", "JavaScript"},
    Entry{"json", "JSON"},
    Entry{"json5", "JSON5"},
    Entry{"jsonc", "JSON"},
    Entry{"jsx", "JavaScript (JSX)"},
    Entry{"kt", "Kotlin"},
    Entry{"kts", "Kotlin script"},
    Entry{"less", "Less"},
    Entry{"lock", "Lockfile"},
    Entry{"log", "Log"},
    Entry{"lua", "Lua"},
    Entry{"m", "Objective-C"},
    Entry{"mdx", "MDX"},
    Entry{"mjs", "JavaScript"},
    Entry{"ml", "OCaml"},
    Entry{"mm", "Objective-C++"},
    Entry{"nim", "Nim"},
    Entry{"nix", "Nix"},
    Entry{"patch", "Diff"},
    Entry{"php", "PHP"},
    Entry{"pl", "Perl"},
    Entry{"plist", "Property list"},
    Entry{"prisma", "Prisma"},
    Entry{"properties", "Properties"},
    Entry{"proto", "Protocol Buffers"},
    Entry{"ps1", "PowerShell"},
    Entry{"py", "Python"},
    Entry{"r", "R"},
    Entry{"rb", "Ruby"},
    Entry{"rs", "Rust"},
    Entry{"sass", "Sass"},
    Entry{"scala", "Scala"},
    Entry{"scss", "SCSS"},
    Entry{"sh", "Shell"},
    Entry{"sql", "SQL"},
    Entry{"svelte", "Svelte"},
    Entry{"swift", "Swift"},
    Entry{"tex", "TeX"},
    Entry{"tf", "Terraform"},
    Entry{"toml", "TOML"},
    Entry{"ts", "TypeScript"},
    Entry{"tsv", "TSV"},
    Entry{"tsx", "TypeScript (TSX)"},
    Entry{"txt", "Plain text"},
    Entry{"vue", "Vue"},
    Entry{"xml", "XML"},
    Entry{"yaml", "YAML"},
    Entry{"yml", "YAML"},
    Entry{"zig", "Zig"},
    Entry{"zsh", "Zsh"},
};

static_assert(std::ranges::is_sorted(specialNames, {}, &Entry::key));
static_assert(std::ranges::is_sorted(languages, {}, &Entry::key));

std::optional<std::string_view> find(std::span<const Entry> table, std::string_view key) {
    const auto found = std::ranges::lower_bound(table, key, {}, &Entry::key);
    if (found == table.end() || found->key != key) return std::nullopt;
    return found->label;
}

} // namespace

std::optional<std::string_view> ofSpecialName(std::string_view name) { return find(specialNames, name); }

std::optional<std::string_view> ofExtension(std::string_view extension) { return find(languages, extension); }

} // namespace quillmar::LanguageNames
