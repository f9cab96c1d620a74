// The handles that a caller of the C interface holds: tokens that lead to objects of this thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace ledgerwick::c {

// What a handle leads to.
class Held {
  public:
    virtual ~Held() = default;
};

// The number behind a handle, never 0. No number is given twice; those of two processes have
// nothing in common, so that a handle that came from another process leads nowhere.
using Token = std::uintptr_t;

// Gives the object to this thread, until it is released or the thread ends.
Token keep(std::unique_ptr<Held> object);
// Errors: 91 for 0, 20002 for an object of another thread, 20003 for one of the parent of a forked
//         child, 3420 for one that is none.
Held& held(Token token, std::string_view what);
// Errors: as above.
void release(Token token, std::string_view what);

template <class Handle>
Token tokenOf(const Handle* handle) noexcept {
    return reinterpret_cast<Token>(handle);
}
template <class Handle>
Handle* handleOf(Token token) noexcept {
    return reinterpret_cast<Handle*>(token);
}

}  // namespace ledgerwick::c
