#include "charset.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "text.h"

namespace odoors {

Charset charsetOfEnvironment() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(name);
        if (value == nullptr || *value == 0) {
            continue;
        }
        std::string_view codeset(value);
        codeset.remove_prefix(std::min(codeset.size(), codeset.find('.') + 1));
        codeset = codeset.substr(0, codeset.find('@'));
        const bool utf8 = sameLetters(codeset, "UTF-8") || sameLetters(codeset, "UTF8");
        return utf8 ? Charset::utf8 : Charset::cp437;
    }
    return Charset::cp437;
}

} // namespace odoors
