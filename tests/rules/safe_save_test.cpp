#include "docs/safe_save.h"
#include "fakes/fake_files.h"
#include "fakes/faulty_files.h"

#include <functional>
#include <gtest/gtest.h>

namespace nv
{
namespace
{

using TestFiles = Faulty<FakeFiles>;

const char kPath[] = "C:\\Menus\\Start.nvm";
const char kTemporary[] = "C:\\Menus\\Start.nvm.tmp";
const std::string kOld = "the old menu\r\n";
const std::string kNew = "the new menu, which is longer than the old one\r\n";

SystemError Save(TestFiles& files, const std::string& contents = kNew)
{
    SafeSave save(files, kPath);
    const SystemError error = save.Begin();
    return error != 0 ? error : save.Finish(contents);
}

// The worlds in which a save has to work, each with its own way to write.
struct World {
    const char* name;
    std::function<void(TestFiles&)> make;
    std::string before; // what stands under the name
};

std::vector<World> Worlds()
{
    return {
        {"a file", [](TestFiles&) {}, kOld},
        {"no file", [](TestFiles& files) { files.Remove(kPath); }, "(none)"},
        {"no new files in the folder", [](TestFiles& files) { files.refuseNew = kAccessDenied; },
         kOld},
        {"a path too long for a temporary", [](TestFiles& files) { files.refuseNew = 206; }, kOld},
        {"no replacing in the folder",
         [](TestFiles& files) { files.refuseReplace = kAccessDenied; }, kOld},
    };
}

TestFiles FilesOf(const World& world)
{
    TestFiles files;
    files.Put(kPath, kOld);
    world.make(files);
    return files;
}

TEST(SafeSave, WritesAllAndLeavesNothingBeside)
{
    for (const World& world : Worlds()) {
        for (const std::string& contents : {kNew, std::string("short"), std::string()}) {
            TestFiles files = FilesOf(world);
            EXPECT_EQ(Save(files, contents), 0u) << world.name;
            EXPECT_EQ(files.Contents(kPath), contents) << world.name;
            EXPECT_EQ(files.Count(), 1u) << world.name;
            files.CutPower();
            EXPECT_EQ(files.Contents(kPath), contents) << world.name << ": not flushed";
        }
    }
}

TEST(SafeSave, LeavesTheOldFileWhenTheDiskIsFull)
{
    for (const World& world : Worlds()) {
        const std::size_t grown = kNew.size() - kOld.size();
        for (const std::size_t room : {std::size_t{0}, grown - 1, grown, kNew.size() - 1,
                                       kNew.size(), kNew.size() + grown - 1, 2 * kNew.size()}) {
            TestFiles files = FilesOf(world);
            files.room = room;
            const SystemError error = Save(files);
            const std::string expected = error == 0 ? kNew : world.before;
            EXPECT_EQ(files.Contents(kPath), expected) << world.name << ", " << room;
            EXPECT_TRUE(error == 0 || room < 2 * kNew.size()) << world.name;
            EXPECT_EQ(files.Count(), expected == "(none)" ? 0u : 1u) << world.name;
        }
    }
}

TEST(SafeSave, KeepsAWholeMenuWhenPuttingBackFailsToo)
{
    for (const World& world : Worlds()) {
        for (int operation = 1; operation < 20; ++operation) {
            for (const int failures : {2, 99}) { // for a moment, for good
                TestFiles files = FilesOf(world);
                files.failAt = operation;
                files.failures = failures;
                const SystemError error = Save(files);
                const std::string after = files.Contents(kPath);
                const bool whole = after == (error == 0 ? kNew : world.before);
                // Where no file can be made, nothing else can hold it.
                EXPECT_TRUE(whole || after == kNew || files.Contents(kTemporary) == kNew ||
                            files.refuseNew != 0)
                    << world.name << ", " << operation << ": " << after;
            }
        }
    }
}

TEST(SafeSave, RefusesWhatCannotBeWrittenBeforeTouchingIt)
{
    TestFiles files; // a drive that is not there
    files.refuseNew = 3;
    EXPECT_EQ(Save(files), 3u);
    files.refuseNew = 0;
    EXPECT_EQ(SafeSave(files, kPath).Begin(), 0u); // a save that is given up leaves nothing
    EXPECT_EQ(files.Count(), 0u);
    files.Put(kPath, kOld);
    files.Find(kPath)->readOnly = true;
    EXPECT_EQ(SafeSave(files, kPath).Begin(), kAccessDenied);
    files.refuseOpen[kPath] = kSharingViolation;
    files.Find(kPath)->readOnly = false;
    EXPECT_EQ(SafeSave(files, kPath).Begin(), kSharingViolation);
    EXPECT_EQ(files.Contents(kPath), kOld);
    EXPECT_EQ(files.Count(), 1u);
}

TEST(SafeSave, LeavesTemporariesOfOthersAlone)
{
    TestFiles files;
    files.Put(kPath, kOld);
    files.Put(kTemporary, "somebody's");
    EXPECT_EQ(Save(files), 0u);
    EXPECT_EQ(files.Contents(kPath), kNew);
    EXPECT_EQ(files.Contents(kTemporary), "somebody's");
    EXPECT_EQ(files.Count(), 2u);
    for (int number = 2; number <= 20; ++number) { // every name is taken
        files.Put(std::string(kPath) + "." + std::to_string(number) + ".tmp", "somebody's");
    }
    EXPECT_EQ(Save(files, "written in place"), 0u);
    EXPECT_EQ(files.Contents(kPath), "written in place");
}

} // namespace
} // namespace nv
