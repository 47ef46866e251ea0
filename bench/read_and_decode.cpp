#include "read_and_decode.h"

#include "docs/line_reader.h"
#include "docs/menu_line.h"
#include "posix_file.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace nv::bench
{

namespace
{

class NoEvents final : public EventPump
{
public:
    bool LetEventsThrough() override { return true; }
};

void StopUnless(bool done, const char* path)
{
    if (!done) {
        std::fprintf(stderr, "cannot read %s\n", path);
        std::exit(1);
    }
}

} // namespace

std::size_t ReadAndDecode(const char* path)
{
    PosixFile file(path);
    MenuLines lines;
    NoEvents pump;
    SystemError error = 0;
    StopUnless(ReadMenuLines(file, lines, pump, error) == ReadOutcome::whole, path);
    const Font defaultFont;
    std::size_t bytes = 0;
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const MenuItem item = DecodeLine(lines[index], defaultFont);
        bytes += item.caption.size() + item.link.size() + item.font.name.size();
    }
    return bytes;
}

std::size_t ReadOnly(const char* path)
{
    constexpr std::size_t kBlock = 1024 * 1024;
    PosixFile file(path);
    std::vector<std::unique_ptr<char[]>> blocks;
    std::size_t bytes = 0;
    for (std::size_t got = 1; got > 0; bytes += got) {
        blocks.push_back(std::make_unique_for_overwrite<char[]>(kBlock));
        StopUnless(file.Read(blocks.back().get(), kBlock, got) == 0, path);
    }
    return bytes;
}

} // namespace nv::bench
