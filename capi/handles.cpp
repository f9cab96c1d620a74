#include "capi/handles.h"

#include <limits>
#include <mutex>
#include <random>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "capi/ledgerwick_c.h"
#include "hostkit/services/process.h"
#include "ledgerwick/host/dll_global.h"
#include "ledgerwick/values/error.h"

namespace ledgerwick::c {

namespace {

// The tokens of all threads, so that a handle of another thread can be told from one that is closed.
class Tokens {
  public:
    Token next() {
        const std::lock_guard lock(mutex_);
        if (process_ != processNumber()) beginAnywhere();
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

    void beginAnywhere() {
        constexpr Token places = std::numeric_limits<Token>::max() / 4 / step;
        std::random_device draw;
        last_ = std::uniform_int_distribution<Token>(0, places)(draw) * step;
        process_ = processNumber();
    }

    std::mutex mutex_;
    Token last_ = 0;
    int process_ = 0;  // in which `last_` counts
    std::unordered_set<Token> open_;
};

// Never destroyed: a thread may end after the program's statics are gone.
Tokens& tokens() {
    static Tokens& all = *new Tokens;
    return all;
}

struct Kept {
    std::unique_ptr<Held> object;
    int process;  // that opened it
};

class ObjectsOfThread {
  public:
    // The library's references of this thread are made first, so that they outlive the sessions.
    ObjectsOfThread() { DLLGlobal::references(); }
    ObjectsOfThread(const ObjectsOfThread&) = delete;
    ObjectsOfThread& operator=(const ObjectsOfThread&) = delete;
    ~ObjectsOfThread() {
        for (auto& [token, kept] : objects) {
            tokens().remove(token);
            // What a forked child inherits is the parent's to close.
            if (kept.process != processNumber()) static_cast<void>(kept.object.release());
        }
    }

    std::unordered_map<Token, Kept> objects;
};

auto& objectsOfThread() {
    thread_local ObjectsOfThread mine;
    return mine.objects;
}

auto find(Token token, std::string_view what) {
    const std::string source = "ledgerwick_" + std::string(what);
    if (token == 0) raise(LEDGERWICK_NULL, source, "the handle is NULL");
    const auto found = objectsOfThread().find(token);
    if (found != objectsOfThread().end()) {
        if (found->second.process == processNumber()) return found;
        throw Error(LEDGERWICK_WRONG_PROCESS, source,
                    "The " + std::string(what) +
                        " belongs to the process that opened it; a forked child opens its own");
    }
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
        objects.emplace(token, Kept{std::move(object), processNumber()});
    } catch (...) {
        tokens().remove(token);
        throw;
    }
    return token;
}

Held& held(Token token, std::string_view what) {
    return *find(token, what)->second.object;
}

void release(Token token, std::string_view what) {
    const auto found = find(token, what);
    const std::unique_ptr<Held> object =
        std::move(found->second.object);  // goes when it is off the map
    objectsOfThread().erase(found);
    tokens().remove(token);
}

}  // namespace ledgerwick::c
