// A step of the office that cannot be taken as things stand.
#pragma once

#include <string>

#include "hostkit/export.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::office {

// Says in one sentence why, and what to do. Nothing was written.
class LEDGERWICK_HOSTKIT_API Refusal : public Error {
  public:
    // Number 5, the operation, and the sentence.
    Refusal(std::string source, std::string sentence)
        : Error(error_number::invalidCall, std::move(source), std::move(sentence)) {}
    ~Refusal() override;
};

}  // namespace ledgerwick::office
