// Ours beside what a user would run instead, on the same machine in the same minute.

#include "Benchmarks/CommandRun.h"
#include "Benchmarks/Figures/Figures.h"
#include "Benchmarks/Figures/MarkdownRenderers.h"
#include "Benchmarks/FolderSamples.h"
#include "Benchmarks/MarkdownSamples.h"
#include "Benchmarks/Samples.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

namespace quillmar {
namespace {

constexpr std::string_view title = "Speed";
constexpr std::string_view about = "Medians of rounds in which ours and theirs run in turn; the ratio is the "
                                   "median of the rounds' ratios. Commands "
                                   "are measured from exec to exit, their output thrown away; files and "
                                   "folders are in the system's memory. A blank "
                                   "in the last column: nothing is asked.";

using Command = CommandRun::Command;
using Seconds = std::function<double()>; ///< runs once

/// How much of a rival's time ours may take.
using Asked = std::optional<double>;

struct Rival {
    std::string name;
    Seconds run;
    Asked asked;
};

struct RivalCommand {
    Command command; ///< the path is added
    Asked asked = {};
};

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::string milliseconds(double seconds) { return threeDigits(seconds * 1'000).append(" ms"); }

Seconds inProcess(std::size_t (*render)(const std::string&), const std::vector<std::string>& documents) {
    return [=] {
        const auto start = std::chrono::steady_clock::now();
        for (const auto& document : documents)
            if (render(document) == 0) throw std::runtime_error("a document without HTML");
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
}

/// \p command once for every path.
Seconds commandRuns(const Command& command, const std::vector<std::string>& paths) {
    return [=] {
        double seconds = 0;
        for (const auto& path : paths) {
            Command whole = command;
            whole.push_back(path);
            seconds += CommandRun::seconds(whole);
        }
        return seconds;
    };
}

class Comparisons {
public:
    explicit Comparisons(const Report& report) : report_(report) {}

    void run();

private:
    using Strings = std::vector<std::string>;
    using Make = std::function<Strings()>; ///< the paths or documents, made when they are needed

    void commands(const std::string& what, const Make& paths, const std::vector<RivalCommand>& rivals);
    void renderers(const std::string& what, const Make& documents);
    void compare(const std::string& what, const Seconds& ours, const std::vector<Rival>& rivals);

    const Report& report_;
    std::vector<Row> rows_{{"what", "instead", "ours", "theirs", "ratio", "asked"}};
};

void Comparisons::compare(const std::string& what, const Seconds& ours, const std::vector<Rival>& rivals) {
    constexpr std::size_t fewestRounds = 7;
    constexpr std::size_t mostRounds = 51;
    constexpr double enoughSeconds = 3;

    ours();
    for (const Rival& rival : rivals) rival.run(); // what comes into memory by it is there for all
    std::vector<double> own;
    std::vector<std::vector<double>> theirs(rivals.size());
    std::vector<std::vector<double>> ratios(rivals.size());
    const auto start = std::chrono::steady_clock::now();
    const auto elapsed = [&] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    while (own.size() < fewestRounds || (own.size() < mostRounds && elapsed() < enoughSeconds)) {
        own.push_back(ours());
        for (std::size_t i = 0; i < rivals.size(); ++i) {
            theirs[i].push_back(rivals[i].run());
            ratios[i].push_back(own.back() / theirs[i].back());
        }
    }
    for (std::size_t i = 0; i < rivals.size(); ++i) {
        const Asked& asked = rivals[i].asked;
        rows_.push_back({what, rivals[i].name, milliseconds(median(own)), milliseconds(median(theirs[i])),
                         threeDigits(median(ratios[i])), asked ? threeDigits(*asked) : ""});
    }
}

void Comparisons::commands(const std::string& what, const Make& paths,
                           const std::vector<RivalCommand>& rivals) {
    if (!report_.wants(title, what)) return;
    const Strings all = paths();
    Command host = CommandRun::host("");
    host.pop_back();
    std::vector<Rival> runs;
    for (const auto& [command, asked] : rivals) {
        std::string name = command.front().substr(command.front().rfind('/') + 1);
        for (std::size_t i = 1; i < command.size(); ++i) name.append(" ").append(command[i]);
        runs.push_back({.name = name, .run = commandRuns(command, all), .asked = asked});
    }
    compare(what, commandRuns(host, all), runs);
}

void Comparisons::renderers(const std::string& what, const Make& documents) {
    if (!report_.wants(title, what)) return;
    const Strings all = documents();
    compare(what, inProcess(MarkdownRenderers::ours, all),
            {{.name = "cmark-gfm", .run = inProcess(MarkdownRenderers::cmark, all), .asked = 0.35},
             {.name = "md4c", .run = inProcess(MarkdownRenderers::md4c, all), .asked = 1.2}});
}

std::vector<std::string> documentation() { return {MarkdownSamples::documentation(2'097'152, 1)}; }

/// Writes \p documents to files and returns their paths.
std::vector<std::string> filesOf(const std::string& name, const std::vector<std::string>& documents) {
    std::vector<std::string> paths;
    for (const auto& document : documents)
        paths.push_back(Samples::file(name + std::to_string(paths.size()) + ".md", document));
    return paths;
}

void Comparisons::run() {
    const auto archive = [](const std::string& name) {
        return [=] { return Strings{Samples::archive(name)}; };
    };
    const auto source = [](std::size_t bytes) {
        return [=] {
            return Strings{
                Samples::file("source-" + std::to_string(bytes) + ".cpp", Samples::sourceCode(bytes))};
        };
    };
    const Command unzip{"unzip", "-l"};
    const Command tar{"tar", "-tvf"};
    const Command bsdtar{"bsdtar", "-tvf"};
    const Command du{"du", "-sb"};
    const Command gdu{"gdu", "-n", "-p", "-c"};
    const std::vector<RivalCommand> markdown{
        {{"cmark-gfm", "--unsafe", "-e", "table", "-e", "strikethrough", "-e", "autolink", "-e", "tasklist"}},
        {{QUILLMAR_MD4C_COMMAND}}};

    commands("start: a text of 100 bytes", source(100), {{{"cat"}}});
    commands("zip, 20,000 entries", archive("tree.zip"), {{unzip, 0.35}, {bsdtar}});
    commands("zip, 60,000 entries", archive("many.zip"), {{unzip, 0.35}, {bsdtar}});
    commands("tar, 20,000 files", archive("tree.tar"), {{tar, 0.5}, {bsdtar}});
    commands("tar.gz, 20,000 files, 300 MB", archive("tree.tar.gz"), {{bsdtar, 0.45}, {tar}});
    commands("tar.gz, 1 GB in 10 files", archive("large.tar.gz"), {{bsdtar, 0.38}, {tar}});
    commands("tar.xz in blocks, 2,000 files, 30 MB", archive("tree-blocks.tar.xz"),
             {{{"xz", "-T1", "-dc"}}, {bsdtar, 0.6}});
    commands("tar.xz in one block, 2,000 files, 30 MB", archive("tree-one-block.tar.xz"),
             {{{"xz", "-T1", "-dc"}}, {bsdtar}});
    renderers("Markdown in process, 2 MiB", documentation);
    renderers("Markdown in process, 50 READMEs", MarkdownSamples::readmes);
    commands(
        "Markdown, 2 MiB", [] { return filesOf("documentation-", documentation()); }, markdown);
    commands(
        "Markdown, 50 READMEs one by one", [] { return filesOf("readme-", MarkdownSamples::readmes()); },
        markdown);
    commands("text, 512 KiB of C++", source(524'288), {{{"cat", "-n"}}});
    commands("folder, 100 of 1,000 files", [] { return Strings{FolderSamples::wide(100)}; },
             {{du, 0.5}, {gdu}});
    commands("folder, deep tree of 69,000 files", [] { return Strings{FolderSamples::deep()}; },
             {{du, 0.55}, {gdu}});
    commands("folder, 100,000 files flat", [] { return Strings{FolderSamples::flat(100'000)}; },
             {{{"ls", "-lA"}}, {du}, {gdu}});
    Report::print(title, about, rows_);
}

} // namespace

void Figures::comparisons(const Report& report) { Comparisons(report).run(); }

} // namespace quillmar
