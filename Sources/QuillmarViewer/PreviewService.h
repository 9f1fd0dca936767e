#pragma once

#include <gio/gio.h>
#include <memory>
#include <string>

namespace quillmar {

/// What file managers ask of the previewer, whichever interface they speak. Called on the main loop.
class PreviewRequests {
public:
    PreviewRequests() = default;
    PreviewRequests(const PreviewRequests&) = delete;
    PreviewRequests& operator=(const PreviewRequests&) = delete;
    virtual ~PreviewRequests() = default;

    struct Show {
        std::string uri;             ///< as the file manager writes it
        std::string parentHandle;    ///< "x11:" and a hexadecimal number, "wayland:" and a handle, or anything
        bool closeIfShown = false;   ///< the same item again closes the window
        std::string activationToken; ///< empty when the file manager gives none
    };
    virtual void show(const Show& request) = 0;
    virtual void close() = 0;
    /// Somebody has asked whether we are there, and will want a preview before long.
    virtual void warmUp() = 0;
};

/// The previewer on the session bus: the interface of GNOME Files (org.gnome.NautilusPreviewer2, `ShowFile`
/// with three arguments or four) and that of Nemo (org.nemo.Preview). Needs no display and loads nothing heavy.
class PreviewService {
public:
    /// \p requests must outlive this object.
    explicit PreviewService(PreviewRequests& requests);
    ~PreviewService();
    PreviewService(const PreviewService&) = delete;
    PreviewService& operator=(const PreviewService&) = delete;

    /// Exports the objects on \p connection and then asks for the names. False when they cannot be exported;
    /// \p error says why. \p lost is called when another program takes the role over.
    bool start(GDBusConnection* connection, void (*lost)(void*), void* context, std::string& error);

    /// The property `Visible`; a change is announced.
    void setVisible(bool isVisible);
    /// The property `ParentHandle`: the window that the preview belongs to.
    void setParentHandle(const std::string& handle);

    /// Directions as GTK numbers them (GtkDirectionType).
    enum class Direction : unsigned { up = 2, down = 3, left = 4, right = 5 };
    /// Asks the file manager to move its selection.
    void moveSelection(Direction direction);

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace quillmar
