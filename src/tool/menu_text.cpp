#include "tool/menu_text.h"

#include "docs/line_reader.h"
#include "platform/system_error.h"

#include <memory>
#include <new>
#include <string_view>

namespace nv
{

namespace
{

class NoEvents : public EventPump
{
public:
    bool LetEventsThrough() override { return true; }
};

// A file that is read, with what was read.
class KeptFile : public File
{
public:
    explicit KeptFile(File& file) : file_(file) {}
    std::string_view Bytes() const { return bytes_; }

    SystemError Read(char* buffer, std::size_t size, std::size_t& got) override
    {
        const SystemError error = file_.Read(buffer, size, got);
        bytes_.append(buffer, error == 0 ? got : 0);
        return error;
    }
    SystemError Write(const char* data, std::size_t size) override
    {
        return file_.Write(data, size);
    }
    SystemError Rewind() override { return file_.Rewind(); }
    SystemError Truncate() override { return file_.Truncate(); }
    SystemError Flush() override { return file_.Flush(); }
    SystemError Close() override { return file_.Close(); }

private:
    File& file_;
    std::string bytes_;
};

// How many bytes a line takes in its file: a line break inside it is one there.
std::size_t StoredSize(std::string_view line)
{
    std::size_t size = line.size();
    for (auto at = line.find('\r'); at != std::string_view::npos; at = line.find('\r', at + 1)) {
        --size;
    }
    return size;
}

LineEnd EndAt(std::string_view bytes, std::size_t at)
{
    if (at >= bytes.size()) {
        return LineEnd::none;
    }
    if (bytes[at] == '\n') {
        return LineEnd::lf;
    }
    return bytes.substr(at, 2) == "\r\n" ? LineEnd::crLf : LineEnd::cr;
}

void FindEnds(std::string_view bytes, MenuText& text)
{
    text.ends.reserve(text.lines.size());
    std::size_t at = 0;
    while (bytes.substr(at).starts_with(kByteOrderMark)) {
        at += kByteOrderMark.size();
    }
    for (std::size_t index = 0; index < text.lines.size(); ++index) {
        at += StoredSize(text.lines[index]);
        const LineEnd end = EndAt(bytes, at);
        text.ends.push_back(end);
        at += end == LineEnd::crLf ? 2 : 1;
    }
}

} // namespace

SystemError ReadMenuText(Files& files, const std::string& path, MenuText& text)
{
    SystemError error = 0;
    const std::unique_ptr<File> file = files.Open(path, OpenMode::read, error);
    if (file == nullptr) {
        return error;
    }
    try {
        KeptFile kept(*file);
        NoEvents pump;
        if (ReadMenuLines(kept, text.lines, pump, error) == ReadOutcome::whole) {
            text.byteOrderMark = kept.Bytes().starts_with(kByteOrderMark);
            FindEnds(kept.Bytes(), text);
        }
    } catch (const std::bad_alloc&) {
        error = kNotEnoughMemory;
    }
    return error;
}

} // namespace nv
