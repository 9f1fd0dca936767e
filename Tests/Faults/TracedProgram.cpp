#include "Tests/Faults/TracedProgram.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <set>
#include <stdexcept>

namespace quillmar {
namespace {

struct Failure {
    std::string_view call;
    std::string_view error;
};

/// Interrupted calls are to be made once more. Looking at the clock is missing, for it takes no system call,
/// and so is `brk`, which the kernel has fail in a way that strace cannot imitate.
constexpr std::array failures{
    Failure{"openat", "EIO"},
    Failure{"openat", "EMFILE"},
    Failure{"read", "EIO"},
    Failure{"read", "EINTR"},
    Failure{"pread64", "EIO"},
    Failure{"pread64", "EINTR"},
    Failure{"newfstatat", "EIO"},
    Failure{"statx", "EIO"},
    Failure{"fstatfs", "EIO"},
    Failure{"getdents64", "EIO"},
    Failure{"lseek", "EIO"},
    Failure{"readlink", "EIO"},
    Failure{"access", "EIO"},
    Failure{"faccessat", "EIO"},
    Failure{"faccessat2", "EIO"},
    Failure{"mmap", "ENOMEM"},
    Failure{"mremap", "ENOMEM"},
    Failure{"clone", "EAGAIN"},
    Failure{"clone3", "EAGAIN"},
    Failure{"vfork", "EAGAIN"},
    Failure{"socketpair", "EMFILE"},
    Failure{"sendto", "ENOBUFS"},
    Failure{"sendto", "EINTR"},
    Failure{"recvfrom", "ENOMEM"},
    Failure{"recvfrom", "EINTR"},
    Failure{"poll", "ENOMEM"},
    Failure{"poll", "EINTR"},
    Failure{"write", "EIO"},
    Failure{"rename", "EIO"},
    Failure{"prctl", "EINVAL"},
    Failure{"prlimit64", "EPERM"},
    Failure{"seccomp", "EINVAL"},
    Failure{"landlock_create_ruleset", "EOPNOTSUPP"},
    Failure{"landlock_restrict_self", "EPERM"},
};

/// Occurrences of one call that are tried, of many.
constexpr std::size_t samples = 6;

/// A line without the number of the thread in front.
std::string_view withoutThread(std::string_view line) {
    line.remove_prefix(std::min(line.size(), line.find_first_not_of("0123456789 ")));
    return line;
}

std::vector<std::size_t> sampled(std::size_t first, std::size_t last) {
    std::vector<std::size_t> numbers;
    const std::size_t count = last - first + 1;
    if (count <= samples) {
        for (std::size_t number = first; number <= last; ++number) numbers.push_back(number);
        return numbers;
    }
    for (std::size_t i = 0; i < samples; ++i) numbers.push_back(first + i * (count - 1) / (samples - 1));
    return numbers;
}

/// The lines of \p log; \p isStarted from the first one on that has \p start in it.
template <typename Visit>
void eachLine(const std::filesystem::path& log, std::string_view start, const Visit& visit) {
    std::ifstream file(log);
    std::string line;
    bool isStarted = false;
    while (std::getline(file, line)) {
        isStarted = isStarted || line.find(start) != line.npos;
        visit(line, isStarted);
    }
    if (!isStarted) throw std::runtime_error("strace has seen nothing of the program: " + log.string());
}

} // namespace

std::string tracing(const std::string& program, const std::filesystem::path& log) {
    return "strace --quiet=all --output=" + log.string() + " " + program;
}

std::string failing(const std::string& program, const std::filesystem::path& log, const Fault& fault) {
    return "strace --quiet=all --output=" + log.string() + " --trace=openat,close,prctl," + fault.call +
           " --inject=" + fault.call + ":error=" + fault.error + ":when=" + std::to_string(fault.occurrence) +
           " " + program;
}

void writeScript(const std::filesystem::path& path, const std::string& command) {
    std::ofstream(path) << "#!/bin/sh\nexec " << command << " \"$@\"\n";
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

std::vector<Fault> faultsBehind(const std::filesystem::path& log, std::string_view start) {
    struct Count {
        std::size_t before = 0;
        std::size_t behind = 0;
    };
    std::map<std::string, Count, std::less<>> counts;
    eachLine(log, start, [&](std::string_view line, bool isStarted) {
        const std::string_view call = withoutThread(line);
        Count& count = counts[std::string(call.substr(0, call.find('(')))];
        ++(isStarted ? count.behind : count.before);
    });
    std::vector<Fault> faults;
    for (const Failure& failure : failures) {
        const auto count = counts.find(failure.call);
        if (count == counts.end() || count->second.behind == 0) continue;
        const auto [before, behind] = count->second;
        for (const std::size_t occurrence : sampled(before + 1, before + behind))
            faults.push_back({std::string(failure.call), std::string(failure.error), occurrence});
    }
    return faults;
}

std::vector<std::string> leftOpen(const std::filesystem::path& log, std::string_view start) {
    std::set<std::string> open;
    eachLine(log, start, [&](std::string_view line, bool isStarted) {
        if (!isStarted) return;
        const std::string_view call = withoutThread(line);
        if (call.starts_with("close(")) open.erase(std::string(call.substr(6, call.find(')') - 6)));
        const std::size_t result = call.rfind(" = ");
        if (call.find("openat") == call.npos || result == call.npos) return;
        const std::string_view descriptor = call.substr(result + 3);
        if (descriptor.find_first_not_of("0123456789") == descriptor.npos) open.insert(std::string(descriptor));
    });
    return {open.begin(), open.end()};
}

} // namespace quillmar
