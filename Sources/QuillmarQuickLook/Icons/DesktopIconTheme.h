#pragma once

#include <string>
#include <vector>

namespace quillmar {

/// The name of the icon theme that the user's desktop shows, as far as its settings files tell: KDE's
/// `kdeglobals`, GTK's `settings.ini`. Without any, what the desktop comes with, or else what is installed in
/// \p folders. Never empty.
std::string desktopIconTheme(const std::vector<std::string>& folders);

} // namespace quillmar
