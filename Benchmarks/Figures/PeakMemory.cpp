// Runs a command and prints the peak of its resident memory in KiB, that of the largest process where it starts
// several. A program of its own, because a process begins with the peak of the one that it was forked from.

#include <cstdio>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

extern char** environ;

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    int status = -1;
    rusage usage{};
    if (posix_spawnp(&child, argv[1], &actions, nullptr, argv + 1, environ) == 0)
        wait4(child, &status, 0, &usage);
    if (status != 0) return 1;
    std::printf("%ld\n", usage.ru_maxrss);
}
