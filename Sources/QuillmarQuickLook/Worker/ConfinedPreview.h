#pragma once

#include "Platform/FileURL.h"
#include "PreviewDocument.h"
#include "Support/IconSource.h"

#include <chrono>
#include <stop_token>
#include <string>

namespace quillmar {

/// Has previews made by a worker, a process that may read the item and nothing else, and dies with it.
class ConfinedPreview {
public:
    /// \p program is run as the worker. It is this program itself where nothing else is said.
    explicit ConfinedPreview(std::string program = "/proc/self/exe") : program_(std::move(program)) {}

    /// As `QuickPreview::document`. What becomes of the worker, the answer is a page: one that says so when the
    /// worker was stopped or made none. Nobody should look at the page when \p stop asks for an early end.
    PreviewDocument document(const FileURL& url, IconSource* icons, std::stop_token stop = {}) const;

    /// A line for each mechanism that confines workers on this machine, and whether it is in force; empty when
    /// no worker can be started.
    std::string confinement() const;

    /// After which a worker is stopped. Readers keep to budgets of two seconds.
    static constexpr std::chrono::milliseconds patience{10'000};

private:
    std::string program_;
};

} // namespace quillmar
