#include "hostkit/services/terminal_label.h"

#include <cstddef>
#include <string>

#include "hostkit/services/terminal_text.h"
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

}  // namespace ledgerwick
