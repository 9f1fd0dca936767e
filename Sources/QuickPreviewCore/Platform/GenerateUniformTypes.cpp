// GenerateUniformTypes IN.tsv OUT.cpp: turns the type table into constants.
//
// Runs at build time on our own data, so anything unexpected in it ends the build.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Row {
    std::string identifier;
    std::vector<std::string> parents;
    std::vector<std::string> extensions;
    std::string mimeType;
    std::string description;
};

[[noreturn]] void fail(const std::string& why) {
    std::fprintf(stderr, "GenerateUniformTypes: %s\n", why.c_str());
    std::exit(EXIT_FAILURE);
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    for (std::size_t end = 0; (end = text.find(separator, start)) != std::string::npos; start = end + 1)
        pieces.push_back(text.substr(start, end - start));
    pieces.push_back(text.substr(start));
    return pieces;
}

std::vector<std::string> splitList(const std::string& text) {
    return text.empty() ? std::vector<std::string>{} : split(text, ',');
}

std::vector<Row> readRows(const char* path) {
    std::ifstream file(path);
    std::vector<Row> rows;
    std::string line;
    std::getline(file, line);
    if (line != "identifier\tparents\textensions\tmime\tdescription") fail("unexpected columns: " + line);
    while (std::getline(file, line)) {
        const auto cells = split(line, '\t');
        if (cells.size() != 5) fail("five cells expected: " + line);
        rows.push_back({cells[0], splitList(cells[1]), splitList(cells[2]), cells[3], cells[4]});
    }
    std::ranges::sort(rows, {}, &Row::identifier);
    return rows;
}

std::map<std::string, std::size_t> indexByIdentifier(const std::vector<Row>& rows) {
    std::map<std::string, std::size_t> indices;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (!indices.emplace(rows[i].identifier, i).second) fail("twice in the table: " + rows[i].identifier);
    return indices;
}

std::string quoted(const std::string& text) {
    if (text.find_first_of("\"\\") != std::string::npos)
        fail("quotes and backslashes are not expected: " + text);
    return '"' + text + '"';
}

void writeTable(std::ostream& out, const std::vector<Row>& rows) {
    const auto indices = indexByIdentifier(rows);
    std::vector<std::pair<std::string, std::size_t>> extensions;
    std::string parents;
    std::string types;
    std::size_t parentCount = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        types += "    {" + quoted(row.identifier) + ", " + quoted(row.mimeType) + ", " +
                 quoted(row.description) + ", {parents + " + std::to_string(parentCount) + ", " +
                 std::to_string(row.parents.size()) + "}},\n";
        for (const auto& parent : row.parents) {
            const auto found = indices.find(parent);
            if (found == indices.end()) fail(row.identifier + " has an unknown parent: " + parent);
            parents += std::to_string(found->second) + ", ";
            ++parentCount;
        }
        for (const auto& extension : row.extensions) extensions.emplace_back(extension, i);
    }
    std::ranges::sort(extensions);

    out << "#include \"Platform/UniformTypeTable.h\"\n\n"
           "namespace quillmar::UniformTypeTable {\nnamespace {\n\n"
        << "constexpr Index parents[] = {" << parents << "};\n\n"
        << "constexpr Type typeRows[] = {\n"
        << types << "};\n\n"
        << "constexpr Extension extensionRows[] = {\n";
    for (const auto& [name, type] : extensions) out << "    {" << quoted(name) << ", " << type << "},\n";
    out << "};\n\n} // namespace\n\n"
           "const std::span<const Type> types = typeRows;\n"
           "const std::span<const Extension> extensions = extensionRows;\n\n"
           "} // namespace quillmar::UniformTypeTable\n";
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) fail("usage: GenerateUniformTypes IN.tsv OUT.cpp");
    std::ofstream out(argv[2]);
    writeTable(out, readRows(argv[1]));
    out.close();
    if (!out) fail(std::string("cannot write ") + argv[2]);
}
