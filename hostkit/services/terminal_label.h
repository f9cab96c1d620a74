// The progress of a load as one line on a terminal.
#pragma once

#include <chrono>
#include <cstdio>
#include <string_view>

#include "hostkit/export.h"
#include "ledgerwick/host/host.h"

namespace ledgerwick {

// Shows each caption over the one before it and wipes the line at the end. Where the stream is no
// terminal nothing is written. Captions that follow within a twentieth of a second are passed over,
// so that showing a load does not slow it down.
class LEDGERWICK_HOSTKIT_API TerminalLabel : public Label {
  public:
    // Writes to `stream`, which must outlive it.
    explicit TerminalLabel(std::FILE* stream = stderr);
    ~TerminalLabel() override;

    // Shows the line in place of the one before, unless that came just now.
    void Caption(std::string_view caption) override;
    // A program on a terminal has no event loop.
    void DoEvents() override {}

    // Wipes the line, for other output.
    void Wipe();

  private:
    std::FILE* stream_;
    bool isTerminal_;
    bool shown_ = false;
    std::chrono::steady_clock::time_point next_{};
};

}  // namespace ledgerwick
