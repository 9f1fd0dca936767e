#include "Fuzz/FuzzTarget.h"
#include "Platform/FileURL.h"
#include "Platform/Text.h"
#include "Platform/UTF8.h"

namespace quillmar {

void fuzz(DataView input) {
    const FileURL url = FileURL::standardized(input, FileURL::root());
    require(url.path().starts_with('/'));
    require(url.path() == "/" || !url.path().ends_with('/'));
    require(url.path().find("//") == std::string::npos);
    require(FileURL::standardized(url.path(), FileURL::root()) == url);
    const std::string name = url.lastPathComponent();
    require(UTF8::validPrefix(name) == name.size());
    require(name.ends_with(pathExtension(name)));
    lowercased(name);
    canonicalForm(name);
}

} // namespace quillmar
