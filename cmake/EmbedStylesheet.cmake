# Writes the C++ file `output` that holds the text of the stylesheet `input` as one constant.
file(READ "${input}" text)
string(STRIP "${text}" text)
file(WRITE "${output}" "#include \"Pages/Stylesheet.h\"

namespace quillmar {

const std::string_view stylesheet = R\"css(${text})css\";

} // namespace quillmar
")
