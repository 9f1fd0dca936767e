#include "Benchmarks/Figures/Growth.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmar {
namespace {

/// Of the processor, which others may use as well; in a new process, which has all its memory still to ask for,
/// as the one has that makes a preview.
double secondsOf(const Job& job) {
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
    const pid_t process = ::fork();
    if (process < 0) throw std::runtime_error("no process");
    double seconds = 0;
    if (process == 0) {
        const std::clock_t start = std::clock();
        job();
        seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        ::_exit(::write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
    }
    ::close(ends[1]);
    const bool isRead = ::read(ends[0], &seconds, sizeof seconds) == sizeof seconds;
    ::close(ends[0]);
    ::waitpid(process, nullptr, 0);
    if (!isRead) throw std::runtime_error("the work has failed");
    return seconds;
}

/// The least of as many runs as a moment holds, two at least unless one takes long.
double leastSeconds(const Job& job) {
    constexpr double moment = 0.02;
    constexpr double lengthy = 0.25;
    double least = secondsOf(job);
    if (least > lengthy) return least;
    double spent = 0;
    do {
        const double seconds = secondsOf(job);
        least = std::min(least, seconds);
        spent += seconds;
    } while (spent < moment);
    return least;
}

} // namespace

double Growth::largestFactor() const {
    double largest = 0;
    for (std::size_t i = 1; i < seconds.size(); ++i)
        if (seconds[i] >= shortest) largest = std::max(largest, seconds[i] / seconds[i - 1]);
    return largest;
}

double Growth::meanFactor() const {
    const auto first = std::ranges::find_if(seconds, [](double time) { return time >= shortest; });
    const auto doublings = seconds.end() - first - 1;
    if (doublings <= 0) return 0;
    return std::pow(seconds.back() / *first, 1.0 / static_cast<double>(doublings));
}

Growth measureGrowth(std::size_t largest, const std::function<Job(std::size_t size)>& prepare) {
    // What looks too steep is looked at again: others on the machine can only add to a time.
    constexpr int someAttempts = 4;
    constexpr int mostAttempts = 12;
    std::array<Job, 4> jobs;
    for (std::size_t i = 0; i < jobs.size(); ++i) jobs[i] = prepare(largest >> (jobs.size() - 1 - i));
    Growth growth;
    growth.seconds.fill(std::numeric_limits<double>::max());
    for (int attempt = 1; attempt <= mostAttempts; ++attempt) {
        for (std::size_t i = 0; i < jobs.size(); ++i)
            growth.seconds[i] = std::min(growth.seconds[i], leastSeconds(jobs[i]));
        if (growth.largestFactor() <= Growth::asked) break;
        if (attempt >= someAttempts && growth.meanFactor() <= Growth::asked) break;
    }
    return growth;
}

double timesAsLong(const Job& job, const Job& other, double bound) {
    constexpr int someTurns = 5;
    constexpr int mostTurns = 25;
    double seconds = std::numeric_limits<double>::max();
    double otherSeconds = seconds;
    for (int turn = 0; turn < someTurns || (turn < mostTurns && seconds > bound * otherSeconds); ++turn) {
        seconds = std::min(seconds, secondsOf(job));
        otherSeconds = std::min(otherSeconds, secondsOf(other));
    }
    return seconds / otherSeconds;
}

} // namespace quillmar
