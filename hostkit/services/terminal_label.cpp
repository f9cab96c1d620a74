#include "hostkit/services/terminal_label.h"

#include <cstddef>
#include <string>

#include "ledgerwick/values/text.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace ledgerwick {

namespace {

constexpr std::size_t width = 78;  // characters; a narrower line cannot wrap on any terminal
constexpr auto pause = std::chrono::milliseconds(50);

bool onTerminal(std::FILE* stream) {
#ifdef _WIN32
    return _isatty(_fileno(stream)) != 0;
#else
    return isatty(fileno(stream)) != 0;
#endif
}

bool isControl(unsigned char c) {
    return c < 0x20 || c == 0x7f;
}

}  // namespace

TerminalLabel::TerminalLabel(std::FILE* stream)
    : stream_(stream), isTerminal_(onTerminal(stream)) {}

TerminalLabel::~TerminalLabel() {
    Wipe();
}

void TerminalLabel::Caption(std::string_view caption) {
    if (!isTerminal_) return;
    const auto now = std::chrono::steady_clock::now();
    if (now < next_) return;
    next_ = now + pause;
    const std::string line = padOrCut(withoutControls(caption), width);
    std::fprintf(stream_, "\r%s", line.c_str());
    std::fflush(stream_);
    shown_ = true;
}

void TerminalLabel::Wipe() {
    if (!shown_) return;
    std::fprintf(stream_, "\r%s\r", std::string(width, ' ').c_str());
    std::fflush(stream_);
    shown_ = false;
}

std::string withoutControls(std::string_view text) {
    std::string clean(text);
    for (std::size_t i = 0; i < clean.size(); ++i) {
        const auto c = static_cast<unsigned char>(clean[i]);
        const auto behind = [&](std::size_t count) {
            return i + count < clean.size() ? static_cast<unsigned char>(clean[i + count]) : 0;
        };
        if (isControl(c)) clean[i] = ' ';
        // U+0080 to U+009F, the second block of controls, stand as C2 80 to C2 9F.
        if (c == 0xC2 && behind(1) != 0 && behind(1) < 0xA0) clean.replace(i, 2, 2, ' ');
        // U+202A to U+202E and U+2066 to U+2069 turn the direction of what stands behind them.
        const bool turns =
            c == 0xE2 && ((behind(1) == 0x80 && behind(2) >= 0xAA && behind(2) <= 0xAE) ||
                          (behind(1) == 0x81 && behind(2) >= 0xA6 && behind(2) <= 0xA9));
        if (turns) clean.replace(i, 3, 3, ' ');
    }
    return clean;
}

}  // namespace ledgerwick
