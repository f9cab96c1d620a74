#include "hostkit/office/template_check.h"

#include <algorithm>
#include <optional>

#include "ledgerwick/values/text.h"
#include "ledgerwick/values/utf8.h"

namespace ledgerwick::office {

namespace {

constexpr std::string_view yearTagStart = "$Pre";

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// What a name between percent signs is made of; the bytes above 127 are those of "£" and the like.
bool isNamePart(char c) {
    return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || static_cast<unsigned char>(c) > 127;
}

// The known placeholder that the text begins with.
const LetterPlaceholder* knownAt(std::string_view text) {
    for (const auto& each : letterPlaceholders) {
        if (text.starts_with(each.text)) return &each;
    }
    return nullptr;
}

// Without percent signs and "£", which is what gets lost or mistyped first.
std::string bareName(std::string_view placeholder) {
    return replaceAll(replaceAll(replaceAll(placeholder, "%", ""), "£", ""), "Â", "");
}

// The placeholder that somebody had in mind who wrote this.
const LetterPlaceholder* meantBy(std::string_view written) {
    for (const auto& each : letterPlaceholders) {
        if (equalsIgnoringCase(bareName(each.text), bareName(written))) return &each;
    }
    return nullptr;
}

std::string meant(const LetterPlaceholder* placeholder) {
    return placeholder ? "; " + std::string(placeholder->text) + " is" : std::string();
}

class TemplateReader {
  public:
    TemplateReader(std::string text, const WhyUnfilled& whyUnfilled)
        : text_(std::move(text)), whyUnfilled_(whyUnfilled) {}

    std::vector<TemplateFault> faults() {
        readPlaceholders();
        readYearBlocks();
        std::stable_sort(found_.begin(), found_.end(),
                         [](const Found& a, const Found& b) { return a.at < b.at; });
        std::vector<TemplateFault> faults;
        for (Found& each : found_) faults.push_back(placed(each));
        return faults;
    }

    void fault(std::size_t at, std::string what) { found_.push_back({at, std::move(what)}); }

  private:
    struct Found {
        std::size_t at;
        std::string what;
    };

    // Lines end as editors see them: at a line feed, with or without a carriage return.
    TemplateFault placed(Found& found) const {
        const std::string_view before = std::string_view(text_).substr(0, found.at);
        const auto line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
        const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
        return {line + 1, characterCount(before.substr(lineStart)) + 1, std::move(found.what)};
    }

    void readPlaceholders() {
        for (std::size_t at = text_.find('%'); at != text_.npos; at = text_.find('%', at)) {
            const std::string_view tail = std::string_view(text_).substr(at);
            if (const auto* known = knownAt(tail)) {
                const std::string why = whyUnfilled_(known->value);
                if (!why.empty()) fault(at, std::string(known->text) + " stays unfilled: " + why);
                at += known->text.size();
            } else {
                at += readUnknown(at, tail);
            }
        }
    }

    // What stands at a percent sign with no known placeholder; gives how far it reaches.
    std::size_t readUnknown(std::size_t at, std::string_view tail) {
        std::size_t end = 1;
        while (end < tail.size() && isNamePart(tail[end])) ++end;
        if (end == 1 || !isLetter(tail[1])) return 1;  // "5% of", "100%"
        const std::string written(tail.substr(0, end));
        const bool isClosed = end < tail.size() && tail[end] == '%';
        if (!isClosed) {
            if (const auto* placeholder = meantBy(written)) {
                fault(at, written + " is not closed" + meant(placeholder));
            }
            return end;
        }
        if (knownAt(tail.substr(end))) return end;  // "5%of%PensionProvider%"
        fault(at, written + "% is no placeholder" + meant(meantBy(written)));
        return end + 1;
    }

    void readYearBlocks() {
        readMalformedTags();
        auto block = findYearBlock(text_);
        if (!block) return;
        judge(*block);
        std::string_view tag = std::string_view(text_).substr(block->begin, yearTagPattern.size());
        while ((block = findYearBlock(text_, block->begin + yearTagPattern.size()))) {
            fault(block->begin, std::string(tagAt(block->begin)) +
                                    " stays in the letter: only the first tag, " +
                                    std::string(tag) + ", is worked");
        }
    }

    std::string_view tagAt(std::size_t at) const {
        return std::string_view(text_).substr(at, yearTagPattern.size());
    }

    void judge(const YearBlock& block) {
        const std::string tag(tagAt(block.begin));
        if (!block.isOpened) {
            fault(block.begin, tag + " is not followed by \"[\", and stays in the letter");
        } else if (!block.isSound()) {
            fault(block.begin, "the block of " + tag + " is not ended by \"]\", and stays");
        } else {
            const std::size_t first = block.begin + yearTagPattern.size() + 1;
            const std::size_t inner = text_.find('[', first);
            if (inner < block.end) {
                fault(inner,
                      "\"[\" inside the block of " + tag + ": the next \"]\" ends the block");
            }
        }
    }

    void readMalformedTags() {
        for (std::size_t at = text_.find('$'); at != text_.npos; at = text_.find('$', at + 1)) {
            const std::string_view tail = std::string_view(text_).substr(at);
            if (!equalsIgnoringCase(tail.substr(0, yearTagStart.size()), yearTagStart)) continue;
            const auto tag = findYearBlock(text_, at);
            if (tag && tag->begin == at) {
                at += yearTagPattern.size() - 1;
                continue;
            }
            const std::size_t end = tail.find_first_of("$[ \r\n", 1);
            const std::size_t length = end == tail.npos   ? tail.size()
                                       : tail[end] == '$' ? end + 1
                                                          : end;
            fault(at, std::string(tail.substr(0, length)) +
                          " is no year tag, which is $PreAA_BBText$ with the two digits of a "
                          "payroll year for BB");
            at += length - 1;
        }
    }

    std::string text_;
    const WhyUnfilled& whyUnfilled_;
    std::vector<Found> found_;
};

// Where the first character stands that takes more than one byte in a text of UTF-8; nothing in any
// other text.
std::optional<std::size_t> firstUtf8Character(std::string_view bytes) {
    if (!isUtf8(bytes)) return std::nullopt;
    const auto found = std::ranges::find_if(
        bytes, [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
    if (found == bytes.end()) return std::nullopt;
    return static_cast<std::size_t>(found - bytes.begin());
}

}  // namespace

std::vector<TemplateFault> templateFaults(std::string_view bytes, const WhyUnfilled& whyUnfilled) {
    TemplateReader reader(windows1252ToUtf8(bytes), whyUnfilled);
    // Up to that character each byte is one of the text.
    if (const auto at = firstUtf8Character(bytes)) {
        reader.fault(*at, "the file is UTF-8, but templates are read in Windows code page 1252");
    }
    return reader.faults();
}

}  // namespace ledgerwick::office
