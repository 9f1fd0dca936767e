#include "Folder/FolderWalk.h"

#include "Tests/Helpers/ManyFiles.h"
#include "Tests/Helpers/StandingClock.h"
#include "Tests/Helpers/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <future>
#include <random>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace quillmar {
namespace {

const Deadline never{1e6};
const DirectorySize unmeasured{};
DirectorySize complete(std::int64_t size) { return {.size = size, .isComplete = true}; }
DirectorySize partial(std::int64_t size) { return {.size = size, .isComplete = false}; }

class FolderWalkTest : public testing::Test {
protected:
    std::shared_ptr<const Directory> top() const { return std::make_shared<const Directory>(folder.url(".")); }

    TemporaryFolder folder;
};

/// \p walk by \p count threads at once.
void runOnThreads(FolderWalk& walk, int count) {
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) threads.emplace_back([&walk] { walk.run(); });
    for (std::thread& thread : threads) thread.join();
}

TEST_F(FolderWalkTest, isDoneWithoutFolders) {
    FolderWalk walk(never);
    EXPECT_TRUE(walk.isDone());
    walk.run();
    EXPECT_TRUE(walk.isDone());
}

TEST_F(FolderWalkTest, measuresEachFolderByItself) {
    makeFiles(folder, "a", 3);
    makeFiles(folder, "b/inside", 5);
    folder.write("file", "neither");
    DirectorySize a;
    DirectorySize b;
    FolderWalk walk(never);
    walk.add(top(), "a", a);
    walk.add(top(), "b", b);
    EXPECT_FALSE(walk.isDone());
    walk.run();
    EXPECT_TRUE(walk.isDone());
    EXPECT_EQ(a, complete(3));
    EXPECT_EQ(b, complete(5));
}

TEST_F(FolderWalkTest, givesNoSizeToWhatIsNoFolder) {
    folder.write("file", "123");
    makeFiles(folder, "a", 3);
    std::filesystem::create_directory_symlink("a", folder.path() / "link");
    std::array<DirectorySize, 3> sizes;
    FolderWalk walk(never);
    walk.add(top(), "file", sizes[0]);
    walk.add(top(), "link", sizes[1]);
    walk.add(top(), "gone", sizes[2]);
    walk.run();
    for (const DirectorySize& size : sizes) EXPECT_EQ(size, unmeasured);
}

TEST_F(FolderWalkTest, countsNothingOfAPseudoFileSystem) {
    DirectorySize size;
    FolderWalk walk(never);
    walk.add(std::make_shared<const Directory>(FileURL::root()), "proc", size);
    walk.run();
    EXPECT_EQ(size, complete(0));
}

TEST_F(FolderWalkTest, crossesMountPoints) {
    ASSERT_TRUE(std::filesystem::is_directory("/dev/shm")); // a file system of its own on every Linux
    const std::string path = "/dev/shm/quillmar-" + std::to_string(::getpid());
    std::ofstream(path) << "123";
    std::filesystem::resize_file(path, 12'345'678);
    DirectorySize size;
    FolderWalk walk(never);
    walk.add(std::make_shared<const Directory>(FileURL::root()), "dev", size);
    walk.run();
    std::filesystem::remove(path);
    EXPECT_TRUE(size.isComplete);
    EXPECT_GE(size.size, 12'345'678);
}

TEST_F(FolderWalkTest, stopsWhenAThreadHasSeenEnough) {
    std::array<DirectorySize, 3> sizes;
    FolderWalk walk(never);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        makeFiles(folder, std::to_string(i), 10);
        walk.add(top(), std::to_string(i), sizes.at(i));
    }
    walk.run(11); // the second folder is read to its end
    EXPECT_FALSE(walk.isDone());
    EXPECT_EQ(std::ranges::count(sizes, complete(10)), 2);
    EXPECT_EQ(std::ranges::count(sizes, unmeasured), 1);
    walk.run();
    EXPECT_TRUE(walk.isDone());
    EXPECT_EQ(std::ranges::count(sizes, complete(10)), 3);
}

TEST_F(FolderWalkTest, doesNothingWhenNothingIsEnough) {
    makeFiles(folder, "a", 1);
    DirectorySize size;
    FolderWalk walk(never);
    walk.add(top(), "a", size);
    walk.run(0);
    EXPECT_FALSE(walk.isDone());
    EXPECT_EQ(size, unmeasured);
}

TEST_F(FolderWalkTest, leavesFoldersWithinForTheNextThread) {
    makeFiles(folder, "a", 10);
    makeFiles(folder, "a/inside", 5);
    DirectorySize size;
    FolderWalk walk(never);
    walk.add(top(), "a", size);
    walk.run(1);
    EXPECT_FALSE(walk.isDone());
    EXPECT_EQ(size.size, 10);
    walk.run();
    EXPECT_EQ(size, complete(15));
}

TEST_F(FolderWalkTest, beginsNoFolderAtTheDeadline) {
    makeFiles(folder, "a", 1);
    DirectorySize size;
    StandingClock clock;
    const Deadline deadline(0, clock.clock());
    FolderWalk walk(deadline);
    walk.add(top(), "a", size);
    walk.run();
    EXPECT_TRUE(walk.isDone());
    EXPECT_EQ(size, unmeasured);
}

TEST_F(FolderWalkTest, tellsWhatIsCompletePartialAndNotBegunAtTheDeadline) {
    StandingClock clock;
    const Deadline deadline(1, clock.clock());
    std::array<DirectorySize, 3> sizes;
    FolderWalk walk(deadline);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        makeFiles(folder, std::to_string(i), 200);
        walk.add(top(), std::to_string(i), sizes.at(i));
    }
    clock.leapAt(4); // the deadline's making, the beginnings of two folders, the 256th entry
    walk.run();
    EXPECT_TRUE(walk.isDone());
    EXPECT_EQ(std::ranges::count(sizes, complete(200)), 1);
    EXPECT_EQ(std::ranges::count(sizes, partial(55)), 1);
    EXPECT_EQ(std::ranges::count(sizes, unmeasured), 1);
}

TEST_F(FolderWalkTest, marksFoldersWhoseInsideIsLeftAtTheDeadline) {
    std::array<DirectorySize, 2> sizes;
    StandingClock clock;
    const Deadline deadline(1, clock.clock());
    FolderWalk walk(deadline);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        makeFiles(folder, std::to_string(i) + "/inside", 1);
        makeFiles(folder, std::to_string(i), 300);
        walk.add(top(), std::to_string(i), sizes.at(i));
    }
    // One thread waits at its 256th entry until another has read the other folder, and finds it is late.
    std::promise<void> isWaiting;
    std::promise<void> mayGoOn;
    std::thread::id waiting;
    std::size_t itsLooks = 0;
    clock.onLook([&](std::size_t) {
        if (std::this_thread::get_id() != waiting || ++itsLooks != 2) return;
        isWaiting.set_value();
        mayGoOn.get_future().wait();
    });
    std::thread thread([&] {
        waiting = std::this_thread::get_id();
        walk.run();
    });
    isWaiting.get_future().wait();
    walk.run(1);
    clock.leapAt(1);
    mayGoOn.set_value();
    thread.join();
    EXPECT_TRUE(walk.isDone());
    EXPECT_EQ(std::ranges::count(sizes, partial(300)), 1);
    const auto stopped = std::ranges::find_if(sizes, [](const auto& size) { return size.size != 300; });
    ASSERT_NE(stopped, sizes.end());
    EXPECT_FALSE(stopped->isComplete);
    EXPECT_GE(stopped->size, 254); // one of the 255 entries may be the folder inside
    EXPECT_LE(stopped->size, 255);
}

/// Up to 300 files and folders, a folder in any that came before.
void makeRandomTree(const TemporaryFolder& folder, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<std::string> folders{""};
    for (auto i = random() % 300; i > 0; --i) {
        const std::string path = folders[random() % folders.size()] + std::to_string(i);
        switch (random() % 5) {
        case 0:
            folder.makeFolder(path);
            folders.push_back(path + "/");
            break;
        case 1: std::filesystem::create_symlink(folder.path(), folder.path() / path); break;
        default: folder.write(path, std::string(random() % 1'000, 'x'));
        }
    }
}

std::int64_t plainSum(const std::filesystem::path& top) {
    std::int64_t sum = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(top))
        if (entry.symlink_status().type() == std::filesystem::file_type::regular)
            sum += static_cast<std::int64_t>(entry.file_size());
    return sum;
}

TEST_F(FolderWalkTest, givesWhatAPlainSumGivesOnAnyNumberOfThreads) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
        const TemporaryFolder tree;
        makeRandomTree(tree, seed);
        const DirectorySize expected = complete(plainSum(tree.path()));
        for (const int threads : {1, 2, 8}) {
            DirectorySize size;
            FolderWalk walk(never);
            walk.add(std::make_shared<const Directory>(tree.url(".")), ".", size);
            runOnThreads(walk, threads);
            EXPECT_EQ(size, expected) << "seed " << seed << ", threads " << threads;
        }
    }
}

TEST_F(FolderWalkTest, givesEachFolderItsOwnSizeOnSeveralThreads) {
    std::array<DirectorySize, 40> sizes;
    FolderWalk walk(never);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        makeFiles(folder, std::to_string(i) + "/a/b", static_cast<int>(i));
        makeFiles(folder, std::to_string(i), 1);
        walk.add(top(), std::to_string(i), sizes.at(i));
    }
    runOnThreads(walk, 4);
    for (std::size_t i = 0; i < sizes.size(); ++i)
        EXPECT_EQ(sizes.at(i), complete(static_cast<std::int64_t>(i) + 1)) << i;
}

TEST_F(FolderWalkTest, stopsOnAllThreadsAtTheDeadline) {
    StandingClock clock;
    const Deadline deadline(1, clock.clock());
    std::array<DirectorySize, 8> sizes;
    FolderWalk walk(deadline);
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        makeFiles(folder, std::to_string(i), 300);
        walk.add(top(), std::to_string(i), sizes.at(i));
    }
    clock.leapAt(8); // before the last of the folders is begun, or in the middle of one
    runOnThreads(walk, 4);
    EXPECT_TRUE(walk.isDone());
    EXPECT_LT(std::ranges::count(sizes, complete(300)), 8);
    for (const DirectorySize& size : sizes) EXPECT_EQ(size.isComplete, size.size == 300);
}

} // namespace
} // namespace quillmar
