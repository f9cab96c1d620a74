#include "hostkit/recording/statement_parts.h"

#include <cstddef>

#include "ledgerwick/values/text.h"

namespace ledgerwick::recording {

namespace {

bool isWordCharacter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

// Walks the words that stand outside of literals; brackets are counted.
class Words {
  public:
    explicit Words(std::string_view text) : text_(text) {}

    // Goes to the next word or comma. False at the end.
    bool next() {
        while (end_ < text_.size()) {
            const char c = text_[end_];
            start_ = end_;
            if (isWordCharacter(c)) {
                while (end_ < text_.size() && isWordCharacter(text_[end_])) ++end_;
                return true;
            }
            if (c == '\'' || c == '#' || c == '"' || c == '[') {
                const std::size_t close = text_.find(c == '[' ? ']' : c, end_ + 1);
                end_ = close == std::string_view::npos ? text_.size() : close + 1;
                if (c == '[' || c == '"') return true;
                continue;
            }
            ++end_;
            depth_ += c == '(' ? 1 : c == ')' ? -1 : 0;
            if (c == ',') return true;
        }
        return false;
    }

    std::string_view word() const { return text_.substr(start_, end_ - start_); }
    bool is(std::string_view wanted) const { return equalsIgnoringCase(word(), wanted); }
    bool isOutside() const { return depth_ == 0; }
    std::size_t start() const { return start_; }
    std::size_t end() const { return end_; }

  private:
    std::string_view text_;
    std::size_t start_ = 0;
    std::size_t end_ = 0;
    int depth_ = 0;
};

std::string_view firstName(std::string_view text) {
    Words words(text);
    return words.next() ? words.word() : std::string_view();
}

// The last word before each "=" that stands outside of brackets, one in each piece between commas.
std::vector<std::string_view> assignedFields(std::string_view set) {
    std::vector<std::string_view> fields;
    std::size_t from = 0;
    const auto take = [&](std::size_t to) {
        const std::string_view piece = set.substr(from, to - from);
        std::string_view field;
        Words words(piece.substr(0, piece.find('=')));
        while (words.next()) field = words.word();
        fields.push_back(field);
    };
    Words words(set);
    while (words.next()) {
        if (!words.isOutside() || words.word() != ",") continue;
        take(words.start());
        from = words.end();
    }
    take(set.size());
    return fields;
}

}  // namespace

StatementParts partsOf(std::string_view sql) {
    StatementParts parts;
    Words words(sql);
    if (!words.next()) return parts;
    parts.verb = words.word();
    const bool update = equalsIgnoringCase(parts.verb, "UPDATE");
    std::string_view set;
    std::string_view* part = update ? &parts.source : &parts.columns;
    std::size_t from = words.end();
    const auto begin = [&](std::string_view& following) {
        *part = trim(sql.substr(from, words.start() - from));
        part = &following;
        from = words.end();
    };
    while (part != &parts.condition && words.next()) {
        if (!words.isOutside()) continue;
        if (!update && words.is("FROM") && part == &parts.columns) {
            begin(parts.source);
        } else if (update && words.is("SET") && part == &parts.source) {
            begin(set);
        } else if (words.is("WHERE")) {
            begin(parts.condition);
        }
    }
    *part = trim(sql.substr(from));
    parts.table = firstName(parts.source);
    if (!set.empty()) parts.assigned = assignedFields(set);
    return parts;
}

bool holdsWord(std::string_view text, std::string_view word) {
    Words words(text);
    while (words.next()) {
        if (words.is(word)) return true;
    }
    return false;
}

}  // namespace ledgerwick::recording
