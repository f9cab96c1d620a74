#include "ledgerwick/host/fernbank.h"
#include "ledgerwick/values/error.h"

extern "C" __attribute__((visibility("default"))) ledgerwick::Object* FernbankCreateObject(
    const char*, ledgerwick::Database& (*)()) {
    ledgerwick::raise(ledgerwick::error_number::fileError, "Fernbank");
}
