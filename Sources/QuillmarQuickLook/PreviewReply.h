#pragma once

#include "Platform/Data.h"
#include "Platform/UniformType.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace quillmar {

/// Points.
struct ContentSize {
    double width = 0;
    double height = 0;
};

struct PreviewReplyAttachment {
    std::shared_ptr<const Data> data; ///< never null
    UniformType contentType;
};

/// The answer to a preview request. Its data is made when the host asks for it, not before.
class PreviewReply {
public:
    /// Sets `stringEncoding` and `attachments` of the reply it is given and returns the content's bytes, which
    /// live as long as the function.
    using DataFunction = std::function<DataView(PreviewReply&)>;

    PreviewReply(UniformType type, ContentSize size, DataFunction makeData)
        : contentType(type), contentSize(size), makeData_(std::move(makeData)) {}

    /// Valid while the reply lives.
    DataView data() { return makeData_(*this); }

    UniformType contentType;
    ContentSize contentSize;
    std::string stringEncoding;                                ///< an IANA name; empty until data was asked for
    std::map<std::string, PreviewReplyAttachment> attachments; ///< by name; empty until data was asked for

private:
    DataFunction makeData_;
};

} // namespace quillmar
