#include "kernel/kvProcessInit.h"

#include "text/TerminalWidth.h"

#include <charconv>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <sys/ioctl.h>
#include <unistd.h>

namespace kivo::configuration {

namespace {

constexpr unsigned long USUAL_WIDTH = 80;

/// 0 when a text is no width.
unsigned long parseWidth(std::string_view text) {
    unsigned long width = 0;
    auto const [end, fault] = std::from_chars(text.data(), text.data() + text.size(), width);
    return fault == std::errc() && end == text.data() + text.size() ? width : 0;
}

} // namespace

unsigned long terminalWidth() {
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
    char const* const columns = std::getenv("COLUMNS");
    auto const width = columns ? parseWidth(columns) : 0;
    return width > 0 ? width : USUAL_WIDTH;
}

} // namespace kivo::configuration
