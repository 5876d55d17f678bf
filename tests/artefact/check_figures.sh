#!/usr/bin/env bash
# Each figure of the README is on the page that its row names, under the heading that it links.
#   check_figures.sh README
set -euo pipefail
readme=$1
folder=$(dirname "$readme")
wrong=0
checked=0
while IFS='|' read -r _ _ value _ link _; do
  value=${value# }
  value=${value% }
  number=${value%% *}
  [[ $link =~ \((docs/[a-z-]*\.md)#([a-z-]*)\) ]] || { echo "$readme: the figure $value names no heading of a page"; wrong=$((wrong + 1)); continue; }
  page=$folder/${BASH_REMATCH[1]}
  section=$(awk -v wanted="${BASH_REMATCH[2]}" '
    /^## / { name = tolower(substr($0, 4)); gsub(/ /, "-", name); inside = name == wanted }
    inside' "$page")
  # As a number of its own.
  if ! grep -qE "(^|[^0-9,.])${number//./\\.}([^0-9,.]|[.,]?$|[.,] )" <<<"$section"; then
    echo "$readme: the figure $value is not on $page under ${BASH_REMATCH[2]}"
    wrong=$((wrong + 1))
  fi
  checked=$((checked + 1))
done < <(awk '/^## / { inside = $0 == "## Figures" } inside && /^\|/' "$readme" | tail -n +3)
((checked > 0)) || { echo "$readme has no figures"; exit 1; }
echo "$checked figures, $wrong wrong"
((wrong == 0))
