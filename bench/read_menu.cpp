// read_menu FILE: reads a menu and decodes every entry, as the program does. read_menu -r FILE:
// only reads it. A process of its own, to be timed against wc.
#include "read_and_decode.h"

#include <cstdio>
#include <string_view>

int main(int count, char** arguments)
{
    const bool readOnly = count == 3 && std::string_view(arguments[1]) == "-r";
    if (count != 2 && !readOnly) {
        return 2;
    }
    std::printf("%zu bytes\n", readOnly ? nv::bench::ReadOnly(arguments[2])
                                        : nv::bench::ReadAndDecode(arguments[1]));
}
