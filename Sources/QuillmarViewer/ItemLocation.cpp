#include "QuillmarViewer/ItemLocation.h"

#include "Platform/UTF8.h"
#include "QuillmarViewer/GObjectPointer.h"

#include <climits>
#include <string_view>

namespace quillmar {
namespace {

constexpr const char* standardName = "Item";
constexpr const char* noAddressOfAFile = "Its address is not one of a file.";

/// As much of \p name as the name of a file has at most, without a character that is cut.
std::string firstBytes(std::string_view name) {
    name = name.substr(0, NAME_MAX);
    return std::string(name.substr(0, UTF8::validPrefix(name)));
}

std::string nameOf(GFile* file) {
    const GString8 base(g_file_get_basename(file));
    if (!base || *base == '\0') return standardName;
    const GString8 name(g_filename_display_name(base.get()));
    return firstBytes(name.get());
}

/// No file system has one; a page would take long to draw it.
bool isNameTooLong(const FileURL& url) { return url.path().size() - url.path().rfind('/') - 1 > NAME_MAX; }

std::optional<FileURL> localURL(GFile* file) {
    const GString8 path(g_file_get_path(file));
    if (!path) return std::nullopt;
    return FileURL::standardized(path.get(), FileURL::root());
}

} // namespace

struct ItemLocation::Question {
    ItemLocation* owner; ///< null once nobody waits
    GObjectPointer<GFile> file;
    Found found;
    GObjectPointer<GCancellable> cancellable{g_cancellable_new()};
    guint timer = 0;

    void answer(const Answer& answer) {
        if (timer != 0) g_source_remove(timer);
        timer = 0;
        if (owner == nullptr) return;
        owner->question_ = nullptr;
        owner = nullptr;
        found(answer);
    }

    Answer answerFor(GFileInfo* info) const {
        Answer result{.url = localURL(file.get()), .name = nameOf(file.get()), .message = {}};
        const char* target = info != nullptr
                                 ? g_file_info_get_attribute_string(info, G_FILE_ATTRIBUTE_STANDARD_TARGET_URI)
                                 : nullptr;
        if (target != nullptr && !isResource(target)) {
            const GObjectPointer<GFile> other(g_file_new_for_uri(target));
            if (auto url = localURL(other.get())) result.url = std::move(url);
        }
        const char* name = info != nullptr ? g_file_info_get_display_name(info) : nullptr;
        // That of the root of a place may be empty.
        if (name != nullptr && *name != '\0') result.name = firstBytes(name);
        if (!result.url) result.message = "This place has no files that can be read here.";
        return result;
    }

    static void queried(GObject* object, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Question> question(static_cast<Question*>(data));
        const GObjectPointer<GFileInfo> info(g_file_query_info_finish(G_FILE(object), result, nullptr));
        question->answer(question->answerFor(info.get()));
    }

    static gboolean isLate(gpointer data) {
        auto* question = static_cast<Question*>(data);
        question->timer = 0;
        g_cancellable_cancel(question->cancellable.get());
        question->answer({.url = std::nullopt,
                          .name = nameOf(question->file.get()),
                          .message = "The place where it lies does not answer."});
        return G_SOURCE_REMOVE;
    }
};

bool ItemLocation::isResource(const std::string& uri) {
    constexpr std::string_view scheme = "resource:";
    return g_ascii_strncasecmp(uri.c_str(), scheme.data(), scheme.size()) == 0;
}

void ItemLocation::find(const std::string& uri, Found found) {
    cancel();
    if (isResource(uri)) return found({.url = std::nullopt, .name = standardName, .message = noAddressOfAFile});
    GObjectPointer<GFile> file(g_file_new_for_uri(uri.c_str()));
    if (g_file_has_uri_scheme(file.get(), "file") != FALSE) {
        auto url = localURL(file.get());
        if (url && isNameTooLong(*url)) url.reset();
        const std::string message = url ? "" : noAddressOfAFile;
        found({.url = std::move(url), .name = nameOf(file.get()), .message = message});
        return;
    }
    question_ = new Question{.owner = this, .file = std::move(file), .found = std::move(found)};
    question_->timer = g_timeout_add(patience, Question::isLate, question_);
    g_file_query_info_async(
        question_->file.get(), G_FILE_ATTRIBUTE_STANDARD_TARGET_URI "," G_FILE_ATTRIBUTE_STANDARD_DISPLAY_NAME,
        G_FILE_QUERY_INFO_NONE, G_PRIORITY_DEFAULT, question_->cancellable.get(), Question::queried, question_);
}

void ItemLocation::cancel() {
    if (question_ == nullptr) return;
    g_cancellable_cancel(question_->cancellable.get());
    if (question_->timer != 0) g_source_remove(question_->timer);
    question_->timer = 0;
    question_->owner = nullptr;
    question_ = nullptr;
}

} // namespace quillmar
