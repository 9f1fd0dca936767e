#include "QuillmarViewer/PageView.h"

#include "QuillmarViewer/OtherProgram.h"

#include <algorithm>
#include <array>
#include <libsoup/soup.h>
#include <string_view>
#include <utility>

namespace quillmar {
namespace {

constexpr const char* scheme = "quillmar-page";
constexpr const char* pageURI = "quillmar-page:///";
constexpr const char* viewKey = "quillmar-view"; ///< of a web view: its PageView

/// The header of every page: what it says holds whatever the page itself says.
constexpr const char* ownImagesOnly = "default-src 'none'; img-src data:; style-src 'unsafe-inline'";
constexpr const char* remoteImages =
    "default-src 'none'; img-src data: http: https:; style-src 'unsafe-inline'";

/// Where nobody listens: what gets past the policy finds no way out.
constexpr const char* nowhere = "http://127.0.0.1:1";

PageView* viewOf(gpointer webView) {
    return static_cast<PageView*>(g_object_get_data(G_OBJECT(webView), viewKey));
}

GObjectPointer<WebKitSettings> settings() {
    GObjectPointer<WebKitSettings> settings(webkit_settings_new());
    webkit_settings_set_enable_javascript(settings.get(), FALSE);
    webkit_settings_set_enable_javascript_markup(settings.get(), FALSE);
    webkit_settings_set_enable_html5_database(settings.get(), FALSE);
    webkit_settings_set_enable_html5_local_storage(settings.get(), FALSE);
    webkit_settings_set_enable_media(settings.get(), FALSE);
    webkit_settings_set_enable_page_cache(settings.get(), FALSE);
    // Pages are text: drawing them without a graphics library of its own saves a third of the memory.
    webkit_settings_set_hardware_acceleration_policy(settings.get(), WEBKIT_HARDWARE_ACCELERATION_POLICY_NEVER);
    return settings;
}

bool isForBrowser(std::string_view uri) {
    constexpr std::array schemes{"https:", "http:", "mailto:"};
    return std::ranges::any_of(schemes, [uri](const char* prefix) { return uri.starts_with(prefix); });
}

std::string_view withoutFragment(std::string_view uri) { return uri.substr(0, uri.find('#')); }

/// The first load and what scrolls within the page stay; links that a person follows go to the browser.
gboolean decidePolicy(WebKitWebView* view, WebKitPolicyDecision* decision, WebKitPolicyDecisionType type,
                      gpointer) {
    if (type == WEBKIT_POLICY_DECISION_TYPE_RESPONSE) return FALSE;
    WebKitNavigationAction* action =
        webkit_navigation_policy_decision_get_navigation_action(WEBKIT_NAVIGATION_POLICY_DECISION(decision));
    const char* address = webkit_uri_request_get_uri(webkit_navigation_action_get_request(action));
    const std::string uri = address != nullptr ? address : "";
    const bool isClick =
        webkit_navigation_action_get_navigation_type(action) == WEBKIT_NAVIGATION_TYPE_LINK_CLICKED;
    const char* shown = webkit_web_view_get_uri(view);
    const bool isOwnPage = shown != nullptr && withoutFragment(uri) == withoutFragment(shown);
    const bool isFirstLoad = !isClick && uri.starts_with(scheme);
    if (type == WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION && (isOwnPage || isFirstLoad)) {
        webkit_policy_decision_use(decision);
        return TRUE;
    }
    webkit_policy_decision_ignore(decision);
    const bool isWanted = webkit_navigation_action_is_user_gesture(action) != FALSE;
    if (isWanted && isForBrowser(uri)) openInOtherProgram(uri);
    return TRUE;
}

/// Leaves what copies; everything else would lead away or download.
gboolean trimContextMenu(WebKitWebView*, WebKitContextMenu* menu, WebKitHitTestResult*, gpointer) {
    for (guint i = webkit_context_menu_get_n_items(menu); i-- > 0;) {
        WebKitContextMenuItem* item = webkit_context_menu_get_item_at_position(menu, i);
        const WebKitContextMenuAction action = webkit_context_menu_item_get_stock_action(item);
        if (action != WEBKIT_CONTEXT_MENU_ACTION_COPY && action != WEBKIT_CONTEXT_MENU_ACTION_SELECT_ALL)
            webkit_context_menu_remove(menu, item);
    }
    return webkit_context_menu_get_n_items(menu) == 0 ? TRUE : FALSE;
}

} // namespace

/// What WebKit calls.
struct PageView::Callbacks {
    static void respond(WebKitURISchemeRequest* request, gpointer) {
        const PageView* page = viewOf(webkit_uri_scheme_request_get_web_view(request));
        if (page == nullptr) {
            GError* error = g_error_new_literal(G_IO_ERROR, G_IO_ERROR_NOT_FOUND, "no page");
            webkit_uri_scheme_request_finish_error(request, error);
            g_error_free(error);
            return;
        }
        GBytes* bytes = g_bytes_new(page->html_.data(), page->html_.size());
        const GObjectPointer<GInputStream> stream(g_memory_input_stream_new_from_bytes(bytes));
        g_bytes_unref(bytes);
        const GObjectPointer<WebKitURISchemeResponse> response(
            webkit_uri_scheme_response_new(stream.get(), static_cast<gint64>(page->html_.size())));
        webkit_uri_scheme_response_set_content_type(response.get(), "text/html");
        SoupMessageHeaders* headers = soup_message_headers_new(SOUP_MESSAGE_HEADERS_RESPONSE);
        const bool ownOnly = page->images_ == Images::ownOnly;
        soup_message_headers_append(headers, "Content-Security-Policy", ownOnly ? ownImagesOnly : remoteImages);
        soup_message_headers_append(headers, "Referrer-Policy", "no-referrer");
        webkit_uri_scheme_response_set_http_headers(response.get(), headers); // takes them
        webkit_uri_scheme_request_finish_with_response(request, response.get());
    }

    static void loadChanged(WebKitWebView*, WebKitLoadEvent event, gpointer data) {
        auto* page = static_cast<PageView*>(data);
        if (event == WEBKIT_LOAD_COMMITTED) page->isWarm_ = true;
        page->isDrawing_ = event == WEBKIT_LOAD_COMMITTED && !page->isBlank();
        if (event != WEBKIT_LOAD_FINISHED || std::exchange(page->isReplaced_, false)) return;
        if (page->onLoaded) page->onLoaded();
    }

    /// Pages come from here, so what fails is a load in whose place another one has begun.
    static gboolean loadFailed(WebKitWebView*, WebKitLoadEvent, const char*, GError*, gpointer data) {
        static_cast<PageView*>(data)->isReplaced_ = true;
        return TRUE; // no page of WebKit's own
    }

    static void crashed(WebKitWebView*, WebKitWebProcessTerminationReason, gpointer data) {
        auto* page = static_cast<PageView*>(data);
        page->isDrawing_ = false;
        page->isLost_ = true;
        if (page->onCrashed) page->onCrashed();
    }

    /// One for all views: WebKit keeps its processes with it.
    static WebKitWebContext* context() {
        static WebKitWebContext* const shared = [] {
            WebKitWebContext* context = webkit_web_context_new();
            webkit_web_context_set_cache_model(context, WEBKIT_CACHE_MODEL_DOCUMENT_VIEWER);
            webkit_web_context_register_uri_scheme(context, scheme, respond, nullptr, nullptr);
            return context;
        }();
        return shared;
    }

    /// Keeps nothing, and for pages without remote images leads nowhere.
    static WebKitNetworkSession* session(Images images) {
        if (images == Images::remote) {
            static WebKitNetworkSession* const open = webkit_network_session_new_ephemeral();
            return open;
        }
        static WebKitNetworkSession* const closed = [] {
            WebKitNetworkSession* session = webkit_network_session_new_ephemeral();
            WebKitNetworkProxySettings* proxy = webkit_network_proxy_settings_new(nowhere, nullptr);
            webkit_network_session_set_proxy_settings(session, WEBKIT_NETWORK_PROXY_MODE_CUSTOM, proxy);
            webkit_network_proxy_settings_free(proxy);
            return session;
        }();
        return closed;
    }
};

PageView::PageView(Images images) : images_(images) {
    const auto webSettings = settings();
    view_.reset(WEBKIT_WEB_VIEW(g_object_ref_sink(
        g_object_new(WEBKIT_TYPE_WEB_VIEW, "web-context", Callbacks::context(), "network-session",
                     Callbacks::session(images), "settings", webSettings.get(), "accessible-role",
                     GTK_ACCESSIBLE_ROLE_DOCUMENT, nullptr))));
    // Until a page is drawn the window shows, which is dark in the dark.
    constexpr GdkRGBA transparent{.red = 0, .green = 0, .blue = 0, .alpha = 0};
    webkit_web_view_set_background_color(view_.get(), &transparent);
    g_object_set_data(G_OBJECT(view_.get()), viewKey, this);
    g_signal_connect(view_.get(), "decide-policy", G_CALLBACK(decidePolicy), nullptr);
    g_signal_connect(view_.get(), "context-menu", G_CALLBACK(trimContextMenu), nullptr);
    g_signal_connect(view_.get(), "load-changed", G_CALLBACK(Callbacks::loadChanged), this);
    g_signal_connect(view_.get(), "load-failed", G_CALLBACK(Callbacks::loadFailed), this);
    g_signal_connect(view_.get(), "web-process-terminated", G_CALLBACK(Callbacks::crashed), this);
}

PageView::~PageView() {
    g_object_set_data(G_OBJECT(view_.get()), viewKey, nullptr);
    g_signal_handlers_disconnect_by_data(view_.get(), this);
    if (isDrawing_) webkit_web_view_terminate_web_process(view_.get()); // nobody waits for it
}

void PageView::load(std::string html) {
    html_ = std::move(html);
    webkit_web_view_load_uri(view_.get(), pageURI); // the same again, for no history is wanted
}

void PageView::describe(const std::string& title, const std::string& text) {
    gtk_accessible_update_property(GTK_ACCESSIBLE(view_.get()), GTK_ACCESSIBLE_PROPERTY_LABEL, title.c_str(),
                                   GTK_ACCESSIBLE_PROPERTY_DESCRIPTION, text.c_str(), -1);
}

void PageView::setZoom(double factor) { webkit_web_view_set_zoom_level(view_.get(), factor); }

void PageView::copySelection() {
    webkit_web_view_execute_editing_command(view_.get(), WEBKIT_EDITING_COMMAND_COPY);
}

void PageView::find(const std::string& text) {
    constexpr guint maxMatches = 10'000;
    webkit_find_controller_search(webkit_web_view_get_find_controller(view_.get()), text.c_str(),
                                  WEBKIT_FIND_OPTIONS_CASE_INSENSITIVE | WEBKIT_FIND_OPTIONS_WRAP_AROUND,
                                  maxMatches);
}

void PageView::findNext() {
    webkit_find_controller_search_next(webkit_web_view_get_find_controller(view_.get()));
}

void PageView::findPrevious() {
    webkit_find_controller_search_previous(webkit_web_view_get_find_controller(view_.get()));
}

void PageView::endFind() {
    webkit_find_controller_search_finish(webkit_web_view_get_find_controller(view_.get()));
}

void PageView::savePicture(const std::string& path, std::function<void(bool)> done) {
    struct Wish {
        std::string path;
        std::function<void(bool)> done;
    };
    constexpr auto save = [](GObject* view, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Wish> wish(static_cast<Wish*>(data));
        const GObjectPointer<GdkTexture> picture(
            webkit_web_view_get_snapshot_finish(WEBKIT_WEB_VIEW(view), result, nullptr));
        wish->done(picture && gdk_texture_save_to_png(picture.get(), wish->path.c_str()) != FALSE);
    };
    webkit_web_view_get_snapshot(view_.get(), WEBKIT_SNAPSHOT_REGION_VISIBLE, WEBKIT_SNAPSHOT_OPTIONS_NONE,
                                 nullptr, save, new Wish{path, std::move(done)});
}

} // namespace quillmar
