#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmar {

/// Something that cannot be done in a folder. `what()` says what is wrong and what to do.
class ServicesFolderError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The folder `dbus-1/services` in a user's data folder. It is held open, and no link leads out of it: what is
/// written and removed is in there. Everything throws ServicesFolderError.
class ServicesFolder {
public:
    /// Makes the folder and those above it where they are missing. \p dataFolder is an absolute path.
    static ServicesFolder made(const std::string& dataFolder);
    /// None when there is no such folder.
    static std::optional<ServicesFolder> existing(const std::string& dataFolder);

    ServicesFolder(ServicesFolder&& other) noexcept;
    ~ServicesFolder();
    ServicesFolder(const ServicesFolder&) = delete;
    ServicesFolder& operator=(const ServicesFolder&) = delete;

    std::string pathOf(const std::string& name) const;

    /// True for an item of any kind, a link that leads nowhere as well.
    bool has(const std::string& name) const;
    /// What the file holds; none for whatever is no regular file, for a link, and for a file that cannot be
    /// read or is larger than any of ours.
    std::optional<std::string> contents(const std::string& name) const;

    /// Puts a file with \p text in the place of what is there; nobody sees half of it.
    void write(const std::string& name, std::string_view text) const;
    /// \p to is replaced when there is a file of that name.
    void rename(const std::string& from, const std::string& to) const;
    void remove(const std::string& name) const;

private:
    ServicesFolder(int descriptor, std::string path) : descriptor_(descriptor), path_(std::move(path)) {}
    static std::optional<ServicesFolder> open(const std::string& dataFolder, bool isToBeMade);

    int descriptor_;
    std::string path_;
};

} // namespace quillmar
