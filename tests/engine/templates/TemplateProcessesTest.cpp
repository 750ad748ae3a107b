// What the store promises to processes: that they may die at any moment, work at the same time, and be refused.

#include "tests/support/TemporaryFolder.h"
#include <tessaron/engine/TemplateStore.h>
#include <tessaron/exchange/StatusTable.h>
#include <tessaron/util/Keys.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <functional>
#include <iostream>
#include <map>
#include <new>
#include <random>
#include <set>
#include <thread>

#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace keys = util::keys;
namespace status = exchange::status;
using util::Parameterized;

namespace
{

constexpr int parameterCount = 60;

/// A template whose parameters all tell the same number: one put together of two states would give itself away.
Parameterized makeTemplate(const std::string& name, int number)
{
    Parameterized set;
    set.set(keys::templateName, name);
    for (int i = 0; i < parameterCount; ++i)
        set.set("Parameter " + std::to_string(i), number);
    // Different numbers give files of different lengths.
    set.set(keys::templateComments, std::string(static_cast<std::size_t>(number % 50) * 100, 'x'));
    return set;
}

int numberOf(const Parameterized& set)
{
    const int number = set.intOr("Parameter 0", -1);
    for (int i = 0; i < parameterCount; ++i)
        if (set.intOr("Parameter " + std::to_string(i), -1) != number)
            return -1;
    return set.stringOr(keys::templateComments, "-").size() == static_cast<std::size_t>(number % 50) * 100 ? number
                                                                                                           : -1;
}

int save(const std::string& folder, const std::string& name, int number, bool failIfExists = false)
{
    Parameterized set = makeTemplate(name, number);
    return util::saveTemplateFile(util::templatePath(folder, name), failIfExists, &set);
}

bool check(bool holds, const std::string& what)
{
    if (!holds)
        std::cerr << "In process " << ::getpid() << ": " << what << '\n';
    return holds;
}

/// Runs a part of a test in a process of its own; it holds when `part` returns true.
pid_t start(const std::function<bool()>& part)
{
    const pid_t process = ::fork();
    if (process == 0)
        ::_exit(part() ? 0 : 1);
    return process;
}

constexpr int notPossibleHere = 77;

int exitCode(pid_t process)
{
    int result = -1;
    return ::waitpid(process, &result, 0) == process && WIFEXITED(result) ? WEXITSTATUS(result) : -1;
}

bool finish(pid_t process)
{
    return exitCode(process) == 0;
}

bool holdsInProcess(const std::function<bool()>& part)
{
    return finish(start(part));
}

/// Numbers that several processes share.
struct Shared
{
    std::atomic<int> saves = 0;
    std::atomic<int> arrived = 0;
    std::array<std::atomic<int>, 2000> wins = {};
};

class SharedMemory
{
public:
    SharedMemory()
        : m_memory(::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)),
          m_shared(new (m_memory) Shared)
    {
    }
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory() { ::munmap(m_memory, sizeof(Shared)); }
    Shared* operator->() const { return m_shared; }

private:
    void* m_memory;
    Shared* m_shared;
};

TEST(TemplateProcesses, KilledWriterLeavesTheOldOrTheNewTemplateWhole)
{
    const TemporaryFolder folder;
    const SharedMemory shared;
    std::mt19937 random(20);
    ASSERT_EQ(save(folder.path(), "victim", 0), status::ok);
    ASSERT_EQ(save(folder.path(), "bystander", 7), status::ok);
    // The kills fall into the first saves, however long one takes on this disk and in this build.
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 10; ++i)
        ASSERT_EQ(save(folder.path(), "victim", 0), status::ok);
    const auto ofTen = std::chrono::steady_clock::now() - begin;
    std::uniform_int_distribution<long> moment(0, std::chrono::duration_cast<std::chrono::microseconds>(ofTen).count() *
                                                      4 / 10);
    int written = 0;
    std::set<std::string> leftovers;
    constexpr int rounds = 400;
    for (int round = 0; round < rounds; ++round)
    {
        shared->saves = 0;
        const pid_t writer = start(
            [&]
            {
                for (int number = written + 1;; ++number)
                {
                    ++shared->saves;
                    if (save(folder.path(), "victim", number) != status::ok)
                        return false;
                }
            });
        while (shared->saves == 0)
            std::this_thread::yield();
        std::this_thread::sleep_for(std::chrono::microseconds(moment(random)));
        ::kill(writer, SIGKILL);
        int result = 0;
        ASSERT_EQ(::waitpid(writer, &result, 0), writer);
        ASSERT_TRUE(WIFSIGNALED(result)) << "the writer failed in round " << round;

        std::vector<Parameterized> listed;
        ASSERT_EQ(util::loadTemplateFiles(folder.path(), 0, &listed), status::ok) << "in round " << round;
        ASSERT_EQ(listed.size(), 2U);
        EXPECT_EQ(numberOf(listed[0]), 7);
        const int found = numberOf(listed[1]);
        // The save that was under way is there or not; the ones before it are.
        ASSERT_GE(found, written + shared->saves - 1) << "in round " << round;
        ASSERT_LE(found, written + shared->saves) << "in round " << round;
        written = found;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
            if (entry.path().extension() == ".tmp")
                leftovers.insert(entry.path().filename());
    }
    // The kills did hit saves in the middle, and nothing the dead left holds up the living.
    EXPECT_GT(leftovers.size(), 20U);
    EXPECT_EQ(save(folder.path(), "victim", 1), status::ok);
    RecordProperty("kills in the middle of a save", static_cast<int>(leftovers.size()));
}

TEST(TemplateProcesses, TwoProcessesOnOneFolderLoseNothing)
{
    const TemporaryFolder folder;
    constexpr int steps = 1500;
    const auto work = [&](const std::string& own, unsigned seed)
    {
        std::mt19937 random(seed);
        std::map<std::string, int> expected;
        for (int step = 0; step < steps; ++step)
        {
            const std::string name = own + std::to_string(random() % 40);
            switch (random() % 4)
            {
            case 0:
            case 1:
                if (!check(save(folder.path(), name, step) == status::ok, "save failed"))
                    return false;
                expected[name] = step;
                break;
            case 2:
            {
                const int code = util::deleteTemplateFile(folder.path(), makeTemplate(name, 0));
                if (!check(code == (expected.erase(name) != 0 ? status::ok : status::templateReadError), "delete"))
                    return false;
                break;
            }
            default:
            {
                std::vector<Parameterized> listed;
                if (!check(util::loadTemplateFiles(folder.path(), 0, &listed) == status::ok, "listing failed"))
                    return false;
                std::map<std::string, int> found;
                for (const Parameterized& set : listed)
                {
                    const std::string listedName = set.stringOr(keys::templateName, "");
                    if (!check(numberOf(set) >= 0, "torn template"))
                        return false;
                    if (listedName.compare(0, own.size(), own) == 0)
                        found[listedName] = numberOf(set);
                }
                if (!check(found == expected, "a template was lost, or came back"))
                    return false;
            }
            }
        }
        return true;
    };
    const pid_t first = start([&] { return work("first ", 1); });
    const pid_t second = start([&] { return work("second ", 2); });
    EXPECT_TRUE(finish(first));
    EXPECT_TRUE(finish(second));
}

TEST(TemplateProcesses, OneOfTwoWinsANewName)
{
    const TemporaryFolder folder;
    const SharedMemory shared;
    constexpr int names = 500;
    const auto race = [&](int number)
    {
        for (int i = 0; i < names; ++i)
        {
            // Both set out at the same moment.
            ++shared->arrived;
            while (shared->arrived < 2 * (i + 1))
                std::this_thread::yield();
            const int code = save(folder.path(), "race " + std::to_string(i), number, true);
            if (code == status::ok)
                shared->wins[static_cast<std::size_t>(i)] += number;
            else if (!check(code == status::templateNameDuplicated, "the loser was told something else"))
                return false;
        }
        return true;
    };
    const pid_t first = start([&] { return race(1); });
    const pid_t second = start([&] { return race(1000); });
    EXPECT_TRUE(finish(first));
    EXPECT_TRUE(finish(second));
    std::vector<Parameterized> listed;
    ASSERT_EQ(util::loadTemplateFiles(folder.path(), 0, &listed), status::ok);
    ASSERT_EQ(listed.size(), static_cast<std::size_t>(names));
    for (int i = 0; i < names; ++i)
    {
        const int winner = shared->wins[static_cast<std::size_t>(i)];
        ASSERT_TRUE(winner == 1 || winner == 1000) << "name " << i << " was won " << winner;
        const auto it = std::find_if(listed.begin(), listed.end(),
                                     [&](const Parameterized& set)
                                     { return set.stringOr(keys::templateName, "") == "race " + std::to_string(i); });
        ASSERT_NE(it, listed.end());
        EXPECT_EQ(numberOf(*it), winner);
    }
}

/// What must hold where nothing can be written: each call says so, and the template that is there stays.
bool refusesToWrite(const std::string& folder)
{
    const std::string before = readBytes(folder + "/old.vtmpl");
    bool holds = check(!before.empty(), "the template cannot be read");
    holds = check(save(folder, "old", 8) == status::templateWriteError, "replaced") && holds;
    holds = check(save(folder, "new", 8) == status::templateWriteError, "saved") && holds;
    holds = check(save(folder + "/sub", "new", 8) == status::templateWriteError, "saved in a new folder") && holds;
    holds = check(util::saveTemplateDefs(folder, "x", {}) == status::templateWriteError, "definitions") && holds;
    holds = check(util::saveTemplateFolders(folder, {"a"}) == status::templateWriteError, "folders") && holds;
    const std::vector<Parameterized> list = {makeTemplate("a", 1)};
    holds =
        check(util::saveTemplateArrayFile(folder + "/all.vtmpl", list) == status::templateWriteError, "array") && holds;
    std::vector<Parameterized> listed;
    holds = check(util::loadTemplateFiles(folder, 0, &listed) == status::ok, "listing") && holds;
    holds = check(listed.size() == 1 && numberOf(listed[0]) == 7, "the old template") && holds;
    Parameterized set;
    holds = check(util::genTemplateName(folder, "old", &set) == status::ok, "name") && holds;
    return check(readBytes(folder + "/old.vtmpl") == before, "the old template's bytes") && holds;
}

TEST(TemplateProcesses, ReadOnlyFolderRefusesAndStaysReadable)
{
    const TemporaryFolder folder;
    ASSERT_EQ(save(folder.path(), "old", 7), status::ok);
    using std::filesystem::perms;
    std::filesystem::permissions(folder.path(), perms(0555));
    EXPECT_TRUE(holdsInProcess(
        [&]
        {
            // Nothing is read-only to the superuser.
            if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
                return check(false, "cannot drop rights");
            return refusesToWrite(folder.path()) &&
                   check(util::deleteTemplateFile(folder.path(), makeTemplate("old", 0)) == status::templateWriteError,
                         "deleted");
        }));
    std::filesystem::permissions(folder.path(), perms(0755));
}

TEST(TemplateProcesses, WriteThatTheSystemCutsShortChangesNothing)
{
    const TemporaryFolder folder;
    ASSERT_EQ(save(folder.path(), "old", 7), status::ok);
    EXPECT_TRUE(holdsInProcess(
        [&]
        {
            // From the first, a middle and a late byte on.
            ::signal(SIGXFSZ, SIG_IGN);
            for (const rlim_t bytes : {0, 10, 300})
            {
                const rlimit limit = {bytes, RLIM_INFINITY};
                if (::setrlimit(RLIMIT_FSIZE, &limit) != 0 || !refusesToWrite(folder.path()))
                    return false;
            }
            return true;
        }));
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
        EXPECT_NE(entry.path().extension(), ".tmp") << entry.path();
}

TEST(TemplateProcesses, FullDiskKeepsWhatIsThereAndTakesMoreWhenThereIsRoom)
{
    const TemporaryFolder folder;
    const int result = exitCode(start(
        [&]
        {
            // A disk of its own, seen by this process alone.
            if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
                ::mount("none", folder.path().c_str(), "tmpfs", 0, "size=256k") != 0)
                ::_exit(notPossibleHere);
            int count = 0;
            while (count < 1000 && save(folder.path(), "t" + std::to_string(count), 7) == status::ok)
                ++count;
            bool good = check(count > 5 && count < 1000, "the disk did not fill");
            for (int i = 0; i < 20; ++i)
                good =
                    check(save(folder.path(), "t0", 49) == status::templateWriteError, "saved on a full disk") && good;
            std::vector<Parameterized> listed;
            good = check(util::loadTemplateFiles(folder.path(), 0, &listed) == status::ok, "listing") && good;
            good = check(listed.size() == static_cast<std::size_t>(count), "templates") && good;
            for (const Parameterized& set : listed)
                good = check(numberOf(set) == 7, "torn template") && good;
            for (int i = 1; i <= 4; ++i)
                good = check(util::deleteTemplateFile(folder.path(), makeTemplate("t" + std::to_string(i), 0)) ==
                                 status::ok,
                             "delete") &&
                       good;
            return check(save(folder.path(), "t0", 8) == status::ok, "there is room again") && good;
        }));
    if (result == notPossibleHere)
        GTEST_SKIP() << "needs the right to mount a small disk";
    EXPECT_EQ(result, 0);
}

} // namespace
