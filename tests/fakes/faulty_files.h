// Files of any kind, of which one operation goes wrong on demand.
#pragma once

#include "platform/files.h"
#include "platform/system_error.h"

#include <functional>

namespace nv
{

// Thrown where the process is to die.
struct Killed {
};

template <typename Base> class Faulty : public Base
{
public:
    // Operations are those that report an error, counted from 1. Of a write that goes wrong half is
    // done, of the others nothing.
    int failAt = 0;
    int failures = 1;           // in a row, from failAt on
    SystemError failure = 1117; // an I/O error
    int killAt = 0;
    std::function<void()> die = [] { throw Killed(); };
    SystemError refuseNew = 0; // what creating any file ends with
    SystemError refuseReplace = 0;

    int operations = 0;
    std::string failed; // the operation that went wrong, and on what: "write C:\File"

    // A dead process starts anew, and nothing goes wrong any more.
    void Restart()
    {
        failAt = killAt = 0;
        dead_ = false;
    }

    std::unique_ptr<File> Open(const std::string& path, OpenMode mode, SystemError& error) override
    {
        const bool creates = mode == OpenMode::createNew || mode == OpenMode::overwrite;
        error = Step(creates ? "create" : "open", path);
        if (error == 0 && creates && !Base::Attributes(path).exists) {
            error = refuseNew;
        }
        std::unique_ptr<File> file = error == 0 ? Base::Open(path, mode, error) : nullptr;
        return file == nullptr ? nullptr
                               : std::make_unique<FaultyFile>(*this, std::move(file), path, mode);
    }
    SystemError Replace(const std::string& from, const std::string& to) override
    {
        const SystemError error = Step("replace", to);
        return error != 0 ? error : refuseReplace != 0 ? refuseReplace : Base::Replace(from, to);
    }
    SystemError Remove(const std::string& path) override
    {
        const SystemError error = Step("remove", path);
        return error != 0 ? error : Base::Remove(path);
    }
    SystemError MakeFolder(const std::string& path) override
    {
        const SystemError error = Step("make", path);
        return error != 0 ? error : Base::MakeFolder(path);
    }

private:
    class FaultyFile : public File
    {
    public:
        FaultyFile(Faulty& files, std::unique_ptr<File> file, std::string path, OpenMode mode)
            : files_(files), file_(std::move(file)), path_(std::move(path)), mode_(mode)
        {
        }

        SystemError Read(char* buffer, std::size_t size, std::size_t& got) override
        {
            got = 0;
            const SystemError error = files_.Step("read", path_);
            return error != 0 ? error : file_->Read(buffer, size, got);
        }
        SystemError Write(const char* data, std::size_t size) override
        {
            if (files_.NextGoesWrong()) {
                static_cast<void>(file_->Write(data, size / 2));
            }
            const SystemError error = files_.Step("write", path_);
            return error != 0 ? error : file_->Write(data, size);
        }
        SystemError Rewind() override
        {
            const SystemError error = files_.Step("rewind", path_);
            return error != 0 ? error : file_->Rewind();
        }
        SystemError Truncate() override
        {
            const SystemError error = files_.Step("truncate", path_);
            return error != 0 ? error : file_->Truncate();
        }
        SystemError Flush() override
        {
            const SystemError error = files_.Step("flush", path_);
            return error != 0 ? error : file_->Flush();
        }
        SystemError Close() override
        {
            const SystemError error =
                files_.Step(mode_ == OpenMode::read ? "close read" : "close", path_);
            const SystemError closed = file_->Close(); // it is closed, whatever that reports
            return error != 0 ? error : closed;
        }

    private:
        Faulty& files_;
        std::unique_ptr<File> file_;
        std::string path_;
        OpenMode mode_;
    };

    bool NextGoesWrong() const
    {
        return !dead_ && (Fails(operations + 1) || operations + 1 == killAt);
    }
    bool Fails(int operation) const
    {
        return failAt > 0 && operation >= failAt && operation < failAt + failures;
    }
    // Begins an operation; the error that is due in it.
    SystemError Step(const std::string& operation, const std::string& path)
    {
        if (dead_) {
            return failure; // a dead process changes nothing more, whatever its destructors try
        }
        ++operations;
        if (!Fails(operations) && operations != killAt) {
            return 0;
        }
        failed = operation + ' ' + path;
        if (operations == killAt) {
            dead_ = true;
            die();
        }
        return failure;
    }

    bool dead_ = false;
};

} // namespace nv
