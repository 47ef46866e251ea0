#include "docs/safe_save.h"
#include "fakes/fake_files.h"

#include <functional>
#include <gtest/gtest.h>

namespace nv
{
namespace
{

const char kPath[] = "C:\\Menus\\Start.nvm";
const char kTemporary[] = "C:\\Menus\\Start.nvm.tmp";
const std::string kOld = "the old menu\r\n";
const std::string kNew = "the new menu, which is longer than the old one\r\n";

SystemError Save(FakeFiles& files, const std::string& contents = kNew)
{
    SafeSave save(files, kPath);
    const SystemError error = save.Begin();
    return error != 0 ? error : save.Finish(contents);
}

// The worlds in which a save has to work, each with its own way to write.
struct World {
    const char* name;
    std::function<void(FakeFiles&)> make;
    std::string before; // what stands under the name
    bool inPlace;       // a power cut may then find the file half written
};

std::vector<World> Worlds()
{
    return {
        {"a file", [](FakeFiles&) {}, kOld, false},
        {"no file", [](FakeFiles& files) { files.Remove(kPath); }, "(none)", false},
        {"no new files in the folder", [](FakeFiles& files) { files.refuseNew = kAccessDenied; },
         kOld, true},
        {"a path too long for a temporary", [](FakeFiles& files) { files.refuseNew = 206; }, kOld,
         true},
        {"no replacing in the folder",
         [](FakeFiles& files) { files.refuseReplace = kAccessDenied; }, kOld, true},
    };
}

FakeFiles FilesOf(const World& world)
{
    FakeFiles files;
    files.Put(kPath, kOld);
    world.make(files);
    files.operations = 0;
    return files;
}

TEST(SafeSave, WritesAllAndLeavesNothingBeside)
{
    for (const World& world : Worlds()) {
        for (const std::string& contents : {kNew, std::string("short"), std::string()}) {
            FakeFiles files = FilesOf(world);
            EXPECT_EQ(Save(files, contents), 0u) << world.name;
            EXPECT_EQ(files.Contents(kPath), contents) << world.name;
            EXPECT_EQ(files.Count(), 1u) << world.name;
            files.CutPower();
            EXPECT_EQ(files.Contents(kPath), contents) << world.name << ": not flushed";
        }
    }
}

// Each operation fails once, and once the program dies in it.
TEST(SafeSave, LeavesTheOldOrTheNewFileWhateverHappens)
{
    for (const World& world : Worlds()) {
        int operation = 0;
        for (bool reached = true; reached;) {
            ++operation;
            for (const bool dies : {false, true}) {
                FakeFiles files = FilesOf(world);
                (dies ? files.killAt : files.failAt) = operation;
                SystemError error = 1;
                try {
                    error = Save(files);
                } catch (const Killed&) {
                }
                reached = files.operations >= operation;
                for (const char* when : {"", " and a power cut"}) {
                    const std::string after = files.Contents(kPath);
                    // Of a file half written in place the new one beside is whole.
                    EXPECT_TRUE((error != 0 && after == world.before) || after == kNew ||
                                (dies && world.inPlace &&
                                 (files.refuseNew != 0 || files.Contents(kTemporary) == kNew)))
                        << world.name << ", " << operation << dies << when << ": " << after;
                    if (!dies) {
                        break;
                    }
                    files.CutPower();
                }
            }
        }
        EXPECT_GT(operation, 5) << "the loop tried nothing";
    }
}

TEST(SafeSave, LeavesTheOldFileWhenTheDiskIsFull)
{
    for (const World& world : Worlds()) {
        const std::size_t grown = kNew.size() - kOld.size();
        for (const std::size_t room : {std::size_t{0}, grown - 1, grown, kNew.size() - 1,
                                       kNew.size(), kNew.size() + grown - 1, 2 * kNew.size()}) {
            FakeFiles files = FilesOf(world);
            files.room = room;
            const SystemError error = Save(files);
            const std::string expected = error == 0 ? kNew : world.before;
            EXPECT_EQ(files.Contents(kPath), expected) << world.name << ", " << room;
            EXPECT_TRUE(error == 0 || room < 2 * kNew.size()) << world.name;
            EXPECT_EQ(files.Count(), expected == "(none)" ? 0u : 1u) << world.name;
        }
    }
}

TEST(SafeSave, RefusesWhatCannotBeWrittenBeforeTouchingIt)
{
    FakeFiles files; // a drive that is not there
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
    FakeFiles files;
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
