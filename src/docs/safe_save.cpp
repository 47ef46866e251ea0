#include "docs/safe_save.h"

#include "platform/system_error.h"

#include <algorithm>
#include <utility>

namespace nv
{

namespace
{

// Makes contents all that the file holds. The file is cut only when they stand in it.
SystemError Overwrite(File& file, std::string_view contents)
{
    SystemError error = file.Rewind();
    if (error == 0) {
        error = file.Write(contents.data(), contents.size());
    }
    if (error == 0) {
        error = file.Truncate();
    }
    return error == 0 ? file.Flush() : error;
}

} // namespace

SystemError ReadAll(File& file, std::string& contents)
{
    constexpr std::size_t kLeastRoom = std::size_t{64} * 1024;
    std::size_t length = 0;
    for (;;) {
        contents.resize(length + std::max(length, kLeastRoom));
        std::size_t got = 0;
        const SystemError error =
            file.Read(contents.data() + length, contents.size() - length, got);
        length += got;
        if (error != 0 || got == 0) {
            contents.resize(length);
            return error;
        }
    }
}

SafeSave::SafeSave(Files& files, std::string path) : files_(files), path_(std::move(path)) {}

SafeSave::~SafeSave()
{
    RemoveTemporary();
}

SystemError SafeSave::Begin()
{
    FollowLink();
    const FileAttributes attributes = files_.Attributes(path_);
    if (!attributes.exists) {
        return CreateTemporary();
    }
    existed_ = true;
    // A read-only file could be replaced, but was made read-only so that it stays.
    if (attributes.folder || attributes.readOnly) {
        return kAccessDenied;
    }
    SystemError error = 0;
    if (files_.Open(path_, OpenMode::change, error) == nullptr && error == kNotFound) {
        // A symbolic link whose file is gone: that is made again, where it was.
        if (files_.Open(path_, OpenMode::overwrite, error) != nullptr) {
            FollowLink();
        }
    }
    if (error != 0) {
        return error;
    }
    // Ignored: the file can be written in place, whatever speaks against a new one beside it (the
    // rights to the folder, a path that has no room for a longer name).
    static_cast<void>(CreateLike(path_));
    inPlace_ = inPlace_ || files_.State(path_).names > 1;
    return 0;
}

// A file whose name cannot be said is written in place, through the link.
void SafeSave::FollowLink()
{
    std::string behind = files_.BehindLink(path_);
    inPlace_ = behind.empty();
    if (!inPlace_) {
        path_ = std::move(behind);
    }
}

SystemError SafeSave::Finish(std::string_view contents)
{
    if (temporary_ == nullptr) {
        return WriteInPlace(contents);
    }
    SystemError error = WriteTemporary(contents);
    if (error == 0 && inPlace_) {
        error = WriteInPlace(contents);
    } else if (error == 0) {
        error = files_.Replace(temporaryPath_, path_);
        if (error == 0) {
            temporaryPath_.clear();
        } else if ((error == kAccessDenied || error == kSharingViolation) &&
                   files_.Attributes(path_).exists) {
            // The folder lets files be made but not replaced, or another program has one of the two
            // open. The new file beside stays until the old one is written: should the program die
            // meanwhile, all is in it.
            error = WriteInPlace(contents);
        }
        if (error != 0 && existed_ && !files_.Attributes(path_).exists) {
            temporaryPath_.clear(); // stays: nothing stands under the name
        }
    }
    RemoveTemporary();
    return error;
}

// The names end in ".tmp", so that no listing of "*.nvm" finds them. Names that are taken (by a
// program that died while it saved) are left alone.
SystemError SafeSave::CreateTemporary()
{
    constexpr int kNames = 999;
    SystemError error = 0;
    for (int number = 1; number <= kNames; ++number) {
        std::string name = path_;
        if (number > 1) {
            name.append(".").append(std::to_string(number));
        }
        name += ".tmp";
        temporary_ = files_.Open(name, OpenMode::createNew, error);
        if (temporary_ != nullptr) {
            temporaryPath_ = std::move(name);
            return 0;
        }
        if (error != kFileExists && error != kAlreadyExists) {
            break;
        }
    }
    return error;
}

// With the access list of the file at path, or, where it would get some other one, with that of any
// new file.
SystemError SafeSave::CreateLike(const std::string& path)
{
    const SystemError error = CreateTemporary();
    if (error != 0 || files_.CopyAccess(path, temporaryPath_)) {
        return error;
    }
    RemoveTemporary();
    return CreateTemporary();
}

SystemError SafeSave::WriteTemporary(std::string_view contents)
{
    SystemError error = temporary_->Write(contents.data(), contents.size());
    if (error == 0) {
        // Before the name changes hands: a power cut must not leave the name with nothing under it.
        error = temporary_->Flush();
    }
    const SystemError closeError = temporary_->Close();
    return error != 0 ? error : closeError;
}

SystemError SafeSave::WriteInPlace(std::string_view contents)
{
    SystemError error = 0;
    const std::unique_ptr<File> file = files_.Open(path_, OpenMode::change, error);
    if (file == nullptr) {
        return error;
    }
    std::string old;
    error = ReadAll(*file, old);
    if (error != 0) {
        return error;
    }
    error = Overwrite(*file, contents);
    if (error != 0) {
        // The first error is the one to tell. The old contents fit, since the file was not cut.
        if (Overwrite(*file, old) != 0) {
            temporaryPath_.clear(); // stays: nothing else is whole now
        }
        return error;
    }
    return file->Close();
}

void SafeSave::RemoveTemporary()
{
    temporary_.reset();
    if (!temporaryPath_.empty()) {
        // Ignored: a temporary that cannot be removed harms no menu.
        static_cast<void>(files_.Remove(temporaryPath_));
        temporaryPath_.clear();
    }
}

} // namespace nv
