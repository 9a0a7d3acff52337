#pragma once

#include <string>
#include <string_view>

namespace odoors {

// The bytes to show for a display file: name.ans for a caller with ANSI graphics when there is
// one, else name.asc, in any letter case, without the description record that follows byte 26.
// Empty when there is no such file. Valid until the next call.
std::string_view readDisplayFile(const std::string& name, bool ansi);

} // namespace odoors
