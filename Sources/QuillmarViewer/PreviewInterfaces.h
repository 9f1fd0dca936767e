#pragma once

/// What file managers call.
namespace quillmar::PreviewInterfaces {

/// GNOME Files (Nautilus, `nautilus-previewer.c`). Its version 50 adds a fourth argument to `ShowFile`, a
/// string; see MessageForms.
namespace Nautilus {
inline constexpr const char* busName = "org.gnome.NautilusPreviewer";
inline constexpr const char* path = "/org/gnome/NautilusPreviewer";
inline constexpr const char* interface = "org.gnome.NautilusPreviewer2";
} // namespace Nautilus

/// Nemo, as its version 5.6 calls it: with the number of its X11 window, always closing what is shown already.
namespace Nemo {
inline constexpr const char* busName = "org.nemo.Preview";
inline constexpr const char* path = "/org/nemo/Preview";
inline constexpr const char* interface = "org.nemo.Preview";
} // namespace Nemo

/// The name that tells a second instance of ours from somebody else's previewer.
inline constexpr const char* instanceName = "app.quillmar.PreviewService";

inline constexpr const char* description = R"(<node>
  <interface name="org.gnome.NautilusPreviewer2">
    <method name="ShowFile">
      <arg type="s" name="uri" direction="in"/>
      <arg type="s" name="window_handle" direction="in"/>
      <arg type="b" name="close_if_already_shown" direction="in"/>
    </method>
    <method name="Close"/>
    <property name="Visible" type="b" access="read"/>
    <property name="ParentHandle" type="s" access="read"/>
    <signal name="SelectionEvent">
      <arg type="u" name="direction"/>
    </signal>
  </interface>
  <interface name="org.nemo.Preview">
    <method name="ShowFile">
      <arg type="s" name="uri" direction="in"/>
      <arg type="i" name="xid" direction="in"/>
      <arg type="b" name="close_if_already_shown" direction="in"/>
    </method>
    <method name="Close"/>
  </interface>
</node>)";

} // namespace quillmar::PreviewInterfaces
