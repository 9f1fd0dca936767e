#include "QuillmarQuickLook/FileManagers/ServiceFile.h"

#include "Platform/UTF8.h"

#include <algorithm>

namespace quillmar::ServiceFile {
namespace {

constexpr std::string_view mark = "# Written by Quillmar.";

bool isControl(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }

bool isPlain(char c) {
    constexpr std::string_view plainSigns = "/._-+,:=@";
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           plainSigns.find(c) != plainSigns.npos;
}

/// \p path as one word of a command line. D-Bus divides it as a shell does, after it has made one backslash of
/// each two as in all values. A quotation mark is put in quotation marks of the other kind, for not all session
/// buses agree on backslashes.
std::string word(std::string_view path) {
    if (std::ranges::all_of(path, isPlain)) return std::string(path);
    std::string quoted = "'";
    for (const char c : path) {
        if (c == '\'')
            quoted += "'\"'\"'";
        else if (c == '\\')
            quoted += "\\\\";
        else
            quoted += c;
    }
    return quoted + '\'';
}

} // namespace

bool canHold(std::string_view path) {
    return UTF8::validPrefix(path) == path.size() && std::ranges::none_of(path, isControl);
}

std::string text(std::string_view busName, std::string_view program) {
    std::string file(mark);
    file += " \"quillmar --uninstall-preview\" removes it.\n[D-BUS Service]\nName=";
    file += busName;
    file += "\nExec=";
    file += word(program);
    return file += " --service\n";
}

bool isOurs(std::string_view text) { return text.starts_with(mark); }

} // namespace quillmar::ServiceFile
