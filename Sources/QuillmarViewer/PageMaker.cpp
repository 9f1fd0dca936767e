#include "QuillmarViewer/PageMaker.h"

#include "QuickPreview.h"
#include "QuillmarQuickLook/Icons/FinderIcons.h"
#include "QuillmarQuickLook/PreviewProvider.h"
#include "QuillmarQuickLook/PreviewWriter.h"
#include "QuillmarQuickLook/Worker/ConfinedPreview.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
#include <glib.h>
#include <string_view>
#include <utility>

namespace quillmar {

struct PageMaker::Job {
    Page page;
    Done done;
    std::atomic<bool> isFinished = false;
    std::jthread thread;
};

namespace {

/// Raw HTML and Markdown write remote sources like that; what this misses is not loaded either.
bool namesRemoteImages(std::string_view html) {
    constexpr std::array sources{"src=\"http://", "src=\"https://", "src='http://", "src='https://",
                                 "srcset=\"http"};
    return std::ranges::any_of(sources, [html](const char* source) { return html.find(source) != html.npos; });
}

Page pageOf(PreviewReply reply) {
    Page page{.html = PreviewWriter::selfContainedPage(reply),
              .width = reply.contentSize.width,
              .height = reply.contentSize.height};
    page.namesRemoteImages = namesRemoteImages(page.html);
    return page;
}

/// What a page cannot be made of for lack of memory, or for a reason that nobody has thought of, is a short
/// page.
Page makeOrExplain(const std::function<Page(std::stop_token)>& make, const std::stop_token& stop) {
    try {
        return make(stop);
    } catch (const std::exception&) {
        return {.html = "<!DOCTYPE html><meta charset=\"utf-8\"><p>This preview could not be made.",
                .width = 520,
                .height = 380};
    }
}

} // namespace

PageMaker::~PageMaker() {
    cancel();
    for (const auto& job : jobs_) job->thread.join();
}

void PageMaker::make(const FileURL& url, Done done) {
    const auto make = [program = program_, url](const std::stop_token& stop) {
        FinderIcons icons(FinderIcons::standardPlaces()); // the user may have chosen another theme since
        const PreviewProvider provider(&icons, false, [&](const FileURL& item, IconSource* source) {
            return ConfinedPreview(program).document(item, source, stop);
        });
        return pageOf(provider.providePreview({url}));
    };
    start(make, std::move(done));
}

void PageMaker::makeMessage(const FileURL& url, const std::string& message, Done done) {
    const auto make = [url, message](const std::stop_token&) {
        const PreviewProvider provider(nullptr, false, [&](const FileURL& item, IconSource* icons) {
            return QuickPreview::failure(item, message, icons);
        });
        return pageOf(provider.providePreview({url}));
    };
    start(make, std::move(done));
}

void PageMaker::start(Make make, Done done) {
    cancel();
    forgetFinished();
    const auto job = std::make_shared<Job>();
    jobs_.push_back(job);
    job->done = std::move(done);
    using Handed = std::shared_ptr<Job>;
    constexpr auto finish = [](gpointer data) -> gboolean {
        const Handed& handed = *static_cast<Handed*>(data);
        const bool isWanted = !handed->thread.get_stop_token().stop_requested();
        if (isWanted) handed->done(std::move(handed->page));
        return G_SOURCE_REMOVE;
    };
    constexpr auto forget = [](gpointer data) { delete static_cast<Handed*>(data); };
    job->thread = std::jthread([job, make = std::move(make), finish, forget](const std::stop_token& stop) {
        job->page = makeOrExplain(make, stop);
        job->isFinished = true;
        g_idle_add_full(G_PRIORITY_DEFAULT, finish, new Handed(job), forget);
    });
}

void PageMaker::cancel() {
    for (const auto& job : jobs_) job->thread.request_stop();
}

void PageMaker::forgetFinished() {
    jobs_.remove_if([](const std::shared_ptr<Job>& job) {
        if (!job->isFinished) return false;
        job->thread.join();
        return true;
    });
}

} // namespace quillmar
