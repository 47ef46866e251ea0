#pragma once

#include "platform/files.h"

namespace nv
{

// The files of this computer, over the system's ANSI calls.
class WinFiles : public Files
{
public:
    // read: others may read and write the file meanwhile; change and the writing modes: read only.
    std::unique_ptr<File> Open(const std::string& path, OpenMode mode, SystemError& error) override;
    FileAttributes Attributes(const std::string& path) override;
    FileState State(const std::string& path) override;
    std::string BehindLink(const std::string& path) override;
    std::string FullPath(const std::string& path) override;
    std::vector<std::string> List(const std::string& pattern, std::size_t limit) override;
    bool CopyAccess(const std::string& from, const std::string& to) override;
    SystemError Replace(const std::string& from, const std::string& to) override;
    SystemError Remove(const std::string& path) override;
    SystemError MakeFolder(const std::string& path) override;
    std::string Describe(SystemError error) override;
};

} // namespace nv
