#pragma once

#include <string>

namespace quillmar {

/// A place on the network of this machine that notices who comes.
class Listener {
public:
    /// Throws when there is no port.
    Listener();
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Of something there called \p name.
    std::string url(const std::string& name) const;

    /// True once somebody has connected.
    bool wasVisited();
    /// Answers whoever has connected, over HTTP, with a picture that is red all over.
    void answerWithRedPicture();

private:
    int socket_;
    int visitor_ = -1;
};

} // namespace quillmar
