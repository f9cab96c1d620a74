#!/usr/bin/env bash
# A year in the payroll of a small company, from 6 April 2025 to 5 April 2026, with nothing but the
# command and the CSV files in year-of-payroll/.
#
#   examples/year-of-payroll.sh [LEDGERWICK]
#
# Hollin Pottery pays four people:
#
#   11  Ada    weekly, by the hour (37.5 hours), in the pension scheme
#   12  Ben    weekly, 520 a week, too young for the scheme; no pay in the week of 22 August
#   13  Clara  monthly, 2,450 a month, in the pension scheme
#   14  David  monthly, 2,100 a month, starts on 1 September, scheme postponed to 30 November
#
# Weeks end on Saturday and are paid on the Friday before; months are paid on their last Wednesday
# (PRNExpD_M1 is -4) for the calendar month (PREPED_M1 is 0). At the end the figures are compared with
# those worked out by hand in the remarks below; the first that differs ends the script with 1.
set -euo pipefail
export LC_ALL=C.UTF-8 TZ=UTC

here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
ledgerwick="$(realpath -m "${1:-${LEDGERWICK:-$here/../build/release/bin/ledgerwick}}")"
[ -x "$ledgerwick" ] || { echo "there is no $ledgerwick; build it, or name another" >&2; exit 1; }
files="$here/year-of-payroll"
folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder"

# on DAY COMMAND...: the command as on that day.
on() { "$ledgerwick" --today "$1" "${@:2}"; }

# same WHAT EXPECTED FOUND
same() {
  [ "$2" = "$3" ] && return
  printf '\n%s:\n  expected  %s\n  found     %s\n' "$1" "$2" "$3" >&2
  exit 1
}

# column NAME...: those columns of the CSV table on the input, without the heading.
column() {
  awk -F, -v names="$*" '
    NR == 1 { n = split(names, name, " "); for (i = 1; i <= NF; i++) at[$i] = i; next }
    { line = $at[name[1]]; for (i = 2; i <= n; i++) line = line "," $at[name[i]]; print line }'
}

total() { awk '{ sum += $1 } END { print sum + 0 }'; }

# pay FREQUENCY DAY PERIODS: opens the run of that day, which must hold so many periods, and closes it.
pay() {
  local noun=periods rows=rows
  [ "$3" -ne 1 ] || noun=period rows=row
  on "$2" run open hollin.db --pay-date "$2" --frequency "$1" >"opened-$2.txt"
  same "the $1 run opened" "Run of $2: $3 $noun" "$(sed -n 1p "opened-$2.txt")"
  same "the $1 run closed" "Run of $2: $3 $rows closed" \
    "$(on "$2" run close hollin.db --pay-date "$2" --frequency "$1" | sed -n 1p)"
  periods=$((periods + $3))
}
periods=0

# import FOLDER. The warning that newcomers have no employment yet is kept back: that comes next.
import() {
  "$ledgerwick" import hollin.db "$1" >imported.txt 2>warnings.txt || { cat warnings.txt >&2; exit 1; }
}

# letters DAY TYPE: writes them and prints their names.
letters() {
  on "$1" ae letters hollin.db --type "$2" --templates "$files" --out letters |
    sed -nE 's/^ *[0-9]+  .*  (.*\.txt)$/  \1/p'
}

echo "The company is created and its people come in"
"$ledgerwick" new hollin.db --year 2025
import "$files"
tail -n 1 imported.txt
on 2025-04-06 employment add hollin.db --employee 11 --start 2025-04-06 --ae-status Enrolled \
  --first-pay 2025-04-11 --first-period-end 2025-04-12 | sed -n 1p
# Ben is paid with Ada, and Clara's first dates follow from the rules of the months.
on 2025-04-06 employment add hollin.db --employee 12 --start 2025-04-06 | sed -n 1p
on 2025-04-06 employment add hollin.db --employee 13 --start 2025-04-06 --ae-status Enrolled |
  sed -n 1p

echo
echo "Letters on the pension scheme are written"
letters 2025-04-06 enrolment
letters 2025-04-06 not-eligible

echo
echo "The year is run"
paydays() {
  local week
  for week in $(seq 0 51); do date -d "2025-04-11 + $((7 * week)) days" '+%F weekly'; done
  printf '%s monthly\n' 2025-04-30 2025-05-28 2025-06-25 2025-07-30 2025-08-27 2025-09-24 \
    2025-10-29 2025-11-26 2025-12-31 2026-01-28 2026-02-25 2026-03-25
}

# The pay days of a month stand on a line of their own, and so does what happens between them.
days=""
flush() { [ -z "$days" ] || echo "  $month $days"; days=""; }
event() { flush; printf '%s\n' "$1" | sed 's/^ */           /'; }

month="" joined=0
while read -r day frequency; do
  [ "${day%-*}" = "$month" ] || flush
  month="${day%-*}"
  case "$frequency $day" in
    "weekly 2025-08-22") pay weekly "$day" 1 ;;  # Ada alone
    weekly*) pay weekly "$day" 2 ;;
    monthly*) pay monthly "$day" $((1 + joined)) ;;
  esac
  days+=" ${day##*-}"
  [ "$frequency" = weekly ] || days+=" (monthly)"

  case "$day" in
    2025-08-15)
      # Ben takes the next week without pay: his next pay day is the Friday after.
      event "$(on "$day" employment next hollin.db --employee 12 --pay 2025-08-29 \
        --period-end 2025-08-30)"
      ;;
    2025-08-29)
      event "$(on "$day" fill hollin.db | sed -n 1p)"
      import "$files/starter"
      event "$(on 2025-09-01 employment add hollin.db --employee 14 --start 2025-09-01 | sed -n 1p)"
      event "$(letters 2025-09-01 postponement)"
      joined=1
      ;;
  esac
done < <(paydays | sort)
flush

echo
echo "The year is over"
year_end=2026-04-05
on "$year_end" employees hollin.db
echo
on "$year_end" ae status hollin.db --up-to "$year_end"
for naid in 11 12 13 14; do
  on "$year_end" --csv rows hollin.db "$naid" >"rows-$naid.csv"
  on "$year_end" --csv employee hollin.db "$naid" >"employee-$naid.csv"
done

# Rows. 52 Fridays lie from 11 April 2025 to 3 April 2026, and 12 last Wednesdays in the year. Each
# employment has a starting row besides (calculation 0). Ada: 52 + 1. Ben: 51 of a run, 1 filled
# (calculation -1), 1 to start with. Clara: 12 + 1. David, from September: 7 + 1. All are closed.
kinds() {
  column calculation closed <"rows-$1.csv" |
    awk -F, '{ closed += $2 == "True"; start += $1 == 0; filled += $1 == -1; run += $1 > 0 }
             END { print closed " closed: " start + 0 " start, " run " of runs, " filled + 0 " filled" }'
}
same "Ada's rows" "53 closed: 1 start, 52 of runs, 0 filled" "$(kinds 11)"
same "Ben's rows" "53 closed: 1 start, 51 of runs, 1 filled" "$(kinds 12)"
same "Clara's rows" "13 closed: 1 start, 12 of runs, 0 filled" "$(kinds 13)"
same "David's rows" "8 closed: 1 start, 7 of runs, 0 filled" "$(kinds 14)"
# 52 + 51 weeks and 12 + 7 months went through the runs.
same "periods paid" 122 "$periods"

# Weeks. 6 April 2025 is a Sunday, so that tax week n ends on Saturday, 5 April + 7n days, with its
# Friday in it: weeks 0 (the starting row) to 52. A monthly row has the tax week that holds the 5th on
# which its tax month ends, which comes to 5, 9, 13, ... 48 as the 5th is 30, 61, 91, ... days after
# 5 April; the last would be the left-over week 53, and 52 stands for it. Its period is minus the tax
# month. David starts in tax week 22, so that his starting row has week 21.
same "Ada's weeks" "$(seq -s ' ' 0 52)" "$(column week <rows-11.csv | xargs)"
same "Ben's weeks" "$(seq -s ' ' 0 52)" "$(column week <rows-12.csv | xargs)"
same "Clara's weeks" "0 5 9 13 18 22 27 31 35 40 44 48 52" "$(column week <rows-13.csv | xargs)"
same "Clara's periods" "0 -1 -2 -3 -4 -5 -6 -7 -8 -9 -10 -11 -12" \
  "$(column period <rows-13.csv | xargs)"
same "David's weeks" "21 27 31 35 40 44 48 52" "$(column week <rows-14.csv | xargs)"

# Dates. The last week is that of Friday 3 April, up to Saturday the 4th, and the next a week later.
# The last month is paid on Wednesday 25 March; the last Wednesday of April is the 29th.
stand() { column last_week last_pay paid_to next_pay next_period_end <"employee-$1.csv"; }
same "where Ada stands" 52,2026-04-03,2026-04-04,2026-04-10,2026-04-11 "$(stand 11)"
same "where Ben stands" 52,2026-04-03,2026-04-04,2026-04-10,2026-04-11 "$(stand 12)"
same "where Clara stands" 52,2026-03-25,2026-03-31,2026-04-29,2026-04-30 "$(stand 13)"
same "where David stands" 52,2026-03-25,2026-03-31,2026-04-29,2026-04-30 "$(stand 14)"
# David's first month is shorter, and Ben's pay of 29 August covers the week he was away.
opened() { sed -nE "s/^ +$1 .*  (20.{8})  (20.{8}) .*/\1 to \2/p" "opened-$2.txt"; }
same "David's first period" "2025-09-01 to 2025-09-30" "$(opened 14 2025-09-24)"
same "Ben's period after the gap" "2025-08-17 to 2025-08-30" "$(opened 12 2025-08-29)"

# The gap. Friday 22 August is in week 20 (11 April + 19 weeks). Its filled row is dated on the last
# day of that week, 5 April + 140 days = 23 August, which is before the pay day after it; it is paid
# up to where week 19 ended, looks ahead to week 21, and was reported late for reason H. Filling again
# finds no gap, and none before David's first month.
same "Ben's filled week" "20,1,2025-08-23,2025-08-16,0,2025-08-29,2025-08-30,H" \
  "$(column calculation week period pay_date to period_pay next_pay next_period_end late_reason \
    <rows-12.csv | sed -n 's/^-1,//p')"
same "filling again" "0 skipped periods filled" "$(on "$year_end" fill hollin.db | sed -n 1p)"

# Pay. Ada 52 x 37.5 hours; Ben 51 x 520; Clara 12 x 2,450; David 7 x 2,100.
same "Ada's hours" 1950 "$(column hours <rows-11.csv | total)"
same "Ben's pay" 26520 "$(column period_pay <rows-12.csv | total)"
same "Clara's pay" 29400 "$(column period_pay <rows-13.csv | total)"
same "David's pay" 14700 "$(column period_pay <rows-14.csv | total)"
# The rules change on 18 May: set 52 holds for weeks that end before it, the last of them week 6, and
# 53 from week 7 on, 46 weeks.
same "sets of calculations of Ada's rows" "1 x 0, 6 x 52, 46 x 53" \
  "$(column calculation <rows-11.csv | sort -n | uniq -c | awk '{ printf "%s%s x %s", s, $1, $2; s = ", " }')"

# Auto-enrolment. First and last two pay days of each, and the scheme of those who are in it.
on "$year_end" --csv ae status hollin.db --up-to "$year_end" |
  column NAID Scheme FirstAssessDate PrevAssessDate NextAssessDate | sort >status.csv
same "auto-enrolment" "$(cat <<'END'
11,Hollin Pottery Pension,2025-04-11,2026-03-27,2026-04-03
12,,2025-04-11,2026-03-27,2026-04-03
13,Hollin Pottery Pension,2025-04-30,2026-02-25,2026-03-25
14,,2025-09-24,2026-02-25,2026-03-25
END
)" "$(cat status.csv)"

# Letters. Enrolment to the two in the scheme, with the first pay day of each; to Ben that he need not
# be in it; to David on the day he started.
same "letters written" \
  "Enrolment 11.txt|Enrolment 13.txt|Non-Qualifying 12.txt|Postponement 14.txt|" \
  "$(cd letters && printf '%s|' *)"
contains() { grep -qF "$2" "letters/$1.txt" || same "letter $1" "$2" "$(cat "letters/$1.txt")"; }
contains "Enrolment 11" "From your pay of 11 April 2025 on, at least 8% of what you earn above £542 a month"
contains "Enrolment 13" "From your pay of 30 April 2025 on"
contains "Non-Qualifying 12" "while you earn £192 a week or less or are not yet 22 years old"
contains "Postponement 14" "pension scheme on 30 November 2025"
contains "Postponement 14" "1 September 2025"

echo
echo "122 periods of 64 runs, 1 skipped week and 4 letters are as worked out by hand"
