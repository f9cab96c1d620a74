// The entry point of libFuzzer.
#include "fuzz/harness.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ledgerwick::fuzz::fuzzOne({data, size});
    return 0;
}
