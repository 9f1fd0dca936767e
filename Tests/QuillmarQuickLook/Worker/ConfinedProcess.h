#pragma once

#include "QuillmarQuickLook/Worker/Confinement.h"

#include <functional>
#include <sys/wait.h>
#include <unistd.h>

/// What children of the test can and cannot do. They report by their exit status.
namespace quillmar {

/// Other numbers than those of sanitizers and of programs that fail.
enum class Outcome { cannot = 10, can = 11, died };

/// What \p action says in a child of this process.
inline Outcome outcomeInChild(const std::function<bool()>& action) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(static_cast<int>(action() ? Outcome::can : Outcome::cannot));
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return Outcome::died;
    for (const Outcome outcome : {Outcome::cannot, Outcome::can})
        if (WEXITSTATUS(status) == static_cast<int>(outcome)) return outcome;
    return Outcome::died;
}

/// What it says in a child that is confined to \p item.
inline Outcome outcomeConfined(const FileURL& item, const std::function<bool()>& action) {
    return outcomeInChild([&] {
        Confinement::confineTo(item);
        return action();
    });
}

} // namespace quillmar
