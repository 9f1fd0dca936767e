#include "QuillmarQuickLook/Icons/IconNames.h"

#include <algorithm>
#include <array>

namespace quillmar::IconNames {
namespace {

struct Family {
    std::string_view identifier;
    std::array<std::string_view, 2> names; ///< the second may be empty
};

/// A type is called what the first family says that it conforms to. A volume is a folder as well.
constexpr std::array families{
    Family{"com.apple.application", {"application-x-executable", ""}},
    Family{"com.apple.application-bundle", {"application-x-executable", ""}},
    Family{"public.executable", {"application-x-executable", ""}},
    Family{"public.disk-image", {"application-x-cd-image", "drive-harddisk"}},
    Family{"public.volume", {"drive-harddisk", ""}},
    Family{"public.folder", {"folder", "inode-directory"}},
    Family{"public.directory", {"folder", "inode-directory"}},
    Family{"public.image", {"image-x-generic", ""}},
    Family{"public.movie", {"video-x-generic", ""}},
    Family{"public.video", {"video-x-generic", ""}},
    Family{"public.audio", {"audio-x-generic", ""}},
    Family{"public.archive", {"package-x-generic", ""}},
    Family{"public.font", {"font-x-generic", ""}},
    Family{"public.spreadsheet", {"x-office-spreadsheet", ""}},
    Family{"public.presentation", {"x-office-presentation", ""}},
    Family{"public.contact", {"x-office-address-book", ""}},
    Family{"public.calendar-event", {"x-office-calendar", ""}},
    Family{"public.html", {"text-html", ""}},
    Family{"public.script", {"text-x-script", ""}},
    Family{"public.source-code", {"text-x-script", ""}},
    Family{"public.composite-content", {"x-office-document", ""}},
    Family{"public.text", {"text-x-generic", ""}},
};

constexpr std::array<std::string_view, 3> lastNames{"unknown", "application-octet-stream", "text-x-generic"};

/// What says too little: every theme draws it as a plain sheet, and a family knows better.
constexpr std::array<std::string_view, 2> vagueTypes{"application/octet-stream", "text/plain"};

void add(std::vector<std::string>& names, std::string name) {
    if (!name.empty() && std::ranges::find(names, name) == names.end()) names.push_back(std::move(name));
}

/// Without parameters ("; charset=utf-8").
std::string nameOfMIMEType(std::string_view type) {
    std::string name(type.substr(0, type.find(';')));
    std::ranges::replace(name, '/', '-');
    return name;
}

void addLastNames(std::vector<std::string>& names) {
    for (const std::string_view name : lastNames) add(names, std::string(name));
}

} // namespace

std::vector<std::string> ofType(const UniformType& type) {
    std::vector<std::string> names;
    for (const UniformType& step : type.lineage()) {
        const bool isVague = step != type && std::ranges::find(vagueTypes, step.mimeType()) != vagueTypes.end();
        if (!isVague) add(names, nameOfMIMEType(step.mimeType()));
    }
    for (const Family& family : families) {
        if (!type.conformsTo(family.identifier)) continue;
        for (const std::string_view name : family.names) add(names, std::string(name));
        break;
    }
    addLastNames(names);
    return names;
}

std::vector<std::string> ofUnknown() {
    std::vector<std::string> names;
    addLastNames(names);
    return names;
}

} // namespace quillmar::IconNames
