#include "hostkit/report/html.h"

#include <algorithm>

#include "ledgerwick/values/text.h"
#include "ledgerwick/values/utf8.h"

namespace ledgerwick::report {

namespace {

constexpr const char* style = R"css(
:root { color-scheme: light; }
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 2rem 1.5rem 3rem; max-width: 76rem; background: #fff; color: #1b1f24;
  font: 15px/1.45 "Liberation Sans", Arial, Helvetica, sans-serif; }
header { border-bottom: 3px solid #0b6097; padding-bottom: .8rem; }
h1 { margin: 0; font-size: 1.7rem; line-height: 1.2; }
header p { margin: .3rem 0 0; color: #4a5460; }
nav ul { display: flex; flex-wrap: wrap; gap: .3rem 1.2rem; margin: .9rem 0 0; padding: 0; list-style: none; }
a { color: #0b6097; }
h2 { margin: 2.2rem 0 .5rem; font-size: 1.2rem; break-after: avoid; }
p { margin: .4rem 0 .8rem; max-width: 46rem; }
dl.figures { display: grid; grid-template-columns: repeat(auto-fit, minmax(9.5rem, 1fr)); gap: .7rem;
  margin: 1.2rem 0 0; }
dl.figures div { display: flex; flex-direction: column-reverse; justify-content: flex-end;
  border: 1px solid #cdd3da; border-radius: 6px; padding: .6rem .8rem; break-inside: avoid; }
dl.figures dt { color: #4a5460; font-size: .85rem; }
dl.figures dd { margin: 0; font-size: 1.35rem; font-weight: bold; }
.wide { overflow-x: auto; }
table { border-collapse: collapse; width: 100%; font-size: .87rem; font-variant-numeric: tabular-nums; }
caption { text-align: left; color: #4a5460; padding-bottom: .4rem; }
th, td { padding: .32rem .6rem; text-align: left; vertical-align: top; border-bottom: 1px solid #dfe4ea;
  overflow-wrap: break-word; }
td.long { min-width: 14rem; overflow-wrap: anywhere; }
thead th { border-bottom: 2px solid #8a94a0; white-space: nowrap; }
tbody th { font-weight: normal; }
tbody tr:nth-child(even) { background: #f5f7fa; }
.n { text-align: right; }
.d { white-space: nowrap; }
.none { color: #4a5460; font-style: italic; }
svg { display: block; width: 100%; min-width: 44rem; max-width: 62rem; height: auto; }
footer { margin-top: 2.5rem; border-top: 1px solid #cdd3da; padding-top: .6rem; color: #4a5460;
  font-size: .85rem; }
@media (max-width: 40rem) { body { padding: 1.2rem .9rem 2rem; } h1 { font-size: 1.35rem; } }
@page { size: A4; margin: 14mm 13mm 16mm; @bottom-right { content: counter(page) " / " counter(pages);
  font: 9pt "Liberation Sans", Arial, sans-serif; color: #4a5460; } }
@media print {
  body { padding: 0; max-width: none; font-size: 10pt; }
  nav { display: none; }
  a { color: inherit; text-decoration: none; }
  h2 { margin-top: 1.4rem; }
  dl.figures { grid-template-columns: repeat(3, 1fr); }
  .wide { overflow: visible; }
  table { font-size: 7.6pt; }
  th, td { padding: .18rem .32rem; }
  thead th { white-space: normal; }
  td { overflow-wrap: anywhere; }
  td.long { min-width: 0; }
  thead { display: table-header-group; }
  tr, figure { break-inside: avoid; }
  tbody tr:nth-child(even) { background: #f5f7fa; print-color-adjust: exact; }
  #year { break-before: page; }
  #year h2 { margin-top: 0; }
  svg { min-width: 0; max-width: 100%; max-height: 235mm; print-color-adjust: exact; }
}
figure { margin: .6rem 0 0; }
)css";

// How many bytes the character at the front takes; 0 for none, and for the two that XML bars.
std::size_t pageCharacterLength(std::string_view text) {
    const bool isBarred = text.starts_with("\uFFFE") || text.starts_with("\uFFFF");
    return isBarred ? 0 : characterLength(text);
}

std::string_view entityOf(char c) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return {};
    }
}

bool isNumeric(const Variant& value) {
    return value.kind() >= VariantKind::Int16 && value.kind() <= VariantKind::Currency;
}

// A column of numbers stands on the right, with its heading.
bool standsRight(const Table& table, std::size_t column) {
    bool any = false;
    for (const auto& row : table.rows()) {
        if (isNumeric(row[column])) {
            any = true;
        } else if (!row[column].isEmpty()) {
            return false;
        }
    }
    return any;
}

std::string cellClass(const Variant& value, bool right) {
    if (right) return " class=\"n\"";
    if (value.kind() == VariantKind::Date) return " class=\"d\"";
    constexpr std::size_t longText = 32;
    const bool isLong =
        value.kind() == VariantKind::Text && characterCount(value.textView()) > longText;
    return isLong ? " class=\"long\"" : "";
}

}  // namespace

std::string htmlText(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = pageCharacterLength(text);
        if (length == 0) {
            result += "\xEF\xBF\xBD";
        } else if (const auto entity = entityOf(text[0]); !entity.empty()) {
            result += entity;
        } else if (static_cast<unsigned char>(text[0]) < 0x20 || text[0] == 0x7F) {
            result += ' ';
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return result;
}

HtmlPage::HtmlPage(const std::string& title, const std::string& subtitle) {
    head_ =
        "<!DOCTYPE html>\n"
        "<html lang=\"en-GB\" xmlns=\"http://www.w3.org/1999/xhtml\">\n<head>\n"
        "<meta charset=\"utf-8\"/>\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
        "<meta http-equiv=\"Content-Security-Policy\" "
        "content=\"default-src 'none'; style-src 'unsafe-inline'\"/>\n<title>" +
        htmlText(title) + "</title>\n<style>" + style +
        "</style>\n</head>\n<body>\n<header>\n<h1>" + htmlText(title) + "</h1>\n<p>" +
        htmlText(subtitle) + "</p>\n";
}

void HtmlPage::figures(const std::vector<std::pair<std::string, std::string>>& pairs) {
    body_ += "<dl class=\"figures\">\n";
    for (const auto& [what, value] : pairs) {
        body_ += "<div><dt>" + htmlText(what) + "</dt><dd>" + htmlText(value) + "</dd></div>\n";
    }
    body_ += "</dl>\n";
}

void HtmlPage::closeSection() {
    if (inSection_) body_ += "</section>\n";
    inSection_ = false;
}

void HtmlPage::section(const std::string& id, const std::string& heading) {
    closeSection();
    inSection_ = true;
    contents_ += "<li><a href=\"#" + htmlText(id) + "\">" + htmlText(heading) + "</a></li>\n";
    body_ += "<section id=\"" + htmlText(id) + "\" aria-labelledby=\"" + htmlText(id) +
             "-heading\">\n<h2 id=\"" + htmlText(id) + "-heading\">" + htmlText(heading) +
             "</h2>\n";
}

void HtmlPage::paragraph(const std::string& words) {
    body_ += "<p>" + htmlText(words) + "</p>\n";
}

void HtmlPage::table(const Table& table, const std::string& caption, const std::string& otherwise) {
    if (table.rows().empty()) {
        body_ += "<p class=\"none\">" + htmlText(otherwise) + "</p>\n";
        return;
    }
    const auto columns = table.shownColumns();
    std::vector<bool> right;
    body_ +=
        "<div class=\"wide\">\n<table>\n<caption>" + htmlText(caption) + "</caption>\n<thead><tr>";
    for (const std::size_t column : columns) {
        right.push_back(standsRight(table, column));
        body_ += std::string("<th scope=\"col\"") + (right.back() ? " class=\"n\"" : "") + ">" +
                 htmlText(replaceAll(table.columns()[column], "_", " ")) + "</th>";
    }
    body_ += "</tr></thead>\n<tbody>\n";
    for (const auto& row : table.rows()) {
        body_ += "<tr>";
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const Variant& value = row[columns[i]];
            body_ += "<td" + cellClass(value, right[i]) + ">" + htmlText(readable(value)) + "</td>";
        }
        body_ += "</tr>\n";
    }
    body_ += "</tbody>\n</table>\n</div>\n";
}

void HtmlPage::drawing(const std::string& svg) {
    body_ += "<figure>\n<div class=\"wide\">\n" + svg + "</div>\n</figure>\n";
}

std::string HtmlPage::finish(const std::string& footer) {
    closeSection();
    return head_ + "<nav aria-label=\"Contents\"><ul>\n" + contents_ +
           "</ul></nav>\n</header>\n<main>\n" + body_ + "</main>\n<footer>" + htmlText(footer) +
           "</footer>\n</body>\n</html>\n";
}

}  // namespace ledgerwick::report
