#pragma once

#include "Platform/FileURL.h"

#include <functional>
#include <gio/gio.h>
#include <optional>
#include <string>

namespace quillmar {

/// Finds the file behind a URI: the path of a local one, the target of what stands for another (recent, trash,
/// a link of the desktop), the place where a remote one is mounted. Never waits for a place that hangs.
class ItemLocation {
public:
    ItemLocation() = default;
    ~ItemLocation() { cancel(); }
    ItemLocation(const ItemLocation&) = delete;
    ItemLocation& operator=(const ItemLocation&) = delete;

    struct Answer {
        std::optional<FileURL> url; ///< none when there is no file
        std::string name;           ///< for people
        std::string message;        ///< a sentence that says why there is none
    };
    using Found = std::function<void(const Answer&)>;

    /// \p found is called on the main loop, perhaps at once; not after `cancel` or another question.
    void find(const std::string& uri, Found found);
    void cancel();

    /// True when \p uri names what a program carries within itself. There are no files, and GIO (2.74) ends the
    /// program over such an address when a "%" in it is no escape, so it is not to be asked.
    static bool isResource(const std::string& uri);

    /// Milliseconds after which a place that does not answer is given up.
    static constexpr unsigned patience = 3'000;

private:
    struct Question;

    Question* question_ = nullptr; ///< owns itself until it is answered
};

} // namespace quillmar
