# Writes the C++ file `output` that holds the text of every SVG in `inputs` under the file's name.
set(rows "")
foreach(input IN LISTS inputs)
    get_filename_component(name "${input}" NAME_WE)
    file(READ "${input}" text)
    string(APPEND rows "    Icon{\"${name}\", R\"svg(${text})svg\"},\n")
endforeach()
file(WRITE "${output}" "#include \"QuillmarQuickLook/Icons/BuiltInIcons.h\"

namespace quillmar::BuiltInIcons {
namespace {

struct Icon {
    std::string_view name;
    std::string_view svg;
};

constexpr Icon icons[]{
${rows}};

} // namespace

std::string_view svg(std::string_view name) {
    for (const Icon& icon : icons)
        if (icon.name == name) return icon.svg;
    return {};
}

} // namespace quillmar::BuiltInIcons
")
