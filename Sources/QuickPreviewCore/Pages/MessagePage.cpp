#include "Pages/MessagePage.h"

#include "Pages/PageTemplate.h"
#include "Support/HTML.h"

namespace quillmar::MessagePage {

std::string html(std::string_view title, std::string_view message, const std::optional<std::string>& icon) {
    std::string body = "<div class=\"message\">";
    if (icon) body += "<img src=\"" + HTML::escape(*icon) + "\" alt=\"\">";
    body += "<h1>" + HTML::escape(title) + "</h1><p>" + HTML::escape(message) + "</p></div>";
    return PageTemplate::document(title, "message-page", body);
}

} // namespace quillmar::MessagePage
