#pragma once

#include <md4c-html.h>
#include <string>

namespace quillmar {

inline std::string md4cHTML(const std::string& markdown) {
    std::string html;
    const auto append = [](const MD_CHAR* text, MD_SIZE size, void* target) {
        static_cast<std::string*>(target)->append(text, size);
    };
    md_html(markdown.data(), static_cast<MD_SIZE>(markdown.size()), append, &html,
            MD_FLAG_TABLES | MD_FLAG_STRIKETHROUGH | MD_FLAG_TASKLISTS | MD_FLAG_PERMISSIVEAUTOLINKS, 0);
    return html;
}

} // namespace quillmar
