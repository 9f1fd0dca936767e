#pragma once

#include <stdexcept>
#include <string>

namespace quillmar {

/// A file that is no archive (unrecognized), or an archive that cannot be read as what it claims to be
/// (damaged).
class ArchiveError : public std::runtime_error {
public:
    /// \p reason is a sentence for the user.
    static ArchiveError damaged(const std::string& reason) { return {reason, true}; }
    static ArchiveError unrecognized() { return {"The file is no archive.", false}; }

    bool isDamaged() const { return isDamaged_; }

private:
    ArchiveError(const std::string& reason, bool isDamaged)
        : std::runtime_error(reason), isDamaged_(isDamaged) {}

    bool isDamaged_;
};

} // namespace quillmar
