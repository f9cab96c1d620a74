// Preloaded into the tests: a host whose locale is that of its machine, for C and for C++.
#include <exception>
#include <locale>

namespace {

struct HostLocale {
    HostLocale() {
        try {
            std::locale::global(std::locale(""));
        } catch (const std::exception&) {
            std::terminate();  // the locale asked for is not there
        }
    }
} hostLocale;

}  // namespace
