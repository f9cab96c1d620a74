#include "ledgerwick/host/fernbank.h"

extern "C" __attribute__((visibility("default"))) ledgerwick::Object* FernbankCreateObject(
    const char*, ledgerwick::Database& (*)()) {
    return nullptr;
}
