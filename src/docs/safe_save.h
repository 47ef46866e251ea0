#pragma once

#include "platform/files.h"

#include <memory>
#include <string>
#include <string_view>

namespace nv
{

// One save of a whole file. The new contents are written beside the file and then given its name in
// one step: whatever fails or dies on the way, the old file or the new one stands whole under the
// name. Where the folder takes no new files, or does not let the file be replaced, the file is
// written in place and put back as it was when that fails: it is then safe from a full disk, though
// not from a program that dies while it writes. The new file beside, where there is one, stays
// until the file is whole.
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
    SystemError CreateTemporary();
    SystemError WriteTemporary(std::string_view contents);
    SystemError WriteInPlace(std::string_view contents);
    void RemoveTemporary();

    Files& files_;
    std::string path_;
    std::string temporaryPath_; // empty: none was created
    std::unique_ptr<File> temporary_;
};

} // namespace nv
