// Files in memory. Faulty makes their operations fail.
#pragma once

#include "platform/ansi_text.h"
#include "platform/files.h"
#include "platform/system_error.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

namespace nv
{

class FakeFiles : public Files
{
public:
    static constexpr SystemError kDiskFull = 112;

    struct Node {
        std::string contents;
        bool folder = false;
        bool readOnly = false;
        bool onDisk = true; // what was written stands on the disk, not only in memory
        bool hidden = false;
        SystemError refused = 0; // to whoever opens it
        std::string name = {};   // as it was put
        int writers = 0;         // nothing can be done to its name meanwhile
        int written = 0;         // when
        unsigned names = 1;
        std::string access = {}; // list
    };

    std::size_t room = SIZE_MAX;      // bytes by which files can still grow
    std::size_t readPiece = SIZE_MAX; // most that one Read gives
    std::vector<std::string> madeFolders;
    std::map<std::string, std::string> links; // symbolic ones, and where they lead
    bool spoilsAccess = false;                // a list that is set comes out as another one
    int clock = 0;

    void Put(const std::string& path, const std::string& contents)
    {
        nodes_[UpperCase(path)] = Node{contents};
        Find(path)->written = ++clock;
        Find(path)->name = path.substr(path.rfind('\\') + 1);
    }
    Node* Find(const std::string& path)
    {
        const auto found = nodes_.find(UpperCase(path));
        return found == nodes_.end() ? nullptr : &found->second;
    }
    // The file's contents, or "(none)".
    std::string Contents(const std::string& path)
    {
        const Node* node = Find(path);
        return node != nullptr ? node->contents : "(none)";
    }
    std::size_t Count() const { return nodes_.size(); }
    // Loses what was not flushed.
    void CutPower()
    {
        for (auto& [key, node] : nodes_) {
            if (!node.onDisk) {
                node.contents = "\x7F lost";
            }
        }
    }

    std::unique_ptr<File> Open(const std::string& path, OpenMode mode, SystemError& error) override
    {
        error = OpenError(path, mode);
        if (error != 0) {
            return nullptr;
        }
        Node& node = nodes_[UpperCase(path)];
        if (mode == OpenMode::overwrite) {
            node.contents.clear();
        }
        return std::make_unique<OpenFile>(*this, path, mode != OpenMode::read);
    }

    FileAttributes Attributes(const std::string& path) override
    {
        const Node* node = Find(path);
        return node == nullptr ? FileAttributes{}
                               : FileAttributes{true, node->folder, node->readOnly, node->hidden};
    }

    FileState State(const std::string& path) override
    {
        const Node* node = Find(BehindLink(path));
        return node == nullptr ? FileState{}
                               : FileState{true, node->contents.size(),
                                           static_cast<std::uint64_t>(node->written), node->names};
    }

    std::string BehindLink(const std::string& path) override
    {
        const auto link = links.find(path);
        return link == links.end() ? path : link->second;
    }

    bool CopyAccess(const std::string& from, const std::string& to) override
    {
        const Node* like = Find(from);
        Find(to)->access = spoilsAccess ? "spoilt" : like != nullptr ? like->access : "";
        return !spoilsAccess;
    }

    std::string FullPath(const std::string& path) override
    {
        const bool full = path.find(':') != std::string::npos || path.starts_with("\\\\");
        return full ? path : "C:\\Here\\" + path;
    }

    // Of wildcards it knows one "*" that begins the name; only files that were put match it.
    std::vector<std::string> List(const std::string& path, std::size_t) override
    {
        const auto star = path.find('*');
        if (star != std::string::npos) {
            return Matches(UpperCase(path.substr(0, star)), UpperCase(path.substr(star + 1)));
        }
        const Node* node = Find(path);
        return std::vector<std::string>(node != nullptr && !node->folder ? 1 : 0,
                                        path.substr(path.rfind('\\') + 1));
    }

    SystemError Replace(const std::string& from, const std::string& to) override
    {
        const SystemError error = NameError(from);
        if (error != 0 || NameError(to) == kSharingViolation) {
            return error != 0 ? error : kAccessDenied;
        }
        nodes_[UpperCase(to)] = *Find(from);
        nodes_.erase(UpperCase(from));
        return 0;
    }

    SystemError Remove(const std::string& path) override
    {
        const SystemError error = NameError(path);
        if (error == 0) {
            nodes_.erase(UpperCase(path));
        }
        return error;
    }

    SystemError MakeFolder(const std::string& path) override
    {
        madeFolders.push_back(path);
        return nodes_.try_emplace(UpperCase(path), Node{{}, true}).second ? 0 : kAlreadyExists;
    }

    std::string Describe(SystemError error) override { return "<" + std::to_string(error) + ">"; }

private:
    class OpenFile : public File
    {
    public:
        OpenFile(FakeFiles& files, std::string path, bool writes)
            : files_(files), path_(std::move(path)), writes_(writes)
        {
            Node().writers += writes_ ? 1 : 0;
        }
        ~OpenFile() override { OpenFile::Close(); }
        OpenFile(const OpenFile&) = delete;
        OpenFile& operator=(const OpenFile&) = delete;

        SystemError Read(char* buffer, std::size_t size, std::size_t& got) override
        {
            const std::string& contents = Node().contents;
            got = std::min({size, files_.readPiece, contents.size() - at_});
            std::memcpy(buffer, contents.data() + at_, got);
            at_ += got;
            return 0;
        }
        SystemError Write(const char* data, std::size_t size) override
        {
            std::string& contents = Node().contents;
            const std::size_t over = std::min(size, contents.size() - at_);
            const std::size_t growth = std::min(size - over, files_.room); // as there is room for
            files_.room -= files_.room == SIZE_MAX ? 0 : growth;
            contents.replace(at_, over, data, over + growth);
            Node().written = ++files_.clock;
            Node().onDisk = false;
            at_ += over + growth;
            return over + growth < size ? kDiskFull : 0;
        }
        SystemError Rewind() override
        {
            at_ = 0;
            return 0;
        }
        SystemError Truncate() override
        {
            Node().contents.resize(at_);
            Node().written = ++files_.clock;
            Node().onDisk = false;
            return 0;
        }
        SystemError Flush() override
        {
            Node().onDisk = true;
            return 0;
        }
        SystemError Close() override
        {
            if (std::exchange(writes_, false)) {
                --Node().writers;
            }
            return 0;
        }

    private:
        FakeFiles::Node& Node() { return *files_.Find(path_); }

        FakeFiles& files_;
        std::string path_;
        bool writes_;
        std::size_t at_ = 0;
    };

    std::vector<std::string> Matches(const std::string& folder, const std::string& ending) const
    {
        std::vector<std::string> names;
        for (const auto& [key, node] : nodes_) {
            const bool within =
                key.starts_with(folder) && key.find('\\', folder.size()) == std::string::npos;
            if (within && key.ends_with(ending) && !node.folder && !node.name.empty()) {
                names.push_back(node.name);
            }
        }
        return names;
    }

    // What speaks against giving the name at path away.
    SystemError NameError(const std::string& path)
    {
        const Node* node = Find(path);
        return node == nullptr ? kNotFound : node->writers > 0 ? kSharingViolation : 0;
    }

    SystemError OpenError(const std::string& path, OpenMode mode)
    {
        const Node* node = Find(path);
        if (node == nullptr) {
            return mode == OpenMode::read || mode == OpenMode::change ? kNotFound : 0;
        }
        if (node->refused != 0) {
            return node->refused;
        }
        if (mode == OpenMode::createNew) {
            return kFileExists;
        }
        return node->folder || (node->readOnly && mode != OpenMode::read) ? kAccessDenied : 0;
    }

    std::map<std::string, Node> nodes_; // by path in upper case
};

} // namespace nv
