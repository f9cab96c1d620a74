// One page of HTML that needs nothing from elsewhere: the style stands in it, and it has no scripts.
//
//   HtmlPage page("Pay run", "Mill Ltd");
//   page.section("due", "Who is due");
//   page.table(table);
//   out << page.finish();
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hostkit/export.h"
#include "hostkit/report/table.h"

namespace ledgerwick::report {

// The text as it may stand in an element or an attribute. Control characters become blanks, and a
// byte that is no valid UTF-8 the replacement character.
LEDGERWICK_HOSTKIT_API std::string htmlText(std::string_view text);

// Every text that it is given is escaped; only `drawing` takes markup. The page is well-formed XML
// too, so that a machine can read it.
class LEDGERWICK_HOSTKIT_API HtmlPage {
  public:
    // Begins a page.
    HtmlPage(const std::string& title, const std::string& subtitle);

    // A row of figures with what they count.
    void figures(const std::vector<std::pair<std::string, std::string>>& pairs);
    // Begins a section, which the list of contents names.
    void section(const std::string& id, const std::string& heading);
    // Adds a paragraph.
    void paragraph(const std::string& words);
    // The rows of a table, all columns; `otherwise` stands in the place of one without rows.
    void table(const Table& table, const std::string& caption, const std::string& otherwise);
    // Adds a drawing.
    void drawing(const std::string& svg);
    // The whole page, once.
    std::string finish(const std::string& footer);

  private:
    void closeSection();

    std::string head_, body_, contents_;
    bool inSection_ = false;
};

}  // namespace ledgerwick::report
