#pragma once

#include "Platform/Data.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>

namespace quillmar {

/// A folder of icon themes that goes with all it holds.
class ThemeFolder {
public:
    std::string path() const { return folder_.path().string(); }
    std::string path(const std::string& name) const { return (folder_.path() / name).string(); }

    /// A file at \p name, a path below the folder; what it lies in is made as well.
    std::string write(const std::string& name, DataView content) const {
        std::filesystem::create_directories((folder_.path() / name).parent_path());
        folder_.write(name, content);
        return path(name);
    }

    /// A theme with one folder, "64", of icons that can be scaled to any size.
    void addTheme(const std::string& name, const std::string& inherits = {}) const {
        addTheme(name, inherits, {"[64]\nSize=64\nType=Scalable\nMinSize=8\nMaxSize=512\n"});
    }

    /// \p directories are groups of an index: "[name]" and the lines below it.
    void addTheme(const std::string& name, const std::string& inherits,
                  const std::vector<std::string>& directories) const {
        std::string index = "[Icon Theme]\nName=Test\n";
        if (!inherits.empty()) index.append("Inherits=").append(inherits).append("\n");
        index += "Directories=";
        for (const std::string& group : directories) index += group.substr(1, group.find(']') - 1) + ',';
        index += '\n';
        for (const std::string& group : directories) index += group;
        write(name + "/index.theme", index);
    }

    /// A link at \p name that leads to \p target, as it stands.
    void link(const std::string& name, const std::string& target) const {
        std::filesystem::create_directories((folder_.path() / name).parent_path());
        std::filesystem::create_symlink(target, folder_.path() / name);
    }

private:
    TemporaryFolder folder_;
};

} // namespace quillmar
