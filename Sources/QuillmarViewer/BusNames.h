#pragma once

#include <gio/gio.h>
#include <string>
#include <vector>

namespace quillmar {

/// The names on the session bus under which file managers call the previewer.
///
/// Nobody may take them from us, and we take them from nobody: while another previewer runs we wait behind it.
/// Of our own there is one at a time.
class BusNames {
public:
    BusNames() = default;
    /// Gives the names back.
    ~BusNames();
    BusNames(const BusNames&) = delete;
    BusNames& operator=(const BusNames&) = delete;

    enum class Outcome { requested, secondInstance, refused };
    /// Once. Waits for the bus, which answers in well under a millisecond, because the names are wanted before
    /// the program loads what takes long. When the bus refuses, \p error says why.
    Outcome request(GDBusConnection* connection, std::string& error);

private:
    GDBusConnection* connection_ = nullptr;
    std::vector<const char*> names_;
};

} // namespace quillmar
