#include "capi/handles.h"

#include <mutex>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "capi/ledgerwick_c.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::c {

namespace {

// The tokens of all threads, so that a handle of another thread can be told from one that is closed.
class Tokens {
  public:
    Token next() {
        const std::lock_guard lock(mutex_);
        last_ += step;
        open_.insert(last_);
        return last_;
    }
    void remove(Token token) {
        const std::lock_guard lock(mutex_);
        open_.erase(token);
    }
    bool contains(Token token) {
        const std::lock_guard lock(mutex_);
        return open_.contains(token);
    }

  private:
    static constexpr Token step = 8;  // handles look like the aligned pointers that they are not

    std::mutex mutex_;
    Token last_ = 0;
    std::unordered_set<Token> open_;
};

// Never destroyed: a thread may end after the program's statics are gone.
Tokens& tokens() {
    static Tokens& all = *new Tokens;
    return all;
}

class ObjectsOfThread {
  public:
    // The library's references of this thread are made first, so that they outlive the sessions.
    ObjectsOfThread() { DLLGlobal::references(); }
    ObjectsOfThread(const ObjectsOfThread&) = delete;
    ObjectsOfThread& operator=(const ObjectsOfThread&) = delete;
    ~ObjectsOfThread() {
        for (const auto& entry : objects) tokens().remove(entry.first);
    }

    std::unordered_map<Token, std::unique_ptr<Held>> objects;
};

auto& objectsOfThread() {
    thread_local ObjectsOfThread mine;
    return mine.objects;
}

auto find(Token token, std::string_view what) {
    const std::string source = "ledgerwick_" + std::string(what);
    if (token == 0) raise(LEDGERWICK_NULL, source, "the handle is NULL");
    const auto found = objectsOfThread().find(token);
    if (found != objectsOfThread().end()) return found;
    if (tokens().contains(token)) {
        throw Error(LEDGERWICK_WRONG_THREAD, source,
                    "The " + std::string(what) + " belongs to another thread");
    }
    raise(LEDGERWICK_CLOSED, source, "it was closed, or never opened");
}

}  // namespace

Token keep(std::unique_ptr<Held> object) {
    auto& objects = objectsOfThread();
    const Token token = tokens().next();
    try {
        objects.emplace(token, std::move(object));
    } catch (...) {
        tokens().remove(token);
        throw;
    }
    return token;
}

Held& held(Token token, std::string_view what) {
    return *find(token, what)->second;
}

void release(Token token, std::string_view what) {
    const auto found = find(token, what);
    const std::unique_ptr<Held> object = std::move(found->second);  // goes when it is off the map
    objectsOfThread().erase(found);
    tokens().remove(token);
}

}  // namespace ledgerwick::c
