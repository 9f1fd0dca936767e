#pragma once

#include "Platform/FileURL.h"
#include "QuillmarViewer/Page.h"

#include <functional>
#include <list>
#include <memory>
#include <stop_token>
#include <string>
#include <thread>

namespace quillmar {

/// Makes pages beside the main loop, which never waits. One page is wanted at a time: asking for another, or
/// `cancel`, stops the worker of the one before at once.
class PageMaker {
public:
    /// \p program is the command, which confines itself where it reads what strangers made.
    explicit PageMaker(std::string program) : program_(std::move(program)) {}
    /// Waits for what has been stopped.
    ~PageMaker();
    PageMaker(const PageMaker&) = delete;
    PageMaker& operator=(const PageMaker&) = delete;

    using Done = std::function<void(Page)>;

    /// \p done is called on the main loop, unless something else is wanted by then.
    void make(const FileURL& url, Done done);
    /// The page that says \p message about the item at \p url.
    void makeMessage(const FileURL& url, const std::string& message, Done done);
    void cancel();

private:
    struct Job;

    using Make = std::function<Page(std::stop_token)>;
    void start(Make make, Done done);
    void forgetFinished();

    std::string program_;
    std::list<std::shared_ptr<Job>> jobs_; ///< the last one is wanted, unless it was cancelled
};

} // namespace quillmar
