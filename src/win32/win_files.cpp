#include "win32/win_files.h"

#include "docs/paths.h"
#include "win32/handles.h"
#include "win32/process.h"
#include "win32/screen.h"

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

// To look at a file or a folder, or through a symbolic link at what it leads to.
FileHandle OpenToLook(const std::string& path, DWORD access = FILE_READ_ATTRIBUTES)
{
    return FileHandle(CreateFileA(path.c_str(), access,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

bool AreTheSame(const FileHandle& file, const FileHandle& other)
{
    BY_HANDLE_FILE_INFORMATION one = {};
    BY_HANDLE_FILE_INFORMATION two = {};
    return file && other && GetFileInformationByHandle(file.Get(), &one) &&
           GetFileInformationByHandle(other.Get(), &two) &&
           one.dwVolumeSerialNumber == two.dwVolumeSerialNumber &&
           one.nFileIndexHigh == two.nFileIndexHigh && one.nFileIndexLow == two.nFileIndexLow;
}

// The path without any link in it; empty when the system cannot tell.
std::string FinalPath(const FileHandle& file)
{
    std::string path(0x8000, '\0'); // longer than any path
    const DWORD length =
        GetFinalPathNameByHandleA(file.Get(), path.data(), static_cast<DWORD>(path.size()), 0);
    path.resize(length < path.size() ? length : 0);
    constexpr std::string_view kServer = "\\\\?\\UNC\\";
    constexpr std::string_view kDrive = "\\\\?\\";
    if (path.starts_with(kServer)) {
        return "\\\\" + path.substr(kServer.size());
    }
    return path.substr(path.starts_with(kDrive) ? kDrive.size() : 0);
}

// A security descriptor with a file's access list and owner; empty when it cannot be read.
std::string AccessOf(const std::string& path)
{
    constexpr SECURITY_INFORMATION kParts = DACL_SECURITY_INFORMATION | OWNER_SECURITY_INFORMATION;
    DWORD size = 0;
    GetFileSecurityA(path.c_str(), kParts, nullptr, 0, &size);
    std::string descriptor(size, '\0');
    const bool read = size != 0 && GetFileSecurityA(path.c_str(), kParts, descriptor.data(), size,
                                                    &size) != FALSE;
    return read ? descriptor : std::string();
}

// A file with the access list of one that this user may not delete could not be renamed.
bool MayBeDeleted(const std::string& path)
{
    return OpenToLook(path, DELETE) || GetLastError() != ERROR_ACCESS_DENIED;
}

// The bytes of the list in such a descriptor; empty when it has none, which allows everything.
std::string_view ListIn(std::string& descriptor)
{
    BOOL present = FALSE;
    BOOL byDefault = FALSE;
    PACL list = nullptr;
    if (descriptor.empty() ||
        !GetSecurityDescriptorDacl(descriptor.data(), &present, &list, &byDefault) || !present ||
        list == nullptr) {
        return {};
    }
    return {reinterpret_cast<const char*>(list), list->AclSize};
}

// Calls until it succeeds, or for a quarter of a second: scanners and programs that copy what was
// saved hold a file for moments.
template <class Call> SystemError Patiently(const Call& call)
{
    constexpr DWORD kPauses[] = {10, 20, 40, 70, 110}; // milliseconds
    SystemError error = ErrorUnless(call());
    for (const DWORD pause : kPauses) {
        if (error != ERROR_UNABLE_TO_REMOVE_REPLACED && error != ERROR_SHARING_VIOLATION &&
            error != ERROR_ACCESS_DENIED) {
            break;
        }
        Sleep(pause);
        error = ErrorUnless(call());
    }
    return error;
}

bool IsThere(const std::string& path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// Swaps the file at to for the one at from by the system's own call for that, which keeps what the
// old one was besides its contents.
bool Swap(const std::string& from, const std::string& to, const std::string& backup)
{
    bool done = Patiently([&] {
                    return ReplaceFileA(to.c_str(), from.c_str(), backup.c_str(),
                                        REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr);
                }) == 0;
    if (!done && !IsThere(to)) {
        // It gave up half-way, with the old file under the backup's name.
        const auto move = [&to](const std::string& name) {
            return Patiently([&] { return MoveFileA(name.c_str(), to.c_str()); }) == 0;
        };
        done = move(from);
        if (!done) {
            // Ignored: the old file is still there, under the other name.
            static_cast<void>(move(backup));
        }
    }
    if (done) {
        // Ignored: a backup that stays harms no menu.
        static_cast<void>(Patiently([&] { return DeleteFileA(backup.c_str()); }));
    }
    return done;
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

FileState WinFiles::State(const std::string& path)
{
    // Not all information at once: that on the volume, too, would cost a save three times as much.
    const FileHandle file = OpenToLook(path);
    FILE_BASIC_INFO basic = {};
    FILE_STANDARD_INFO standard = {};
    if (!file || !GetFileInformationByHandleEx(file.Get(), FileBasicInfo, &basic, sizeof basic) ||
        !GetFileInformationByHandleEx(file.Get(), FileStandardInfo, &standard, sizeof standard) ||
        standard.Directory) {
        return {};
    }
    return {true, static_cast<std::uint64_t>(standard.EndOfFile.QuadPart),
            static_cast<std::uint64_t>(basic.LastWriteTime.QuadPart), standard.NumberOfLinks};
}

// A path is no link when it ends, below its folder's true path, with its own name. Attributes would
// tell as well, but Wine has none for links.
std::string WinFiles::BehindLink(const std::string& path)
{
    const PathParts parts = SplitPath(path, ProcessCodePage());
    const FileHandle file = OpenToLook(path);
    const std::string last = FinalPath(file);
    const std::string folder = FinalPath(OpenToLook(parts.folder));
    if (last.empty() || folder.empty()) {
        return path;
    }
    if (EqualIgnoringCase(last, PathIn(folder, parts.fileName))) {
        return PathIn(parts.folder, SplitPath(last, ProcessCodePage()).fileName);
    }
    // A name that the code page cannot hold comes out as that of another file, or of none.
    return AreTheSame(OpenToLook(last), file) ? last : std::string();
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

bool WinFiles::CopyAccess(const std::string& from, const std::string& to)
{
    // Wine's lists are made of a file's mode, and do not lead back to it: a file that only its
    // owner may read would become one that his group may write.
    std::string wanted = UnderWine() ? std::string() : AccessOf(from);
    if (wanted.empty() || !MayBeDeleted(from)) {
        return true;
    }
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    GetSecurityDescriptorControl(wanted.data(), &control, &revision);
    if ((control & SE_DACL_AUTO_INHERITED) != 0) {
        // Asks for what was inherited to count as inherited.
        SetSecurityDescriptorControl(wanted.data(), SE_DACL_AUTO_INHERIT_REQ,
                                     SE_DACL_AUTO_INHERIT_REQ);
    }
    if (!SetFileSecurityA(to.c_str(), DACL_SECURITY_INFORMATION, wanted.data())) {
        return true;
    }
    // Ignored: it takes a privilege to give a file to another owner.
    static_cast<void>(SetFileSecurityA(to.c_str(), OWNER_SECURITY_INFORMATION, wanted.data()));
    // Servers of other makers may have made another list of it.
    std::string set = AccessOf(to);
    return ListIn(set) == ListIn(wanted);
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
    if (IsThere(to) && Swap(from, to, FreeName(*this, to, ".old"))) {
        return 0;
    }
    // Some file systems and servers cannot swap.
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
