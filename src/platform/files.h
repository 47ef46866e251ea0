// Files as the rules need them. Paths are ANSI, with "\" between the parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace nv
{

// The system's number for a failure; 0 is success.
using SystemError = std::uint32_t;

// One open file. Closes itself when destroyed.
class File
{
public:
    virtual ~File() = default;
    // Reads up to size bytes into buffer; got says how many, 0 at the end of the file.
    virtual SystemError Read(char* buffer, std::size_t size, std::size_t& got) = 0;
    // Writes all of it at the file's position, or reports why not; then any part may be written.
    virtual SystemError Write(const char* data, std::size_t size) = 0;
    // Makes position 0 the next one to be read or written.
    virtual SystemError Rewind() = 0;
    // Ends the file at its present position.
    virtual SystemError Truncate() = 0;
    // Returns when what was written stands on the disk.
    virtual SystemError Flush() = 0;
    // Closes the file now and reports what only closing finds out.
    virtual SystemError Close() = 0;
};

enum class OpenMode {
    read,      // an existing file, for reading
    change,    // an existing file, for reading and writing, from its start, nothing cut
    createNew, // a new file, for writing; fails when the name is taken
    overwrite, // for writing, created or cut to nothing
};

struct FileAttributes {
    bool exists = false; // of whatever kind, folders included
    bool folder = false;
    bool readOnly = false;
    bool hidden = false; // from who looks at the folder: a file of the system, too
};

// What tells whether a file was changed since it was looked at.
struct FileState {
    bool exists = false;
    std::uint64_t size = 0;    // bytes
    std::uint64_t written = 0; // when, in units of the system
    unsigned names = 0;        // hard links
};

class Files
{
public:
    virtual ~Files() = default;
    // The file, or nothing and error set.
    virtual std::unique_ptr<File> Open(const std::string& path, OpenMode mode,
                                       SystemError& error) = 0;
    virtual FileAttributes Attributes(const std::string& path) = 0;
    // Of the file itself, where path is a symbolic link. All zero when there is no file, or it
    // cannot be looked at.
    virtual FileState State(const std::string& path) = 0;
    // Where path is a symbolic link, the full path of the file that it leads to, empty when the
    // code page cannot say it; else path, with the file's name in the case that it has.
    virtual std::string BehindLink(const std::string& path) = 0;
    // path from its drive on: one without that begins at the current folder. path itself when it
    // is none.
    virtual std::string FullPath(const std::string& path) = 0;
    // Names (without folder) of the files, not folders, that a listing of pattern yields, in its
    // order. The pattern may hold wildcards in its last part; hidden and system files count.
    // limit: as many as are wanted at most.
    virtual std::vector<std::string> List(const std::string& pattern, std::size_t limit) = 0;
    // Gives the file at to, which this process made, the access list of the one at from. True also
    // when that is not possible, and to has the list it had. False: to has come to have some other
    // list.
    virtual bool CopyAccess(const std::string& from, const std::string& to) = 0;
    // Gives from the name to, taking the place of a file of that name and keeping what that file
    // was besides its contents, as far as the system can: attributes, access list, streams,
    // encryption, the time when it was made. Tries again for a quarter of a second while others
    // have a file open.
    virtual SystemError Replace(const std::string& from, const std::string& to) = 0;
    virtual SystemError Remove(const std::string& path) = 0;
    virtual SystemError MakeFolder(const std::string& path) = 0;
    // The system's description of an error, without a line end.
    virtual std::string Describe(SystemError error) = 0;
};

} // namespace nv
