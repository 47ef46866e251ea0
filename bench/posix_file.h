#pragma once

#include "platform/files.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace nv::bench
{

// A file on the host, for reading only.
class PosixFile final : public File
{
public:
    explicit PosixFile(const char* path) : descriptor_(open(path, O_RDONLY | O_CLOEXEC)) {}
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;
    ~PosixFile() override { close(descriptor_); }

    SystemError Read(char* buffer, std::size_t size, std::size_t& got) override
    {
        const auto count = read(descriptor_, buffer, size);
        got = count > 0 ? static_cast<std::size_t>(count) : 0;
        return count < 0 ? static_cast<SystemError>(errno) : 0;
    }
    SystemError Rewind() override { return lseek(descriptor_, 0, SEEK_SET) < 0 ? 1 : 0; }
    SystemError Write(const char*, std::size_t) override { return EBADF; }
    SystemError Truncate() override { return EBADF; }
    SystemError Flush() override { return EBADF; }
    SystemError Close() override { return 0; }

private:
    int descriptor_;
};

} // namespace nv::bench
