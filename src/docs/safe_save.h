#pragma once

#include "platform/files.h"

#include <memory>
#include <string>
#include <string_view>

namespace nv
{

// All bytes of file from its position on. Not 0: contents has what was read by then. Throws
// std::bad_alloc.
SystemError ReadAll(File& file, std::string& contents);

// One save of a whole file. The new contents are written beside the file, with its access list, and
// then given its name: whatever fails or dies on the way, the old file or the new one stands whole,
// under the name or, after a death in the midst of the swap, beside it. Where the folder takes no
// new files, or does not let the file be replaced, and where the file has other names (hard links),
// which would keep the old contents, the file is written in place and put back as it was when that
// fails: it is then safe from a full disk, though not from a program that dies while it writes. The
// new file beside, where there is one, stays until the file is whole. A symbolic link stays one:
// the file that it leads to is written.
class SafeSave
{
public:
    // files must outlive this.
    SafeSave(Files& files, std::string path);
    // Removes what an unfinished save left beside the file.
    ~SafeSave();
    SafeSave(const SafeSave&) = delete;
    SafeSave& operator=(const SafeSave&) = delete;

    // Finds out whether the file can be written at all; changes nothing in it.
    SystemError Begin();
    // Writes contents; on failure the old file stands. Only after a successful Begin, once.
    SystemError Finish(std::string_view contents);

private:
    void FollowLink();
    SystemError CreateTemporary();
    SystemError CreateLike(const std::string& path);
    SystemError WriteTemporary(std::string_view contents);
    SystemError WriteInPlace(std::string_view contents);
    void RemoveTemporary();

    Files& files_;
    std::string path_;
    std::string temporaryPath_; // empty: none was created
    std::unique_ptr<File> temporary_;
    bool existed_ = false; // the file was there when the save began
    bool inPlace_ = false; // it must stay the one that it is
};

} // namespace nv
