#include "win32/win_files.h"

#include "win32/handles.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace nv
{

namespace
{

// Why the call just made failed; never 0, which would read as success.
SystemError LastError()
{
    const DWORD error = GetLastError();
    return error != 0 ? error : ERROR_GEN_FAILURE;
}

SystemError ErrorUnless(BOOL done)
{
    return done ? 0 : LastError();
}

class WinFile : public File
{
public:
    explicit WinFile(FileHandle handle) : handle_(std::move(handle)) {}

    SystemError Read(char* buffer, std::size_t size, std::size_t& got) override
    {
        DWORD count = 0;
        const BOOL done = ReadFile(handle_.Get(), buffer, Piece(size), &count, nullptr);
        got = count;
        return ErrorUnless(done);
    }

    SystemError Write(const char* data, std::size_t size) override
    {
        while (size > 0) {
            DWORD count = 0;
            if (!WriteFile(handle_.Get(), data, Piece(size), &count, nullptr)) {
                return LastError();
            }
            if (count == 0) {
                return ERROR_DISK_FULL;
            }
            data += count;
            size -= count;
        }
        return 0;
    }

    SystemError Rewind() override
    {
        return ErrorUnless(SetFilePointerEx(handle_.Get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN));
    }
    SystemError Truncate() override { return ErrorUnless(SetEndOfFile(handle_.Get())); }
    SystemError Flush() override
    {
        const SystemError error = ErrorUnless(FlushFileBuffers(handle_.Get()));
        // Some file systems of other makers have no such call; that is no failure to write.
        return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ? 0 : error;
    }

    SystemError Close() override
    {
        const HANDLE handle = handle_.Release();
        return handle == INVALID_HANDLE_VALUE ? 0 : ErrorUnless(CloseHandle(handle));
    }

private:
    // One call of the system moves less than 4 GB.
    static DWORD Piece(std::size_t size)
    {
        return static_cast<DWORD>(std::min<std::size_t>(size, 0x40000000));
    }

    FileHandle handle_;
};

struct OpenParameters {
    DWORD access;
    DWORD share;
    DWORD disposition;
};

OpenParameters ParametersOf(OpenMode mode)
{
    switch (mode) {
    case OpenMode::read:
        return {GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                OPEN_EXISTING};
    case OpenMode::change:
        return {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING};
    case OpenMode::createNew:
        return {GENERIC_WRITE, FILE_SHARE_READ, CREATE_NEW};
    case OpenMode::overwrite:
        break;
    }
    // Not CREATE_ALWAYS: the system refuses that for a hidden file.
    return {GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS};
}

} // namespace

std::unique_ptr<File> WinFiles::Open(const std::string& path, OpenMode mode, SystemError& error)
{
    const OpenParameters with = ParametersOf(mode);
    FileHandle handle(CreateFileA(path.c_str(), with.access, with.share, nullptr, with.disposition,
                                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!handle || (mode == OpenMode::overwrite && !SetEndOfFile(handle.Get()))) {
        error = LastError();
        return nullptr;
    }
    // "com1.nvm" may be a serial port, which would be waited for.
    if (GetFileType(handle.Get()) != FILE_TYPE_DISK) {
        error = ERROR_INVALID_NAME;
        return nullptr;
    }
    error = 0;
    return std::make_unique<WinFile>(std::move(handle));
}

FileAttributes WinFiles::Attributes(const std::string& path)
{
    const DWORD found = GetFileAttributesA(path.c_str());
    if (found == INVALID_FILE_ATTRIBUTES) {
        return {};
    }
    return {true, (found & FILE_ATTRIBUTE_DIRECTORY) != 0, (found & FILE_ATTRIBUTE_READONLY) != 0,
            (found & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0};
}

std::string WinFiles::FullPath(const std::string& path)
{
    std::string full(0x8000, '\0'); // longer than any path
    const DWORD length =
        GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0 || length >= full.size()) {
        return path;
    }
    full.resize(length);
    return full;
}

std::vector<std::string> WinFiles::List(const std::string& pattern, std::size_t limit)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAA found = {};
    const FindHandle search(FindFirstFileA(pattern.c_str(), &found));
    BOOL more = search ? TRUE : FALSE;
    while (more && names.size() < limit) {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            names.emplace_back(found.cFileName);
        }
        more = FindNextFileA(search.Get(), &found);
    }
    return names;
}

SystemError WinFiles::Replace(const std::string& from, const std::string& to)
{
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD old = GetFileAttributesA(to.c_str());
    if (old != INVALID_FILE_ATTRIBUTES && (old & kKept) != 0) {
        // Ignored: contents are worth more than attributes.
        static_cast<void>(SetFileAttributesA(from.c_str(), old & kKept));
    }
    return ErrorUnless(
        MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

SystemError WinFiles::Remove(const std::string& path)
{
    return ErrorUnless(DeleteFileA(path.c_str()));
}

SystemError WinFiles::MakeFolder(const std::string& path)
{
    return ErrorUnless(CreateDirectoryA(path.c_str(), nullptr));
}

std::string WinFiles::Describe(SystemError error)
{
    std::array<char, 1024> text = {};
    const DWORD length =
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::string_view description(text.data(), length);
    const auto last = description.find_last_not_of("\r\n ");
    if (last == std::string_view::npos) {
        return "Error " + std::to_string(error);
    }
    return std::string(description.substr(0, last + 1));
}

} // namespace nv
