#pragma once

#include <string>
#include <vector>

namespace quillmar {

/// The name of the icon theme that the user's desktop shows, as its settings files tell: GNOME's and its
/// relatives' `dconf/user`, KDE's `kdeglobals`, GTK's `settings.ini`. Without any, what the desktop comes with,
/// or else what is installed in \p folders. Never empty.
std::string desktopIconTheme(const std::vector<std::string>& folders);

} // namespace quillmar
