#include "system/locale_settings.h"

namespace nv
{

std::int16_t CodePageToCharset(std::string_view codePage)
{
    struct Entry {
        std::string_view codePage;
        std::int16_t charset;
    };
    static constexpr Entry kTable[] = {
        {"932", 128}, {"936", 134},  {"949", 129},  {"950", 136},  {"1250", 238}, {"1251", 204},
        {"1252", 0},  {"1253", 161}, {"1254", 162}, {"1255", 177}, {"1256", 178}, {"1257", 186},
    };
    for (const Entry& entry : kTable) {
        if (entry.codePage == codePage) {
            return entry.charset;
        }
    }
    return 0;
}

} // namespace nv
