#pragma once

#include <gio/gio.h>

/// What GTK and WebKit read from the environment.
namespace quillmar::LibrarySettings {

/// Chooses how they draw, where the user has not. To be called before either starts.
void apply();

/// Lets a program that is started with \p context inherit nothing of that choice.
void keepFrom(GAppLaunchContext* context);

} // namespace quillmar::LibrarySettings
