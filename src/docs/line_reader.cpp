#include "docs/line_reader.h"

#include "platform/byte_scan.h"

#include <algorithm>
#include <string>

namespace nv
{

namespace
{

// Most menus fit into the first block; long ones are read in larger ones.
constexpr std::size_t kFirstChunk = std::size_t{16} * 1024;
constexpr std::size_t kChunk = std::size_t{256} * 1024;
constexpr char kStoredBreak = '\x01';

// Reads the file in large pieces straight into the blocks in which the lines then stand. Only the
// line that a block's end cuts is copied, to the start of the next block.
class LineReader
{
public:
    LineReader(File& file, MenuLines& lines, EventPump& pump)
        : file_(file), lines_(lines), pump_(pump)
    {
    }

    ReadOutcome Run(SystemError& error);

private:
    void MakeRoom();
    bool PassByteOrderMarks();
    bool TakeLines();
    bool EndLine(const char* lineEnd);

    File& file_;
    MenuLines& lines_;
    EventPump& pump_;
    const char* lineStart_ = nullptr; // of the line that has no end yet
    char* used_ = nullptr;            // end of what was read into the block
    char* blockEnd_ = nullptr;
    const char* scanned_ = nullptr; // how far the unfinished line was searched
    bool begun_ = false;            // the marks at the file's beginning were passed
    bool breaks_ = false;           // the unfinished line holds stored line breaks
    bool skipLineFeed_ = false;     // what was read ended in CR: an LF that follows belongs to it
};

ReadOutcome LineReader::Run(SystemError& error)
{
    for (;;) {
        if (used_ == blockEnd_) {
            MakeRoom();
        }
        std::size_t got = 0;
        error = file_.Read(used_, static_cast<std::size_t>(blockEnd_ - used_), got);
        if (error != 0) {
            return ReadOutcome::failed;
        }
        if (got == 0) {
            break;
        }
        lines_.AppendSource({used_, got});
        used_ += got;
        if (PassByteOrderMarks() && !TakeLines()) {
            return ReadOutcome::ended;
        }
    }
    const bool wanted = lineStart_ == used_ || EndLine(used_);
    return wanted ? ReadOutcome::whole : ReadOutcome::ended;
}

// Begins a block with the unfinished line. A block is twice as long as that line at least, so that
// one of many megabytes is copied a few times, not once a megabyte.
void LineReader::MakeRoom()
{
    const auto unfinished = static_cast<std::size_t>(used_ - lineStart_);
    const std::size_t chunk = lineStart_ == nullptr ? kFirstChunk : kChunk;
    const std::size_t size = unfinished + std::max(chunk, unfinished);
    char* block = lines_.NewBlock(size);
    std::copy_n(lineStart_, unfinished, block);
    lineStart_ = block;
    used_ = block + unfinished;
    scanned_ = used_;
    blockEnd_ = block + size;
}

// An editor of another program may have put marks before the first entry's type. False: what comes
// next may still be one.
bool LineReader::PassByteOrderMarks()
{
    while (!begun_) {
        const std::string_view read(lineStart_, static_cast<std::size_t>(used_ - lineStart_));
        if (read.size() < kByteOrderMark.size() && kByteOrderMark.starts_with(read)) {
            return false;
        }
        begun_ = !read.starts_with(kByteOrderMark);
        lineStart_ += begun_ ? 0 : kByteOrderMark.size();
        scanned_ = lineStart_;
    }
    return true;
}

// Takes the lines that end in what was read; false when they are no longer wanted.
bool LineReader::TakeLines()
{
    if (skipLineFeed_) {
        skipLineFeed_ = false;
        if (*lineStart_ == '\n') {
            scanned_ = ++lineStart_;
        }
    }
    for (;;) {
        scanned_ = FindControl(scanned_, used_);
        if (scanned_ == used_) {
            return true;
        }
        const char* found = scanned_++;
        if (*found == kStoredBreak) {
            breaks_ = true;
        } else if (*found == '\r' || *found == '\n') {
            skipLineFeed_ = *found == '\r' && scanned_ == used_;
            if (*found == '\r' && scanned_ != used_ && *scanned_ == '\n') {
                ++scanned_;
            }
            if (!EndLine(found)) {
                return false;
            }
            lineStart_ = scanned_;
        }
    }
}

// Appends the line from lineStart_ to lineEnd and lets events through.
bool LineReader::EndLine(const char* lineEnd)
{
    const std::string_view line(lineStart_, static_cast<std::size_t>(lineEnd - lineStart_));
    if (breaks_) {
        breaks_ = false;
        std::string text;
        for (const char ch : line) {
            if (ch == kStoredBreak) {
                text += "\r\n";
            } else {
                text += ch;
            }
        }
        lines_.Append(text);
    } else {
        lines_.AppendFromBlock(line);
    }
    return pump_.LetEventsThrough();
}

} // namespace

ReadOutcome ReadMenuLines(File& file, MenuLines& lines, EventPump& pump, SystemError& error)
{
    return LineReader(file, lines, pump).Run(error);
}

} // namespace nv
