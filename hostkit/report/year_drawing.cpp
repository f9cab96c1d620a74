#include "hostkit/report/year_drawing.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "hostkit/explain/calendar_rules.h"
#include "hostkit/explain/words.h"
#include "ledgerwick/values/format.h"

namespace ledgerwick::report {

namespace {

using explain::counted;
using explain::frequencyName;
using explain::FrequencyRules;
using explain::periodText;
using explain::rulesOf;
using explain::taxYearDays;
using explain::taxYearText;

// Twelve weeks stand side by side, so that fortnights and four weeks never break between two rows.
constexpr int weeksInStrip = 12;
constexpr int left = 62;
constexpr int top = 64;
constexpr int dayWidth = 58;
constexpr int dayHeight = 16;
constexpr int headHeight = 18;
constexpr int laneHeight = 13;
constexpr int stripGap = 14;
constexpr int width = left + weeksInStrip * dayWidth + 6;

struct Look {
    PR_Pay_Freq frequency;
    char letter;
    const char* colour;
};
constexpr std::array looks{
    Look{PFREQ_1Weekly, 'W', "#0b6097"},   Look{PFREQ_2Weekly, 'F', "#b8480a"},
    Look{PFREQ_4Weekly, '4', "#04795a"},   Look{PFREQ_Monthly, 'M', "#a3256b"},
    Look{PFREQ_Quarterly, 'Q', "#5e3c99"}, Look{PFREQ_BiAnnual, 'H', "#7a5a00"},
    Look{PFREQ_Annual, 'Y', "#333333"},
};

// The periods drawn below the days.
struct Lane {
    PR_Pay_Freq frequency;
    const char* label;
};
constexpr std::array lanes{Lane{PFREQ_2Weekly, "fortnights"}, Lane{PFREQ_4Weekly, "four weeks"},
                           Lane{PFREQ_Monthly, "tax months"}};
constexpr int stripHeight =
    headHeight + 7 * dayHeight + 4 + int{lanes.size()} * laneHeight + stripGap;

std::string number(double value) {
    return formatNumber(value, "0.#") == formatNumber(value, "0") + "."
               ? formatNumber(value, "0")
               : formatNumber(value, "0.#");
}

std::string attributes(std::initializer_list<std::pair<std::string_view, std::string>> pairs) {
    std::string text;
    for (const auto& [name, value] : pairs) {
        text += " " + std::string(name) + "=\"" + value + "\"";
    }
    return text;
}

std::string rectangle(double x, double y, double w, double h, const std::string& style) {
    return "<rect" +
           attributes(
               {{"x", number(x)}, {"y", number(y)}, {"width", number(w)}, {"height", number(h)}}) +
           " " + style;
}

std::string text(double x, double y, const std::string& style, const std::string& words) {
    return "<text" + attributes({{"x", number(x)}, {"y", number(y)}}) + " " + style + ">" + words +
           "</text>\n";
}

std::string longDate(Date date) {
    return formatDate(date, "d mmmm yyyy");
}

// The pay mark of one frequency, a disc with its letter.
std::string disc(double x, double y, const Look& look, bool isPaid) {
    const std::string colour = look.colour;
    const std::string fill = isPaid ? colour : "#fff";
    const std::string ink = isPaid ? "#fff" : colour;
    return "<circle" +
           attributes({{"cx", number(x)},
                       {"cy", number(y)},
                       {"r", "5.2"},
                       {"fill", fill},
                       {"stroke", colour},
                       {"stroke-width", "1.2"}}) +
           "/>" + text(x, y + 3, "class=\"ym\" fill=\"" + ink + "\"", std::string(1, look.letter));
}

class Picture {
  public:
    explicit Picture(const YearDrawing& drawing)
        : drawing_(drawing), year_(taxYearDays(drawing.taxYear)) {
        for (const PayMark& mark : drawing.marks) {
            if (mark.date < year_.first || mark.date > year_.last) continue;
            bool& isPaid = marks_[mark.date.dayNumber()][mark.frequency];
            isPaid = isPaid || mark.isPaid;
            shown_.insert(mark.frequency);
        }
    }

    std::string draw() {
        const int strips = (calendar::taxWeek(year_.last) + weeksInStrip - 1) / weeksInStrip;
        open(top + strips * stripHeight);
        for (int strip = 0; strip < strips; ++strip) drawStrip(strip);
        drawLegend(strips - 1);
        return out_ + "</svg>\n";
    }

  private:
    void open(int height) {
        const std::string name = "Tax year " + taxYearText(drawing_.taxYear);
        out_ = "<svg xmlns=\"http://www.w3.org/2000/svg\" role=\"img\" viewBox=\"0 0 " +
               std::to_string(width) + " " + std::to_string(height) +
               "\" aria-labelledby=\"year-title year-words\" "
               "font-family=\"'Liberation Sans', Arial, Helvetica, sans-serif\">\n"
               "<title id=\"year-title\">" +
               name + "</title>\n<desc id=\"year-words\">" + description() + "</desc>\n" +
               R"(<style>
.yd{font-size:10px;fill:#333}.yb{font-weight:bold}.yw{font-size:10px;fill:#555;text-anchor:middle}
.yl{font-size:9px;fill:#555;text-anchor:end}.yn{font-size:9px;fill:#222;text-anchor:middle}
.ym{font-size:8px;font-weight:bold;text-anchor:middle}.yk{font-size:11px;fill:#222}
</style>
)" + rectangle(0, 0, width, height, "fill=\"#fff\"/>\n");
        out_ += text(left, 26, "font-size=\"18\" font-weight=\"bold\" fill=\"#111\"", name);
        out_ += text(left, 46, "font-size=\"12\" fill=\"#444\"",
                     longDate(year_.first) + " to " + longDate(year_.last) + ", payroll year " +
                         std::to_string(calendar::payrollYearOf(year_.first)) + ", " +
                         std::to_string(dayIndex(year_.last) + 1) + " days");
    }

    std::string description() const {
        std::string words = "Every day of the tax year from " + longDate(year_.first) + " to " +
                            longDate(year_.last) +
                            " in its tax week, with fortnights, four weeks and tax months below.";
        for (const PR_Pay_Freq frequency : shown_) {
            const auto count = std::count_if(marks_.begin(), marks_.end(), [&](const auto& day) {
                return day.second.contains(frequency);
            });
            words += " " + counted(count, frequencyName(frequency) + " pay date") + ".";
        }
        return words;
    }

    int dayIndex(Date date) const { return date.dayNumber() - year_.first.dayNumber(); }
    double xOf(int strip, int day) const {
        return left + dayWidth * (day - strip * weeksInStrip * 7) / 7.0;
    }
    static double yOf(int strip) { return top + strip * stripHeight; }

    void drawStrip(int strip) {
        const int firstDay = strip * weeksInStrip * 7;
        const int lastDay = std::min(firstDay + weeksInStrip * 7 - 1, dayIndex(year_.last));
        const double y = yOf(strip) + headHeight;
        for (int row = 0; row < 7 && firstDay + row <= lastDay; ++row) {
            const Date day = year_.first.addDays(row);
            out_ +=
                text(left - 6, y + row * dayHeight + 12, "class=\"yl\"", formatDate(day, "dddd"));
        }
        for (int day = firstDay; day <= lastDay; ++day) {
            const Date date = year_.first.addDays(day);
            if (day % 7 == 0) drawWeekNumber(strip, date);
            drawDay(xOf(strip, day - day % 7), y + day % 7 * dayHeight, date);
        }
        double laneTop = y + 7 * dayHeight + 4;
        for (const Lane& lane : lanes) {
            drawLane(strip, firstDay, lastDay, laneTop, lane);
            laneTop += laneHeight;
        }
    }

    void drawWeekNumber(int strip, Date date) {
        const std::int32_t week = calendar::taxWeek(date);
        const bool isLeftOver = week == rulesOf(PFREQ_1Weekly).leftOver;
        out_ += text(xOf(strip, dayIndex(date)) + dayWidth / 2.0, yOf(strip) + 12,
                     isLeftOver ? "class=\"yw yb\"" : "class=\"yw\"",
                     (isLeftOver || week == 1 ? "week " : "") + std::to_string(week));
    }

    void drawDay(double x, double y, Date date) {
        const bool isLeftOver = calendar::taxWeek(date) == rulesOf(PFREQ_1Weekly).leftOver;
        const bool isOdd = calendar::taxMonth(date) % 2 == 1;
        const char* fill = isLeftOver ? "#ffe9a8" : isOdd ? "#eef2f7" : "#fff";
        out_ += rectangle(x, y, dayWidth, dayHeight,
                          std::string("fill=\"") + fill + "\" stroke=\"#cdd3da\"/>");
        const bool isFirst = date.day() == 1 || date == year_.first;
        out_ += text(x + 4, y + 12, isFirst ? "class=\"yd yb\"" : "class=\"yd\"",
                     formatDate(date, isFirst ? "d mmm" : "d"));
        drawRing(x, y, date, drawing_.payDate, "stroke=\"#c00000\" stroke-width=\"2\"");
        drawRing(x, y, date, drawing_.today,
                 "stroke=\"#111\" stroke-width=\"1.4\" stroke-dasharray=\"3 2\"");
        drawMarks(x, y, date);
    }

    void drawRing(double x, double y, Date date, const std::optional<Date>& marked,
                  const std::string& stroke) {
        if (!marked || marked->dayNumber() != date.dayNumber()) return;
        out_ += rectangle(x + 1, y + 1, dayWidth - 2, dayHeight - 2,
                          "fill=\"none\" " + stroke + "/>\n");
    }

    void drawMarks(double x, double y, Date date) {
        const auto found = marks_.find(date.dayNumber());
        if (found == marks_.end()) return;
        const bool isNamed = date.day() == 1 || date == year_.first;
        const double last = dayWidth - 7;
        const double first = isNamed ? 40 : 23;
        const auto count = static_cast<double>(found->second.size());
        const double step = count > 1 ? std::min(11.0, (last - first) / (count - 1)) : 0;
        std::string words = formatDate(date, "dddd d mmmm yyyy") + ":";
        std::string discs;
        double at = x + last - step * (count - 1);
        for (const Look& look : looks) {
            const auto mark = found->second.find(look.frequency);
            if (mark == found->second.end()) continue;
            discs += disc(at, y + dayHeight / 2.0, look, mark->second);
            at += step;
            words += " " + frequencyName(look.frequency) + " pay" +
                     (mark->second ? "" : " expected") + ", " +
                     periodText(rulesOf(look.frequency), date) + ";";
        }
        words.back() = '.';
        out_ += "<g><title>" + words + "</title>\n" + discs + "</g>\n";
    }

    // Bars over the days that share a period's number.
    void drawLane(int strip, int firstDay, int lastDay, double y, const Lane& lane) {
        const FrequencyRules& rules = rulesOf(lane.frequency);
        const auto periodOf = [&](int day) {
            return calendar::taxPeriodNumber(year_.first.addDays(day), rules.code(), "calendar");
        };
        out_ += text(left - 6, y + 10, "class=\"yl\"", lane.label);
        for (int day = firstDay; day <= lastDay;) {
            const std::int32_t period = periodOf(day);
            int end = day + 1;
            while (end <= lastDay && periodOf(end) == period) ++end;
            const double from = xOf(strip, day);
            const double length = xOf(strip, end) - from;
            const bool isLeftOver = period == rules.leftOver;
            out_ += rectangle(
                from + 0.5, y, length - 1, laneHeight - 2,
                std::string("rx=\"2\" fill=\"") + (isLeftOver ? "#ffe9a8" : "#dfe6ee") + "\"/>");
            constexpr double roomForNumber = 12;
            if (length >= roomForNumber || isLeftOver) {
                out_ += text(std::max(from + length / 2, from + 6), y + 9, "class=\"yn\"",
                             std::to_string(period));
            }
            day = end;
        }
    }

    // Beside the few weeks of the last strip.
    void drawLegend(int strip) {
        const double x = left + 6 * dayWidth + 10;
        double y = yOf(strip) + 12;
        const auto line = [&](const std::string& words) {
            out_ += text(x + 44, y + 4, "class=\"yk\"", words);
            y += 17;
        };
        for (const Look& look : looks) {
            if (!shown_.contains(look.frequency)) continue;
            const auto uses = [&](bool isPaid) {
                return std::any_of(marks_.begin(), marks_.end(), [&](const auto& day) {
                    const auto mark = day.second.find(look.frequency);
                    return mark != day.second.end() && mark->second == isPaid;
                });
            };
            const bool isPaid = uses(true);
            const bool isExpected = uses(false);
            if (isPaid) out_ += disc(x + 12, y, look, true);
            if (isExpected) out_ += disc(x + 28, y, look, false);
            line(frequencyName(look.frequency) + " pay" +
                 (!isExpected ? ""
                  : isPaid    ? ", paid and expected"
                              : ", expected"));
        }
        const auto box = [&](const std::string& style, const std::string& words) {
            out_ += rectangle(x + 6, y - 6, 28, 12, style + "/>");
            line(words);
        };
        box("fill=\"#ffe9a8\" stroke=\"#cdd3da\"", "the days left over: week 53");
        box("fill=\"#eef2f7\" stroke=\"#cdd3da\"", "every other tax month");
        if (drawing_.payDate) {
            box("fill=\"none\" stroke=\"#c00000\" stroke-width=\"2\"",
                "pay date, " + longDate(*drawing_.payDate));
        }
        if (drawing_.today) {
            box("fill=\"none\" stroke=\"#111\" stroke-width=\"1.4\" stroke-dasharray=\"3 2\"",
                "today, " + longDate(*drawing_.today));
        }
    }

    const YearDrawing& drawing_;
    calendar::DateRange year_;
    std::map<std::int32_t, std::map<PR_Pay_Freq, bool>> marks_;  // by day; whether paid
    std::set<PR_Pay_Freq> shown_;
    std::string out_;
};

}  // namespace

std::string drawYear(const YearDrawing& drawing) {
    return Picture(drawing).draw();
}

}  // namespace ledgerwick::report
