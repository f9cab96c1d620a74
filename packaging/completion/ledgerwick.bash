# Completion of ledgerwick for bash; made by scripts/command-docs --update.

# The options that may stand after every command.
_ledgerwick_options() {
  echo "--help --version --today --csv --json --durability"
}

# The commands and options that may stand after a command.
_ledgerwick_words() {
  case "$1" in
    "") echo "new import upgrade export calendar explain employees employee rows due run fill report employment ae audit statements demo --help --version --today --csv --json --durability" ;;
    "new") echo "--year $(_ledgerwick_options)" ;;
    "import") echo "$(_ledgerwick_options)" ;;
    "upgrade") echo "$(_ledgerwick_options)" ;;
    "export") echo "$(_ledgerwick_options)" ;;
    "calendar") echo "--start-day --year --years --frequency --first-pay --pay-rule --db --svg $(_ledgerwick_options)" ;;
    "explain") echo "--frequency --pay-rule --period-rule --start-day --db $(_ledgerwick_options)" ;;
    "employees") echo "$(_ledgerwick_options)" ;;
    "employee") echo "--as-of $(_ledgerwick_options)" ;;
    "rows") echo "--year $(_ledgerwick_options)" ;;
    "due") echo "--up-to $(_ledgerwick_options)" ;;
    "run") echo "open show close plan $(_ledgerwick_options)" ;;
    "run open") echo "--pay-date --frequency --group --employee $(_ledgerwick_options)" ;;
    "run show") echo "--pay-date --frequency --group --employee $(_ledgerwick_options)" ;;
    "run close") echo "--pay-date --frequency --group --employee $(_ledgerwick_options)" ;;
    "run plan") echo "--pay-date --frequency --group --employee $(_ledgerwick_options)" ;;
    "fill") echo "$(_ledgerwick_options)" ;;
    "report") echo "--pay-date --output $(_ledgerwick_options)" ;;
    "employment") echo "add next $(_ledgerwick_options)" ;;
    "employment add") echo "--employee --start --casual --continuation --ae-status --first-pay --first-period-end --form --declared --previous-reference --previous-left --previous-tax-code --previous-week --previous-gross --previous-tax --text $(_ledgerwick_options)" ;;
    "employment next") echo "--employee --pay --period-end $(_ledgerwick_options)" ;;
    "ae") echo "status employees scheme-changed letters check-templates $(_ledgerwick_options)" ;;
    "ae status") echo "--up-to --year --employee $(_ledgerwick_options)" ;;
    "ae employees") echo "--full $(_ledgerwick_options)" ;;
    "ae scheme-changed") echo "--scheme --re-enrolment $(_ledgerwick_options)" ;;
    "ae letters") echo "--type --out --employee --templates $(_ledgerwick_options)" ;;
    "ae check-templates") echo "--type --db $(_ledgerwick_options)" ;;
    "audit") echo "--remove $(_ledgerwick_options)" ;;
    "statements") echo "$(_ledgerwick_options)" ;;
    "demo") echo "--company --database $(_ledgerwick_options)" ;;
  esac
}

# The values that an option of a command knows; "-" for an option with any other value, nothing for
# a flag.
_ledgerwick_values() {
  case "$1 $2" in
    *" --today") echo "-" ;;
    *" --durability") echo "each-update batched relaxed" ;;
    "new --year") echo "-" ;;
    "calendar --start-day") echo "-" ;;
    "calendar --year") echo "-" ;;
    "calendar --years") echo "-" ;;
    "calendar --frequency") echo "-" ;;
    "calendar --first-pay") echo "-" ;;
    "calendar --pay-rule") echo "-" ;;
    "calendar --db") echo "-" ;;
    "calendar --svg") echo "-" ;;
    "explain --frequency") echo "-" ;;
    "explain --pay-rule") echo "-" ;;
    "explain --period-rule") echo "-" ;;
    "explain --start-day") echo "-" ;;
    "explain --db") echo "-" ;;
    "employee --as-of") echo "-" ;;
    "rows --year") echo "-" ;;
    "due --up-to") echo "-" ;;
    "run open --pay-date") echo "-" ;;
    "run open --frequency") echo "weekly fortnightly four-weekly monthly quarterly half-yearly yearly casual all" ;;
    "run open --group") echo "-" ;;
    "run open --employee") echo "-" ;;
    "run show --pay-date") echo "-" ;;
    "run show --frequency") echo "weekly fortnightly four-weekly monthly quarterly half-yearly yearly casual all" ;;
    "run show --group") echo "-" ;;
    "run show --employee") echo "-" ;;
    "run close --pay-date") echo "-" ;;
    "run close --frequency") echo "weekly fortnightly four-weekly monthly quarterly half-yearly yearly casual all" ;;
    "run close --group") echo "-" ;;
    "run close --employee") echo "-" ;;
    "run plan --pay-date") echo "-" ;;
    "run plan --frequency") echo "weekly fortnightly four-weekly monthly quarterly half-yearly yearly casual all" ;;
    "run plan --group") echo "-" ;;
    "run plan --employee") echo "-" ;;
    "report --pay-date") echo "-" ;;
    "report --output") echo "-" ;;
    "employment add --employee") echo "-" ;;
    "employment add --start") echo "-" ;;
    "employment add --ae-status") echo "-" ;;
    "employment add --first-pay") echo "-" ;;
    "employment add --first-period-end") echo "-" ;;
    "employment add --form") echo "left p38s p45-1 p45-3 p46" ;;
    "employment add --declared") echo "-" ;;
    "employment add --previous-reference") echo "-" ;;
    "employment add --previous-left") echo "-" ;;
    "employment add --previous-tax-code") echo "-" ;;
    "employment add --previous-week") echo "-" ;;
    "employment add --previous-gross") echo "-" ;;
    "employment add --previous-tax") echo "-" ;;
    "employment add --text") echo "-" ;;
    "employment next --employee") echo "-" ;;
    "employment next --pay") echo "-" ;;
    "employment next --period-end") echo "-" ;;
    "ae status --up-to") echo "-" ;;
    "ae status --year") echo "-" ;;
    "ae status --employee") echo "-" ;;
    "ae scheme-changed --scheme") echo "-" ;;
    "ae scheme-changed --re-enrolment") echo "-" ;;
    "ae letters --type") echo "enrolment postponement not-eligible re-enrolment attachment" ;;
    "ae letters --out") echo "-" ;;
    "ae letters --employee") echo "-" ;;
    "ae letters --templates") echo "-" ;;
    "ae check-templates --type") echo "enrolment postponement not-eligible re-enrolment attachment" ;;
    "ae check-templates --db") echo "-" ;;
    "audit --remove") echo "-" ;;
    "demo --company") echo "-" ;;
    "demo --database") echo "-" ;;
  esac
}

_ledgerwick() {
  local current="${COMP_WORDS[COMP_CWORD]}" at="" i word values="" words=""
  for ((i = 1; i < COMP_CWORD; i++)); do
    word="${COMP_WORDS[i]}"
    if [[ "$word" == -* ]]; then
      [[ -n "$(_ledgerwick_values "$at" "$word")" ]] && ((i++))
    elif [[ " $(_ledgerwick_words "$at") " == *" $word "* ]]; then
      at="${at:+$at }$word"
    fi
  done
  # The loop has gone past the end when the word in hand is an option's value.
  ((i > COMP_CWORD)) && values="$(_ledgerwick_values "$at" "${COMP_WORDS[COMP_CWORD - 1]}")"
  if [[ -z "$values" ]]; then
    for word in $(_ledgerwick_words "$at"); do
      [[ "$word" != -* || "$current" == -* ]] && words+=" $word"
    done
    [[ -z "$words" ]] && values=-
  fi
  if [[ "$values" == - ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -W "$words$values" -- "$current")
  fi
}
complete -o filenames -F _ledgerwick ledgerwick
