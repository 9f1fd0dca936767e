#pragma once

#include "Platform/Data.h"
#include "Platform/FileURL.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace quillmar {

/// A fresh folder that goes with all it holds.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "quillmar-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
        path_ = std::filesystem::canonical(pattern);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

    /// The place of an item called \p name in this folder, there or not.
    FileURL url(const std::string& name) const {
        return FileURL::standardized(name, FileURL::standardized(path_.string(), FileURL::root()));
    }

    FileURL write(const std::string& name, DataView data) const {
        std::ofstream file(path_ / name, std::ios::binary);
        file.write(data.data(), static_cast<std::streamsize>(data.size()));
        if (!file.flush()) throw std::runtime_error("cannot write " + name);
        return url(name);
    }

    FileURL makeFolder(const std::string& name) const {
        std::filesystem::create_directories(path_ / name);
        return url(name);
    }

private:
    std::filesystem::path path_;
};

inline Data contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace quillmar
